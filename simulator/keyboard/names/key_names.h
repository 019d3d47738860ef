// The names of character keys.
#pragma once
#include <string>
#include <string_view>

namespace sim {

/// "Latin-Small-Letter-G" of "g": a key is named after its character. One that the English planes do not have
/// is its own name.
std::string name_of_character(std::string_view character);

}  // namespace sim
