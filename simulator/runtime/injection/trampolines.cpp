// A pool of numbered entries in assembly: no memory needs to be both written and run.
#include "runtime/injection/trampolines.h"

#include <atomic>
#include <thread>

#include "objc/pointer_signature.h"
#include "runtime/not_modelled.h"

// Beside the message sends: each entry passes its number on, with the arguments as they came.
extern "C" {
[[gnu::visibility("hidden")]] extern char sim_trampolines[];
[[gnu::visibility("hidden")]] extern char sim_trampolines_end[];
}

namespace sim {
namespace {

constexpr unsigned entry_size = 16, capacity = 1024;

struct Trampoline {
    Class owner = nullptr;
    SEL selector = nullptr;
    IMP* slot = nullptr;  ///< of one that waits
};

Trampoline trampolines[capacity];
std::atomic<unsigned> count = 0;

IMP entry(unsigned number) { return reinterpret_cast<IMP>(sim_trampolines + size_t{number} * entry_size); }

/// They are never given back: a call may be on its way through one at any time.
IMP made(const Trampoline& trampoline) {
    const unsigned number = count++;
    if (sim_trampolines + (size_t{number} + 1) * entry_size > sim_trampolines_end || number >= capacity)
        not_modelled("MSHookMessageEx", "this process has replaced too many methods");
    trampolines[number] = trampoline;
    return entry(number);
}

}  // namespace

IMP trampoline_to_superclass(Class owner, SEL selector) { return made({owner, selector}); }
IMP trampoline_to_slot(IMP* slot) { return made({.slot = slot}); }

}  // namespace sim

/// Called by each entry: what to jump to.
extern "C" [[gnu::used]] IMP sim_trampoline_target(unsigned number) {
    const auto& [owner, selector, slot] = sim::trampolines[number];
    if (!slot) return class_getMethodImplementation(class_getSuperclass(owner), selector);
    IMP target;
    const auto in_slot = [place = slot] {
        const auto found = reinterpret_cast<uintptr_t>(std::atomic_ref(*place).load());
        return reinterpret_cast<IMP>(objc::stripped_pointer(found));
    };
    while ((target = in_slot()) == sim::entry(number)) std::this_thread::yield();
    return target;
}
