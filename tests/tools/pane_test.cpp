// huecraft pane.
#include "png.h"
#include "script_run.h"

namespace test {
namespace {

class PaneCommand : public ScriptCommand {
  protected:
    PaneCommand() : ScriptCommand("pane") {}

    static constexpr const char* preferences =
        "phone/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist";
    static constexpr const char* own_themes = "phone/var/mobile/Library/Preferences/HuecraftConfiguration/";

    void make_phone() const { std::filesystem::create_directories(path("phone")); }
};

TEST_F(PaneCommand, WithoutAScriptTheFirstScreenIsDrawn) {
    const Outcome outcome = run({"pane", "-o", "out"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "preferences: no file\nthemes: none\npicture: out/pane.png\n");
    const Png picture(path("out/pane.png"));
    EXPECT_EQ(picture.width, 750);
    EXPECT_EQ(picture.height, 1334);
}

TEST_F(PaneCommand, AChosenThemeIsOnTheKeyboardOfWhatStartsNext) {
    const Json all = played("tap \"Contrast\"\nwait 1\nkeyboard worn\n", {"-o", "out"});
    EXPECT_EQ(all.at("preferences"), "on, Contrast.plist");
    EXPECT_EQ(all.at("themes"), Json({"Contrast.plist"}));
    EXPECT_EQ(all.at("pictures"), Json({"out/worn.png"}));
    const Outcome drawn =
        run({"keyboard", SOURCE_FOLDER "/resources/themes/Contrast.plist", "-o", "drawn.png"});
    ASSERT_EQ(drawn.status, 0) << drawn.err;
    EXPECT_EQ(Png(path("out/worn.png")).pixels, Png(path("drawn.png")).pixels);
}

TEST_F(PaneCommand, TheRestartThatIsAskedForIsReportedAndNotDone) {
    const Json all = played("tap \"Contrast\"\nwait 1\ntap \"Apply\"\nwait 1\ntap \"Restart\"\nwait 1\n");
    ASSERT_FALSE(all.at("events").empty());
    EXPECT_EQ(all.at("events")[0].at("event"), "started");
    EXPECT_EQ(all.at("events")[0].at("line"), 5);
    EXPECT_EQ(all.at("events")[0].at("what"), "/usr/bin/sbreload");
}

TEST_F(PaneCommand, WhatWasDoneStaysWithSaveAlone) {
    make_phone();
    EXPECT_EQ(play("tap \"Contrast\"\nwait 1\n", {"--device", "phone"}).status, 0);
    EXPECT_FALSE(exists(preferences));
    EXPECT_EQ(play("tap \"Contrast\"\nwait 1\n", {"--device", "phone", "--save"}).status, 0);
    EXPECT_TRUE(exists(preferences));
    EXPECT_TRUE(exists(std::string(own_themes) + "Contrast.plist"));
    // And is what the next sitting finds.
    const Json all = played("wait 1", {"--device", "phone"});
    EXPECT_EQ(all.at("preferences"), "on, Contrast.plist");
}

TEST_F(PaneCommand, ThemesOfTheDeviceAreListed) {
    make_phone();
    std::filesystem::create_directories(path(own_themes));
    ASSERT_EQ(run({"new", "Mine", "--flat", "202080", "-o", std::string(own_themes) + "Mine.plist"}).status,
              0);
    EXPECT_EQ(played("tap \"Mine\"\nwait 1\n", {"--device", "phone"}).at("preferences"), "on, Mine.plist");
}

TEST_F(PaneCommand, WhatCannotBeTouchedIsNamedWithItsLine) {
    EXPECT_EQ(complaint("wait 1\ntap \"Nothing here\"\n").substr(0, 5), "s:2: ");
    EXPECT_NE(complaint("tap \"Nothing here\"").find("Nothing here"), std::string::npos);
}

TEST_F(PaneCommand, AScriptThatIsNoneIsNamedWithItsLine) {
    EXPECT_EQ(complaint("\nsing \"a song\""),
              "s:2: there is no instruction \"sing\"; there are delete, drag, keyboard, pasteboard, picture, "
              "pinch, record, return, stop, tap, type, wait, warn-of-memory\n");
    EXPECT_EQ(complaint("keyboard a\nwait 1", {"-o", "out"}),
              "s:2: nothing comes after keyboard, in line 1: Settings has ended\n");
    EXPECT_EQ(complaint("drag 1 2 3"), "s:1: found 3 words after drag; expected: drag X Y X Y [STEPS]\n");
    EXPECT_EQ(complaint("picture a"), "s:1: pictures need a folder to go to: say -o DIR\n");
    EXPECT_EQ(complaint("keyboard a"), "s:1: pictures need a folder to go to: say -o DIR\n");
}

TEST_F(PaneCommand, SavingNeedsADevice) {
    EXPECT_EQ(complaint("wait 1", {"--save"}),
              "--save: there is nothing to save to; it goes with --device\n");
    EXPECT_EQ(complaint("wait 1", {"--device", "nowhere"}), "nowhere: there is no such folder\n");
}

TEST_F(PaneCommand, APackageWithoutAPaneIsRefused) {
    EXPECT_EQ(complaint("wait 1", {"--package", PACKAGE_FILE}), PACKAGE_FILE
              ": no settings pane is inside; expected "
              "/Library/PreferenceBundles/HuecraftSettings.bundle/HuecraftSettings in one of the "
              "packages\n");
}

TEST_F(PaneCommand, APaneThatIsNoneShowsWhySettingsCannotLoadIt) {
    write("pane", "not an image");
    const Outcome outcome = play("picture error", {"--pane", "pane", "-o", "out"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(exists("out/error.png"));
}

TEST_F(PaneCommand, APictureNeverReplacesAnotherKindOfFile) {
    std::filesystem::create_directories(path("out"));
    write("out/pane.png", "a letter");
    const Outcome outcome = run({"pane", "-o", "out"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(read("out/pane.png"), "a letter");
}

TEST_F(PaneCommand, ThePicturesInTheDocsAreWhatTheDemosTouchesMake) {
    ASSERT_EQ(run({"pane", "--script", SOURCE_FOLDER "/tools/demo/pane/road.txt", "--scale", "1", "-o", "p"})
                  .status,
              0);
    expect_documented("p/pane.png", "pane.png");
    EXPECT_TRUE(Png(path("p/pane-keyboard.png")).pixels ==
                Png(SOURCE_FOLDER "/docs/pictures/pane-keyboard.png").pixels);
}

TEST_F(PaneCommand, AnIPadAndAnotherLanguageAreShown) {
    const Outcome outcome = run({"pane", "-o", "out", "--width", "768", "--language", "de", "--scale", "1"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Png(path("out/pane.png")).width, 768);
}

}  // namespace
}  // namespace test
