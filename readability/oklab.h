// OKLab, in which equal distances look equally large.
#pragma once
#include "readability/colour.h"

namespace readability {

struct Oklab {
    double lightness = 0, a = 0, b = 0;
};

Oklab oklab_of(const Colour& colour);
/// Opaque; nothing of it is outside sRGB, whose nearest colour is taken.
Colour colour_of(const Oklab& lab);

double distance(const Oklab& a, const Oklab& b);

}  // namespace readability
