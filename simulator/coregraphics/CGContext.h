// Contexts: what the C functions of CoreGraphics draw into.
#pragma once
#include "coregraphics/drawing/canvas.h"
#include "platform/foundation.h"

struct CGContext : objc::Interface<CGContext, "CGContext", NSObject> {};

namespace sim {

/// A context that draws into the bitmap, y up.
objc::strong<CGContext> context_over(Bitmap);

/// A context of `size` points with `scale` pixels to a point, its user space with y down from the upper left
/// corner: what UIKit draws images in. The size is rounded up to whole pixels. Null for sizes and scales that
/// are not positive, not finite or beyond the limits.
objc::strong<CGContext> image_context(CGSize size, bool opaque, CGFloat scale);

/// The canvas of a context that is not NULL.
Canvas& canvas_of(CGContextRef);

/// A picture of the context as it is now, opaque exactly when the context is.
objc::strong<CGImage> image_of(const Canvas&);

}  // namespace sim
