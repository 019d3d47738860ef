// Signatures of pointers as an arm64e process has them: key IA, in the pointer's upper bits. The instructions
// are in the hint space: they assemble for every processor, and do nothing where no address is authenticated.
#pragma once
#include <cstdint>
#include <optional>

#if defined(__aarch64__) && defined(__linux__)
#include <sys/auxv.h>
#endif

namespace objc {

/// Whether this machine's processor authenticates pointers, for those who play a system that does. Where it
/// does not, signing and stripping change nothing.
inline bool processor_authenticates() {
#if defined(__aarch64__) && defined(__linux__)
    constexpr unsigned long address_authentication = 1ul << 30;  // HWCAP_PACA
    return (getauxval(AT_HWCAP) & address_authentication) != 0;
#else
    return false;
#endif
}

/// What is mixed in: a discriminator, in place of the upper 16 bits of the pointer's own address or alone.
constexpr uint64_t signature_modifier(uint64_t address_mixed_in, uint16_t discriminator) {
    constexpr unsigned address_bits = 48;
    if (!address_mixed_in || !discriminator) return address_mixed_in ? address_mixed_in : discriminator;
    return (address_mixed_in & ((uint64_t{1} << address_bits) - 1)) | uint64_t{discriminator} << address_bits;
}

#if defined(__aarch64__)
inline uintptr_t signed_pointer(uintptr_t pointer, uintptr_t modifier) {
    register uintptr_t value asm("x17") = pointer;
    register uintptr_t mixed_in asm("x16") = modifier;
    asm("hint #8" : "+r"(value) : "r"(mixed_in));  // pacia1716
    return value;
}

inline uintptr_t stripped_pointer(uintptr_t pointer) {
    register uintptr_t value asm("x30") = pointer;
    asm("hint #7" : "+r"(value));  // xpaclri
    return value;
}

/// The pointer without its signature; nothing when that is not the one for the modifier. Null carries none.
inline std::optional<uintptr_t> authenticated_pointer(uintptr_t pointer, uintptr_t modifier) {
    if (!pointer) return pointer;
    register uintptr_t value asm("x17") = pointer;
    register uintptr_t mixed_in asm("x16") = modifier;
    asm("hint #12" : "+r"(value) : "r"(mixed_in));  // autia1716
    const uintptr_t stripped = stripped_pointer(pointer);
    if (value != stripped) return std::nullopt;
    return stripped;
}
#else
inline uintptr_t signed_pointer(uintptr_t pointer, uintptr_t) { return pointer; }
inline uintptr_t stripped_pointer(uintptr_t pointer) { return pointer; }
inline std::optional<uintptr_t> authenticated_pointer(uintptr_t pointer, uintptr_t) { return pointer; }
#endif

}  // namespace objc
