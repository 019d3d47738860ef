// Colours: components in a space, exactly as they were given.
#pragma once
#include <cairo.h>

#include <optional>

#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGColor : objc::Interface<CGColor, "CGColor", NSObject> {};

namespace sim {

struct RGBA {
    double red, green, blue, alpha;
};

/// The colour in RGB, its components not clamped; nothing for NULL and for a pattern.
std::optional<RGBA> rgba_of(CGColorRef);

/// A colour that paints the image over and over: of the pattern model, with the one component alpha.
objc::strong<CGColor> pattern_color(CGImageRef);

/// What cairo paints the colour with, alpha multiplied by `alpha`. NULL paints nothing.
Pattern source_of(CGColorRef, double alpha);

}  // namespace sim
