// The injection framework's two operations: replacing a method of one class, and replacing a function.
#include "runtime/injection/hooks.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/substrate.h"
#include "runtime/exported.h"
#include "runtime/injection/authentication.h"
#include "runtime/injection/hookable_function.h"
#include "runtime/injection/installing_calls.h"
#include "runtime/injection/trampolines.h"
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

HookLimits& limits() {
    static HookLimits current;
    return current;
}

bool names(const Names& methods, Class owner, SEL selector) {
    if (methods.empty() || !owner) return false;
    return methods.contains(std::string(class_isMetaClass(owner) ? "+[" : "-[") + class_getName(owner) + " " +
                            sel_getName(selector) + "]");
}

[[noreturn]] void give_up(const char* function, const std::string& why) {
    std::fprintf(stderr, "%s: %s: this injection framework ends the process\n", function, why.c_str());
    std::fflush(stderr);
    std::abort();
}

void fill(PreviousSlot slot, IMP implementation) {
    if (!slot.place) return;
    std::atomic_ref(*slot.place).store(slot.is_signed ? signed_for(implementation, nullptr) : implementation);
}

void replace_nothing(Class owner, SEL selector, PreviousSlot previous) {
    switch (limits().injection) {
        case Injection::lenient:
        case Injection::guarded: return;
        case Injection::clearing: return fill(previous, nullptr);
        case Injection::strict: break;
    }
    if (!owner) give_up("MSHookMessageEx", std::string("the class is nil, for ") + sel_getName(selector));
    give_up("MSHookMessageEx", std::string(class_getName(owner)) + " has no method " + sel_getName(selector));
}

/// The slot is filled before the replacement can run, and a call on another thread finds in it what to call
/// at any time.
void replace(Class owner, Method method, IMP replacement, PreviousSlot previous) {
    if (limits().injection == Injection::lenient) {
        fill(previous, method_getImplementation(method));
        replace_method(owner, method, replacement);
        return;
    }
    if (previous.place) fill(previous, trampoline_to_slot(previous.place));
    const SEL selector = method_getName(method);
    const bool inherited = add_method(owner, selector, replacement, method_getTypeEncoding(method));
    fill(previous,
         inherited ? trampoline_to_superclass(owner, selector) : replace_method(owner, method, replacement));
}

}  // namespace

void limit_hooks(HookLimits wanted) { limits() = std::move(wanted); }

bool framework_strips() { return limits().injection != Injection::lenient; }

bool is_hookable_function(const std::string& name) {
    for (auto* listed = __start_hookable_functions; listed != __stop_hookable_functions; ++listed)
        if ((*listed)->name() == name) return true;
    return false;
}

void hook_message(Class owner, SEL selector, IMP replacement, PreviousSlot previous) {
    const bool found = owner && !names(limits().unfound_methods, owner, selector);
    Method method = found ? class_getInstanceMethod(owner, selector) : nullptr;
    const char* types = method ? method_getTypeEncoding(method) : nullptr;
    if (!method)
        replace_nothing(owner, selector, previous);
    else if (names(limits().methods_without_previous, owner, selector))
        replace_method(owner, method, replacement);
    else
        replace(owner, method, replacement, previous);
    record({.kind = InstallingCall::Kind::hook_message,
            .owner = owner,
            .selector = selector,
            .types = types,
            .took_effect = method != nullptr});
}

void hook_function(void* symbol, void* replacement, PreviousSlot previous) {
    Hookable& function = hookable_at(symbol);
    const bool patchable = !limits().unpatchable_functions.contains(function.name());
    if (patchable) {
        fill(previous, reinterpret_cast<IMP>(function.current()));
        function.replace(replacement);
    } else if (limits().injection != Injection::lenient) {
        give_up("MSHookFunction", std::string(function.name()) + " cannot be patched");
    }
    record(
        {.kind = InstallingCall::Kind::hook_function, .function = function.name(), .took_effect = patchable});
}

}  // namespace sim

SIM_EXPORTED void MSHookMessageEx(Class owner, SEL selector, IMP replacement, IMP* previous) {
    sim::hook_message(owner, selector, replacement, {previous, false});
}

SIM_EXPORTED void MSHookFunction(void* symbol, void* replacement, void** previous) {
    sim::hook_function(symbol, replacement, {reinterpret_cast<IMP*>(previous), false});
}
