// The compact unwind pages: one encoding for each range of code.
#pragma once
#include <cstdint>
#include <vector>

#include "loader/format/bytes.h"

namespace macho {

struct UnwindEntry {
    uint32_t start, end;        ///< code, counted from the image's header
    uint32_t encoding;          ///< 0 where nothing can be unwound
    uint32_t lsda;              ///< the table of clean-ups, counted from the header; 0 if there is none
    uint32_t personality_slot;  ///< the pointer to the personality function, likewise
};

inline constexpr uint32_t kUnwindDwarfOffsetMask = 0x00ffffff;  // in the encoding, where DWARF has the frame

/// All entries in ascending order, without overlaps. None goes beyond `end_of_code`, counted from the header;
/// whether they start at code is for the caller to check.
std::vector<UnwindEntry> read_unwind_info(const Bytes& section, uint64_t end_of_code);

}  // namespace macho
