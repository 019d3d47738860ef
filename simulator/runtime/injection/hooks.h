// What the injection framework can and cannot replace, and what it does then.
#pragma once
#include <functional>
#include <set>
#include <string>

namespace sim {

/// Methods by name, "-[Class selector]", "+[Class selector]", or functions.
using Names = std::set<std::string, std::less<>>;

/// What the framework does when a class, a method or a way to patch a function is missing.
enum class Injection {
    lenient,   ///< nothing, and the slot stays as it is
    clearing,  ///< makes the slot nil; a function that cannot be patched ends the process
    strict,    ///< ends the process
    guarded,   ///< strict behind a function that asks for the method first
};

struct HookLimits {
    Injection injection = Injection::lenient;
    /// MSHookMessageEx does not find these.
    Names unfound_methods;
    /// It puts hooks of these in place with nothing behind them.
    Names methods_without_previous;
    Names unpatchable_functions;
};

/// From now on the framework is like that.
void limit_hooks(HookLimits);

bool is_hookable_function(const std::string& name);

}  // namespace sim
