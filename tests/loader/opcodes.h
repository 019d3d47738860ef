// For the tests of fix-up opcodes: two segments to fix up, and numbers in opcode form.
#pragma once
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "loader/format/layout.h"

namespace loader_test {

/// __TEXT at 0 and __DATA at 0x1000, of which the file holds 0x100 bytes: 32 pointers.
inline macho::Layout two_segments() {
    macho::Layout layout{};
    layout.segments = {{.name = "__TEXT",
                        .address = 0,
                        .size = 0x1000,
                        .file_offset = 0,
                        .file_size = 0x1000,
                        .readable = true,
                        .writable = false,
                        .executable = true},
                       {.name = "__DATA",
                        .address = 0x1000,
                        .size = 0x1000,
                        .file_offset = 0x1000,
                        .file_size = 0x100,
                        .readable = true,
                        .writable = true,
                        .executable = false}};
    layout.libraries = {{"/first", 0}, {"/second", 0}};
    return layout;
}

/// A run of opcodes, with `huge` for 2^60 and `back` for minus 8 as numbers.
using Opcodes = std::vector<uint8_t>;
inline const Opcodes huge = {0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x10};
inline const Opcodes back = {0xf8, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01};

inline Opcodes joined(std::initializer_list<Opcodes> parts) {
    Opcodes all;
    for (const Opcodes& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace loader_test
