// How many hooks the library installs where it themes everything.
#pragma once
#include <iterator>

#include "hooks/hook_table.h"

namespace test {

/// The rows of the table, and the named-colour function.
constexpr size_t hook_count = std::size(hooks::hook_table) + 1;

}  // namespace test
