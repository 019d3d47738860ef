// Every text that the pane says is there in every language, with the places for what goes into it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "compatibility/effects.h"
#include "compatibility/look_ups.h"

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// As a literal has it, and a line of the bundle.
std::string escaped(const std::string& text) { return std::regex_replace(text, std::regex("\""), "\\\""); }

/// text<"…">, where a long literal may stand in several pieces.
std::set<std::string> texts_in_source() {
    std::set<std::string> texts;
    const std::regex use(R"re(text<((?:\s*"(?:[^"\\]|\\.)*")+)>)re");
    const std::regex piece(R"re("((?:[^"\\]|\\.)*)")re");
    for (const auto& entry : fs::recursive_directory_iterator(PANE_SOURCES)) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        const std::string source = contents(entry.path());
        for (std::sregex_iterator found(source.begin(), source.end(), use), end; found != end; ++found) {
            const std::string literal = found->str(1);
            std::string text;
            for (std::sregex_iterator part(literal.begin(), literal.end(), piece); part != end; ++part)
                text += part->str(1);
            texts.insert(text);
        }
    }
    // What the commands say in English alone.
    const auto add = [&](const char* sentence) {
        if (sentence && *sentence) texts.insert(escaped(sentence));
    };
    for (const auto& effect : compatibility::effects()) add(effect.sentence);
    for (const auto& wanted : compatibility::look_ups()) {
        add(wanted.without_class);
        add(wanted.without_member);
    }
    return texts;
}

std::map<std::string, std::string> texts_in_bundle(const std::string& language) {
    const std::string lines = contents(fs::path(PANE_BUNDLE) / (language + ".lproj/Localizable.strings"));
    const std::regex line(R"re("((?:[^"\\]|\\.)*)" = "((?:[^"\\]|\\.)*)";\n)re");
    std::map<std::string, std::string> texts;
    size_t read = 0;
    for (std::sregex_iterator found(lines.begin(), lines.end(), line), end; found != end; ++found) {
        EXPECT_TRUE(texts.emplace(found->str(1), found->str(2)).second) << found->str(1) << " is there twice";
        read += found->str().size();
    }
    EXPECT_EQ(read, lines.size()) << language << " has a line of another form than \"text\" = \"text\";";
    return texts;
}

class Language : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(, Language, testing::Values("en", "de", "fr", "es", "ja", "zh-Hans"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_P(Language, HasEveryTextAndNoOther) {
    std::set<std::string> translated;
    for (const auto& [english, translation] : texts_in_bundle(GetParam())) translated.insert(english);
    EXPECT_EQ(translated, texts_in_source());
}

TEST_P(Language, HasAPlaceForWhatGoesIntoAText) {
    for (const auto& [english, translation] : texts_in_bundle(GetParam())) {
        EXPECT_NE(translation, "") << english;
        for (const char* place : {"%1", "%2"})
            EXPECT_EQ(english.find(place) != english.npos, translation.find(place) != translation.npos)
                << english << ": " << translation;
    }
}

TEST(Languages, EnglishSaysWhatTheSourceSays) {
    for (const auto& [english, translation] : texts_in_bundle("en")) EXPECT_EQ(translation, english);
}

TEST(Languages, TheSourceHasTexts) { EXPECT_GT(texts_in_source().size(), 30u); }

}  // namespace
