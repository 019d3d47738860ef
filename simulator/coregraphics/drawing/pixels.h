// The pixels of image surfaces: 32 bits each, blue, green, red, alpha in memory, colours multiplied by alpha.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "coregraphics/cairo_handles.h"

namespace sim {

/// The largest picture that is decoded or drawn into, in pixels: about 12,000 by 10,000.
constexpr size_t largest_area = size_t{128} << 20;
/// The longest side that cairo's arithmetic carries.
constexpr size_t longest_side = 32767;

constexpr bool fits_limits(size_t width, size_t height) {
    return width && height && width <= longest_side && height <= longest_side &&
           width * height <= largest_area;
}

/// A view of a surface's pixels. What was drawn so far is in them; drawing after a change needs `changed()`.
class Pixels {
  public:
    static constexpr size_t blue = 0, green = 1, red = 2, alpha = 3, bytes = 4;

    explicit Pixels(cairo_surface_t* surface) : surface_(surface) {
        cairo_surface_flush(surface);
        data_ = cairo_image_surface_get_data(surface);
        width_ = static_cast<size_t>(cairo_image_surface_get_width(surface));
        height_ = static_cast<size_t>(cairo_image_surface_get_height(surface));
        stride_ = static_cast<size_t>(cairo_image_surface_get_stride(surface));
    }

    size_t width() const { return width_; }
    size_t height() const { return height_; }
    std::span<uint8_t> row(size_t y) const { return {data_ + y * stride_, width_ * bytes}; }
    void changed() const { cairo_surface_mark_dirty(surface_); }

  private:
    cairo_surface_t* surface_;
    uint8_t* data_;
    size_t width_, height_, stride_;
};

/// A surface whose pixels are all going to be written. Cairo would make them zero first.
Surface unwritten_surface(cairo_format_t format, size_t width, size_t height);
/// A surface whose pixels are zero.
Surface clear_surface(cairo_format_t format, size_t width, size_t height);

/// `component` times `alpha`, both from 0 to 255, rounded to nearest.
constexpr uint8_t premultiplied(unsigned component, unsigned alpha) {
    unsigned product = component * alpha + 128;
    return static_cast<uint8_t>((product + (product >> 8)) >> 8);
}

/// Undoes `premultiplied`, rounded to nearest; 0 without alpha.
constexpr uint8_t unpremultiplied(unsigned component, unsigned alpha) {
    if (!alpha) return 0;
    unsigned quotient = (component * 255 + alpha / 2) / alpha;
    return static_cast<uint8_t>(quotient < 255 ? quotient : 255);
}

}  // namespace sim
