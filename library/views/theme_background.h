// What a theme's background can be, and the colours that stand in for those that it lacks.
#pragma once
#include "platform/uikit.h"

/// Any other number is no background.
enum ThemeBackground : NSUInteger { flat_background = 1, gradient_background = 2, image_background = 3 };

inline UIColor* first_or_clear(NSArray* colors) {
    return colors->count() ? static_cast<UIColor*>(colors->objectAtIndex(0)) : UIColor::clearColor();
}

inline NSArray* all_or_clear(NSArray* colors) {
    return colors->count() ? colors : NSArray::arrayWithObject(UIColor::clearColor());
}
