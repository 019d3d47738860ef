// Images: bitmaps that no longer change.
#pragma once
#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGImage : objc::Interface<CGImage, "CGImage", NSObject> {};

namespace sim {

/// An image of an ARGB32 or RGB24 surface, which nobody draws into any more. `model`: grey or RGB. Null for a
/// surface without pixels.
objc::strong<CGImage> image_of(Surface, CGColorSpaceModel model = kCGColorSpaceModelRGB);

/// The image's surface; null for NULL.
Surface surface_of(CGImageRef);

/// Whether the image has an alpha channel, used or not.
bool has_alpha(CGImageRef);

/// The image's alpha in the colour: an image of the same shape, in one colour. Null for NULL.
objc::strong<CGImage> tinted(CGImageRef, CGColorRef);

}  // namespace sim
