// Every subcommand that writes a file, while a system call about the file or its folder fails.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <set>
#include <sstream>

#include "folder.h"
#include "support/faults.h"

namespace test {
namespace {

namespace fs = std::filesystem;

constexpr const char* a_theme =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
    "<key>_ConfigName</key><string>Sound</string>"
    "<key>_TextColor</key><string>#808080</string>"
    "<key>_HighlightColor</key><string>#757575</string>"
    "<key>_BackgroundType</key><integer>1</integer>"
    "<key>_Colors</key><array><string>#000000</string></array>"
    "<key>_GradientDirection</key><integer>2</integer>"
    "<key>_Image</key><string>nil</string></dict></plist>\n";

/// With HUECRAFT_FAULTS=all every call meets every fault, and those about temporary files as well.
bool all_are_wanted() {
    const char* wanted = std::getenv("HUECRAFT_FAULTS");
    return wanted && std::string(wanted) == "all";
}

class CommandFaults : public testing::Test {
  protected:
    CommandFaults() {
        setenv("TMPDIR", temporary.path().c_str(), 1);
        // What is traced cannot be looked through for leaks.
        const char* options = std::getenv("ASAN_OPTIONS");
        setenv("ASAN_OPTIONS", (std::string(options ? options : "") + ":detect_leaks=0").c_str(), 1);
    }

    std::string in_work(const char* name) const { return work.path() / name; }
    /// A theme, a scheme and a script.
    void arrange() const {
        work.clear();
        work.write("in.plist", a_theme);
        work.write("in.css", "linear-gradient(to right, #ffe29a, #ff6a88)");
        work.write("script", "wait 1\npicture shown\n");
        work.write("select", "wait 1\ntap \"SELECT\"\n");
        fs::create_directory(work.path() / "device");
    }
    /// Becomes the command. Only what it does itself counts.
    static int become(const std::vector<std::string>& arguments) {
        std::string executable = HUECRAFT_COMMAND;
        std::vector<std::string> kept = arguments;
        std::vector<char*> vector{executable.data()};
        for (std::string& argument : kept) vector.push_back(argument.data());
        vector.push_back(nullptr);
        const int nowhere = open("/dev/null", O_RDWR);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
        execv(executable.c_str(), vector.data());
        return 127;
    }
    /// `changed` is what the subcommand writes, new or in place of `before_it`; where what it is made of
    /// cannot be read it may be another, as long as it ends so.
    void try_command(const std::vector<std::string>& arguments, const std::string& changed,
                     const std::string& before_it = {}, const std::string& end = {}) {
        Snapshot before, after;
        const auto prepare = [&] {
            arrange();
            if (!before_it.empty()) work.write(changed, before_it);
            before = snapshot_of(work.path());
        };
        const auto judge = [&](const FaultyRun& run, const Fault& fault) {
            Snapshot found = snapshot_of(work.path());
            if (fault.kind == Fault::Kind::none) {
                after = found;
                ASSERT_TRUE(run.status == 0 || run.status == 1) << run.status;
                ASSERT_TRUE(after.contains(changed)) << changed << " was not written";
                ASSERT_NE(after, before);
            }
            if (!end.empty() && found.contains(changed) && found[changed].ends_with(end))
                found[changed] = after[changed];
            const bool killed = run.status == 1000 + SIGKILL;
            // A draft that could not be removed stays, until the next run.
            const bool draft_may_stay = killed || run.met.starts_with(std::to_string(SYS_unlink) + " ");
            expect_old_or_new(found, before, after, draft_may_stay ? ".huecraft-draft-" : "");
            if (draft_may_stay) return;
            EXPECT_TRUE(run.status <= 2) << run.status;
            if (run.status != 2) EXPECT_EQ(found, after);
            if (!all_are_wanted()) EXPECT_TRUE(fs::is_empty(temporary.path())) << "temporary files stayed";
        };
        Counted counted{work.path()};
        if (all_are_wanted()) counted.push_back(temporary.path());
        const Trial trial{counted, prepare, [&] { return become(arguments); }, judge};
        const size_t met = all_are_wanted() ? try_every_fault(trial)
                                            : try_sample(trial, {Fault::failing(EIO), Fault::kill()}, 3);
        EXPECT_GE(met, 3u);
        // What was killed and what could not be removed is cleared away by the next run.
        arrange();
        EXPECT_LE(run_with_fault([&] { return become(arguments); }, counted).status, 1);
        EXPECT_TRUE(fs::is_empty(temporary.path())) << "temporary files stayed";
    }

