// huecraft completions and huecraft man, and the command as it is installed.
#include <cstdlib>
#include <regex>
#include <set>
#include <sstream>

#include "command_run.h"
#include "support/contents.h"

namespace test {
namespace {

/// What stands between the first of these and what follows it next; empty where it is not there.
std::string between(const std::string& text, const std::string& begin, const std::string& end) {
    const size_t at = text.find(begin);
    if (at == text.npos) return "";
    return text.substr(at + begin.size(), text.find(end, at + begin.size()) - at - begin.size());
}

std::string lines_with(const std::string& text, const std::string& part) {
    std::string found;
    std::istringstream all(text);
    for (std::string line; std::getline(all, line);)
        if (line.find(part) != line.npos) found += line + "\n";
    return found;
}

/// Without what roff and zsh write with a backslash: before a dash, and for a typeface.
std::string plain(const std::string& text) {
    static const std::regex typefaces("\\\\f[A-Z]"), backslashes("\\\\");
    return std::regex_replace(std::regex_replace(text, typefaces, " "), backslashes, "");
}

/// The options in a text, or those that its lines begin with.
std::set<std::string> words_in(const std::string& text, bool at_the_beginning) {
    static const std::regex anywhere("(?:^|[^a-z-])(--[a-z][a-z-]*)"),
        leading("(?:^|\n)  (?:-[a-z],)?(--[a-z][a-z-]*)");
    const std::regex& option = at_the_beginning ? leading : anywhere;
    std::set<std::string> words;
    for (std::sregex_iterator at(text.begin(), text.end(), option), end; at != end; ++at)
        words.insert((*at)[1]);
    return words;
}

class Describe : public Command {
  protected:
    /// As the command's own help lists them.
    std::vector<std::string> subcommands() const {
        std::istringstream lines(between(run({"--help"}).out, "Subcommands:\n", "\n\n"));
        std::vector<std::string> names;
        for (std::string line; std::getline(lines, line);)
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
        return names;
    }
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
    for (const std::string& name : subcommands()) {
        const Outcome run = this->run({name, "--help"});
        EXPECT_EQ(run.status, 0) << name;
        EXPECT_NE(run.out.find("Example"), run.out.npos) << name;
        EXPECT_NE(run.out.find("  huecraft " + name), run.out.npos) << name;
    }
}

TEST_F(Describe, BashCompletesSubcommandsOptionsAndChoices) {
    EXPECT_EQ(offered("huecraft li", 1), "lint\n");
    EXPECT_EQ(offered("huecraft new --hi", 2), "--highlight\n");
    EXPECT_EQ(offered("huecraft keyboard --state s", 3), "shifted symbols\n");
    EXPECT_EQ(offered("huecraft lint as", 2), "ask\n");
}

TEST_F(Describe, EveryOptionIsInTheManualTheCompletionsAndThePage) {
    const std::string bash = run({"completions", "bash"}).out, zsh = run({"completions", "zsh"}).out,
                      fish = run({"completions", "fish"}).out, manual = run({"man"}).out,
                      page = contents_of(SOURCE_FOLDER "/docs/command.md");
    const std::set<std::string> of_page = words_in(page, false);
    const auto all = subcommands();
    EXPECT_EQ(all.size(), 18u);
    for (const std::string& name : all) {
        const std::set<std::string> options =
            words_in(between(run({name, "--help"}).out, "Options:\n", "\n\n"), true);
        EXPECT_TRUE(options.contains("--help")) << name;
        const std::string of_fish = lines_with(fish, "__fish_seen_subcommand_from " + name + "'");
        for (const auto& [text, where] : {std::pair{between(bash, "        " + name + ")\n", ";;\n"), "bash"},
                                          {between(zsh, "        " + name + ") _arguments", ";;\n"), "zsh"},
                                          {between(manual, ".SS " + name + "\n", ".nf\n"), "the manual"}})
            EXPECT_EQ(words_in(plain(text), false), options) << name << " in " << where;
        for (const std::string& option : options) {
            EXPECT_NE(of_fish.find(" -l " + option.substr(2) + " "), of_fish.npos) << name << option;
            EXPECT_TRUE(of_page.contains(option)) << name << ' ' << option << " in the page";
        }
        EXPECT_NE(page.find("`" + name), page.npos) << name;
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
