#include "coregraphics/drawing/bitmap.h"

#include <cstring>

#include "coregraphics/drawing/pixels.h"

namespace sim {

std::optional<PixelLayout> PixelLayout::of(CGBitmapInfo info) {
    if (info & kCGBitmapFloatComponents) return std::nullopt;
    const CGBitmapInfo order = info & kCGBitmapByteOrderMask;
    const bool little = order == kCGBitmapByteOrder32Little;
    if (!little && order != kCGBitmapByteOrder32Big && order != kCGBitmapByteOrderDefault)
        return std::nullopt;
    switch (info & kCGBitmapAlphaInfoMask) {
        case kCGImageAlphaPremultipliedLast:
        case kCGImageAlphaNoneSkipLast: {
            const bool skipped = (info & kCGBitmapAlphaInfoMask) == kCGImageAlphaNoneSkipLast;
            return little ? PixelLayout{1, 2, 3, 0, skipped} : PixelLayout{2, 1, 0, 3, skipped};
        }
        case kCGImageAlphaPremultipliedFirst:
        case kCGImageAlphaNoneSkipFirst: {
            const bool skipped = (info & kCGBitmapAlphaInfoMask) == kCGImageAlphaNoneSkipFirst;
            return little ? PixelLayout{0, 1, 2, 3, skipped} : PixelLayout{3, 2, 1, 0, skipped};
        }
    }
    return std::nullopt;
}

std::optional<Bitmap> Bitmap::of_size(size_t width, size_t height, bool opaque) {
    if (!fits_limits(width, height)) return std::nullopt;
    Bitmap bitmap;
    bitmap.info_ =
        kCGBitmapByteOrder32Little | (opaque ? kCGImageAlphaNoneSkipFirst : kCGImageAlphaPremultipliedFirst);
    bitmap.layout_ = *PixelLayout::of(bitmap.info_);
    bitmap.surface_ = clear_surface(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32, width, height);
    if (cairo_surface_status(bitmap.surface_)) return std::nullopt;
    bitmap.data_ = cairo_image_surface_get_data(bitmap.surface_);
    bitmap.row_bytes_ = static_cast<size_t>(cairo_image_surface_get_stride(bitmap.surface_));
    return bitmap;
}

std::optional<Bitmap> Bitmap::over(void* data, size_t width, size_t height, size_t row_bytes,
                                   CGBitmapInfo info) {
    const std::optional<PixelLayout> layout = PixelLayout::of(info);
    constexpr size_t longest_row = size_t{1} << 30;
    if (!layout || !fits_limits(width, height) || row_bytes < width * Pixels::bytes ||
        row_bytes > longest_row)
        return std::nullopt;
    Bitmap bitmap;
    bitmap.info_ = info;
    bitmap.layout_ = *layout;
    bitmap.row_bytes_ = row_bytes;
    if (!data) {
        bitmap.owned_ = std::make_unique<uint8_t[]>(row_bytes * height);
        data = bitmap.owned_.get();
    }
    bitmap.data_ = static_cast<uint8_t*>(data);
    const cairo_format_t format = layout->alpha_skipped ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    const int columns = static_cast<int>(width), rows = static_cast<int>(height);
    const bool aligned = row_bytes % 4 == 0 && reinterpret_cast<uintptr_t>(data) % 4 == 0;
    bitmap.surface_ = Surface(layout->is_cairos() && aligned
                                  ? cairo_image_surface_create_for_data(bitmap.data_, format, columns, rows,
                                                                        static_cast<int>(row_bytes))
                                  : cairo_image_surface_create(format, columns, rows));
    if (cairo_surface_status(bitmap.surface_)) return std::nullopt;
    return bitmap;
}

void Bitmap::load() const {
    const Pixels pixels(surface_);
    if (pixels.row(0).data() != data_) {
        for (size_t y = 0; y < pixels.height(); ++y) {
            const uint8_t* theirs = data_ + y * row_bytes_;
            uint8_t* ours = pixels.row(y).data();
            for (size_t x = 0; x < pixels.width(); ++x, ours += Pixels::bytes, theirs += Pixels::bytes) {
                ours[Pixels::blue] = theirs[layout_.blue];
                ours[Pixels::green] = theirs[layout_.green];
                ours[Pixels::red] = theirs[layout_.red];
                ours[Pixels::alpha] = theirs[layout_.alpha];
            }
        }
    }
    pixels.changed();
}

void Bitmap::store() const {
    const Pixels pixels(surface_);
    if (pixels.row(0).data() == data_) return;
    for (size_t y = 0; y < pixels.height(); ++y) {
        uint8_t* theirs = data_ + y * row_bytes_;
        const uint8_t* ours = pixels.row(y).data();
        for (size_t x = 0; x < pixels.width(); ++x, ours += Pixels::bytes, theirs += Pixels::bytes) {
            theirs[layout_.blue] = ours[Pixels::blue];
            theirs[layout_.green] = ours[Pixels::green];
            theirs[layout_.red] = ours[Pixels::red];
            if (!layout_.alpha_skipped) theirs[layout_.alpha] = ours[Pixels::alpha];
        }
    }
}

Surface snapshot(cairo_surface_t* surface) {
    const Pixels source(surface);
    Surface copy =
        unwritten_surface(cairo_image_surface_get_format(surface), source.width(), source.height());
    if (cairo_surface_status(copy)) return Surface();
    const Pixels target(copy);
    for (size_t y = 0; y < source.height(); ++y)
        std::memcpy(target.row(y).data(), source.row(y).data(), source.row(y).size());
    target.changed();
    return copy;
}

}  // namespace sim
