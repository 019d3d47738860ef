// Fills pixels with linear gradients.
#pragma once
#include <cairo.h>

#include <cstdint>
#include <vector>

#include "coregraphics/CGColor.h"
#include "platform/coregraphics.h"

namespace sim {

struct GradientStop {
    double location;  ///< 0 at the start, 1 at the end; what lies outside, and NaN, counts as the nearest of
                      ///< the two.
    RGBA color;       ///< Components outside 0 to 1 count as the nearest of the two, NaN as 0.
};

/// Whether colours between two stops are mixed as they are, or multiplied by their alpha, so that a
/// transparent stop's colour does not show.
enum class ColorMixing { plain, premultiplied };

/// Colours along a line; each reaches to both sides as far as there are pixels.
struct LinearGradient {
    /// In the order of their locations: one that lies before its predecessor counts as at its place. Of
    /// several at one place the last begins what follows.
    std::vector<GradientStop> stops;
    CGPoint start, end;
    /// Before the start and after the end the colours there go on; else nothing is drawn.
    bool reaches_before = true, reaches_after = true;
    ColorMixing mixing = ColorMixing::plain;
};

/// A gradient as it lies on a surface's pixels. Every component is within 1 of 255 of its exact value.
class GradientFill {
  public:
    /// `to_pixels` takes the gradient's points to the surface's pixels. `is_visible` is false for a gradient
    /// without stops or length, or one that is not finite.
    GradientFill(const LinearGradient&, const CGAffineTransform& to_pixels);

    bool is_visible() const { return visible_; }
    /// Draws over what the ARGB32 or RGB24 surface has in the rectangle, which lies inside it. The caller
    /// marks it dirty.
    void draw(cairo_surface_t*, const cairo_rectangle_int_t&) const;

  private:
    using Pixel = uint32_t;  // cairo's, colours multiplied by alpha

    double place_of(double x, double y) const { return across_ * x + down_ * y + at_origin_; }
    Pixel color_at(double place) const;
    std::vector<Pixel> color_table() const;
    void draw_rows_of_one_color(cairo_surface_t*, const cairo_rectangle_int_t&) const;
    void draw_shifted_rows(cairo_surface_t*, const cairo_rectangle_int_t&) const;
    void draw_from_table(cairo_surface_t*, const cairo_rectangle_int_t&) const;

    std::vector<GradientStop> stops_;
    bool reaches_before_, reaches_after_;
    ColorMixing mixing_;
    bool visible_ = false, opaque_ = true;
    /// The most that a component changes, of 255, if it went on changing from the start to the end.
    double steepness_ = 0;
    /// The place along the gradient of the pixel (x, y): across * x + down * y + at_origin.
    double across_ = 0, down_ = 0, at_origin_ = 0;
};

}  // namespace sim
