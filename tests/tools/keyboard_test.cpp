// huecraft keyboard.
#include <algorithm>

#include "command_run.h"
#include "png.h"

namespace test {
namespace {

using Keyboard = Command;

TEST_F(Keyboard, WearsTheTheme) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"keyboard", "sound.plist", "-o", "k.png"});
    EXPECT_EQ(run.status, 0) << run.err;
    const Png png(path("k.png"));
    EXPECT_EQ(png.width, 750);
    EXPECT_EQ(png.height, 1334);
    EXPECT_EQ(png.at(4, 1330), 0x000000u);
    EXPECT_EQ(png.at(4, 4), 0xffffffu);  // the page
}

TEST_F(Keyboard, DeviceOrientationAndScaleDecideThePicturesSize) {
    write("sound.plist", sound_theme());
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "k.png", "--device", "iphone-se", "--orientation",
                   "landscape", "--scale", "1"})
                  .status,
              0);
    const Png png(path("k.png"));
    EXPECT_EQ(png.width, 568);
    EXPECT_EQ(png.height, 320);
}

TEST_F(Keyboard, APressedKeyIsDrawnInTheHighlight) {
    write("sound.plist", sound_theme());
    auto has_highlight = [&] {
        const Png png(path("k.png"));
        return std::ranges::count(png.pixels, 0x757575u);
    };
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "k.png"}).status, 0);
    const auto at_rest = has_highlight();
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "k.png", "--press", "g"}).status, 0);
    EXPECT_GT(has_highlight(), at_rest + 1000);
}

TEST_F(Keyboard, AKeyThatThePlaneLacksIsNamed) {
    write("sound.plist", sound_theme());
    const Outcome run =
        this->run({"keyboard", "sound.plist", "-o", "k.png", "--state", "numbers", "--press", "g"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with(
        "huecraft: --press: found \"g\", expected a key of the numbers plane: 1 2 3 4 5 6 7 8 9 0 "))
        << run.err;
    EXPECT_EQ(names(), std::vector<std::string>{"sound.plist"});
}

TEST_F(Keyboard, AnUnknownStateOrDeviceIsRefusedWithWhatThereIs) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"keyboard", "sound.plist", "-o", "k.png", "--state", "capitals"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: --state: \"capitals\" is not one of letters|shifted|numbers|symbols|emoji (see huecraft "
        "keyboard --help)\n");
    EXPECT_EQ(this->run({"keyboard", "sound.plist", "-o", "k.png", "--device", "toaster"}).status, 2);
}

TEST_F(Keyboard, WhatIsNoThemeLeavesNoPicture) {
    write("broken.plist", "<plist");
    const Outcome run = this->run({"keyboard", "broken.plist", "-o", "k.png"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with("huecraft: broken.plist: it is not a property list")) << run.err;
    EXPECT_EQ(names(), std::vector<std::string>{"broken.plist"});
}

TEST_F(Keyboard, AnOutputThatIsAFolderIsNamedAndKept) {
    write("sound.plist", sound_theme());
    std::filesystem::create_directory(path("folder"));
    const Outcome run = this->run({"keyboard", "sound.plist", "-o", "folder"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: folder: cannot be written: it is a folder and not a file\n");
}

TEST_F(Keyboard, AnOutputThroughALinkReplacesWhatItPointsTo) {
    write("sound.plist", sound_theme());
    write("old.png", "");
    std::filesystem::create_symlink("old.png", path("link.png"));
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "link.png"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.png")));
    EXPECT_EQ(Png(path("old.png")).width, 750);
}

TEST_F(Keyboard, ThePreviewSaysThatItsCapsDiffer) {
    const std::string sound = sound_theme(), end = "</dict>";
    write("plain.plist", sound);
    write("caps.plist", std::string(sound).insert(sound.find(end), "<key>_VisibleKeycaps</key><true/>"));
    const std::string note = "the preview's key caps are dark grey; the keyboard's are light";
    EXPECT_EQ(run({"preview", "plain.plist", "-o", "p.png"}).out, "");
    EXPECT_EQ(run({"preview", "caps.plist", "-o", "c.png"}).out, "c.png: " + note + "\n");
    const std::string said = run({"preview", "caps.plist", "-o", "c.png", "--json"}).out;
    EXPECT_NE(said.find("\"differsFromKeyboard\": \"" + note + "\""), said.npos) << said;
}

}  // namespace
}  // namespace test
