// DWARF frame descriptions that a file carries for the functions no compact encoding can describe.
#pragma once
#include <cstdint>
#include <vector>

#include "loader/mapping.h"
#include "loader/unwinding/frame_table.h"

namespace macho {

/// The description at `offset` in __eh_frame. Its addresses are resolved, since the table that it goes to
/// lies elsewhere. `function` is the start that it must be about.
FrameDescription read_eh_frame(const Mapping& mapping, const Section& section, uint64_t offset,
                               uintptr_t function);

}  // namespace macho
