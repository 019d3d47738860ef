#include "quartzcore/animation/timing.h"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

double bezier(double p1, double p2, double t) {
    const double s = 1 - t;
    return 3 * s * s * t * p1 + 3 * s * t * t * p2 + t * t * t;
}

}  // namespace

Timing linear_timing() {
    return [](double part) { return part; };
}

Timing curve_timing(double x1, double y1, double x2, double y2) {
    return [=](double part) {
        // x grows with t, as long as the control points lie within the unit square.
        double low = 0, high = 1;
        for (int i = 0; i < 50; ++i) {
            const double middle = (low + high) / 2;
            (bezier(x1, x2, middle) < part ? low : high) = middle;
        }
        return part <= 0 ? 0 : part >= 1 ? 1 : bezier(y1, y2, (low + high) / 2);
    };
}

Timing spring_timing(double damping, double velocity) {
    constexpr double least_damping = 1e-3;
    const double ratio = std::clamp(damping, least_damping, 1.0);
    const double decay = std::log(1000.0);  // per duration
    const double frequency = decay / ratio * std::sqrt(1 - ratio * ratio);
    return [=](double part) {
        if (part <= 0) return 0.0;
        // The limit of sin(frequency * part) / frequency for a spring that does not swing is the part itself.
        const double swing = frequency > 1e-9 ? std::sin(frequency * part) / frequency : part;
        return 1 - std::exp(-decay * part) * (std::cos(frequency * part) + (decay - velocity) * swing);
    };
}

}  // namespace sim
