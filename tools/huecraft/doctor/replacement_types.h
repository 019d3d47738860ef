// The types of the library's replacements, out of its hook table.
#pragma once
#include <string>

namespace command {

/// Of a row by its target, "-[Class selector]". Throws where the table has no such row.
std::string types_of_replacement(const std::string& target);

}  // namespace command
