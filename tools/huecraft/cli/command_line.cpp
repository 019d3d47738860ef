// The command line: what can be asked for.
#include "cli/command_line.h"

#include <algorithm>

#include "cli/terminal.h"
#include "themes/colour.h"

namespace command {

void add_library(CLI::App* subcommand, std::string& library) {
    subcommand
        ->add_option("--library", library,
                     "The build of the library that draws, ELF or Mach-O; the command's own without it")
        ->type_name("FILE");
}

CLI::Option* taking_colour(CLI::Option* option) {
    auto refusal = [](const std::string& text) -> std::string {
        if (colour_of(text)) return "";
        return in_quotes(text) + " is no colour; expected #RRGGBB or #RRGGBBAA, in hexadecimal digits";
    };
    return option->type_name("HEX")->check(refusal, "", "hex colour");
}

CLI::Option* taking_number(CLI::Option* option, double from, double to) {
    // Without the description, which the help would show next to the type.
    return option->type_name("N")->check(CLI::Range(from, to).description(""));
}

CLI::Option* taking_one_of(CLI::Option* option, const std::vector<std::string>& words) {
    std::string listed;
    for (const std::string& word : words) listed += (listed.empty() ? "" : "|") + word;
    auto refusal = [words, listed](const std::string& text) -> std::string {
        if (std::ranges::find(words, text) != words.end()) return "";
        return in_quotes(text) + " is none of " + listed;
    };
    return option->type_name(listed)->check(refusal, "", "word");
}

std::unique_ptr<CLI::App> make_command_line(Request& request) {
    auto command = std::make_unique<CLI::App>("Makes, checks and shows keyboard themes.", "huecraft");
    command->require_subcommand(1);
    command->footer(
        "Exit status: 0 all is well, 1 something was found, 2 misuse or a file that cannot be used.\n"
        "\"huecraft SUBCOMMAND --help\" has the options and examples.");
    add_new(*command, request);
    add_show(*command, request);
    add_lint(*command, request);
    add_keyboard(*command, request);
    add_preview(*command, request);
    add_gallery(*command, request);
    add_picker(*command, request);
    add_convert(*command, request);
    add_import(*command, request);
    add_package_check(*command, request);
    add_doctor(*command, request);
    add_completions(*command, request);
    return command;
}

}  // namespace command
