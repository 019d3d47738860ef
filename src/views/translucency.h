// From which alpha on a background counts as opaque.
#pragma once

/// 0.99 in single precision, as themes store it: a double 0.99 is below it, a stored 0.99 is not.
constexpr double translucency_threshold = 0.9900000095367432;

/// NaN is not translucent.
constexpr bool is_translucent(double alpha) { return alpha < translucency_threshold; }
