// Compact unwind encodings of x86-64.
#pragma once
#include <cstdint>
#include <optional>

#include "loader/format/bytes.h"
#include "loader/unwinding/frame.h"

namespace macho::x86_64 {

inline constexpr uint8_t kReturnAddress = 16;  // DWARF's number of the column

/// The frame that `encoding` describes; nothing where DWARF describes it instead. `code` is the function
/// itself: the size of a large frame is only to be found in its prologue.
std::optional<Frame> frame(uint32_t encoding, const Bytes& code);

}  // namespace macho::x86_64
