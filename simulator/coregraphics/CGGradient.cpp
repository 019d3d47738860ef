// Gradients: colours along a line, blended unmultiplied.
#include "coregraphics/CGGradient.h"

#include <vector>

#include "coregraphics/CGContext.h"
#include "objc/class.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct Gradient : objc::Implements<Gradient, CGGradient> {
    struct Ivars {
        std::vector<sim::GradientStop> stops;
    };
};

double evenly(size_t index, size_t count) {
    return count > 1 ? static_cast<double>(index) / static_cast<double>(count - 1) : 0;
}

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGGradient, NSObject, Gradient, ivar<"stops", &Gradient::Ivars::stops>)

namespace sim {

std::vector<GradientStop> gradient_stops(NSArray* colors, const CGFloat* locations) {
    const NSUInteger count = colors->count();
    std::vector<GradientStop> stops;
    for (NSUInteger i = 0; i < count; ++i) {
        const auto rgba = rgba_of(as<CGColor>(colors->objectAtIndex(i)));
        if (!rgba) not_modelled("CGGradientCreateWithColors", "a colour without an RGB form");
        stops.push_back({locations ? locations[i] : evenly(i, count), *rgba});
    }
    return stops;
}

}  // namespace sim

SIM_EXPORTED CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef, NSArray* colors,
                                                      const CGFloat* locations) {
    auto gradient = strong<CGGradient>::adopt(CGGradient::alloc());
    static_cast<Gradient*>(gradient.get())->ivars().stops = sim::gradient_stops(colors, locations);
    return gradient.leak();
}

SIM_EXPORTED CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space,
                                                               const CGFloat* components,
                                                               const CGFloat* locations, size_t count) {
    if (!space || !components) return nullptr;
    auto colors = NSMutableArray::arrayWithCapacity(count);
    const size_t each = CGColorSpaceGetNumberOfComponents(space) + 1;
    for (size_t i = 0; i < count; ++i)
        colors->addObject(objc::adopt(CGColorCreate(space, components + i * each)).get());
    return CGGradientCreateWithColors(space, colors, locations);
}

SIM_EXPORTED CGGradientRef CGGradientRetain(CGGradientRef gradient) {
    objc_retain(gradient);
    return gradient;
}

SIM_EXPORTED void CGGradientRelease(CGGradientRef gradient) { objc_release(gradient); }

SIM_EXPORTED void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start,
                                              CGPoint end, CGGradientDrawingOptions options) {
    if (!context || !gradient) return;
    sim::canvas_of(context).paint({.stops = static_cast<Gradient*>(gradient)->ivars().stops,
                                   .start = start,
                                   .end = end,
                                   .reaches_before = (options & kCGGradientDrawsBeforeStartLocation) != 0,
                                   .reaches_after = (options & kCGGradientDrawsAfterEndLocation) != 0});
}
