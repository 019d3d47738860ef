// Gradients: colours along a line.
#pragma once
#include <vector>

#include "coregraphics/drawing/gradient_fill.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGGradient : objc::Interface<CGGradient, "CGGradient", NSObject> {};

namespace sim {

/// The stops of CGColors: at the locations, of which there are as many, or spaced evenly where those are
/// null.
std::vector<GradientStop> gradient_stops(NSArray* colors, const CGFloat* locations);

}  // namespace sim
