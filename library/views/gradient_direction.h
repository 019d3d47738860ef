// Gradient directions: the numbers that themes store, and the points that they mean.
#pragma once
#include "platform/coregraphics.h"

/// Where a gradient runs from and to, in the unit square of its layer: (0, 0) is the top left.
struct GradientPoints {
    CGPoint start, end;
};

/// Directions 1 to 8; any other number is as 2, top to bottom.
GradientPoints points_of_direction(NSInteger direction);

// The points under their exported names, twice: settings panes use either set. Nothing in the library reads
// them.
extern "C" {
extern const CGPoint kGradientLeft, kGradientTop, kGradientRight, kGradientBottom;
extern const CGPoint kGradientTopLeft, kGradientTopRight, kGradientBottomLeft, kGradientBottomRight;
extern const CGPoint kHCGradientLeft, kHCGradientTop, kHCGradientRight, kHCGradientBottom;
extern const CGPoint kHCGradientTopLeft, kHCGradientTopRight, kHCGradientBottomLeft, kHCGradientBottomRight;
}
