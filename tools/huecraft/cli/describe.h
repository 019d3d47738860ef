// The command's description in other forms: completions of shells, and the manual page.
#pragma once
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace command {

/// The words that can follow an option, where there is a choice of them.
std::vector<std::string> choices_of(const CLI::Option& option);
/// "--output FILE", "THEMES".
std::string name_with_value(const CLI::Option& option);
/// What a subcommand cannot do without, as its synopsis has it: "THEME -o FILE", "[SUBCOMMAND]", "THEMES...".
std::string synopsis(const CLI::App& subcommand);
/// The option's description, with what it goes with and what not.
std::string whole_description(const CLI::Option& option);

// Made of the description that the parser works with, so they are never behind it.
std::string bash_completion(const CLI::App& command);
std::string zsh_completion(const CLI::App& command);
std::string fish_completion(const CLI::App& command);
/// In the language of man.
std::string manual(const CLI::App& command);

}  // namespace command
