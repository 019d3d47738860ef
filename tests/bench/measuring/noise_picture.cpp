// Pictures that do not compress.
#include "noise_picture.h"

#include <png.h>

#include <cmath>
#include <random>
#include <vector>

#include "check.h"

namespace bench {

std::string noise_picture(size_t bytes) {
    constexpr double channels = 3, width_to_height = 1.5;
    const double height = std::sqrt(static_cast<double>(bytes) / channels / width_to_height);
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.format = PNG_FORMAT_RGB;
    png.width = static_cast<png_uint_32>(height * width_to_height);
    png.height = static_cast<png_uint_32>(height);
    png.flags = PNG_IMAGE_FLAG_FAST;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(png));
    std::mt19937 random(1);
    for (uint8_t& channel : pixels) channel = static_cast<uint8_t>(random());
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    std::string file(size, '\0');
    check(png_image_write_to_memory(&png, file.data(), &size, 0, pixels.data(), 0, nullptr),
          "a picture can be written");
    file.resize(size);
    return file;
}

}  // namespace bench
