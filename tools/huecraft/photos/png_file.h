// PNG files, written.
#pragma once
#include <png.h>

#include <cstdint>
#include <string>
#include <vector>

namespace command {

/// The file of the pixels, as the image says that they are, with the palette's colours if it has one. Throws
/// std::bad_alloc: nothing else can go wrong.
std::string png_file(png_image& image, const std::vector<uint8_t>& pixels,
                     const std::vector<uint8_t>& palette = {});

}  // namespace command
