#include "coregraphics/pictures/png.h"

#include <png.h>

#include <algorithm>
#include <memory>

#include "coregraphics/drawing/pixels.h"

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
            for (size_t c : {Pixels::blue, Pixels::green, Pixels::red})
                row[i + c] = premultiplied(row[i + c], alpha);
        }
    }
}

// Then multiplying by alpha has changed nothing.
bool is_opaque_or_clear(const Pixels& pixels) {
    for (size_t y = 0; y < pixels.height(); ++y) {
        const auto row = pixels.row(y);
        for (size_t i = Pixels::alpha; i < row.size(); i += Pixels::bytes)
            if (row[i] != 0 && row[i] != 255) return false;
    }
    return true;
}

std::unique_ptr<uint8_t[]> unmultiplied(const Pixels& pixels) {
    auto plain = std::make_unique_for_overwrite<uint8_t[]>(pixels.width() * pixels.height() * 4);
    uint8_t* out = plain.get();
    for (size_t y = 0; y < pixels.height(); ++y) {
        const uint8_t* in = pixels.row(y).data();
        for (size_t x = 0; x < pixels.width(); ++x, in += Pixels::bytes, out += 4) {
            const unsigned alpha = in[Pixels::alpha];
            const bool as_it_is = alpha == 255 || alpha == 0;
            out[0] = as_it_is ? in[Pixels::red] : unpremultiplied(in[Pixels::red], alpha);
            out[1] = as_it_is ? in[Pixels::green] : unpremultiplied(in[Pixels::green], alpha);
            out[2] = as_it_is ? in[Pixels::blue] : unpremultiplied(in[Pixels::blue], alpha);
            out[3] = static_cast<uint8_t>(alpha);
        }
    }
    return plain;
}

std::unique_ptr<uint8_t[]> without_alpha(const Pixels& pixels) {
    auto plain = std::make_unique_for_overwrite<uint8_t[]>(pixels.width() * pixels.height() * 3);
    uint8_t* out = plain.get();
    for (size_t y = 0; y < pixels.height(); ++y) {
        const uint8_t* in = pixels.row(y).data();
        for (size_t x = 0; x < pixels.width(); ++x, in += Pixels::bytes, out += 3)
            out[0] = in[Pixels::red], out[1] = in[Pixels::green], out[2] = in[Pixels::blue];
    }
    return plain;
}

}  // namespace

bool is_png(std::span<const uint8_t> data) {
    constexpr uint8_t signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    return data.size() > sizeof signature &&
           std::equal(std::begin(signature), std::end(signature), data.begin());
}

std::optional<DecodedPicture> decode_png(std::span<const uint8_t> data) {
    Png png;
    if (!png_image_begin_read_from_memory(&png, data.data(), data.size())) return std::nullopt;
    if (!fits_limits(png.width, png.height)) return std::nullopt;
    const bool alpha = png.format & PNG_FORMAT_FLAG_ALPHA, color = png.format & PNG_FORMAT_FLAG_COLOR;
    DecodedPicture picture;
    picture.model = color ? kCGColorSpaceModelRGB : kCGColorSpaceModelMonochrome;
    picture.surface =
        Surface(cairo_image_surface_create(alpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
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
    const bool as_it_is = alpha && is_opaque_or_clear(pixels);
    const auto plain = as_it_is ? nullptr : alpha ? unmultiplied(pixels) : without_alpha(pixels);
    Png png;
    png.width = static_cast<png_uint_32>(pixels.width());
    png.height = static_cast<png_uint_32>(pixels.height());
    png.format = as_it_is ? PNG_FORMAT_BGRA : alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    png.flags = PNG_IMAGE_FLAG_FAST;
    const void* rows = as_it_is ? pixels.row(0).data() : plain.get();
    const int row_bytes = as_it_is ? cairo_image_surface_get_stride(surface) : 0;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    const auto file = std::make_unique_for_overwrite<uint8_t[]>(size);
    if (!png_image_write_to_memory(&png, file.get(), &size, 0, rows, row_bytes, nullptr)) return std::nullopt;
    return std::vector<uint8_t>(file.get(), file.get() + size);
}

}  // namespace sim
