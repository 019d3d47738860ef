// Selectors: written once, as a literal, and looked up once.
#pragma once
#include "objc/name.h"
#include "objc/runtime.h"

namespace objc {

#ifdef __APPLE__
namespace detail {
// Internal linkage: each unit has its own slot and text, and the linker merges the equal ones.
namespace {
template <Name Text>
struct SelectorSlot {
    [[gnu::section("__TEXT,__objc_methname,cstring_literals")]] static constexpr auto name = Text;
    [[gnu::section(
        "__DATA,__objc_selrefs,literal_pointers,no_dead_strip")]] static constinit inline const char* slot =
        name.text;
};
}  // namespace
}  // namespace detail

template <Name Text>
inline SEL selector() {
    // volatile: the runtime overwrites the slot before any code runs, which the compiler cannot know
    return reinterpret_cast<SEL>(*const_cast<const char* volatile*>(&detail::SelectorSlot<Text>::slot));
}
#else
template <Name Text>
inline SEL selector() {
    static constinit SEL slot = nullptr;  // two threads may both fill it, with the same value
    SEL found = __atomic_load_n(&slot, __ATOMIC_RELAXED);
    if (!found) [[unlikely]] {
        found = sel_registerName(stored<Text>.text);
        __atomic_store_n(&slot, found, __ATOMIC_RELAXED);
    }
    return found;
}
#endif

}  // namespace objc
