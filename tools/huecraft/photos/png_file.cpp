#include "photos/png_file.h"

#include <new>

namespace command {

std::string png_file(png_image& image, const std::vector<uint8_t>& pixels,
                     const std::vector<uint8_t>& palette) {
    png_alloc_size_t length = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string file(length, '\0');
    const void* colours = palette.empty() ? nullptr : palette.data();
    if (!png_image_write_to_memory(&image, file.data(), &length, 0, pixels.data(), 0, colours))
        throw std::bad_alloc();
    file.resize(length);
    return file;
}

}  // namespace command
