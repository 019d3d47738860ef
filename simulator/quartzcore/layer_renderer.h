// Draws layer trees.
#pragma once
#include "platform/quartzcore.h"

namespace sim {

/// Draws the layer and its sublayers into a context whose user space is the superlayer's, y down. Layers that
/// need display are displayed on the way; layout is the caller's.
void render(CALayer*, CGContextRef);

/// The same where the context's user space is the layer's own: its position and transformation do not count.
void render_in_own_space(CALayer*, CGContextRef);

/// Draws the layer's contents, an image, into its bounds as their gravity says.
void draw_contents(CALayer*, CGContextRef);

/// The bounds with the layer's rounded corners.
objc::strong<CGPath> outline_of(CALayer*);

}  // namespace sim
