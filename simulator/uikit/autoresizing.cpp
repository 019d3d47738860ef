#include "uikit/autoresizing.h"

namespace sim {
namespace {

/// A stretch of the superview along one axis: margin, subview, margin.
struct Axis {
    CGFloat before, length;
};

Axis resized(Axis axis, CGFloat from, CGFloat to, bool before_grows, bool length_grows, bool after_grows) {
    const CGFloat change = to - from, after = from - axis.before - axis.length;
    const int growing = before_grows + length_grows + after_grows;
    if (!growing || change == 0) return axis;
    const CGFloat total =
        (before_grows ? axis.before : 0) + (length_grows ? axis.length : 0) + (after_grows ? after : 0);
    // Parts without any extent share alike.
    auto share = [&](CGFloat part) { return change * (total != 0 ? part / total : 1.0 / growing); };
    const Axis old = axis;
    if (before_grows) axis.before += share(old.before);
    if (length_grows) axis.length += share(old.length);
    return axis;
}

}  // namespace

CGRect autoresized(CGRect frame, UIViewAutoresizing mask, CGSize from, CGSize to) {
    const Axis x = resized(
        {frame.origin.x, frame.size.width}, from.width, to.width, mask & UIViewAutoresizingFlexibleLeftMargin,
        mask & UIViewAutoresizingFlexibleWidth, mask & UIViewAutoresizingFlexibleRightMargin);
    const Axis y =
        resized({frame.origin.y, frame.size.height}, from.height, to.height,
                mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
                mask & UIViewAutoresizingFlexibleBottomMargin);
    return {{x.before, y.before}, {x.length, y.length}};
}

}  // namespace sim
