// The forever corpus: theme files of every shape, what each of them reads as, and the picture that it gives.
// What a file reads as is the library's word; the command and the pane must agree.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "pane/model/themes.h"
#include "picture.h"
#include "support/configuration.h"
#include "support/contents.h"

namespace test {
namespace {

namespace fs = std::filesystem;

bool is_rebaselining() {
    const char* wish = std::getenv("HUECRAFT_REBASELINE");
    return wish && std::string_view(wish) == "1";
}

// ---- What a theme reads as
// ---------------------------------------------------------------------------------------

/// By getter. Colours are as the library writes them.
using Answers = std::vector<std::pair<std::string, std::string>>;

std::string hex(id colour) {
    return colour ? utf8(objc::send<"hexStringFromColor:", id>(class_named("HCCITool"), colour)) : "none";
}

std::string plain(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", number);
    return text;
}

Answers answers_of(const Configuration& theme) {
    Answers answers;
    auto add = [&](const char* getter, std::string answer) {
        answers.emplace_back(getter, std::move(answer));
    };
    add("getConfigName", theme.name() == "(nil)" ? "none" : nlohmann::json(theme.name()).dump());
    add("getTextColor", hex(theme.text_colour()));
    add("getHighlightColor", hex(theme.highlight_colour()));
    add("getBackgroundType", std::to_string(theme.background_type()));
    std::string colours;
    for (NSUInteger i = 0; theme.colours() && i < theme.colours()->count(); ++i)
        colours += (i ? " " : "") + hex(theme.colours()->objectAtIndex(i));
    add("getColors", theme.colours() ? colours : "none");
    add("getGradientDirection", std::to_string(theme.direction()));
    UIImage* image = theme.image();
    add("getImage", image ? plain(image->size().width) + " x " + plain(image->size().height) : "none");
    add("getImageAlpha", plain(theme.image_alpha()));
    add("getVisibleKeycaps", theme.caps_visible() ? "yes" : "no");
    return answers;
}

/// The same of an answer of huecraft show --json.
std::string in_words(const nlohmann::json& answer) {
    if (answer.is_null()) return "none";
    if (answer.is_boolean()) return answer.get<bool>() ? "yes" : "no";
    if (answer.is_number_unsigned()) return std::to_string(answer.get<unsigned long long>());
    if (answer.is_number_integer()) return std::to_string(answer.get<long long>());
    if (answer.is_number()) return plain(answer);
    if (answer.is_object())
        return std::to_string(answer["width"].get<int>()) + " x " +
               std::to_string(answer["height"].get<int>());
    if (answer.is_array()) {
        std::string all;
        for (const auto& each : answer) all += (all.empty() ? "" : " ") + each.get<std::string>();
        return all;
    }
    return answer;
}

Answers answers_of(const nlohmann::json& shown) {
    Answers answers;
    for (const auto& key : shown.at("keys")) {
        const std::string getter = key.at("getter");
        const auto& answer = key.at("answer");
        // JSON has no number for it.
        const bool is_no_number = getter == "getImageAlpha" && answer.is_null();
        const bool is_name = getter == "getConfigName" && !answer.is_null();
        answers.emplace_back(getter, is_no_number ? "nan" : is_name ? answer.dump() : in_words(answer));
    }
    return answers;
}

// ---- The groups
// --------------------------------------------------------------------------------------------------

class Corpus : public testing::TestWithParam<std::string> {
  protected:
    Corpus() {
        for (const auto& entry : fs::directory_iterator(folder()))
            if (entry.path().extension() == ".plist") files.push_back(entry.path().filename());
        std::ranges::sort(files);
        for (const std::string& file : files) phone.write(theme_folder + file, contents_of(folder() / file));
        for (const auto& entry : fs::directory_iterator(LIBRARY_BUNDLE))
            phone.write("/Library/PreferenceBundles/Huecraft.bundle/" + entry.path().filename().string(),
                        contents_of(entry.path()));
        Phone::Options options;
        options.screen_width = 320;
        options.screen_height = 568;
        options.screen_scale = 1;
        phone.start(options);
    }

    static fs::path folder() { return fs::path(CORPUS) / GetParam(); }

    static std::string lines_of(const Answers& answers) {
        std::string lines;
        for (const auto& [getter, answer] : answers) lines += "    " + getter + ": " + answer + "\n";
        return lines;
    }

    /// The whole group, as reads-as.txt has it.
    std::string read_by_library() const {
        std::string text;
        for (const std::string& file : files) {
            NSError* error = nullptr;
            const Configuration theme{
                made<"initWithFilename:error:">("HuecraftConfig", test::text(file), &error)};
            text += file + "\n";
            text += theme ? lines_of(answers_of(theme)) : "    does not load: " + reason_of(error) + "\n";
        }
        return text;
    }
    static std::string reason_of(NSError* error) {
        auto* info = error->send<"userInfo", NSDictionary*>();
        id parser = info->objectForKey(test::text("NSDebugDescription"));
        return utf8(parser ? parser : error->send<"localizedDescription", id>());
    }

