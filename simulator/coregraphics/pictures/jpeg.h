// JPEG, through the TurboJPEG interface, which traps its errors itself.
#pragma once
#include "coregraphics/pictures/picture_files.h"

namespace sim {

bool is_jpeg(std::span<const uint8_t> data);
std::optional<DecodedPicture> decode_jpeg(std::span<const uint8_t> data, size_t needed);

}  // namespace sim
