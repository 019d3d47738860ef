// Blurs pictures: three box blurs, whose cost does not depend on their size.
#pragma once
#include <cairo.h>

#include <cstddef>

namespace sim {

/// How far, in pixels to each side, three boxes in a row reach that come close to a bell curve with that
/// standard deviation, in pixels. 0 for NaN and what is not positive.
size_t box_reach(double deviation);

/// Blurs all pixels of an ARGB32 surface, colours multiplied by alpha as they are there. Beyond its edges the
/// picture goes on as it is at them: even pictures stay as they are.
void box_blur(cairo_surface_t*, double deviation);

}  // namespace sim
