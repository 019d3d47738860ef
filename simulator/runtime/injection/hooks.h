// What the injection framework can and cannot replace, and what it does then.
#pragma once
#include <functional>
#include <set>
#include <string>

#include "objc/runtime.h"

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

/// Whether the framework takes the signatures off what it is handed, without looking at them.
bool framework_strips();

bool is_hookable_function(const std::string& name);

/// Where the framework leaves what something was; signed for a library that is handed signed addresses.
struct PreviousSlot {
    IMP* place;
    bool is_signed;
};
void hook_message(Class, SEL, IMP replacement, PreviousSlot previous);
void hook_function(void* symbol, void* replacement, PreviousSlot previous);

}  // namespace sim
