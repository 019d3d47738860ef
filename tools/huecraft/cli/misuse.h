// What is wrong with a command line, in the command's own words.
#pragma once
#include <string>

#include "cli/options.h"

namespace CLI {
class ParseError;
}

namespace command {

/// The subcommand that was named, or the command itself.
const CLI::App& chosen(const CLI::App& command);

/// What the option takes, in the words of its description: "the picture to write, as PNG".
std::string expected_of(const CLI::Option& option);

/// What was found and what was expected, after the parser gave up with this error.
std::string misuse_in_words(const CLI::App& command, const CLI::ParseError& error);

}  // namespace command
