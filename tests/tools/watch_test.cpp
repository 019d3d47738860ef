// huecraft keyboard --watch: a picture, and a page beside it, that follow the theme.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "command_run.h"
#include "png.h"

namespace test {
namespace {

class Watch : public Command {
  protected:
    Watch() { write("theme.plist", sound_theme()); }
    ~Watch() override {
        if (child_ > 0) end(SIGKILL);
    }

    void start(std::vector<std::string> arguments = {"keyboard", "theme.plist", "-o", "k.png", "--scale", "1",
                                                     "--watch"}) {
        std::string executable = HUECRAFT_COMMAND;
        std::vector<char*> words{executable.data()};
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        child_ = fork();
        if (child_ != 0) return;
        for (const auto& [name, stream] : {std::pair{"out", 1}, {"err", 2}})
            dup2(open(path(name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
        if (chdir(path("").c_str()) == 0) execv(executable.c_str(), words.data());
        _exit(127);
    }
    int end(int signal) {
        kill(child_, signal);
        int status = 0;
        EXPECT_EQ(waitpid(child_, &status, 0), child_);
        child_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    }
    template <class Condition>
    static bool comes(const Condition& condition) {
        for (int i = 0; i < 1200; ++i, std::this_thread::sleep_for(std::chrono::milliseconds(50)))
            if (condition()) return true;
        return false;
    }
    bool comes_to(const std::string& file, const std::string& part) const {
        return comes([&] { return exists(file) && read(file).find(part) != std::string::npos; });
    }
    size_t drawn() const {
        const std::string out = read("out");
        size_t count = 0;
        for (size_t at = 0; (at = out.find("drawn ", at)) != out.npos; ++at) ++count;
        return count;
    }
    bool is_drawn(size_t times) const {
        return comes([&] { return drawn() >= times; });
    }
    uint32_t colour() const { return Png(path("k.png")).at(2, 665); }
    static std::string theme_on(const std::string& background) {
        std::string theme = sound_theme();
        return theme.replace(theme.find("#000000"), 7, background);
    }

    pid_t child_ = -1;
};

TEST_F(Watch, DrawsAgainOnEverySave) {
    start();
    ASSERT_TRUE(is_drawn(1)) << read("err");
    EXPECT_EQ(colour(), 0x000000u);
    write("theme.plist", theme_on("#00FF00"));
    ASSERT_TRUE(is_drawn(2)) << read("err");
    EXPECT_EQ(colour(), 0x00ff00u);
    EXPECT_EQ(end(SIGINT), 0);
    EXPECT_EQ(read("err"), "");
}

TEST_F(Watch, SeesEditorsThatWriteBesideAndRename) {
    start();
    ASSERT_TRUE(is_drawn(1)) << read("err");
    write("theme.plist~", theme_on("#0000FF"));
    std::filesystem::rename(path("theme.plist~"), path("theme.plist"));
    ASSERT_TRUE(is_drawn(2)) << read("err");
    EXPECT_EQ(colour(), 0x0000ffu);
}

TEST_F(Watch, KeepsTheLastGoodPictureAndSaysWhatIsWrong) {
    start();
    ASSERT_TRUE(is_drawn(1)) << read("err");
    const std::string good = read("k.png");
    write("theme.plist", sound_theme().substr(0, 200));
    ASSERT_TRUE(comes_to("err", "theme.plist: it is not a property list"));
    ASSERT_TRUE(comes_to("k.state.js", "older state"));
    EXPECT_EQ(read("k.png") == good, true);
    std::filesystem::remove(path("theme.plist"));
    ASSERT_TRUE(comes_to("err", "theme.plist: there is no such file"));
    EXPECT_EQ(read("k.png") == good, true);
    write("theme.plist", theme_on("#FF0000"));
    ASSERT_TRUE(is_drawn(2)) << read("err");
    EXPECT_EQ(colour(), 0xff0000u);
    EXPECT_EQ(lines(read("err")), 2u) << read("err");
}

TEST_F(Watch, ThePagesStateChangesWithThePicture) {
    start();
    ASSERT_TRUE(is_drawn(1)) << read("err");
    EXPECT_NE(read("k.html").find("\"k.png\""), std::string::npos);
    EXPECT_NE(read("k.html").find("\"k.state.js\""), std::string::npos);
    const std::string first = read("k.state.js");
    EXPECT_TRUE(first.starts_with("watched(")) << first;
    EXPECT_TRUE(first.ends_with(", \"\");\n")) << first;
    write("theme.plist", theme_on("#00FF00"));
    ASSERT_TRUE(comes([&] { return read("k.state.js") != first; }));
}

TEST_F(Watch, SignalsEndItAndThePageSaysSo) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        start();
        ASSERT_TRUE(is_drawn(1)) << read("err");
        EXPECT_EQ(end(signal), 0) << signal;
        EXPECT_NE(read("k.state.js").find("Nobody watches"), std::string::npos);
        std::filesystem::remove(path("out"));
    }
}

TEST_F(Watch, NothingTemporaryIsLeft) {
    std::filesystem::create_directory(path("temporary"));
    setenv("TMPDIR", path("temporary").c_str(), 1);
    start();
    ASSERT_TRUE(is_drawn(1)) << read("err");
    EXPECT_EQ(end(SIGINT), 0);
    EXPECT_TRUE(std::filesystem::is_empty(path("temporary")));
    EXPECT_EQ(names(), (std::vector<std::string>{"err", "k.html", "k.png", "k.state.js", "out", "temporary",
                                                 "theme.plist"}));
}

TEST_F(Watch, APageOfSomebodyElseIsKept) {
    write("k.html", "my notes");
    const Outcome run = this->run({"preview", "theme.plist", "-o", "k.png", "--watch"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: k.html: it exists and is not a page of HTML; --force replaces it\n");
    EXPECT_EQ(read("k.html"), "my notes");
}

TEST_F(Watch, StandardStreamsAreRefused) {
    for (const auto& [file, output] : {std::pair{"-", "k.png"}, {"theme.plist", "-"}}) {
        const Outcome run = this->run({"keyboard", file, "-o", output, "--watch"});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, "huecraft: --watch: found -, expected files: the theme and its picture\n");
    }
}

}  // namespace
}  // namespace test
