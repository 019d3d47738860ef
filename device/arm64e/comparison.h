// Holds an arm64e slice against the arm64 slice that it was made of.
#pragma once
#include "arm64e/linked_slice.h"

namespace arm64e {

/// Reads both as a loader does, and shares nothing with what wrote the second: every pointer leads where it
/// led, the implementations of methods and the functions of blocks are signed, and nothing else; no byte
/// differs besides. A macho::Fault names the first difference.
void compare(const Data& arm64_slice, const Data& arm64e_slice);

}  // namespace arm64e
