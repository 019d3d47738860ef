// huecraft completions and huecraft man: the command's own description.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/describe.h"
#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

Status print(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    return end_of_output(Status::fine);
}

struct Completions {
    const CLI::App* command;
    std::string shell;

    Status operator()() const {
        return print(shell == "bash"  ? bash_completion(*command)
                     : shell == "zsh" ? zsh_completion(*command)
                                      : fish_completion(*command));
    }
};

struct Help {
    const CLI::App* command;
    std::string subcommand;

    Status operator()() const {
        if (subcommand.empty()) return print(help(*command));
        if (const auto text = help_of_subcommand(*command, subcommand)) return print(*text);
        throw Unusable("help",
                       "there is no subcommand " + in_quotes(subcommand) + "; huecraft --help lists them");
    }
};

struct Manual {
    const CLI::App* command;
    Status operator()() const { return print(manual(*command)); }
};

}  // namespace

void add_completions(CLI::App& command, Request& request) {
    auto completions = std::make_shared<Completions>(&command, "");
    const Subcommand sub = add_subcommand(command, request, "completions",
                                          "Print what a shell completes the command with", completions);
    sub.add_option("SHELL", completions->shell, "The shell").required().takes_one_of({"bash", "zsh", "fish"});
    sub.footer(
        "Example:\n"
        "  huecraft completions bash > ~/.local/share/bash-completion/completions/huecraft");
}

void add_manual(CLI::App& command, Request& request) {
    add_subcommand(command, request, "man", "Print the manual page", std::make_shared<Manual>(&command))
        .footer(
            "Example:\n"
            "  huecraft man | man -l -");
}

void add_help(CLI::App& command, Request& request) {
    auto help = std::make_shared<Help>(&command, "");
    const Subcommand sub =
        add_subcommand(command, request, "help", "Print the help of the command or of a subcommand", help);
    sub.add_option("SUBCOMMAND", help->subcommand, "The subcommand").type_name("");
    sub.footer(
        "Example:\n"
        "  huecraft help lint");
}

}  // namespace command
