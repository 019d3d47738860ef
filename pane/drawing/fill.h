// One colour over a rectangle.
#pragma once
#include "platform/uikit.h"

namespace pane {

/// Draws into the current context.
inline void fill(UIColor* color, CGRect rect) {
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetFillColorWithColor(context, color->CGColor());
    CGContextFillRect(context, rect);
}

}  // namespace pane
