// What cannot be used: one line each on standard error, status 2, and the rest is done.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "command_run.h"

namespace test {
namespace {

using BadInput = Command;

TEST_F(BadInput, NothingAskedForIsMisuse) {
    const Outcome run = this->run({});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(
        run.err,
        "huecraft: found no subcommand, expected one of new, edit, show, lint, keyboard, preview, gallery, "
        "pane, picker, "
        "convert, import, send, pack, package-check, doctor, completions, man, help (see huecraft --help)\n");
}

TEST_F(BadInput, AnUnknownSubcommandIsNamed) {
    const Outcome run = this->run({"paint"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: there is no subcommand \"paint\" (see huecraft --help)\n");
}

TEST_F(BadInput, AnUnknownOptionIsNamedAndPointsToTheSubcommandsHelp) {
    const Outcome run = this->run({"show", "--loud", "x.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_NE(run.err.find("--loud"), run.err.npos);
    EXPECT_NE(run.err.find("see huecraft show --help"), run.err.npos);
}

TEST_F(BadInput, AFileThatIsNotThereIsNamedAndTheOthersAreShown) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"show", "missing.plist", "sound.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: missing.plist: there is no such file\n");
    EXPECT_TRUE(run.out.starts_with("sound.plist\n"));
}

TEST_F(BadInput, AFolderIsNoTheme) {
    std::filesystem::create_directory(path("folder"));
    const Outcome run = this->run({"show", "folder"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: folder: it is a folder and not a file\n");
}

TEST_F(BadInput, AFileWhoseReadingFailsIsNamed) {
    const Outcome run = this->run({"show", "/proc/self/mem"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: /proc/self/mem: cannot be read: Input/output error\n");
}

TEST_F(BadInput, LinksThatNeverEndAreNamed) {
    ASSERT_EQ(symlink("b.plist", path("a.plist").c_str()), 0);
    ASSERT_EQ(symlink("a.plist", path("b.plist").c_str()), 0);
    const Outcome run = this->run({"show", "a.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: a.plist: its symbolic links never end\n");
}

TEST_F(BadInput, AFileOfTwoHundredMegabytesIsRefusedUnread) {
    write("large.plist", "");
    ASSERT_EQ(truncate(path("large.plist").c_str(), 200 << 20), 0);
    const Outcome run = this->run({"show", "large.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: large.plist: it has 200 MB; a theme has at most 32 MB\n");
    EXPECT_LT(run.peak_kilobytes, 180 << 10);
}

TEST_F(BadInput, ADeviceWithoutEndIsRefused) {
    const Outcome run = this->run({"show", "/dev/zero"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: /dev/zero: it has no end; a theme has at most 32 MB\n");
}

TEST_F(BadInput, WhatIsNoPropertyListIsSaidWithTheLine) {
    write("torn.plist", "<?xml version=\"1.0\"?>\n<plist><dict>\n<key>_TextColor</key>");
    const Outcome run = this->run({"show", "torn.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_TRUE(run.err.starts_with("huecraft: torn.plist: it is not a property list: ")) << run.err;
    EXPECT_NE(run.err.find("line 3"), run.err.npos) << run.err;
}

TEST_F(BadInput, APropertyListOfOtherThingsIsNoTheme) {
    write("other.plist", theme_file("<key>CFBundleName</key><string>Notes</string>"));
    const Outcome run = this->run({"show", "other.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: other.plist: it is a property list, but no theme: it has none of a theme's keys\n");
}

TEST_F(BadInput, AListAtTheRootIsNoTheme) {
    write("list.plist", "(a, b)");
    const Outcome run = this->run({"show", "list.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: list.plist: it is a property list, but no theme: found no dictionary at its root, "
              "expected one\n");
}

TEST_F(BadInput, ControlCharactersInAFilesNameDoNotReachTheTerminal) {
    const Outcome run = this->run({"show", "a\x1b[31m.plist"});
    EXPECT_EQ(run.err, "huecraft: a\\x1b[31m.plist: there is no such file\n");
}

TEST_F(BadInput, AFilesNameAndTheEnvironmentMayBeAnyBytes) {
    write("caf\xe9.plist", sound_theme());
    setenv("HUECRAFT_TEST", "caf\xe9", 1);
    const Outcome run = this->run({"show", "caf\xe9.plist"});
    unsetenv("HUECRAFT_TEST");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("caf\\xe9.plist\n")) << run.out;
}

TEST_F(BadInput, OutputThatCannotBeWrittenIsStatusTwo) {
    write("sound.plist", sound_theme());
    const std::string all = std::string(HUECRAFT_COMMAND) + " show " + path("sound.plist").string() +
                            " > /dev/full 2> " + path("err").string();
    EXPECT_EQ(WEXITSTATUS(std::system(all.c_str())), 2);
    EXPECT_EQ(read("err"), "huecraft: standard output: cannot be written: the disk is full\n");
}

TEST_F(BadInput, NothingIsLeftInTheFolderOfTemporaryFiles) {
    write("sound.plist", sound_theme());
    std::filesystem::create_directory(path("temporary"));
    const std::string all = "TMPDIR=" + path("temporary").string() + " " + HUECRAFT_COMMAND + " show " +
                            path("sound.plist").string() + " > /dev/null";
    EXPECT_EQ(std::system(all.c_str()), 0);
    EXPECT_TRUE(std::filesystem::is_empty(path("temporary")));
}

TEST_F(BadInput, AFullFolderOfTemporaryFilesIsNamedOnce) {
    write("t.plist", sound_theme());
    write("g.css", "background: linear-gradient(#fff, #000)");
    write("s", "wait 1\n");
    std::filesystem::create_directory(path("full"));
    // No file may grow, as on a full disk.
    const std::string full = "trap '' XFSZ; ulimit -f 0; TMPDIR=full exec '" HUECRAFT_COMMAND "' ";
    for (const char* arguments :
         {"new X", "edit t.plist --text red", "show t.plist", "lint t.plist", "keyboard t.plist -o k.png",
          "preview t.plist -o k.png", "gallery t.plist -o g.html", "picker --script s -o p",
          "convert t.plist -o c.plist --to binary", "import g.css", "package-check " PACKAGE_FILE,
          "send t.plist root@phone --dry-run", "pack t.plist -o t.deb"}) {
        const std::string all =
            "cd '" + path("").string() + "'; (" + full + arguments + "; ) 2>&1 | cat >said";
        ASSERT_EQ(std::system(all.c_str()), 0);
        EXPECT_EQ(read("said"),
                  "huecraft: " + path("full").string() +
                      ": temporary files cannot be written there: File too large; TMPDIR names another "
                      "folder\n")
            << arguments;
    }
    EXPECT_TRUE(std::filesystem::is_empty(path("full")));
    EXPECT_EQ(names(), (std::vector<std::string>{"full", "g.css", "s", "said", "t.plist"}));
    EXPECT_EQ(read("t.plist"), sound_theme());
}

TEST_F(BadInput, APipeThatNobodyWritesToDoesNotHoldUpTheOthers) {
    ASSERT_EQ(mkfifo(path("pipe.plist").c_str(), 0600), 0);
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"lint", "pipe.plist", "sound.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: pipe.plist: nothing came from it for 5 seconds\n");
    EXPECT_NE(run.out.find("sound.plist: fine"), run.out.npos) << run.out;
}

}  // namespace
}  // namespace test
