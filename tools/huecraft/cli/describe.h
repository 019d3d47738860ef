// The command's description in other forms: completions of shells, and the manual page.
#pragma once
#include <CLI/CLI.hpp>
#include <string>

namespace command {

// Made of the description that the parser works with, so they are never behind it.
std::string bash_completion(const CLI::App& command);
std::string zsh_completion(const CLI::App& command);
std::string fish_completion(const CLI::App& command);
/// In the language of man.
std::string manual(const CLI::App& command);

}  // namespace command
