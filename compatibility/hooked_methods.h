// The rows of the library's hook table, as whoever must not include it knows them: a program of the build
// (tools/hook_rows) writes them down.
#pragma once
#include <span>

namespace compatibility {

/// When a row is installed: always, in themed processes, or there where key caps are hidden as well.
enum class Condition { accepted_process, themed, caps_hidden };

struct HookedMethod {
    const char* name;  ///< "-[UIKBEdgeEffect edges]"
    Condition condition;
    bool is_added;
    const char* types;  ///< of the replacement, without offsets
};

/// In the table's order.
std::span<const HookedMethod> hooked_methods();

}  // namespace compatibility
