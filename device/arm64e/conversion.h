// Makes an arm64e slice of a linked arm64 slice: the same code, other fix-ups.
#pragma once
#include <cstddef>

#include "arm64e/linked_slice.h"

namespace arm64e {

struct Conversion {
    Data slice;  ///< its signature is still the arm64 slice's
    size_t pointers, signed_pointers, rows, chains;
};

/// Throws a macho::Fault.
Conversion convert(const Data& arm64_slice);

}  // namespace arm64e
