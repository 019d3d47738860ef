// Where a picture comes to lie on a device's pixels, and what cairo paints it with.
#pragma once
#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"

namespace sim {

/// From a picture's pixels, y down, into the rectangle, where its top edge comes to where y is greatest.
CGAffineTransform from_picture(cairo_surface_t* picture, CGRect rect);

/// A picture, scaled down by averaging where the interpolation asks for that, with its filter and its place.
/// Its edges repeat outside it: who paints it clips to where it belongs.
class ImagePlacement {
  public:
    /// `to_pixels`: from the picture's pixels to the device's, both y down.
    ImagePlacement(cairo_surface_t* picture, CGAffineTransform to_pixels, CGInterpolationQuality);

    /// False for a place that is a line, a point, or not finite.
    bool is_visible() const { return static_cast<bool>(source_); }
    cairo_pattern_t* source() const { return source_; }

  private:
    Pattern source_;
};

}  // namespace sim
