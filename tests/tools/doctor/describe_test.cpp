// huecraft completions and huecraft man, and the command as it is installed.
#include <cstdlib>

#include "command_run.h"

namespace test {
namespace {

class Describe : public Command {
  protected:
    /// What bash offers for the last word of a line.
    std::string offered(const std::string& words, int count) const {
        write("completion", run({"completions", "bash"}).out);
        write("ask", "source ./completion\ncompopt() { :; }\nCOMP_WORDS=(" + words + ")\nCOMP_CWORD=" +
                         std::to_string(count) + "\n_huecraft\necho \"${COMPREPLY[*]}\" > answer\n");
        EXPECT_EQ(std::system(("cd " + path("").string() + " && bash ./ask").c_str()), 0);
        return read("answer");
    }
};

TEST_F(Describe, HelpOfEverySubcommandHasAnExample) {
    for (const char* name : {"new", "show", "lint", "keyboard", "preview", "gallery", "picker", "convert",
                             "import", "package-check", "doctor", "completions", "man"}) {
        const Outcome run = this->run({name, "--help"});
        EXPECT_EQ(run.status, 0) << name;
        EXPECT_NE(run.out.find("Example"), run.out.npos) << name;
        EXPECT_NE(run.out.find("  huecraft " + std::string(name)), run.out.npos) << name;
    }
}

TEST_F(Describe, BashCompletesSubcommandsOptionsAndChoices) {
    EXPECT_EQ(offered("huecraft li", 1), "lint\n");
    EXPECT_EQ(offered("huecraft new --hi", 2), "--highlight\n");
    EXPECT_EQ(offered("huecraft keyboard --state s", 3), "shifted symbols\n");
    EXPECT_EQ(offered("huecraft lint as", 2), "ask\n");
}

TEST_F(Describe, CompletionsAndManualNameEveryOptionOfTheHelp) {
    const std::string everything[] = {run({"completions", "bash"}).out, run({"completions", "zsh"}).out,
                                      run({"completions", "fish"}).out, run({"man"}).out};
    const std::string help = run({"new", "--help"}).out;
    for (const char* option : {"text", "highlight", "flat", "gradient", "direction", "image", "alpha", "caps",
                               "output", "force", "json"}) {
        EXPECT_NE(help.find("--" + std::string(option)), help.npos) << option;
        for (const std::string& text : everything)
            EXPECT_NE(text.find(option), text.npos) << option << " in " << text.substr(0, 40);
    }
}

TEST_F(Describe, AnUnknownShellIsRefused) { EXPECT_EQ(run({"completions", "tcsh"}).status, 2); }

TEST_F(Describe, WhatIsInstalledWorksWhereverItIsMoved) {
    const std::string install = "cmake --install " BUILD_FOLDER " --component command --prefix " +
                                path("first").string() + " > /dev/null";
    ASSERT_EQ(std::system(install.c_str()), 0);
    std::filesystem::rename(path("first"), path("second"));
    const std::string installed = path("second/bin/huecraft"), themes = path("second/share/huecraft/themes");
    EXPECT_EQ(
        std::system((installed + " preview " + themes + "/Dusk.plist -o " + path("p.png").string()).c_str()),
        0);
    EXPECT_TRUE(read("p.png").starts_with("\x89PNG"));
    EXPECT_EQ(std::system((installed + " lint " + themes + "/*.plist > /dev/null").c_str()), 0);
    EXPECT_EQ(read("second/share/man/man1/huecraft.1"), run({"man"}).out);
}

}  // namespace
}  // namespace test
