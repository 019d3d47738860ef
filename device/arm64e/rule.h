// Which pointers of an arm64e image are signed.
#pragma once
#include "arm64e/linked_slice.h"

namespace arm64e {

/// Whether the pointer at the address is to be signed: with key IA and its own address mixed in, the one way
/// that iOS 12 asks for in data. Everything else is plain. A pointer to a function in a place that the rule
/// does not know is a macho::Fault that names it: whether that is to be signed depends on who calls it.
bool is_signed(const LinkedSlice& slice, uint64_t address, const Pointer& pointer);

}  // namespace arm64e
