// The injection framework's two operations: replacing a method of one class, and replacing a function.
#include "runtime/hooks.h"

#include <utility>

#include "platform/substrate.h"
#include "runtime/exported.h"
#include "runtime/hookable_function.h"
#include "runtime/installing_calls.h"
#include "runtime/method_replacement.h"
#include "runtime/not_modelled.h"

// The bounds of the section that lists the functions; the linker makes them.
extern "C" {
[[gnu::visibility("hidden"), gnu::weak]] extern sim::Hookable* const __start_hookable_functions[];
[[gnu::visibility("hidden"), gnu::weak]] extern sim::Hookable* const __stop_hookable_functions[];
}

namespace sim {
namespace {

Hookable& hookable_at(const void* address) {
    for (auto* listed = __start_hookable_functions; listed != __stop_hookable_functions; ++listed)
        if ((*listed)->stands_at(address)) return **listed;
    not_modelled("MSHookFunction", "this function cannot be replaced in the model");
}

MethodNames& unfound_methods() {
    static MethodNames names;
    return names;
}

MethodNames& methods_without_previous() {
    static MethodNames names;
    return names;
}

bool names(const MethodNames& methods, Class owner, SEL selector) {
    if (methods.empty() || !owner) return false;
    return methods.contains(std::string(class_isMetaClass(owner) ? "+[" : "-[") + class_getName(owner) + " " +
                            sel_getName(selector) + "]");
}

}  // namespace

void hide_from_hooks(MethodNames unfound, MethodNames without_previous) {
    unfound_methods() = std::move(unfound);
    methods_without_previous() = std::move(without_previous);
}

}  // namespace sim

using sim::InstallingCall;

SIM_EXPORTED void MSHookMessageEx(Class owner, SEL selector, IMP replacement, IMP* previous) {
    const bool found = owner && !sim::names(sim::unfound_methods(), owner, selector);
    Method method = found ? class_getInstanceMethod(owner, selector) : nullptr;
    const char* types = method ? method_getTypeEncoding(method) : nullptr;
    // The slot is filled before the replacement can run.
    if (method && previous && !sim::names(sim::methods_without_previous(), owner, selector))
        *previous = method_getImplementation(method);
    if (method) sim::replace_method(owner, method, replacement);
    sim::record({.kind = InstallingCall::Kind::hook_message,
                 .owner = owner,
                 .selector = selector,
                 .types = types,
                 .took_effect = method != nullptr});
}

SIM_EXPORTED void MSHookFunction(void* symbol, void* replacement, void** previous) {
    sim::Hookable& function = sim::hookable_at(symbol);
    if (previous) *previous = function.current();
    function.replace(replacement);
    sim::record(
        {.kind = InstallingCall::Kind::hook_function, .function = function.name(), .took_effect = true});
}
