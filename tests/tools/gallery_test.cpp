// huecraft preview and huecraft gallery.
#include <algorithm>

#include "command_run.h"
#include "png.h"

namespace test {
namespace {

using Preview = Command;
using Gallery = Command;

size_t count(const std::string& text, const std::string& part) {
    size_t found = 0;
    for (size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++found;
    return found;
}

TEST_F(Preview, ShowsLabelsAndBackgroundInTheThemesColours) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"preview", "sound.plist", "-o", "p.png"});
    EXPECT_EQ(run.status, 0) << run.err;
    const Png png(path("p.png"));
    EXPECT_EQ(png.width, 750);
    EXPECT_EQ(png.height, 432);
    EXPECT_EQ(png.at(2, 2), 0x000000u);
    EXPECT_GT(std::ranges::count(png.pixels, 0xffffffu), 1000);
}

TEST_F(Preview, ScaleIsInPixelsPerPoint) {
    write("sound.plist", sound_theme());
    ASSERT_EQ(run({"preview", "sound.plist", "-o", "p.png", "--scale", "1"}).status, 0);
    EXPECT_EQ(Png(path("p.png")).width, 375);
}

TEST_F(Preview, WhatIsNoThemeLeavesNoPicture) {
    write("broken.plist", "<plist");
    const Outcome run = this->run({"preview", "broken.plist", "-o", "p.png"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_EQ(names(), std::vector<std::string>{"broken.plist"});
}

TEST_F(Gallery, HasTwoPicturesOfEachThemeInTheOrderGiven) {
    for (const char* name : {"One", "Two", "Three", "Four", "Five"})
        ASSERT_EQ(run({"new", name, "--flat", "102030"}).status, 0);
    const Outcome run = this->run(
        {"gallery", "One.plist", "Two.plist", "Three.plist", "Four.plist", "Five.plist", "-o", "g.html"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "g.html shows 5 themes\n");
    const std::string page = read("g.html");
    EXPECT_EQ(count(page, "src=\"data:image/png;base64,iVBORw0KGgo"), 10u);
    size_t at = 0;
    for (const char* name : {"<b>One</b>", "<b>Two</b>", "<b>Three</b>", "<b>Four</b>", "<b>Five</b>"})
        EXPECT_NE(at = page.find(name, at), page.npos) << name;
}

TEST_F(Gallery, EachThemeIsShownInItsOwnColours) {
    ASSERT_EQ(run({"new", "Red", "--flat", "FF0000"}).status, 0);
    ASSERT_EQ(run({"new", "Blue", "--flat", "0000FF"}).status, 0);
    ASSERT_EQ(run({"gallery", "Red.plist", "Blue.plist", "Red.plist", "-o", "g.html"}).status, 0);
    const std::string page = read("g.html");
    std::vector<std::string> pictures;
    for (size_t at = 0; (at = page.find("base64,", at)) != page.npos; at += 7)
        pictures.push_back(page.substr(at, page.find('"', at) - at));
    ASSERT_EQ(pictures.size(), 6u);
    EXPECT_EQ(pictures[0], pictures[4]);
    EXPECT_EQ(pictures[1], pictures[5]);
    EXPECT_NE(pictures[0], pictures[2]);
    EXPECT_NE(pictures[1], pictures[3]);
}

TEST_F(Gallery, WhatCannotBeUsedIsNamedAndLeftOut) {
    write("sound.plist", sound_theme());
    write("broken.plist", "{");
    const Outcome run =
        this->run({"gallery", "broken.plist", "sound.plist", "missing.plist", "-o", "g.html"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 2u) << run.err;
    EXPECT_EQ(run.out, "g.html shows 1 theme\n");
    EXPECT_EQ(count(read("g.html"), "<figure>"), 1u);
}

TEST_F(Gallery, NamesAreTextAndNotMarkup) {
    ASSERT_EQ(run({"new", "<script>&\"", "-o", "evil.plist"}).status, 0);
    ASSERT_EQ(run({"gallery", "evil.plist", "-o", "g.html"}).status, 0);
    const std::string page = read("g.html");
    EXPECT_EQ(page.find("<script>"), page.npos);
    EXPECT_NE(page.find("<b>&lt;script&gt;&amp;&quot;</b>"), page.npos);
}

TEST_F(Gallery, APlaceThatCannotBeWrittenIsSaidBeforeTheWork) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"gallery", "sound.plist", "-o", "missing/g.html"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: missing/g.html: cannot be written: the folder does not exist\n");
}

TEST_F(Gallery, MemoryDoesNotGrowWithTheNumberOfThemes) {
    write("sound.plist", sound_theme());
    auto peak_of = [&](size_t themes) {
        std::vector<std::string> arguments(themes + 3, "sound.plist");
        arguments[0] = "gallery";
        arguments[themes + 1] = "-o";
        arguments[themes + 2] = "g.html";
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        return run.peak_kilobytes;
    };
    // The pictures of 76 themes more are about 5 MB in the page. A sanitizer keeps what is freed for a while.
#if __has_feature(address_sanitizer)
    constexpr long room = 64 << 10;
#else
    constexpr long room = 3 << 10;
#endif
    const long few = peak_of(4);
    EXPECT_LT(peak_of(80), few + room);
}

}  // namespace
}  // namespace test
