// Functions that cross the border: their addresses as the system takes and gives them.
//
// A process whose executable is built for arm64e authenticates the addresses of functions: they carry a
// signature in their upper bits, and a call through one without it faults. The instructions that sign and
// strip do nothing where no address is authenticated, on older processors and in arm64 processes; so one code
// serves all of them.
#pragma once
#include <cstdint>

#include "objc/pointer_signature.h"

namespace objc {

namespace detail {
#ifdef __APPLE__
inline uintptr_t sign(uintptr_t address, uintptr_t modifier) { return signed_pointer(address, modifier); }
inline uintptr_t strip(uintptr_t address) { return stripped_pointer(address); }
#else
// On Linux, the system's addresses are as they are, even where the processor could sign them.
constexpr uintptr_t sign(uintptr_t address, uintptr_t) { return address; }
constexpr uintptr_t strip(uintptr_t address) { return address; }
#endif
}  // namespace detail

/// A function's address on its way over the border: signed where the system authenticates, and not to be
/// called. Whatever crosses has this type, so that no address crosses as it is.
template <class Signature>
struct Handed {
    Signature* address;

    explicit operator bool() const { return address != nullptr; }
};
template struct Handed<void()>;  // complete: C functions return it

/// For a function that the system is to call. Null stays null.
template <class Signature>
Handed<Signature> hand_over(Signature* function) {
    if (!function) return {nullptr};
    return {reinterpret_cast<Signature*>(detail::sign(reinterpret_cast<uintptr_t>(function), 0))};
}

/// The same into a field whose own address the system mixes in: where it lies, and nowhere else, it is valid.
template <class Signature>
void hand_over_in(Handed<Signature>& field, Signature* function) {
    field.address = reinterpret_cast<Signature*>(
        detail::sign(reinterpret_cast<uintptr_t>(function), reinterpret_cast<uintptr_t>(&field)));
}

/// A function of the system's, to be called here. Null stays null, and an address without a signature is
/// itself.
template <class Signature>
Signature* take_back(Handed<Signature> function) {
    return reinterpret_cast<Signature*>(detail::strip(reinterpret_cast<uintptr_t>(function.address)));
}

/// Whether this process authenticates addresses: whether signing one changes it.
inline bool authenticates_addresses() {
    constexpr uintptr_t any_address = 0x1000,
                        places = 4;  // at one place, the signature may be zero by chance
    for (uintptr_t place = 1; place <= places; ++place)
        if (detail::sign(any_address, place) != any_address) return true;
    return false;
}

}  // namespace objc
