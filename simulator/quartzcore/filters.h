// What filters do to the pixels of a layer.
#pragma once
#include <cairo.h>

#include "platform/quartzcore.h"

namespace sim {

/// Applies the CAFilters in their order to an ARGB32 surface. Stops the process for a kind that the model
/// does not draw.
void apply(NSArray* filters, cairo_surface_t*);

/// Multiplies each pixel by the colour, alpha included.
void multiply(cairo_surface_t*, CGColorRef);

}  // namespace sim
