// __unwind_info: pages of compact encodings, one for each range of code.
#pragma once
#include <cstdint>
#include <vector>

#include "loader/format/bytes.h"

namespace macho {

struct UnwindEntry {
    uint32_t start, end;  ///< code, counted from the image's header
    uint32_t encoding;    ///< 0 where nothing can be unwound
    uint32_t lsda;        ///< the language-specific data area, counted from the header; 0 if there is none
    uint32_t personality_slot;  ///< the pointer to the personality function, likewise
};

inline constexpr uint32_t UNWIND_DWARF_SECTION_OFFSET =
    0x00ffffff;  // of the frame in __eh_frame, on both processors

/// All entries in ascending order, without overlaps. None goes beyond `end_of_code`, counted from the header;
/// whether they start at code is for the caller to check.
std::vector<UnwindEntry> read_unwind_info(const Bytes& section, uint64_t end_of_code);

}  // namespace macho
