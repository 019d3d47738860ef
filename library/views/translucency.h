// From which alpha on a background counts as opaque.
#pragma once
#include "platform/uikit.h"

/// 0.99 in single precision, as themes store it: a double 0.99 is below it, a stored 0.99 is not.
constexpr double translucency_threshold = 0.9900000095367432;

/// NaN is not translucent.
constexpr bool is_translucent(double alpha) { return alpha < translucency_threshold; }

/// A colour without an alpha counts as opaque.
inline bool is_translucent(UIColor* colour) {
    CGFloat alpha = 1.0;
    colour->getWhite(nullptr, &alpha);
    return is_translucent(alpha);
}
