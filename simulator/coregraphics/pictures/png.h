// PNG, through libpng's simple interface, which traps its errors itself.
#pragma once
#include "coregraphics/pictures/picture_files.h"

namespace sim {

bool is_png(std::span<const uint8_t> data);
std::optional<DecodedPicture> decode_png(std::span<const uint8_t> data);

}  // namespace sim
