// PNG: see the header.
#include "coregraphics/png.h"

#include <png.h>

#include <algorithm>
#include <cstring>

#include "coregraphics/pixels.h"

namespace sim {
namespace {

/// libpng's state of one picture.
struct Png : png_image {
    Png() : png_image{} { version = PNG_IMAGE_VERSION; }
    Png(const Png&) = delete;
    ~Png() { png_image_free(this); }
};

void premultiply(const Pixels& pixels) {
    for (size_t y = 0; y < pixels.height(); ++y) {
        const auto row = pixels.row(y);
        for (size_t i = 0; i < row.size(); i += Pixels::bytes) {
            const unsigned alpha = row[i + Pixels::alpha];
            if (alpha == 255) continue;
            for (size_t c : {Pixels::blue, Pixels::green, Pixels::red}) row[i + c] = premultiplied(row[i + c], alpha);
        }
    }
}

}  // namespace

bool is_png(std::span<const uint8_t> data) {
    constexpr uint8_t signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    return data.size() > sizeof signature && std::equal(std::begin(signature), std::end(signature), data.begin());
}

std::optional<DecodedPicture> decode_png(std::span<const uint8_t> data) {
    Png png;
    if (!png_image_begin_read_from_memory(&png, data.data(), data.size())) return std::nullopt;
    if (!fits_limits(png.width, png.height)) return std::nullopt;
    const bool alpha = png.format & PNG_FORMAT_FLAG_ALPHA, color = png.format & PNG_FORMAT_FLAG_COLOR;
    DecodedPicture picture;
    picture.model = color ? kCGColorSpaceModelRGB : kCGColorSpaceModelMonochrome;
    picture.surface = Surface(cairo_image_surface_create(alpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
                                                         static_cast<int>(png.width), static_cast<int>(png.height)));
    if (cairo_surface_status(picture.surface)) return std::nullopt;
    const Pixels pixels(picture.surface);
    png.format = PNG_FORMAT_BGRA;
    if (!png_image_finish_read(&png, nullptr, pixels.row(0).data(),
                               cairo_image_surface_get_stride(picture.surface), nullptr))
        return std::nullopt;
    if (alpha) premultiply(pixels);
    pixels.changed();
    return picture;
}

std::optional<std::vector<uint8_t>> encode_png(cairo_surface_t* surface) {
    const Pixels pixels(surface);
    const bool alpha = cairo_image_surface_get_format(surface) == CAIRO_FORMAT_ARGB32;
    const size_t components = alpha ? 4 : 3;
    std::vector<uint8_t> plain(pixels.width() * pixels.height() * components);
    uint8_t* out = plain.data();
    for (size_t y = 0; y < pixels.height(); ++y) {
        const auto row = pixels.row(y);
        for (size_t i = 0; i < row.size(); i += Pixels::bytes) {
            const unsigned a = alpha ? row[i + Pixels::alpha] : 255;
            for (size_t c : {Pixels::red, Pixels::green, Pixels::blue})
                *out++ = a == 255 ? row[i + c] : unpremultiplied(row[i + c], a);
            if (alpha) *out++ = static_cast<uint8_t>(a);
        }
    }
    Png png;
    png.width = static_cast<png_uint_32>(pixels.width());
    png.height = static_cast<png_uint_32>(pixels.height());
    png.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    png.flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    std::vector<uint8_t> file(size);
    if (!png_image_write_to_memory(&png, file.data(), &size, 0, plain.data(), 0, nullptr)) return std::nullopt;
    file.resize(size);
    return file;
}

}  // namespace sim
