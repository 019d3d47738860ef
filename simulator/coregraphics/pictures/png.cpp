#include "coregraphics/pictures/png.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
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

// ---- Opaque pictures, row by row --------------------------------------------------------------------------

void append(png_structp png, png_bytep bytes, size_t count) {
    auto& file = *static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
    file.insert(file.end(), bytes, bytes + count);
}

/// libpng's writer and what it knows of the picture.
struct Writer {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;

    Writer() = default;
    Writer(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }
};

/// The file that libpng's simplified interface makes of the same colours when it is to be quick, without a
/// copy of all pixels to make it from. False when memory is short.
bool write_opaque(const Pixels& pixels, std::vector<uint8_t>& file) {
    const Writer writer;
    if (!writer.info) return false;
    png_structp png = writer.png;
    if (setjmp(png_jmpbuf(png))) return false;
    constexpr int quick = 3, component_bits = 8;
    png_set_write_fn(png, &file, append, nullptr);
    png_set_IHDR(png, writer.info, static_cast<png_uint_32>(pixels.width()),
                 static_cast<png_uint_32>(pixels.height()), component_bits, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB(png, writer.info, PNG_sRGB_INTENT_PERCEPTUAL);
    png_write_info(png, writer.info);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_NO_FILTERS);  // before the header it would mean all
    png_set_compression_level(png, quick);
    png_set_bgr(png);
    png_set_filler(png, 0, PNG_FILLER_AFTER);
    for (size_t y = 0; y < pixels.height(); ++y) png_write_row(png, pixels.row(y).data());
    png_write_end(png, nullptr);
    return true;
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
    if (cairo_image_surface_get_format(surface) != CAIRO_FORMAT_ARGB32) {
        std::vector<uint8_t> file;
        return write_opaque(pixels, file) ? std::optional(std::move(file)) : std::nullopt;
    }
    const bool as_it_is = is_opaque_or_clear(pixels);
    const auto plain = as_it_is ? nullptr : unmultiplied(pixels);
    Png png;
    png.width = static_cast<png_uint_32>(pixels.width());
    png.height = static_cast<png_uint_32>(pixels.height());
    png.format = as_it_is ? PNG_FORMAT_BGRA : PNG_FORMAT_RGBA;
    png.flags = PNG_IMAGE_FLAG_FAST;
    const void* rows = as_it_is ? pixels.row(0).data() : plain.get();
    const int row_bytes = as_it_is ? cairo_image_surface_get_stride(surface) : 0;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    const auto file = std::make_unique_for_overwrite<uint8_t[]>(size);
    if (!png_image_write_to_memory(&png, file.get(), &size, 0, rows, row_bytes, nullptr)) return std::nullopt;
    return std::vector<uint8_t>(file.get(), file.get() + size);
}

}  // namespace sim
