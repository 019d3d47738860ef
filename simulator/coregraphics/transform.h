// Affine transformations, computed.
#pragma once
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/coregraphics.h"

namespace sim {

/// First `first`, then `then`.
constexpr CGAffineTransform concat(const CGAffineTransform& first, const CGAffineTransform& then) {
    return {first.a * then.a + first.b * then.c,
            first.a * then.b + first.b * then.d,
            first.c * then.a + first.d * then.c,
            first.c * then.b + first.d * then.d,
            first.tx * then.a + first.ty * then.c + then.tx,
            first.tx * then.b + first.ty * then.d + then.ty};
}

constexpr CGAffineTransform translation(CGFloat x, CGFloat y) { return {1, 0, 0, 1, x, y}; }
constexpr CGAffineTransform scaling(CGFloat x, CGFloat y) { return {x, 0, 0, y, 0, 0}; }

constexpr CGPoint apply(const CGAffineTransform& t, CGPoint p) {
    return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}

/// Nothing for a transformation that maps the plane to a line or a point, or that is not finite.
inline std::optional<CGAffineTransform> inverted(const CGAffineTransform& t) {
    const CGFloat determinant = t.a * t.d - t.b * t.c;
    const CGAffineTransform inverse{t.d / determinant,
                                    -t.b / determinant,
                                    -t.c / determinant,
                                    t.a / determinant,
                                    (t.c * t.ty - t.d * t.tx) / determinant,
                                    (t.b * t.tx - t.a * t.ty) / determinant};
    for (CGFloat number : {inverse.a, inverse.b, inverse.c, inverse.d, inverse.tx, inverse.ty})
        if (!std::isfinite(number)) return std::nullopt;
    return inverse;
}

constexpr bool is_empty(const CGRect& r) { return !(r.size.width > 0 && r.size.height > 0); }

inline bool is_finite(const CGRect& r) {
    return std::isfinite(r.origin.x) && std::isfinite(r.origin.y) && std::isfinite(r.size.width) &&
           std::isfinite(r.size.height);
}

/// The same rectangle with a positive width and height.
constexpr CGRect standardized(CGRect r) {
    if (r.size.width < 0) r = {{r.origin.x + r.size.width, r.origin.y}, {-r.size.width, r.size.height}};
    if (r.size.height < 0) r = {{r.origin.x, r.origin.y + r.size.height}, {r.size.width, -r.size.height}};
    return r;
}

/// The smallest rectangle around the transformed one.
inline CGRect bounding_box(const CGAffineTransform& t, CGRect r) {
    const CGFloat x2 = r.origin.x + r.size.width, y2 = r.origin.y + r.size.height;
    const CGPoint corners[] = {apply(t, r.origin), apply(t, {x2, r.origin.y}), apply(t, {r.origin.x, y2}),
                               apply(t, {x2, y2})};
    CGPoint low = corners[0], high = corners[0];
    for (CGPoint corner : corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    return {low, {high.x - low.x, high.y - low.y}};
}

constexpr CGRect inset(CGRect r, CGFloat by) {
    return {{r.origin.x + by, r.origin.y + by}, {r.size.width - 2 * by, r.size.height - 2 * by}};
}

/// What CGPathGetBoundingBox answers for nothing.
constexpr CGRect null_rect{
    {std::numeric_limits<CGFloat>::infinity(), std::numeric_limits<CGFloat>::infinity()}, {0, 0}};

}  // namespace sim
