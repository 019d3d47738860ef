#include "quartzcore/filters.h"

#include <algorithm>

#include "coregraphics/CGColor.h"
#include "coregraphics/drawing/pixels.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

using namespace objc::literals;

/// From 0 to 1; NaN is 0.
double limited(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

/// A colour in components from 0 to 1, not multiplied by alpha.
struct Light {
    double blue, green, red;
};

/// Calls `change` with the colour of each pixel that is not transparent; alpha stays.
template <class Change>
void for_each_color(cairo_surface_t* surface, Change change) {
    const Pixels pixels(surface);
    for (size_t y = 0; y < pixels.height(); ++y) {
        uint8_t* pixel = pixels.row(y).data();
        for (size_t x = 0; x < pixels.width(); ++x, pixel += Pixels::bytes) {
            const double alpha = pixel[Pixels::alpha];
            if (alpha == 0) continue;
            const Light light = change(
                {pixel[Pixels::blue] / alpha, pixel[Pixels::green] / alpha, pixel[Pixels::red] / alpha});
            auto stored = [alpha](double value) {
                return static_cast<uint8_t>(limited(value) * alpha + 0.5);
            };
            pixel[Pixels::blue] = stored(light.blue);
            pixel[Pixels::green] = stored(light.green);
            pixel[Pixels::red] = stored(light.red);
        }
    }
    pixels.changed();
}

double number(CAFilter* filter, NSString* key, double fallback) {
    auto* value = as<NSNumber>(filter->valueForKey(key));
    return value ? value->send<"doubleValue", double>() : fallback;
}

/// The luminance with the bias added gives the brightness of the one colour, which is at most the colour
/// itself: with a bias of 1 only the shape is left. The amount mixes the result with what was there. The
/// platform does not say how it computes this: the formula is the model's own.
void make_monochrome(CAFilter* filter, cairo_surface_t* surface) {
    const RGBA color = rgba_of(as<CGColor>(filter->valueForKey("inputColor"_ns))).value_or(RGBA{1, 1, 1, 1});
    const double bias = number(filter, "inputBias"_ns, 0);
    const double amount = limited(number(filter, "inputAmount"_ns, 1));
    for_each_color(surface, [&](const Light& light) {
        const double brightness =
            limited(0.2126 * light.red + 0.7152 * light.green + 0.0722 * light.blue + bias);
        auto mixed = [&](double old, double component) {
            return old + amount * (limited(component) * brightness - old);
        };
        return Light{mixed(light.blue, color.blue), mixed(light.green, color.green),
                     mixed(light.red, color.red)};
    });
}

}  // namespace

void apply(NSArray* filters, cairo_surface_t* surface) {
    const NSUInteger count = filters->count();
    for (NSUInteger i = 0; i < count; ++i) {
        auto* filter = as<CAFilter>(filters->objectAtIndex(i));
        NSString* type = filter->type();
        if (!type->isEqualToString("colorMonochrome"_ns))
            not_modelled("CALayer", "filters", type ? type->UTF8String() : "a filter that is not a CAFilter");
        make_monochrome(filter, surface);
    }
}

void multiply(cairo_surface_t* surface, CGColorRef color) {
    const RGBA factor = rgba_of(color).value_or(RGBA{1, 1, 1, 1});
    const double alpha = limited(factor.alpha);
    const double factors[] = {limited(factor.blue) * alpha, limited(factor.green) * alpha,
                              limited(factor.red) * alpha, alpha};
    const Pixels pixels(surface);
    for (size_t y = 0; y < pixels.height(); ++y) {
        const auto row = pixels.row(y);
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = static_cast<uint8_t>(row[i] * factors[i % Pixels::bytes] + 0.5);
    }
    pixels.changed();
}

}  // namespace sim
