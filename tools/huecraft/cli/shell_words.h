// Words as shells read them.
#pragma once
#include <string>
#include <vector>

namespace command {

/// Between single quotes, for a shell that knows no escapes there.
std::string in_single_quotes(const std::string& text);

/// As one word of a POSIX shell, in quotes where it needs them.
std::string shell_word(const std::string& text);

/// A command as a shell takes it.
std::string shell_line(const std::vector<std::string>& command);

}  // namespace command
