// Blend modes as cairo's operators.
#pragma once
#include <cairo.h>

#include "platform/coregraphics.h"

namespace sim {

/// Stops the process for a mode that cairo lacks, and for a number that is not a mode.
cairo_operator_t operator_of(CGBlendMode);

/// Whether the mode leaves everything outside the painted shape alone when cairo does it.
bool is_bounded(CGBlendMode);

/// Plus darker, which cairo lacks: what the two take away from white adds up. `source` and `target` lie over
/// each other by their device offsets.
void blend_plus_darker(cairo_surface_t* target, cairo_surface_t* source);

}  // namespace sim
