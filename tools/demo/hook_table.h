// The hook table as the library installed it.
#pragma once

namespace demo {

/// Prints every installing call of this process, in order, in columns.
void print_hook_table();

}  // namespace demo
