// The command's description in the forms that it is read in: the help, completions of shells, the manual
// page.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"

namespace CLI {
class FormatterBase;
}

namespace command {

/// In the order in which they were added.
std::vector<const CLI::App*> subcommands_of(const CLI::App& command);
/// Null where there is none of that name.
const CLI::App* subcommand_named(const CLI::App& command, const std::string& name);

/// The words that can follow an option, where there is a choice of them.
std::vector<std::string> choices_of(const CLI::Option& option);
/// "--output FILE", "THEMES".
std::string name_with_value(const CLI::Option& option);

/// Words the help of the command and of its subcommands.
std::shared_ptr<CLI::FormatterBase> formatter_of_help();
/// The help, of the command whatever was called.
std::string help(const CLI::App& command);
/// Nothing where there is no such subcommand.
std::optional<std::string> help_of_subcommand(const CLI::App& command, const std::string& name);

// Made of the description that the parser works with, so they are never behind it.
std::string bash_completion(const CLI::App& command);
std::string zsh_completion(const CLI::App& command);
std::string fish_completion(const CLI::App& command);
/// In the language of man.
std::string manual(const CLI::App& command);

}  // namespace command
