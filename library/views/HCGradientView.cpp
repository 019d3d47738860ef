// A background that is a gradient: see the header.
#include "views/HCGradientView.h"

#include "objc/class.h"
#include "objc/fast_enumeration.h"
#include "views/gradient_colors.h"
#include "views/gradient_direction.h"
#include "views/translucency.h"

namespace {

struct GradientView : objc::Implements<GradientView, HCGradientView> {
    using Ivars = objc::NoIvars;

    static Class layerClass(Class) { return CAGradientLayer::class_object(); }

    objc::strong<HCGradientView> initWithColors(NSArray* colors, NSInteger direction) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        if (colors) self->self()->setColors(colors);
        self->self()->setDirection(direction);
        return self;
    }

    void setDirection(NSInteger direction) {
        const GradientPoints points = points_of_direction(direction);
        gradient()->setStartPoint(points.start);
        gradient()->setEndPoint(points.end);
    }

    void setColors(NSArray* colors) {
        bool translucent = false;
        objc::for_each<UIColor>(colors, [&](UIColor* color) {
            if (!translucent) translucent = is_translucent(color);  // the first one decides
        });
        translucent ? enableBlur() : disableBlur();
        gradient()->setColors(gradient_layer_colors(colors));
    }

  private:
    CAGradientLayer* gradient() { return static_cast<CAGradientLayer*>(layer()); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCGradientView, HCView, GradientView,
           class_method<"layerClass", &GradientView::layerClass>,
           method<"initWithColors:direction:", &GradientView::initWithColors>,
           method<"setDirection:", &GradientView::setDirection>,
           method<"setColors:", &GradientView::setColors>)
