// The record of what a library installed: message hooks, function hooks and added methods, in order.
#pragma once
#include <deque>

#include "objc/runtime.h"

namespace sim {

/// Its texts last as long as the process.
struct InstallingCall {
    enum class Kind { hook_message, hook_function, add_method };

    Kind kind;
    /// Null for a nil class, and for functions.
    const char* class_name = nullptr;
    bool on_class = false;
    /// The selector or the function.
    const char* name;
    /// The method's type encoding, as given or as found; null when there is none.
    const char* types = nullptr;
    bool took_effect = false;
};

/// A call that concerns the method of that class, which may be nil. `types` may be null, and is kept.
InstallingCall method_call(InstallingCall::Kind, Class, SEL, const char* types, bool took_effect);

void record(const InstallingCall&);

/// All recorded so far. A call stays where it is when others follow.
const std::deque<InstallingCall>& installing_calls();

}  // namespace sim
