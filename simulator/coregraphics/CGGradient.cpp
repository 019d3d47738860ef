// Gradients: colours along a line, blended unmultiplied.
#include "coregraphics/CGGradient.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "coregraphics/CGColor.h"
#include "coregraphics/CGContext.h"
#include "objc/class.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct Stop {
    double location;
    sim::RGBA color;
};

struct Gradient : objc::Implements<Gradient, CGGradient> {
    struct Ivars {
        std::vector<Stop> stops;
    };
};

double evenly(size_t index, size_t count) {
    return count > 1 ? static_cast<double>(index) / static_cast<double>(count - 1) : 0;
}

void add_stop(cairo_pattern_t* pattern, double location, const sim::RGBA& color) {
    cairo_pattern_add_color_stop_rgba(pattern, location, color.red, color.green, color.blue, color.alpha);
}

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGGradient, NSObject, Gradient, ivar<"stops", &Gradient::Ivars::stops>)

SIM_EXPORTED CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef, NSArray* colors, const CGFloat* locations) {
    const NSUInteger count = colors->count();
    auto gradient = strong<CGGradient>::adopt(CGGradient::alloc());
    auto& stops = static_cast<Gradient*>(gradient.get())->ivars().stops;
    for (NSUInteger i = 0; i < count; ++i) {
        const auto rgba = sim::rgba_of(as<CGColor>(colors->objectAtIndex(i)));
        if (!rgba) sim::not_modelled("CGGradientCreateWithColors", "a colour without an RGB form");
        stops.push_back({locations ? locations[i] : evenly(i, count), *rgba});
    }
    return gradient.leak();
}

SIM_EXPORTED CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
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

SIM_EXPORTED void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start, CGPoint end,
                                              CGGradientDrawingOptions options) {
    if (!context || !gradient) return;
    const auto& stops = static_cast<Gradient*>(gradient)->ivars().stops;
    if (stops.empty() || !std::isfinite(start.x + start.y + end.x + end.y) || start == end) return;
    const sim::Pattern pattern(cairo_pattern_create_linear(start.x, start.y, end.x, end.y));
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    // Stops at one place follow each other in the order they were added; those at the ends decide what lies beyond.
    if (!(options & kCGGradientDrawsBeforeStartLocation)) add_stop(pattern, 0, {});
    for (const Stop& stop : stops) add_stop(pattern, stop.location, stop.color);
    if (!(options & kCGGradientDrawsAfterEndLocation)) add_stop(pattern, 1, {});
    sim::canvas_of(context).paint(pattern);
}