    /// What reads-as.txt says of the file.
    std::string expected_of(const std::string& file) const {
        const std::string all = "\n" + contents_of(folder() / "reads-as.txt");
        const size_t from = all.find("\n" + file + "\n");
        if (from == all.npos) return "";
        const size_t begin = from + file.size() + 2;
        size_t end = begin;
        while (all.compare(end, 4, "    ") == 0) end = all.find('\n', end) + 1;
        return all.substr(begin, end - begin);
    }

    Phone phone;
    std::vector<std::string> files;
};

TEST_P(Corpus, ReadsAsItAlwaysDid) {
    const fs::path expected = folder() / "reads-as.txt";
    const std::string read = read_by_library();
    if (is_rebaselining()) std::ofstream(expected) << read;
    EXPECT_EQ(read, contents_of(expected)) << expected;
}

TEST_P(Corpus, LooksAsItAlwaysDid) {
    constexpr double width = 120, height = 81, columns = 6;
    const double rows = std::ceil(static_cast<double>(files.size()) / columns);
    id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
    UIGraphicsBeginImageContextWithOptions({columns * width, rows * height}, false, 1.0);
    color(1, 1, 1)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {columns * width, rows * height}});
    for (size_t i = 0; i < files.size(); ++i) {
        const Configuration theme = Configuration::from_file(files[i]);
        if (!theme) continue;  // an empty place
        auto* view = objc::send<"viewForConfig:", UIView*>(preview, theme.object);
        view->setFrame({{0, 0}, {320, 216}});
        const auto one = phone.host("/one.png");
        ASSERT_EQ(sim_take_picture_of(view, one.c_str(), 1), SIM_OK) << sim_last_error();
        UIImage* drawn = UIImage::imageWithData(test::data(contents_of(one)));
        ASSERT_NE(drawn, nullptr);
        const size_t column = i % 6, row = i / 6;
        drawn->drawInRect(
            {{static_cast<double>(column) * width, static_cast<double>(row) * height}, {width, height}});
    }
    NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    phone.write("/sheet.png", {static_cast<const char*>(png->bytes()), png->length()});
    EXPECT_TRUE(looks_as_expected(phone.host("/sheet.png"), "corpus-" + GetParam()));
}

TEST_P(Corpus, TheCommandReadsTheSame) {
    const auto out = phone.host("/shown.json");
    std::string command = "'" HUECRAFT_COMMAND "' show --json";
    for (const std::string& file : files) command += " '" + (folder() / file).string() + "'";
    const int status = std::system((command + " >" + out.string() + " 2>/dev/null").c_str());
    ASSERT_TRUE(WIFEXITED(status));
    const auto shown = nlohmann::json::parse(contents_of(out));
    std::map<std::string, std::string> read;
    for (const auto& file : shown.at("files"))
        read[fs::path(file.at("file").get<std::string>()).filename()] = lines_of(answers_of(file));
    const auto refused = shown.value("errors", nlohmann::json::array());
    EXPECT_EQ(read.size() + refused.size(), files.size());
    EXPECT_EQ(WEXITSTATUS(status), refused.empty() ? 0 : 2);
    for (const auto& [file, lines] : read) EXPECT_EQ(lines, expected_of(file)) << file;
    for (const auto& error : refused) {
        const std::string file = fs::path(error.at("file").get<std::string>()).filename();
        const std::string found = error.at("found");
        // The library takes any dictionary.
        EXPECT_TRUE(expected_of(file).starts_with("    does not load: ") ||
                    found.ends_with("none of a theme's keys"))
            << file << ": " << found;
    }
}

TEST_P(Corpus, ThePaneReadsTheSame) {
    for (const std::string& file : files) {
        const auto reading = pane::themes::read(pane::themes::folder(), text(file));
        const std::string expected = expected_of(file);
        EXPECT_EQ(reading.theme.get() == nullptr, reading.fault.get() != nullptr) << file;
        if (expected.starts_with("    does not load: "))
            EXPECT_FALSE(reading.theme) << file;
        else if (reading.theme)
            EXPECT_EQ(lines_of(answers_of(Configuration{reading.theme.get()})), expected) << file;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Corpus,
                         testing::Values("backgrounds", "colours", "formats", "images", "missing", "numbers",
                                         "releases", "types"),
                         [](const auto& group) { return group.param; });

}  // namespace
}  // namespace test