    /// Each call about a temporary file of this name fails. Where the command says so, with status 2, nothing
    /// has changed; otherwise it did not need the call.
    void expect_refusals(const std::vector<std::string>& command, const std::string& about) {
        SCOPED_TRACE(command.front());
        const auto run = [&](size_t number) {
            arrange();
            return run_with_fault([&] { return become(command); }, {temporary.path()}, number,
                                  Fault::failing(EIO));
        };
        arrange();
        const Snapshot before = snapshot_of(work.path());
        const FaultyRun sound = run(0);
        ASSERT_LE(sound.status, 1);
        const Snapshot after = snapshot_of(work.path());
        size_t refused = 0;
        for (size_t number = 1; number <= sound.calls.size(); ++number) {
            if (sound.calls[number - 1].find(about) == std::string::npos) continue;
            const FaultyRun faulty = run(number);
            SCOPED_TRACE(in_words(sound, number, Fault::failing(EIO)));
            if (faulty.met.find(about) == std::string::npos) continue;  // workers take turns in any order
            refused += faulty.status == 2;
            EXPECT_EQ(snapshot_of(work.path()), faulty.status == 2 ? before : after);
        }
        EXPECT_GT(refused, 0u);
    }

    Folder work, temporary;
};

TEST_F(CommandFaults, NewWritesATheme) {
    try_command({"new", "Night", "--flat", "112233", "-o", in_work("new.plist")}, "new.plist");
}

TEST_F(CommandFaults, NewReplacesAThemeWhole) {
    try_command({"new", "Night", "--flat", "112233", "--force", "-o", in_work("new.plist")}, "new.plist",
                a_theme);
}

TEST_F(CommandFaults, EditChangesAThemeInItsPlace) {
    try_command({"edit", in_work("in.plist"), "--text", "gold"}, "in.plist", a_theme);
}

TEST_F(CommandFaults, ConvertWritesAPropertyList) {
    try_command({"convert", in_work("in.plist"), "-o", in_work("b.plist"), "--to", "binary"}, "b.plist",
                a_theme);
}

TEST_F(CommandFaults, ImportWritesATheme) {
    try_command({"import", in_work("in.css"), "-o", in_work("import.plist")}, "import.plist");
}

TEST_F(CommandFaults, LintFixesAThemeInItsPlace) {
    try_command({"lint", "--fix", in_work("in.plist")}, "in.plist", a_theme);
}

TEST_F(CommandFaults, KeyboardWritesAPicture) {
    try_command({"keyboard", in_work("in.plist"), "--scale", "1", "-o", in_work("k.png")}, "k.png");
}

TEST_F(CommandFaults, PreviewWritesAPicture) {
    try_command({"preview", in_work("in.plist"), "--scale", "1", "-o", in_work("p.png")}, "p.png");
}

TEST_F(CommandFaults, GalleryWritesAPage) {
    try_command({"gallery", in_work("in.plist"), "-o", in_work("g.html")}, "g.html", "", "</html>\n");
}

TEST_F(CommandFaults, PackWritesAPackage) {
    try_command({"pack", in_work("in.plist"), "-o", in_work("p.deb"), "--id", "org.example.sound",
                 "--maintainer", "Somebody <a@example.org>"},
                "p.deb");
}

TEST_F(CommandFaults, PickerWritesPicturesAndRecentColours) {
    try_command({"picker", "--script", in_work("script"), "--scale", "1", "-o", in_work("pictures")},
                "pictures/shown.png");
}

TEST_F(CommandFaults, PaneWritesPictures) {
    try_command({"pane", "--script", in_work("script"), "--scale", "1", "-o", in_work("pictures")},
                "pictures/shown.png");
}

TEST_F(CommandFaults, PickerSavesThemeAndRecentColours) {
    try_command({"picker", "--script", in_work("select"), "--theme", in_work("in.plist"), "--device",
                 in_work("device"), "--color", "123456", "--save"},
                "device/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist");
}

/// An application goes on without a file that it cannot read or write, and says nothing. What is shown,
/// judged or kept would be that.
TEST_F(CommandFaults, APhoneThatCannotReadItsPreferencesIsSaid) {
    const std::string preferences = "/com.quillmoth.huecraftios12.plist";
    expect_refusals({"keyboard", in_work("in.plist"), "--scale", "1", "-o", in_work("k.png")}, preferences);
    expect_refusals({"gallery", in_work("in.plist"), "-o", in_work("g.html")}, preferences);
    expect_refusals({"lint", in_work("in.plist")}, preferences);
    expect_refusals({"doctor"}, preferences);
}

TEST_F(CommandFaults, APhoneThatCannotReadAPictureIsSaid) {
    expect_refusals({"preview", in_work("in.plist"), "--scale", "1", "-o", in_work("p.png")},
                    "/PreviewKeyboardText.png");
    expect_refusals({"picker", "--script", in_work("script"), "--scale", "1", "-o", in_work("pictures")},
                    "/copy.png");
}

TEST_F(CommandFaults, APhoneThatCannotReadThePaneIsSaid) {
    const std::vector<std::string> pane{"pane", "--script", in_work("script"),  "--scale",
                                        "1",    "-o",       in_work("pictures")};
    expect_refusals(pane, "/HuecraftSettings.bundle/HuecraftSettings");
    expect_refusals(pane, "/HuecraftSettings.bundle/Themes/Contrast.plist");
}

TEST_F(CommandFaults, APhoneThatCannotKeepAColourIsSaid) {
    expect_refusals({"picker", "--script", in_work("select"), "--device", in_work("device"), "--color",
                     "123456", "--save"},
                    "/.dat.nosync.");
}

TEST_F(CommandFaults, WhatAKillLeavesIsClearedByTheNextRun) {
    arrange();
    const std::vector<std::string> arguments{"edit", in_work("in.plist"), "--text", "gold"};
    const Counted counted{work.path(), temporary.path()};
    const auto run = [&](size_t number, const Fault& fault) {
        return run_with_fault([&] { return become(arguments); }, counted, number, fault);
    };
    const size_t calls = run(0, {}).calls.size();
    size_t most = 0;
    for (size_t number = 1; number <= calls; number += calls / 4) {
        run(number, Fault::kill());
        most = std::max(most, snapshot_of(temporary.path()).size());
    }
    EXPECT_GT(most, 0u) << "no kill left anything";
    work.write(".huecraft-draft-abcdef", "left");
    work.write(".huecraft-draft-longer-abcdef", "somebody's");
    temporary.write("huecraft-run-mybook/page", "somebody's");
    EXPECT_EQ(run(0, {}).status, 0);
    const Snapshot expected{{"huecraft-run-mybook", "folder"}, {"huecraft-run-mybook/page", "somebody's"}};
    EXPECT_EQ(snapshot_of(temporary.path()), expected);
    EXPECT_FALSE(fs::exists(in_work(".huecraft-draft-abcdef")));
    EXPECT_TRUE(fs::exists(in_work(".huecraft-draft-longer-abcdef")));
}

/// A subcommand that comes is listed here, and has a case above if it writes a file.
TEST_F(CommandFaults, EverySubcommandIsKnownToWriteOrNot) {
    const std::set<std::string> known{"new", "edit", "convert", "import", "lint", "keyboard", "preview",
                                      "gallery", "pack", "picker", "pane",
                                      // These print, or write on a phone alone.
                                      "show", "package-check", "doctor", "completions", "man", "help",
                                      "send"};
    const std::string output = work.path() / "help";
    run_with_fault(
        [&] {
            const int file = open(output.c_str(), O_WRONLY | O_CREAT, 0600);
            dup2(file, STDOUT_FILENO);
            execl(HUECRAFT_COMMAND, HUECRAFT_COMMAND, "--help", nullptr);
            return 127;
        },
        {"/nowhere"});
    std::istringstream help(contents_of(output));
    std::set<std::string> found;
    bool are_listed = false;
    for (std::string line; std::getline(help, line);) {
        if (line.starts_with("Subcommands:")) are_listed = true;
        if (are_listed && line.starts_with("  ") && line[2] != ' ')
            found.insert(line.substr(2, line.find(' ', 2) - 2));
    }
    EXPECT_EQ(found, known);
}

}  // namespace
}  // namespace test
