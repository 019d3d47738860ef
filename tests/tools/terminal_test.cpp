// What the command says on a terminal: colours, and a bar while it draws.
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "command_run.h"

namespace test {
namespace {

class OnATerminal : public Command {
  protected:
    /// All that the command writes to a terminal of its own, as it comes, with what it says on either stream.
    std::string said(const std::vector<std::string>& arguments, const char* setting = "TERM=xterm") const {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            std::vector<std::string> kept = arguments;
            std::string executable = HUECRAFT_COMMAND, set = setting;
            std::vector<char*> vector{executable.data()};
            for (std::string& argument : kept) vector.push_back(argument.data());
            vector.push_back(nullptr);
            unsetenv("NO_COLOR");
            setenv("TERM", "xterm", 1);
            putenv(set.data());
            if (chdir(path("").c_str()) == 0) execv(executable.c_str(), vector.data());
            _exit(127);
        }
        std::string text;
        std::array<char, 4096> some;
        // Reading fails when the command has closed its end.
        for (ssize_t count; (count = ::read(terminal, some.data(), some.size())) > 0;)
            text.append(some.data(), static_cast<size_t>(count));
        close(terminal);
        EXPECT_EQ(waitpid(child, nullptr, 0), child);
        return text;
    }
};

bool has(const std::string& text, const std::string& part) { return text.find(part) != text.npos; }

constexpr const char* erased_line = "\r\x1b[K";

TEST_F(OnATerminal, VerdictsAreInColour) {
    write("sound.plist", sound_theme());
    EXPECT_TRUE(has(said({"lint", "sound.plist"}), "\x1b[32mfine\x1b[0m"));
}

TEST_F(OnATerminal, NothingIsInColourWhereItIsNotWanted) {
    write("sound.plist", sound_theme());
    for (const char* setting : {"NO_COLOR=1", "TERM=dumb"}) {
        const std::string text = said({"lint", "sound.plist"}, setting);
        EXPECT_TRUE(has(text, "sound.plist: fine")) << text;
        EXPECT_FALSE(has(text, "\x1b")) << text;
    }
}

TEST_F(OnATerminal, ShownColoursHaveSwatches) {
    write("sound.plist", sound_theme());
    EXPECT_TRUE(has(said({"show", "sound.plist"}), "\x1b[48;2;117;117;117m  \x1b[0m"));
    EXPECT_FALSE(has(run({"show", "sound.plist"}).out, "\x1b"));
}

TEST_F(OnATerminal, AGalleryHasABarThatIsGoneAtTheEnd) {
    write("one.plist", sound_theme());
    write("two.plist", sound_theme());
    const std::string text = said({"gallery", "one.plist", "two.plist", "-o", "page.html"});
    EXPECT_TRUE(has(text, std::string(erased_line) + "drawing ░")) << text;
    EXPECT_TRUE(has(text, "█ 2 of 2")) << text;
    const size_t bar = text.rfind("of 2"), last = text.rfind(erased_line);
    ASSERT_NE(last, text.npos);
    EXPECT_GT(last, bar) << text;
    EXPECT_TRUE(has(text.substr(last), "shows 2 themes")) << text;
}

TEST_F(OnATerminal, OneThemeNeedsNoBar) {
    write("one.plist", sound_theme());
    EXPECT_FALSE(has(said({"gallery", "one.plist", "-o", "page.html"}), "of 1"));
}

TEST_F(OnATerminal, WithoutATerminalThereIsNeitherColourNorBar) {
    write("one.plist", sound_theme());
    write("two.plist", sound_theme());
    const Outcome drawn = run({"gallery", "one.plist", "two.plist", "-o", "page.html"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_EQ(drawn.out, "page.html shows 2 themes\n");
    EXPECT_EQ(drawn.err, "");
}

}  // namespace
}  // namespace test
