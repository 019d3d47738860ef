// The command line: what can be asked for, and what was.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "cli/options.h"
#include "cli/status.h"

namespace command {

/// What the command line asked for.
struct Request {
    std::function<Status()> run;
};

/// The description of the whole command, of which its help, its completions and its manual are made. Parsing
/// fills the request. Where a subcommand is asked for by its name, and does not read what the others say, it
/// has that one alone: who parses many lines, as fuzzing does, spends a third of the time on the others.
std::unique_ptr<CLI::App> make_command_line(Request& request, std::string_view asked);

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
void add_manual(CLI::App& command, Request& request);
void add_package_check(CLI::App& command, Request& request);
void add_pane(CLI::App& command, Request& request);
void add_picker(CLI::App& command, Request& request);
void add_preview(CLI::App& command, Request& request);
void add_pack(CLI::App& command, Request& request);
void add_send(CLI::App& command, Request& request);
void add_show(CLI::App& command, Request& request);

// --- What the subcommands share ---

/// Adds a subcommand that does this when it is chosen.
Subcommand add_subcommand(CLI::App& command, Request& request, const std::string& name,
                          const std::string& description, const std::function<Status()>& run);

/// Adds a subcommand with its options, which become the run when it is chosen. `Options` has an operator().
template <class Options>
Subcommand add_subcommand(CLI::App& command, Request& request, const std::string& name,
                          const std::string& description, const std::shared_ptr<Options>& options) {
    return add_subcommand(command, request, name, description,
                          std::function<Status()>([options] { return (*options)(); }));
}

Option add_json(Subcommand subcommand, bool& json);

/// The flag that lets an output replace what `require_replaceable` protects.
void add_force(Subcommand subcommand, bool& force);

/// The option that names the build of the library to draw with.
void add_library(Subcommand subcommand, std::string& library);

}  // namespace command
