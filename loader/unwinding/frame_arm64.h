// Compact unwind encodings of arm64.
#pragma once
#include <cstdint>
#include <optional>

#include "loader/unwinding/frame.h"

namespace macho::arm64 {

inline constexpr uint8_t kReturnAddress = 30;  // DWARF's number of the link register

/// The frame that `encoding` describes; nothing where DWARF describes it instead.
std::optional<Frame> frame(uint32_t encoding);

}  // namespace macho::arm64
