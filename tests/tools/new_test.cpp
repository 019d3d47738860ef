// huecraft new.
#include "command_run.h"

namespace test {
namespace {

using New = Command;

TEST_F(New, WritesTheFileThatTheLibrarySaves) {
    const Outcome run = this->run(
        {"new", "Midnight", "--text", "FFB84D", "--highlight", "#35539b", "--flat", "1B244080", "--caps"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("made the theme \"Midnight\": Midnight.plist\n")) << run.out;
    const std::string file = read("Midnight.plist");
    for (const char* part :
         {"<string>Midnight</string>", "<string>#FFB84D</string>", "<string>#35539B</string>",
          "<string>#1B244080</string>", "<integer>1</integer>", "<true/>"})
        EXPECT_NE(file.find(part), file.npos) << part;
}

TEST_F(New, AGradientKeepsItsColoursInOrderAndItsDirection) {
    ASSERT_EQ(run({"new", "Peach", "--gradient", "FFE29A,FF9A8B,FF6A88", "--direction", "8"}).status, 0);
    const std::string shown = run({"show", "Peach.plist"}).out;
    EXPECT_NE(shown.find("getColors: #FFE29A, #FF9A8B, #FF6A88"), shown.npos);
    EXPECT_NE(shown.find("getGradientDirection: 8, top left to bottom right"), shown.npos);
    EXPECT_NE(shown.find("getBackgroundType: 2, gradient"), shown.npos);
}

TEST_F(New, WithoutAnythingItIsTheLibrarysDefaultTheme) {
    ASSERT_EQ(run({"new", "Plain"}).status, 0);
    const std::string shown = run({"show", "Plain.plist"}).out;
    EXPECT_NE(shown.find("getTextColor: #FFFFFF"), shown.npos);
    EXPECT_NE(shown.find("getColors: #00000066, #FF0000"), shown.npos);
}

TEST_F(New, InvalidHexIsNamedWithItsOption) {
    const Outcome run = this->run({"new", "Bad", "--text", "#12345"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: --text: \"#12345\" is not a colour; expected #RRGGBB, #RRGGBBAA, rgb(…), hsl(…) or a "
        "name of CSS "
        "(see huecraft new --help)\n");
    EXPECT_TRUE(names().empty());
}

TEST_F(New, OneInvalidColourOfAGradientIsNamed) {
    const Outcome run = this->run({"new", "Bad", "--gradient", "FF0000,zz"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("--gradient: \"zz\" is not a colour"), run.err.npos) << run.err;
}

TEST_F(New, BackgroundsExcludeOneAnother) {
    const Outcome run = this->run({"new", "Both", "--flat", "FF0000", "--gradient", "FF0000,00FF00"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_TRUE(names().empty());
}

TEST_F(New, AlphaNeedsAnImage) { EXPECT_EQ(run({"new", "Thin", "--alpha", "0.5"}).status, 2); }

TEST_F(New, ADirectionBeyondEightIsRefused) {
    EXPECT_EQ(run({"new", "Off", "--gradient", "FF0000,00FF00", "--direction", "9"}).status, 2);
}

TEST_F(New, SlashesLeaveTheFilesNameAndStayInTheThemes) {
    const Outcome run = this->run({"new", "Day/Night"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(names(), std::vector<std::string>{"DayNight.plist"});
    EXPECT_NE(read("DayNight.plist").find("<string>Day/Night</string>"), std::string::npos);
}

TEST_F(New, ANameOfSlashesAloneIsRefused) {
    const Outcome run = this->run({"new", "///"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: ///: nothing of the name is left for a file's name\n");
}

TEST_F(New, AnEmptyNameIsRefused) {
    const Outcome run = this->run({"new", ""});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: NAME: found \"\", expected the theme's name (see huecraft new --help)\n");
}

TEST_F(New, ANameLongerThanFileNamesIsRefused) {
    EXPECT_EQ(run({"new", std::string(249, 'n')}).status, 0);
    const Outcome run = this->run({"new", std::string(250, 'n')});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("the name is too long for a file's: 250 bytes, and at most 249 fit"),
              run.err.npos);
    EXPECT_EQ(names().size(), 1u);
}

TEST_F(New, ANameThatIsNoUtf8IsRefused) {
    const Outcome run = this->run({"new", "caf\xe9"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: caf\\xe9: the name is not UTF-8\n");
}

TEST_F(New, AFileThatExistsIsKeptUnlessForced) {
    write("Plain.plist", "mine");
    const Outcome run = this->run({"new", "Plain"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: Plain.plist: exists already; --force replaces it\n");
    EXPECT_EQ(read("Plain.plist"), "mine");
    EXPECT_EQ(this->run({"new", "Plain", "--force"}).status, 0);
    EXPECT_NE(read("Plain.plist"), "mine");
}

TEST_F(New, AnOutputInAFolderThatIsMissingIsNamedAndNothingIsLeft) {
    const Outcome run = this->run({"new", "Plain", "-o", "missing/plain.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: missing/plain.plist: cannot be written: the folder does not exist\n");
    EXPECT_TRUE(names().empty());
}

TEST_F(New, ADashWritesToStandardOutput) {
    const Outcome run = this->run({"new", "Plain", "-o", "-"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.starts_with("<?xml"));
    EXPECT_TRUE(names().empty());
}

TEST_F(New, WhatIsNoPictureIsNamed) {
    write("notes.png", "not a picture");
    const Outcome run = this->run({"new", "Picture", "--image", "notes.png"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: notes.png: it is not a picture that can be read: found \"not a pi\" at its beginning, "
        "expected PNG, JPEG, WebP or HEIC\n");
    EXPECT_EQ(names(), std::vector<std::string>{"notes.png"});
}

TEST_F(New, ANumberThatIsNoneIsRefusedWithItsRange) {
    write("p.png", "");
    const Outcome run = this->run({"new", "Thin", "--image", "p.png", "--alpha", "nan"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: --alpha: \"nan\" is not a number from 0 to 1 (see huecraft new --help)\n");
    write("s.plist", sound_theme());
    EXPECT_EQ(this->run({"keyboard", "s.plist", "-o", "k.png", "--scale", "nan"}).err,
              "huecraft: --scale: \"nan\" is not a number from 0.1 to 8 (see huecraft keyboard --help)\n");
}

TEST_F(New, AGradientOfOneColourIsRefused) {
    const Outcome run = this->run({"new", "One", "--gradient", "FF0000"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: --gradient: found one colour, expected two or more; --flat takes one (see huecraft new "
        "--help)\n");
}

}  // namespace
}  // namespace test
