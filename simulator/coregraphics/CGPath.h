// Paths: lines and curves.
#pragma once
#include <cairo.h>

#include <vector>

#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGPath : objc::Interface<CGPath, "CGPath", NSObject> {};

namespace sim {

/// One step of a path. A curve has two control points before its end.
struct PathElement {
    enum Kind { move, line, curve, close } kind;
    CGPoint points[3];
};
using PathElements = std::vector<PathElement>;

const PathElements& elements_of(CGPathRef);

/// Makes the elements the path of the cairo context, in its user space.
void trace(cairo_t*, const PathElements&);

/// The elements of standard shapes, appended.
void append_rect(PathElements&, CGRect);
void append_rounded_rect(PathElements&, CGRect, CGSize radii);
/// An arc of a circle as curves, from the angle `start` by `sweep`, in radians; joined by a line to what
/// precedes it. Angles that are not finite append nothing.
void append_arc(PathElements&, CGPoint centre, CGFloat radius, CGFloat start, CGFloat sweep);
/// How far to go from one angle to the other, in the direction given; at most once around.
CGFloat sweep_between(CGFloat start, CGFloat end, bool clockwise);

}  // namespace sim
