#include "readability/oklab.h"

#include <algorithm>
#include <cmath>

namespace readability {
namespace {

double encoded(double c) {
    return std::clamp(c <= 0.0031308 ? c * 12.92 : 1.055 * std::pow(c, 1 / 2.4) - 0.055, 0.0, 1.0);
}

}  // namespace

Oklab oklab_of(const Colour& colour) {
    const double r = linear(colour.red), g = linear(colour.green), b = linear(colour.blue);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

Colour colour_of(const Oklab& lab) {
    const auto cubed = [](double x) { return x * x * x; };
    const double l = cubed(lab.lightness + 0.3963377774 * lab.a + 0.2158037573 * lab.b);
    const double m = cubed(lab.lightness - 0.1055613458 * lab.a - 0.0638541728 * lab.b);
    const double s = cubed(lab.lightness - 0.0894841775 * lab.a - 1.2914855480 * lab.b);
    return {encoded(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            encoded(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            encoded(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s), 1};
}

double distance(const Oklab& a, const Oklab& b) {
    return std::sqrt((a.lightness - b.lightness) * (a.lightness - b.lightness) + (a.a - b.a) * (a.a - b.a) +
                     (a.b - b.b) * (a.b - b.b));
}

}  // namespace readability
