// Colour spaces: device grey and device RGB, and the one that patterns count as their space.
#pragma once
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGColorSpace : objc::Interface<CGColorSpace, "CGColorSpace", NSObject> {};

namespace sim {

/// The one space of a model, not owned by the caller: grey, RGB or pattern.
CGColorSpaceRef color_space_of(CGColorSpaceModel model);

}  // namespace sim
