// The record of what a library installed: message hooks, function hooks and added methods, in order.
#pragma once
#include <deque>
#include <optional>
#include <string>

#include "objc/runtime.h"

namespace sim {

struct InstallingCall {
    enum class Kind { hook_message, hook_function, add_method };

    Kind kind;
    /// Nothing for a nil class, and for functions.
    std::optional<std::string> class_name;
    bool on_class = false;
    /// The selector or the function.
    std::string name;
    /// The method's type encoding, as given or as found.
    std::optional<std::string> types;
    bool took_effect = false;
};

/// A call that concerns the method of that class, which may be nil. `types` may be null.
InstallingCall method_call(InstallingCall::Kind, Class, SEL, const char* types, bool took_effect);

void record(InstallingCall);

/// All recorded so far. A call stays where it is when others follow.
const std::deque<InstallingCall>& installing_calls();

}  // namespace sim
