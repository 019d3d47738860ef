#include "coregraphics/CGColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "coregraphics/CGColorSpace.h"
#include "coregraphics/CGImage.h"
#include "objc/class.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct Color : objc::Implements<Color, CGColor> {
    struct Ivars {
        strong<CGColorSpace> space;
        strong<CGImage> pattern;
        std::array<CGFloat, 4> components{};
    };

    // A pattern has no components of its own, only alpha.
    size_t count() { return CGColorSpaceGetNumberOfComponents(ivars().space) + 1; }
    CGFloat& alpha() { return ivars().components[count() - 1]; }

    bool isEqual(id other) { return other == this || CGColorEqualToColor(this, as<CGColor>(other)); }

    NSUInteger hash() {
        NSUInteger hash = 0;
        for (size_t i = 0; i < count(); ++i) hash = hash * 31 + std::hash<CGFloat>()(ivars().components[i]);
        return hash;
    }
};

strong<Color> new_color(CGColorSpaceRef space, const CGFloat* components) {
    auto color = strong<Color>::adopt(static_cast<Color*>(CGColor::alloc()));
    color->ivars().space = space;
    std::copy_n(components, color->count(), color->ivars().components.begin());
    return color;
}

Color* body(CGColorRef color) { return static_cast<Color*>(color); }

// What cairo takes: NaN is nothing, the rest is cut to the range.
double clamped(double component) { return component > 0 ? std::min(component, 1.0) : 0; }

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGColor, NSObject, Color,
           ivar<"space", &Color::Ivars::space>,
           ivar<"pattern", &Color::Ivars::pattern>,
           ivar<"components", &Color::Ivars::components>,
           method<"isEqual:", &Color::isEqual>,
           method<"hash", &Color::hash>)

namespace sim {

std::optional<RGBA> rgba_of(CGColorRef color) {
    const CGFloat* components = CGColorGetComponents(color);
    switch (CGColorSpaceGetModel(CGColorGetColorSpace(color))) {
        case kCGColorSpaceModelMonochrome:
            return RGBA{components[0], components[0], components[0], components[1]};
        case kCGColorSpaceModelRGB: return RGBA{components[0], components[1], components[2], components[3]};
    }
    return std::nullopt;
}

strong<CGColor> pattern_color(CGImageRef image) {
    const CGFloat opaque = 1;
    auto color = new_color(color_space_of(kCGColorSpaceModelPattern), &opaque);
    color->ivars().pattern = image;
    return color;
}

Pattern source_of(CGColorRef color, double alpha) {
    if (color && body(color)->ivars().pattern)
        not_modelled("CGContextSetFillColorWithColor", "painting with a pattern");
    const RGBA rgba = rgba_of(color).value_or(RGBA{});
    return Pattern(cairo_pattern_create_rgba(clamped(rgba.red), clamped(rgba.green), clamped(rgba.blue),
                                             clamped(rgba.alpha) * clamped(alpha)));
}

}  // namespace sim

SIM_EXPORTED CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat* components) {
    return space && components ? new_color(space, components).leak() : nullptr;
}

SIM_EXPORTED CGColorRef CGColorCreateCopy(CGColorRef color) { return CGColorRetain(color); }

SIM_EXPORTED CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha) {
    if (!color) return nullptr;
    auto copy = new_color(body(color)->ivars().space, body(color)->ivars().components.data());
    copy->ivars().pattern = body(color)->ivars().pattern;
    copy->alpha() = alpha;
    return copy.leak();
}

SIM_EXPORTED CGColorSpaceRef CGColorGetColorSpace(CGColorRef color) {
    return color ? body(color)->ivars().space.get() : nullptr;
}

SIM_EXPORTED size_t CGColorGetNumberOfComponents(CGColorRef color) {
    return color ? body(color)->count() : 0;
}

SIM_EXPORTED const CGFloat* CGColorGetComponents(CGColorRef color) {
    return color ? body(color)->ivars().components.data() : nullptr;
}

SIM_EXPORTED CGFloat CGColorGetAlpha(CGColorRef color) { return color ? body(color)->alpha() : 0; }

SIM_EXPORTED bool CGColorEqualToColor(CGColorRef a, CGColorRef b) {
    if (a == b) return true;
    if (!a || !b || body(a)->ivars().space != body(b)->ivars().space ||
        body(a)->ivars().pattern != body(b)->ivars().pattern)
        return false;
    return std::equal(CGColorGetComponents(a), CGColorGetComponents(a) + body(a)->count(),
                      CGColorGetComponents(b));
}

SIM_EXPORTED CGColorRef CGColorRetain(CGColorRef color) {
    objc_retain(color);
    return color;
}

SIM_EXPORTED void CGColorRelease(CGColorRef color) { objc_release(color); }
