// Scaling pictures down by averaging areas.
#pragma once
#include <cstddef>

#include "coregraphics/cairo_handles.h"

namespace sim {

/// The picture at a smaller size: each new pixel is the mean of the area it covers, partly covered pixels
/// counted in part. Exact to the rounding of the result, whatever the ratio; cairo's own filters look at 16
/// pixels a side at most. `width` and `height` are from 1 to the picture's own.
Surface reduced(cairo_surface_t* picture, size_t width, size_t height);

}  // namespace sim
