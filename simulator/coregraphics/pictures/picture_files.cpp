// Picture files: the contents say which kind they are.
#include "coregraphics/pictures/picture_files.h"

#include "coregraphics/pictures/jpeg.h"
#include "coregraphics/pictures/png.h"

namespace sim {

std::optional<DecodedPicture> decode_picture(std::span<const uint8_t> data, size_t needed) {
    if (is_png(data)) return decode_png(data);
    if (is_jpeg(data)) return decode_jpeg(data, needed);
    return std::nullopt;
}

}  // namespace sim
