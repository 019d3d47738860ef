// Every text that the pane says is there in every language, with the places for what goes into it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <utility>

#include "compatibility/effects.h"
#include "compatibility/look_ups.h"
#include "support/contents.h"

namespace {

namespace fs = std::filesystem;

using test::contents_of;

/// As a literal has it, and a line of the bundle.
std::string escaped(const std::string& text) { return std::regex_replace(text, std::regex("\""), "\\\""); }

/// text<"…">, where a long literal may stand in several pieces.
std::set<std::string> texts_in_source() {
    std::set<std::string> texts;
    const std::regex use(R"re(text<((?:\s*"(?:[^"\\]|\\.)*")+)>)re");
    const std::regex piece(R"re("((?:[^"\\]|\\.)*)")re");
    for (const auto& entry : fs::recursive_directory_iterator(PANE_SOURCES)) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        const std::string source = contents_of(entry.path());
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
    const std::string lines = contents_of(fs::path(PANE_TABLES) / (language + ".lproj/Localizable.strings"));
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

/// What write_texts makes of a file of texts in English, German and French, in a folder that goes with it.
class WrittenTexts : public testing::Test {
  protected:
    WrittenTexts() {
        std::string name = (fs::temp_directory_path() / "texts-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~WrittenTexts() override { fs::remove_all(folder_); }

    /// Its exit status, and what it says, without the folder.
    std::pair<int, std::string> write(const std::string& texts) {
        std::ofstream(folder_ / "texts.txt") << texts;
        const std::string command =
            "cd " + folder_.string() + " && " WRITE_TEXTS " texts.txt tables de fr 2>&1";
        std::unique_ptr<FILE, decltype(&pclose)> pipe(popen(command.c_str(), "r"), &pclose);
        std::string said;
        char part[200];
        while (fgets(part, sizeof part, pipe.get())) said += part;
        return {WEXITSTATUS(pclose(pipe.release())), said};
    }
    std::string table(const std::string& language) const {
        return contents_of(folder_ / "tables" / (language + ".lproj") / "Localizable.strings");
    }
    bool has_tables() const { return fs::exists(folder_ / "tables/en.lproj/Localizable.strings"); }

  private:
    fs::path folder_;
};

TEST_F(WrittenTexts, AreATableForEachLanguage) {
    EXPECT_EQ(write("Say \"hue\"\n  de: \"Farbe\"\n  fr: Dire: \\ %1\n\nOff\n  fr: Non\n  de: Aus\n"),
              std::pair(0, std::string()));
    EXPECT_EQ(table("en"), "\"Say \\\"hue\\\"\" = \"Say \\\"hue\\\"\";\n\"Off\" = \"Off\";\n");
    EXPECT_EQ(table("de"), "\"Say \\\"hue\\\"\" = \"\\\"Farbe\\\"\";\n\"Off\" = \"Aus\";\n");
    EXPECT_EQ(table("fr"), "\"Say \\\"hue\\\"\" = \"Dire: \\\\ %1\";\n\"Off\" = \"Non\";\n");
}

TEST_F(WrittenTexts, AreRefusedWithFileAndLine) {
    const struct {
        const char *texts, *said;
    } refused[] = {
        {"Off\n  de: Aus\n", "texts.txt:1: \"Off\" has no line for fr\n"},
        {"Off\n  de: Aus\n  fr: Non\n\nOff\n", "texts.txt:5: \"Off\" is there twice, first in line 1\n"},
        {"Off\n  de: Aus\n  de: Weg\n", "texts.txt:3: \"Off\" has two lines for de\n"},
        {"Off\n  it: No\n", "texts.txt:2: expected one of de fr, found \"it\"\n"},
        {"Off\n  de:\n", "texts.txt:2: expected \"  <language>: <text>\", found \"  de:\"\n"},
        {"Off\nAus\n", "texts.txt:2: expected \"  <language>: <text>\", found \"Aus\"\n"},
        {"\n  de: Aus\n", "texts.txt:2: expected an English text, found \"  de: Aus\"\n"},
    };
    for (const auto& [texts, said] : refused) {
        EXPECT_EQ(write(texts), std::pair(1, std::string(said)));
        EXPECT_FALSE(has_tables()) << texts;
    }
}

}  // namespace
