// Load commands by the names that the format's documents give them.
#pragma once
#include <cstdint>
#include <string>

namespace macho {

/// "LC_MAIN", or the number where there is no name.
std::string name_of_command(uint32_t number);

}  // namespace macho
