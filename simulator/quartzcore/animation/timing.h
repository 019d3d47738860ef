// How far an animation has come at a time: curves and springs.
#pragma once
#include <functional>

namespace sim {

/// From the part of the duration that has passed to the part of the change that is done; a spring goes
/// beyond.
using Timing = std::function<double(double)>;

Timing linear_timing();
/// A Bézier curve from (0, 0) to (1, 1) with these control points.
Timing curve_timing(double x1, double y1, double x2, double y2);
/// A damped harmonic oscillator that is let go at 0 and comes to rest at 1. Its frequency is such that at the
/// end of the duration the swings have faded to a thousandth. `damping` is the ratio, above 0 and at most 1;
/// `velocity` is in ways per duration.
Timing spring_timing(double damping, double velocity);

}  // namespace sim
