// Layers that show a gradient. Colours are mixed multiplied by their alpha: towards a clear one the other
// only fades.
#include <vector>

#include "coregraphics/CGContext.h"
#include "coregraphics/CGGradient.h"
#include "objc/class.h"
#include "platform/quartzcore.h"
#include "quartzcore/layer_renderer.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct GradientLayer : objc::Implements<GradientLayer, CAGradientLayer> {
    struct Ivars {
        strong<NSArray> colors, locations;
        CGPoint startPoint{0.5, 0}, endPoint{0.5, 1};
    };

    NSArray* colors() { return ivars().colors; }
    void setColors(NSArray* colors) {
        ivars().colors = strong<NSArray>::adopt(colors->send<"copy", NSArray*>());
    }
    NSArray* locations() { return ivars().locations; }
    void setLocations(NSArray* locations) {
        ivars().locations = strong<NSArray>::adopt(locations->send<"copy", NSArray*>());
    }

    // Below the contents, within the rounded corners, as the background is.
    void drawContents(CGContextRef context) {
        draw_gradient(context);
        super<"_drawContentsInContext:">(context);
    }

  private:
    void draw_gradient(CGContextRef context) {
        auto* self = this->self();
        NSArray* colors = self->colors();
        if (colors->count() == 0) return;
        const CGRect bounds = self->bounds();
        auto in_bounds = [&](CGPoint unit) {
            return CGPoint{bounds.origin.x + unit.x * bounds.size.width,
                           bounds.origin.y + unit.y * bounds.size.height};
        };
        const std::vector<CGFloat> locations = stop_locations(self->locations(), colors->count());
        sim::LinearGradient gradient{
            .stops = sim::gradient_stops(colors, locations.empty() ? nullptr : locations.data()),
            .start = in_bounds(self->startPoint()),
            .end = in_bounds(self->endPoint()),
            .mixing = sim::ColorMixing::premultiplied};
        if (gradient.start == gradient.end) {
            // All of the layer lies beyond the end.
            gradient.stops = {{0, gradient.stops.back().color}};
            gradient.end.x += 1;
        }
        CGContextSaveGState(context);
        CGContextBeginPath(context);
        CGContextAddPath(context, sim::outline_of(this));
        CGContextClip(context);
        sim::canvas_of(context).paint(gradient);
        CGContextRestoreGState(context);
    }

    static std::vector<CGFloat> stop_locations(NSArray* locations, NSUInteger colors) {
        std::vector<CGFloat> stops;
        if (!locations) return stops;
        if (locations->count() != colors)
            sim::not_modelled("CAGradientLayer", "locations",
                              "another number of them than there are colours");
        for (NSUInteger i = 0; i < colors; ++i)
            stops.push_back(as<NSNumber>(locations->objectAtIndex(i))->send<"doubleValue", double>());
        return stops;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CAGradientLayer, CALayer, GradientLayer,
           ivar<"_colors", &GradientLayer::Ivars::colors>,
           ivar<"_locations", &GradientLayer::Ivars::locations>,
           property<"startPoint", &GradientLayer::Ivars::startPoint>,
           property<"endPoint", &GradientLayer::Ivars::endPoint>,
           method<"colors", &GradientLayer::colors>,
           method<"setColors:", &GradientLayer::setColors>,
           method<"locations", &GradientLayer::locations>,
           method<"setLocations:", &GradientLayer::setLocations>,
           method<"_drawContentsInContext:", &GradientLayer::drawContents>)
