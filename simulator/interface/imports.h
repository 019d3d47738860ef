// What the imports of a library built for the device are bound to.
#pragma once
#include <string>

namespace sim {

/// The address for a symbol, named as in C; null when neither the model nor the host has it.
void* resolve_import(const std::string& symbol);

}  // namespace sim
