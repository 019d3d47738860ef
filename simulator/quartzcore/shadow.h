// Shadows of layers.
#pragma once
#include "platform/quartzcore.h"

namespace sim {

bool has_shadow(CALayer*);

/// A box around the shadow, in the layer's space.
CGRect shadow_extent(CALayer*);

/// Draws the shadow of the layer's shadow path or, without one, of the outline that its background colour
/// fills. A layer that masks to its bounds shows none.
void draw_shadow(CALayer*, CGContextRef);

}  // namespace sim
