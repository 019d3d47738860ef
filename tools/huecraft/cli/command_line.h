// The command line: what can be asked for, and what was.
#pragma once
#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/status.h"

namespace command {

/// What the command line asked for.
struct Request {
    std::function<Status()> run;
};

/// The description of the whole command, of which its help, its completions and its manual are made. Parsing
/// fills the request.
std::unique_ptr<CLI::App> make_command_line(Request& request);

// Each subcommand describes itself, in a file of its own.
void add_new(CLI::App& command, Request& request);
void add_completions(CLI::App& command, Request& request);
void add_convert(CLI::App& command, Request& request);
void add_doctor(CLI::App& command, Request& request);
void add_edit(CLI::App& command, Request& request);
void add_gallery(CLI::App& command, Request& request);
void add_help(CLI::App& command, Request& request);
void add_import(CLI::App& command, Request& request);
void add_keyboard(CLI::App& command, Request& request);
void add_lint(CLI::App& command, Request& request);
void add_package_check(CLI::App& command, Request& request);
void add_pane(CLI::App& command, Request& request);
void add_picker(CLI::App& command, Request& request);
void add_preview(CLI::App& command, Request& request);
void add_pack(CLI::App& command, Request& request);
void add_send(CLI::App& command, Request& request);
void add_show(CLI::App& command, Request& request);

// --- What the subcommands share ---

/// Adds a subcommand with its options, which become the run when it is chosen. `Options` has an operator().
template <class Options>
CLI::App* add_subcommand(CLI::App& command, Request& request, const std::string& name,
                         const std::string& description, const std::shared_ptr<Options>& options) {
    CLI::App* added = command.add_subcommand(name, description);
    added->callback([&request, options] { request.run = [options] { return (*options)(); }; });
    return added;
}

void add_json(CLI::App* subcommand, bool& json);

/// The flag that lets an output replace what `require_replaceable` protects.
void add_force(CLI::App* subcommand, bool& force);

/// The option that names the build of the library to draw with.
void add_library(CLI::App* subcommand, std::string& library);

/// The number that is written there from beginning to end, in decimal digits; nothing else is one.
std::optional<double> number_in_digits(std::string_view text);

/// Has the option take a colour in one of its notations, and keep it as a theme does: #RRGGBB or #RRGGBBAA.
CLI::Option* taking_colour(CLI::Option* option);
/// The same of two colours or more, with commas between them.
CLI::Option* taking_colours(CLI::Option* option);
/// Has the option take a gradient's direction by name or number, and keep the number.
CLI::Option* taking_direction(CLI::Option* option);
/// Has the option take one of these words, which the help lists.
CLI::Option* taking_one_of(CLI::Option* option, const std::vector<std::string>& words);
/// Has the option take finite numbers from one to another.
CLI::Option* taking_number(CLI::Option* option, double from, double to);
CLI::Option* taking_whole_number(CLI::Option* option, int from, int to);

}  // namespace command
