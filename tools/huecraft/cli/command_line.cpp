#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>

#include "cli/describe.h"
#include "cli/terminal.h"

namespace command {

Subcommand add_subcommand(CLI::App& command, Request& request, const std::string& name,
                          const std::string& description, const std::function<Status()>& run) {
    CLI::App* added = command.add_subcommand(name, description);
    added->callback([&request, run] { request.run = run; });
    return Subcommand(added);
}

Option add_json(Subcommand subcommand, bool& json) {
    auto given = [&json] {
        json = true;
        answer_in_json();
    };
    return subcommand.add_flag("--json", given, "Answer in JSON, for other programs");
}

void add_force(Subcommand subcommand, bool& force) {
    subcommand.add_flag("--force", force, "Replace a file that is read as well, or of another kind");
}

void add_library(Subcommand subcommand, std::string& library) {
    subcommand
        .add_option("--library", library,
                    "The build of the library that draws, ELF or Mach-O; the command's own without it")
        .type_name("FILE");
}

/// --json=maybe would be a number to the parser.
static void refuse_values_of_flags(CLI::App& command) {
    for (CLI::Option* option : command.get_options())
        if (option->get_items_expected_max() == 0) option->disable_flag_override();
}

/// Of the command's description.
enum class Reads { itself, all };

/// As help lists them.
constexpr struct {
    std::string_view name;
    void (*add)(CLI::App& command, Request& request);
    Reads reads = Reads::itself;
} subcommands[] = {
    {"new", add_new},
    {"edit", add_edit},
    {"show", add_show},
    {"lint", add_lint},
    {"keyboard", add_keyboard},
    {"preview", add_preview},
    {"gallery", add_gallery},
    {"pane", add_pane},
    {"picker", add_picker},
    {"convert", add_convert},
    {"import", add_import},
    {"send", add_send},
    {"pack", add_pack},
    {"package-check", add_package_check},
    {"doctor", add_doctor},
    {"completions", add_completions, Reads::all},
    {"man", add_manual, Reads::all},
    {"help", add_help, Reads::all},
};

std::unique_ptr<CLI::App> make_command_line(Request& request, std::string_view asked) {
    auto command = std::make_unique<CLI::App>("Makes, checks and shows keyboard themes.", "huecraft");
    command->require_subcommand(1);
    command->formatter(formatter_of_help());
    command->set_version_flag("--version", "huecraft " PROJECT_VERSION, "Print the version and exit");
    command->footer(
        "Exit status: 0 all is well, 1 something was found, 2 misuse or a file that cannot be used.\n"
        "\"huecraft SUBCOMMAND --help\" has the options and examples.");
    const bool is_one_enough = std::ranges::any_of(
        subcommands, [&](const auto& one) { return one.name == asked && one.reads == Reads::itself; });
    for (const auto& one : subcommands)
        if (!is_one_enough || one.name == asked) one.add(*command, request);
    for (CLI::App* one : command->get_subcommands([](const CLI::App*) { return true; })) {
        one->formatter(command->get_formatter());
        refuse_values_of_flags(*one);
    }
    refuse_values_of_flags(*command);
    return command;
}

}  // namespace command
