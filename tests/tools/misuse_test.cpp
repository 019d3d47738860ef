// Command lines that cannot be meant: one line each, with what was found and what was expected.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "command_run.h"

namespace test {
namespace {

class Misuse : public Command {
  protected:
    struct Case {
        std::vector<std::string> arguments;
        std::string says;
    };
    /// Runs each; what it says stands behind "huecraft: ". Nothing may be left in the folder.
    void expect(const std::vector<Case>& cases) const {
        const auto before = names();
        for (const Case& one : cases) {
            const Outcome run = this->run(one.arguments);
            EXPECT_EQ(run.status, 2) << one.says;
            EXPECT_EQ(run.err, "huecraft: " + one.says + "\n");
            EXPECT_EQ(run.out, "") << one.says;
        }
        EXPECT_EQ(names(), before);
    }
    /// What a shell answers to the command with these words behind it.
    int shell(const std::string& words) const {
        return WEXITSTATUS(
            std::system(("cd " + path("").string() + " && " + HUECRAFT_COMMAND + " " + words).c_str()));
    }
};

TEST_F(Misuse, WhatIsMissingIsNamedWithWhatItIsFor) {
    const std::string all =
        "new, edit, show, lint, keyboard, preview, gallery, pane, picker, convert, import, send, pack, "
        "package-check, doctor, completions, man, help";
    expect({
        {{}, "found no subcommand, expected one of " + all + " (see huecraft --help)"},
        {{"lint"}, "found no THEMES, expected the themes (see huecraft lint --help)"},
        {{"keyboard", "t.plist"},
         "found no --output FILE, expected the picture to write, as PNG (see huecraft keyboard --help)"},
        {{"convert", "t.plist", "-o", "x"},
         "found no --to xml|binary|openstep, expected one of xml, binary, openstep (see huecraft convert "
         "--help)"},
        {{"show", "t.plist", "--json", "-q"}, "there is no option \"-q\" (see huecraft show --help)"},
        {{"send", "t.plist"}, "send: found \"t.plist\" alone, expected themes and behind them USER@HOST"},
        {{"edit", "t.plist"}, "edit: found nothing to change, expected an option such as --text or --image"},
    });
}

TEST_F(Misuse, AnOptionWithTooMuchOrTooLittle) {
    expect({
        {{"lint", "--json=maybe", "t.plist"},
         "--json: found a value, expected none (see huecraft lint --help)"},
        {{"preview", "t.plist", "-o"},
         "--output: found nothing behind it, expected the picture to write, as PNG (see huecraft preview "
         "--help)"},
        {{"preview", "t.plist", "-o", "a.png", "-o", "b.png"},
         "--output: found 2 times, expected once (see huecraft preview --help)"},
        {{"show", "--library", "x", "t.plist"},
         "there is no option \"--library\" (see huecraft show --help)"},
        {{"edit", "t.plist", "u.plist", "--caps"},
         "found \"u.plist\", expected nothing behind THEME (see huecraft edit --help)"},
        {{"man", "lint"}, "found \"lint\", expected options only (see huecraft man --help)"},
        {{"new", "N", "--flat", "red", "--gradient", "red,blue"},
         "found --flat and --gradient, expected one of them (see huecraft new --help)"},
        {{"new", "N", "--direction", "up"},
         "found --direction without --gradient, expected both (see huecraft new --help)"},
        {{"new", "N", "--fit", "fill"}, "--fit: goes with --image or --from-image"},
        // One mention of a system is one system; what follows it is the file.
        {{"doctor", "--system", "12.4", "12.1.1"},
         "found FILE and --system, expected one of them (see huecraft doctor --help)"},
    });
}

TEST_F(Misuse, ANumberBeyondEitherEnd) {
    const std::string scale = " is not a number from 0.1 to 8 (see huecraft preview --help)",
                      dim = " is not a number from 0 to 1 (see huecraft new --help)";
    expect({
        {{"preview", "t.plist", "-o", "a.png", "--scale", "0.09"}, "--scale: \"0.09\"" + scale},
        {{"preview", "t.plist", "-o", "a.png", "--scale", "8.1"}, "--scale: \"8.1\"" + scale},
        {{"new", "N", "--dim", "-0.1"}, "--dim: \"-0.1\"" + dim},
        {{"new", "N", "--dim", "1.01"}, "--dim: \"1.01\"" + dim},
    });
}

TEST_F(Misuse, AnEmptyTextIsNoValue) {
    expect({
        {{"doctor", ""}, "FILE: found \"\", expected a system's description (see huecraft doctor --help)"},
        {{"preview", "t.plist", "-o", ""},
         "--output: found \"\", expected the picture to write, as PNG (see huecraft preview --help)"},
        {{"pane", "--script", ""},
         "--script: found \"\", expected what to do with it, one instruction a line (see huecraft pane "
         "--help)"},
        {{"show", "", "x"}, "\"\": there is no such file\nhuecraft: x: there is no such file"},
    });
}

TEST_F(Misuse, NumbersAreWholeAndInDecimalDigits) {
    for (const char* number : {"0x16", "0", "65536", "22.5", "-1", " 22", "nan", ""})
        EXPECT_EQ(run({"send", "t.plist", "root@phone", "--dry-run", "--port", number}).err,
                  "huecraft: --port: \"" + std::string(number) +
                      "\" is not a whole number from 1 to 65535 (see huecraft send --help)\n");
    for (const char* region : {"0,0,5,5,", "0x0,0,5,5", "0,0,5", "0,0,5,nan", " 0,0,5,5"})
        EXPECT_EQ(run({"new", "N", "--crop", region}).err,
                  "huecraft: --crop: \"" + std::string(region) +
                      "\" is not a region; expected four numbers: X,Y,W,H (see huecraft new --help)\n");
}

TEST_F(Misuse, PlacesThatCannotBe) {
    write("t.plist", sound_theme());
    write("text", "hello\n");
    ASSERT_EQ(symlink("loop", path("loop").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", path("dangling").c_str()), 0);
    std::filesystem::create_directory(path("dir"));
    expect({
        {{"keyboard", "t.plist", "-o", "dangling"},
         "dangling: cannot be written: it is a link to a file that does not exist"},
        {{"gallery", "text", "-o", "g.html"},
         "text: it is a property list, but no theme: found no dictionary at its root, expected one"},
        {{"keyboard", "t.plist", "-o", "dir", "--watch"},
         "dir: it is no file; --watch writes a picture again and again"},
        {{"keyboard", "t.plist", "-o", "k.html", "--watch"},
         "k.html: its page would have the same name; expected another end, such as .png"},
        {{"preview", "t.plist", "-o", "p.png", "--library", "-"}, "--library: found -, expected a file"},
        {{"gallery", "t.plist", "t.plist", "-o", "g.html", "--library", "text"},
         "cannot load " + path("text").string() + ": it is neither an ELF nor a Mach-O library"},
        {{"preview", "t.plist", "-o", "p.png", "--library", "/lib/x86_64-linux-gnu/libc.so.6"},
         "cannot load /lib/x86_64-linux-gnu/libc.so.6: it is no build of this library: found no class "
         "HuecraftConfig"},
        {{"picker", "-o", "loop"}, "loop: its symbolic links never end"},
        {{"picker", "-o", "text/x"},
         "text/x: the folder cannot be made: a part of the path is a file and not a folder"},
        {{"pane", "--device", "loop"}, "loop: its symbolic links never end"},
        {{"pane", "--photo", "text"},
         "text: it is not a picture that can be read: found \"hello\\n\" at its beginning, expected PNG, "
         "JPEG, WebP or HEIC"},
        {{"send", "t.plist", std::string(5000, 'x')},
         std::string(80, 'x') + "…: found the host \"" + std::string(80, 'x') +
             "…\", expected USER@HOST; an address with colons stands in brackets"},
        {{"import", "t.plist", "--name", "N"}, "t.plist: it is neither a base16 scheme nor a CSS gradient"},
    });
}

TEST_F(Misuse, NamesThatCannotBePrinted) {
    write("t.plist", sound_theme());
    for (const auto& [name, shown] :
         {std::pair{"a\x1b[31mb", "a\\x1b[31mb"}, {"a\nb", "a\\nb"}, {"\u202ea", "\\u202ea"}}) {
        const std::string says = std::string(shown) + ": the name has characters that cannot be printed";
        expect({{{"new", name}, says}, {{"edit", "t.plist", "--name", name}, says}});
    }
}

TEST_F(Misuse, AClosedStandardStreamIsNotAnotherFile) {
    write("t.plist", sound_theme());
    EXPECT_EQ(shell("show t.plist >&- 2>err"), 2);
    EXPECT_EQ(read("err"), "huecraft: standard output: cannot be written: it is closed\n");
    EXPECT_EQ(shell("convert - -o x --to xml <&- 2>err"), 2);
    EXPECT_EQ(read("err"), "huecraft: -: cannot be read: it is closed\n");
    EXPECT_EQ(shell("show missing 2>&- >out"), 2);
    EXPECT_EQ(shell("convert t.plist -o x --to xml <&- >&- 2>&-"), 2);
    EXPECT_TRUE(read("x").starts_with("<?xml"));
    EXPECT_EQ(shell("--help >/dev/full 2>err"), 2);
    EXPECT_EQ(read("err"), "huecraft: standard output: cannot be written: the disk is full\n");
}

}  // namespace
}  // namespace test
