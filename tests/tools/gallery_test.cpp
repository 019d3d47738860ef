// huecraft preview and huecraft gallery.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <future>
#include <thread>

#include "command_run.h"
#include "gallery/parsed_page.h"
#include "png.h"

namespace test {
namespace {

using Preview = Command;
using Gallery = Command;

/// The themes on the page of this gallery.
std::vector<ShownTheme> themes_on(const std::string& page) { return GalleryPage(page).themes(); }

std::vector<std::string> names_of(const std::vector<ShownTheme>& themes) {
    std::vector<std::string> names;
    for (const ShownTheme& theme : themes) names.push_back(theme.name);
    return names;
}

/// The process that has the pipe open, other than this one.
pid_t reader_of(const std::filesystem::path& pipe) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    for (const auto& process : fs::directory_iterator("/proc")) {
        const std::string name = process.path().filename();
        pid_t number = 0;
        std::from_chars(name.data(), name.data() + name.size(), number);
        if (number <= 0 || number == getpid()) continue;
        for (const auto& descriptor : fs::directory_iterator(process.path() / "fd", ignored))
            if (fs::read_symlink(descriptor, ignored) == pipe) return number;
    }
    return 0;
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

TEST_F(Gallery, HasAPictureOfEachThemeInTheOrderGiven) {
    for (const char* name : {"One", "Two", "Three", "Four", "Five"})
        ASSERT_EQ(run({"new", name, "--flat", "102030"}).status, 0);
    const Outcome run = this->run(
        {"gallery", "One.plist", "Two.plist", "Three.plist", "Four.plist", "Five.plist", "-o", "g.html"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "g.html shows 5 themes\n");
    const auto themes = themes_on(read("g.html"));
    EXPECT_EQ(names_of(themes), (std::vector<std::string>{"One", "Two", "Three", "Four", "Five"}));
    for (const ShownTheme& theme : themes) EXPECT_EQ(decoded_picture(theme.picture).width, 750);
}

TEST_F(Gallery, EachThemeIsShownInItsOwnColours) {
    ASSERT_EQ(run({"new", "Red", "--flat", "FF0000"}).status, 0);
    ASSERT_EQ(run({"new", "Blue", "--flat", "0000FF"}).status, 0);
    ASSERT_EQ(run({"gallery", "Red.plist", "Blue.plist", "Red.plist", "-o", "g.html"}).status, 0);
    const auto themes = themes_on(read("g.html"));
    ASSERT_EQ(themes.size(), 3u);
    EXPECT_EQ(themes[0].picture, themes[2].picture);
    EXPECT_EQ(decoded_picture(themes[0].picture).at(2, 2), 0xff0000u);
    EXPECT_EQ(decoded_picture(themes[1].picture).at(2, 2), 0x0000ffu);
}

TEST_F(Gallery, PicturesAreThoseOfTheKeyboardWhateverWasDrawnBefore) {
    const std::string picture = BUILD_FOLDER "/share/huecraft/themes/Dusk.png";
    using Options = std::vector<std::string>;
    const std::vector<Options> kinds{
        {"--flat", "102030"},
        {"--gradient", "FF8040,2040FF", "--direction", "5"},
        {"--image", picture, "--alpha", "0.4"},
        {"--image", picture},
        {"--flat", "FFFFFF80"},
        {"--gradient", "FF804060,2040FF", "--direction", "4"},
    };
    std::vector<std::string> files;
    for (const Options& kind : kinds)
        for (bool caps : {false, true}) {
            const std::string name = "Kind" + std::to_string(files.size());
            Options arguments{"new", name, "--text", std::to_string(200000 + 40000 * files.size())};
            arguments.insert(arguments.end(), kind.begin(), kind.end());
            if (caps) arguments.push_back("--caps");
            const Outcome made = run(arguments);
            ASSERT_EQ(made.status, 0) << made.err;
            files.push_back(name + ".plist");
        }
    write("None.plist", theme_file("<key>_BackgroundType</key><integer>0</integer>"
                                   "<key>_TextColor</key><string>#A03010</string>"));
    files.push_back("None.plist");
    std::vector<Pixels> alone;
    for (const std::string& file : files) {
        ASSERT_EQ(run({"keyboard", file, "-o", "one.png", "--press", "v"}).status, 0);
        alone.push_back(decoded_picture(read("one.png")).lowest(432));
    }
    std::vector<std::string> shown(files.size());

    // Every theme twice: no worker draws two of a kind one after the other, and each draws some of all.
    for (bool backwards : {false, true}) {
        std::vector<size_t> order;
        for (size_t i = 0; i < 2 * files.size(); ++i) order.push_back(i % files.size());
        if (backwards) std::ranges::reverse(order);
        std::vector<std::string> arguments{"gallery", "-o", "g.html"};
        for (size_t number : order) arguments.push_back(files[number]);
        ASSERT_EQ(run(arguments).status, 0);
        const auto themes = themes_on(read("g.html"));
        ASSERT_EQ(themes.size(), order.size());
        for (size_t i = 0; i < order.size(); ++i) {
            std::string& before = shown[order[i]];
            if (before.empty()) before = themes[i].picture;
            EXPECT_TRUE(before == themes[i].picture) << files[order[i]];
            // They are stored small.
            EXPECT_LT(difference(decoded_picture(themes[i].picture), alone[order[i]]), 5) << files[order[i]];
        }
    }
}

TEST_F(Gallery, AThemeAtWhichItsPhoneStopsCostsNoOther) {
    // All workers come to a pipe at first, and wait there for contents.
    const size_t workers = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::string> arguments{"gallery", "-o", "g.html"}, complaints;
    for (size_t i = 0; i < workers; ++i) {
        const std::string name = "stuck" + std::to_string(i) + ".plist";
        ASSERT_EQ(mkfifo(path(name).c_str(), 0600), 0);
        arguments.push_back(name);
        complaints.push_back("huecraft: " + name + ": the simulated phone stopped: Killed\n");
    }
    ASSERT_EQ(run({"new", "Sound", "--flat", "102030"}).status, 0);
    ASSERT_EQ(run({"new", "Capped", "--flat", "302010", "--caps"}).status, 0);
    for (const char* name : {"Sound.plist", "Capped.plist", "Sound.plist"}) arguments.push_back(name);

    auto running = std::async(std::launch::async, [&] { return this->run(arguments); });
    for (size_t i = 0; i < workers; ++i) {
        const auto pipe = path("stuck" + std::to_string(i) + ".plist");
        const int writing = open(pipe.c_str(), O_WRONLY);  // waits for the reader
        // Which may have it open before it has a number for it.
        pid_t worker = reader_of(pipe);
        for (int tries = 0; worker == 0 && tries < 500; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            worker = reader_of(pipe);
        }
        EXPECT_GT(worker, 0);
        if (worker > 0) kill(worker, SIGKILL);
        close(writing);
    }
    const Outcome outcome = running.get();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(lines(outcome.err), workers) << outcome.err;
    for (const std::string& complaint : complaints)
        EXPECT_NE(outcome.err.find(complaint), outcome.err.npos) << complaint << outcome.err;
    EXPECT_EQ(outcome.out, "g.html shows 3 themes\n");
    EXPECT_EQ(themes_on(read("g.html")).size(), 3u);
}

TEST_F(Gallery, AThemeWithVisibleCapsFromStandardInputIsReadOnce) {
    ASSERT_EQ(run({"new", "Capped", "--flat", "302010", "--caps"}).status, 0);
    const Outcome outcome = run({"gallery", "-", "-o", "g.html"}, read("Capped.plist"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "g.html shows 1 theme\n");
}

TEST_F(Gallery, WhatCannotBeUsedIsNamedAndLeftOut) {
    write("sound.plist", sound_theme());
    write("broken.plist", "{");
    const Outcome run =
        this->run({"gallery", "broken.plist", "sound.plist", "missing.plist", "-o", "g.html"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 2u) << run.err;
    EXPECT_EQ(run.out, "g.html shows 1 theme\n");
    EXPECT_EQ(themes_on(read("g.html")).size(), 1u);
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
#if __has_feature(address_sanitizer)
    setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);  // it keeps what is freed: here not for long
    constexpr long room = 64 << 10;
#else
    constexpr long room = 3 << 10;  // the pictures of 396 themes more are about 5 MB in the page
#endif
    const long few = peak_of(4);
    EXPECT_LT(peak_of(400), few + room);
}

}  // namespace
}  // namespace test
