#include "views/HCGradientView.h"

#include "objc/class.h"
#include "objc/fast_enumeration.h"
#include "views/gradient_colours.h"
#include "views/gradient_direction.h"
#include "views/translucency.h"

namespace {

struct GradientView : objc::Implements<GradientView, HCGradientView> {
    using Ivars = objc::NoIvars;

    static Class layerClass(Class) { return CAGradientLayer::class_object(); }

    objc::strong<HCGradientView> initWithColors(NSArray* colours, NSInteger direction) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        if (colours) self->self()->setColors(colours);
        self->self()->setDirection(direction);
        return self;
    }

    void setDirection(NSInteger direction) {
        const GradientPoints points = points_of_direction(direction);
        gradient()->setStartPoint(points.start);
        gradient()->setEndPoint(points.end);
    }

    void setColors(NSArray* colours) {
        bool translucent = false;
        objc::for_each<UIColor>(colours, [&](UIColor* colour) {
            if (!translucent) translucent = is_translucent(colour);  // the first one decides
        });
        translucent ? enableBlur() : disableBlur();
        gradient()->setColors(gradient_layer_colours(colours));
    }

  private:
    CAGradientLayer* gradient() { return static_cast<CAGradientLayer*>(layer()); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCGradientView, HCView, GradientView,
           // Making it
           class_method<"layerClass", &GradientView::layerClass>,
           method<"initWithColors:direction:", &GradientView::initWithColors>,

           // The gradient
           method<"setDirection:", &GradientView::setDirection>,
           method<"setColors:", &GradientView::setColors>)
