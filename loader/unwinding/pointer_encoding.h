// How DWARF encodes a pointer in unwind tables.
#pragma once
#include <cstdint>

namespace macho {

enum PointerEncoding : uint8_t {
    // The format, in the lower four bits.
    DW_EH_PE_absptr = 0x00,
    DW_EH_PE_udata4 = 0x03,
    DW_EH_PE_udata8 = 0x04,
    DW_EH_PE_sdata4 = 0x0b,
    DW_EH_PE_sdata8 = 0x0c,
    // What it counts from, in the next three.
    DW_EH_PE_pcrel = 0x10,
    DW_EH_PE_indirect = 0x80,
    DW_EH_PE_omit = 0xff,
};
inline constexpr uint8_t kEncodingFormatMask = 0x0f, kEncodingBaseMask = 0x70;

}  // namespace macho
