// huecraft edit, and the notations of colours and directions that are taken everywhere.
#include "command_run.h"
#include "photos/photo_samples.h"

namespace test {
namespace {

class Edit : public Command {
  protected:
    std::string shown(const std::string& file) const { return run({"show", file}).out; }
    static void expect_in(const std::string& text, const std::string& part) {
        EXPECT_NE(text.find(part), text.npos) << part << "\n" << text;
    }
};

TEST_F(Edit, ChangesWhatIsAskedAndKeepsTheRest) {
    write("t.plist",
          theme_file("<key>_ConfigName</key><string>Mine</string><key>_Author</key><string>me</string>"
                     "<key>_TextColor</key><string>#FFFFFF</string>"
                     "<key>_HighlightColor</key><string>#757575</string>"
                     "<key>_BackgroundType</key><integer>1</integer>"
                     "<key>_Colors</key><array><string>#000000</string></array>"));
    const Outcome run = this->run({"edit", "t.plist", "--text", "gold", "--caps"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "changed t.plist (xml)\n");
    const std::string now = shown("t.plist");
    expect_in(now, "getTextColor: #FFD700");
    expect_in(now, "getHighlightColor: #757575");
    expect_in(now, "_Author             \"me\"");
    expect_in(now, "getVisibleKeycaps: visible");
    EXPECT_EQ(this->run({"edit", "t.plist", "--no-caps", "--name", "Ours"}).status, 0);
    expect_in(shown("t.plist"), "getVisibleKeycaps: hidden");
    expect_in(shown("t.plist"), "getConfigName: \"Ours\"");
}

TEST_F(Edit, KeepsTheForm) {
    write("t.plist", sound_theme());
    for (const char* form : {"binary", "openstep", "xml"}) {
        run({"convert", "t.plist", "-o", "f.plist", "--to", form});
        const std::string before = read("f.plist");
        const Outcome run = this->run({"edit", "f.plist", "--text", "#EEEEEE"});
        EXPECT_EQ(run.out, std::string("changed f.plist (") + form + ")\n");
        EXPECT_EQ(read("f.plist").substr(0, 6), before.substr(0, 6));
        expect_in(shown("f.plist"), "getTextColor: #EEEEEE");
    }
}

TEST_F(Edit, DirectionsHaveNames) {
    write("t.plist", sound_theme());
    EXPECT_EQ(
        run({"edit", "t.plist", "--gradient", "black,hsl(0 0% 10%)", "--direction", "down-right"}).status, 0);
    expect_in(shown("t.plist"), "getGradientDirection: 8, top left to bottom right");
    EXPECT_EQ(run({"edit", "t.plist", "--direction", "3"}).status, 0);
    expect_in(shown("t.plist"), "getGradientDirection: 3, right to left");
    EXPECT_EQ(
        run({"edit", "t.plist", "--direction", "sideways"}).err,
        "huecraft: --direction: \"sideways\" is not one of up|down|left|right|up-left|up-right|down-left|"
        "down-right, nor a number from 1 to 8 (see huecraft edit --help)\n");
}

TEST_F(Edit, ColoursComeInEveryNotation) {
    write("t.plist", sound_theme());
    for (const auto& [words, hex] :
         std::vector<std::pair<std::string, std::string>>{{"RebeccaPurple", "#663399"},
                                                          {"hsl(120, 100%, 25%)", "#008000"},
                                                          {"hsl(0.5turn 100% 50% / 50%)", "#00FFFF80"},
                                                          {"hsl(-120deg 50% 50%)", "#4040BF"},
                                                          {"rgb(255 128 0)", "#FF8000"},
                                                          {"#abc", "#AABBCC"},
                                                          {"aabbcc80", "#AABBCC80"}}) {
        EXPECT_EQ(run({"edit", "t.plist", "--text", words}).status, 0) << words;
        expect_in(shown("t.plist"), "getTextColor: " + hex);
    }
    EXPECT_EQ(run({"edit", "t.plist", "--gradient", "hsl(0, 100%, 50%),rgb(0,0,255),teal"}).status, 0);
    expect_in(shown("t.plist"), "getColors: #FF0000, #0000FF, #008080");
    for (const char* wrong : {"hsl(1,2,3)", "hsl(1 2%)", "rgb()", "blu", "", "#12345"})
        EXPECT_EQ(run({"edit", "t.plist", "--text", wrong}).status, 2) << wrong;
}

TEST_F(Edit, PicturesComeAndGo) {
    write("t.plist", sound_theme());
    write("p.png", png_of(sample(621, 399, [](int, int) { return Rgb{100, 60, 20}; })));
    EXPECT_EQ(run({"edit", "t.plist", "--image", "p.png"}).status, 0);
    expect_in(shown("t.plist"), "getBackgroundType: 3, image");
    EXPECT_EQ(run({"edit", "t.plist", "--dim", "0.5"}).status, 0);
    const Rgb pixel = picture_in(read("t.plist")).at(100, 100);
    EXPECT_NEAR(pixel[0], 50, 3);
    EXPECT_EQ(run({"edit", "t.plist", "--no-image"}).status, 0);
    expect_in(shown("t.plist"), "getBackgroundType: 1, flat colour");
    expect_in(shown("t.plist"), "getImage: no image");
    EXPECT_EQ(run({"edit", "t.plist", "--dim", "0.5"}).status, 2);
}

TEST_F(Edit, AnotherOutputLeavesTheThemeAlone) {
    write("t.plist", sound_theme());
    EXPECT_EQ(run({"edit", "t.plist", "--text", "gold", "-o", "u.plist"}).status, 0);
    EXPECT_EQ(read("t.plist"), sound_theme());
    expect_in(shown("u.plist"), "getTextColor: #FFD700");
    write("notes.txt", "my notes");
    EXPECT_EQ(run({"edit", "t.plist", "--text", "gold", "-o", "notes.txt"}).status, 2);
    EXPECT_EQ(read("notes.txt"), "my notes");
}

TEST_F(Edit, WhatIsHardToReadIsSaidAtOnce) {
    write("t.plist", sound_theme());
    expect_in(run({"edit", "t.plist", "--text", "black"}).out, "labels or highlights are hard to tell: ");
    expect_in(run({"new", "Weak", "--text", "gray", "--flat", "gray"}).out,
              "labels or highlights are hard to tell: ");
    EXPECT_EQ(run({"new", "Fine", "--text", "white", "--highlight", "777777", "--flat", "black"}).out,
              "made the theme \"Fine\": Fine.plist\n");
}

TEST_F(Edit, VersionAndHelpAreToldInBothWays) {
    EXPECT_EQ(run({"--version"}).out, "huecraft " PROJECT_VERSION "\n");
    EXPECT_EQ(run({"help"}).out, run({"--help"}).out);
    EXPECT_EQ(run({"help", "lint"}).out, run({"lint", "--help"}).out);
    EXPECT_EQ(run({"help", "paint"}).status, 2);
}

}  // namespace
}  // namespace test
