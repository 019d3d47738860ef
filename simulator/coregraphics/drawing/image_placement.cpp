#include "coregraphics/drawing/image_placement.h"

#include <algorithm>
#include <cmath>

#include "coregraphics/drawing/reduction.h"
#include "coregraphics/transform.h"

namespace sim {
namespace {

bool is_whole(CGFloat number) { return std::abs(number - std::round(number)) < 1e-6; }

// Every pixel of the picture covers one of the device's.
bool matches_pixels(const CGAffineTransform& t) {
    return is_whole(t.tx) && is_whole(t.ty) && std::abs(std::abs(t.a) - 1) < 1e-9 &&
           std::abs(std::abs(t.d) - 1) < 1e-9 && t.b == 0 && t.c == 0;
}

// The size to which a side is brought before it is drawn: never larger, and never nothing.
size_t reduced_side(size_t pixels, CGFloat factor) {
    const CGFloat wanted = std::ceil(static_cast<CGFloat>(pixels) * factor - 1e-6);
    return wanted < static_cast<CGFloat>(pixels) ? static_cast<size_t>(std::max(wanted, 1.0)) : pixels;
}

cairo_filter_t filter_for(CGInterpolationQuality quality, const CGAffineTransform& t) {
    if (quality == kCGInterpolationNone || matches_pixels(t)) return CAIRO_FILTER_NEAREST;
    return quality == kCGInterpolationHigh ? CAIRO_FILTER_BEST : CAIRO_FILTER_BILINEAR;
}

}  // namespace

CGAffineTransform from_picture(cairo_surface_t* picture, CGRect rect) {
    const auto [origin, size] = standardized(rect);
    return {size.width / cairo_image_surface_get_width(picture),    0,        0,
            -size.height / cairo_image_surface_get_height(picture), origin.x, origin.y + size.height};
}

ImagePlacement::ImagePlacement(cairo_surface_t* picture, CGAffineTransform to_pixels,
                               CGInterpolationQuality quality) {
    if (!inverted(to_pixels)) return;
    const auto width = static_cast<size_t>(cairo_image_surface_get_width(picture));
    const auto height = static_cast<size_t>(cairo_image_surface_get_height(picture));
    Surface drawn(cairo_surface_reference(picture));
    if (quality != kCGInterpolationNone && quality != kCGInterpolationLow) {
        const size_t across = reduced_side(width, std::hypot(to_pixels.a, to_pixels.b));
        const size_t down = reduced_side(height, std::hypot(to_pixels.c, to_pixels.d));
        if (across < width || down < height) {
            drawn = reduced(picture, across, down);
            to_pixels = concat(scaling(static_cast<CGFloat>(width) / static_cast<CGFloat>(across),
                                       static_cast<CGFloat>(height) / static_cast<CGFloat>(down)),
                               to_pixels);
        }
    }
    const auto from_pixels = inverted(to_pixels);
    if (!from_pixels) return;
    source_ = Pattern(cairo_pattern_create_for_surface(drawn));
    const cairo_matrix_t matrix{from_pixels->a, from_pixels->b,  from_pixels->c,
                                from_pixels->d, from_pixels->tx, from_pixels->ty};
    cairo_pattern_set_matrix(source_, &matrix);
    cairo_pattern_set_filter(source_, filter_for(quality, to_pixels));
    cairo_pattern_set_extend(source_, CAIRO_EXTEND_PAD);
}

}  // namespace sim
