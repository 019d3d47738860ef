// How to find a function's caller: what both compact encodings come down to.
#pragma once
#include <cstdint>
#include <vector>

namespace macho {

/// A register that the function saved. Numbers are those of DWARF for the processor.
struct SavedRegister {
    uint8_t number;
    uint32_t words_below;  ///< it lies this many 8-byte words below the canonical frame address
    bool operator==(const SavedRegister&) const = default;
};

/// The canonical frame address is the stack pointer's value in the caller: a register of the function plus
/// an offset. It holds at every call that the function makes.
struct Frame {
    uint8_t base_register;
    uint64_t offset;
    std::vector<SavedRegister> saved;
    bool operator==(const Frame&) const = default;
};

}  // namespace macho
