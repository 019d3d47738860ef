// huecraft show.
#include <nlohmann/json.hpp>

#include "command_run.h"

namespace test {
namespace {

using Show = Command;

TEST_F(Show, EveryKeyHasItsStoredValueAndTheGettersAnswer) {
    write("odd.plist",
          theme_file("<key>_ConfigName</key><integer>7</integer>"
                     "<key>_TextColor</key><string>zz</string>"
                     "<key>_BackgroundType</key><string>3</string>"
                     "<key>_Colors</key><array><string>#ff0000</string><integer>5</integer></array>"));
    const Outcome run = this->run({"show", "odd.plist"});
    EXPECT_EQ(run.status, 0) << run.err;
    for (const char* part :
         {"  _ConfigName         7\n                      getConfigName: no name\n",
          "  _TextColor          \"zz\"\n                      getTextColor: #00000000\n",
          "  _HighlightColor     missing\n                      getHighlightColor: no colour\n",
          "  _BackgroundType     \"3\"\n                      getBackgroundType: 3, image\n",
          "  _Colors             [\"#ff0000\", 5]\n                      getColors: #FF0000\n",
          "  _GradientDirection  missing\n                      getGradientDirection: 9, drawn as 2, top to "
          "bottom\n",
          "  _Image              missing\n                      getImage: no image\n",
          "  _ImageAlpha         missing\n                      getImageAlpha: 1\n",
          "  _VisibleKeycaps     missing\n                      getVisibleKeycaps: hidden\n"})
        EXPECT_NE(run.out.find(part), run.out.npos) << part << run.out;
}

TEST_F(Show, UnknownKeysAreNamed) {
    write("more.plist", theme_file("<key>_TextColor</key><string>#FFFFFF</string><key>_Author</key><true/>"));
    const Outcome run = this->run({"show", "more.plist"});
    EXPECT_NE(run.out.find("  _Author             yes\n                      unknown to the library\n"),
              run.out.npos)
        << run.out;
}

TEST_F(Show, JsonHasStoredValuesAnswersAndUnknownKeys) {
    write("odd.plist",
          theme_file("<key>_TextColor</key><string>zz</string><key>_More</key><real>0.5</real>"));
    const auto json = nlohmann::json::parse(run({"show", "--json", "odd.plist"}).out);
    const auto& theme = json.at("files").at(0);
    EXPECT_EQ(theme.at("file"), "odd.plist");
    EXPECT_EQ(theme.at("keys").at(1).at("key"), "_TextColor");
    EXPECT_EQ(theme.at("keys").at(1).at("stored"), "zz");
    EXPECT_EQ(theme.at("keys").at(1).at("answer"), "#00000000");
    EXPECT_EQ(theme.at("keys").at(0).at("missing"), true);
    EXPECT_EQ(theme.at("unknown").at("_More"), 0.5);
}

TEST_F(Show, AFileThroughALinkIsShown) {
    write("real.plist", sound_theme());
    std::filesystem::create_symlink("real.plist", path("link.plist"));
    EXPECT_EQ(run({"show", "link.plist"}).status, 0);
}

TEST_F(Show, ThemesInAllThreeFormsAreRead) {
    write("old.plist", "{ \"_TextColor\" = \"#FFFFFF\"; \"_BackgroundType\" = 1; }");
    const Outcome run = this->run({"show", "old.plist"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("getBackgroundType: 1, flat colour"), run.out.npos) << run.out;
}

TEST_F(Show, ControlCharactersOfAThemeDoNotReachTheTerminal) {
    write("evil.plist", "{ \"_ConfigName\" = \"a\\033[31mb\"; }");
    const Outcome run = this->run({"show", "evil.plist"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.find('\x1b'), run.out.npos);
    EXPECT_NE(run.out.find("\"a\\x1b[31mb\""), run.out.npos) << run.out;
}

}  // namespace
}  // namespace test
