// The system's backdrop for a numeric style: a blur of what lies behind it, and a colour over that. It fills
// the view that it is put into, and stays as large.
#include "keyboard/backdrops/backdrop_material.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "quartzcore/CABackdropLayer.h"

namespace {

using objc::strong;

struct BackdropView : objc::Implements<BackdropView, _UIBackdropView> {
    struct Ivars {
        NSInteger style;
    };

    static Class layerClass(Class) { return CABackdropLayer::class_object(); }

    strong<_UIBackdropView> initWithStyle(NSInteger style) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        self->ivars().style = style;
        const sim::BackdropMaterial material = sim::backdrop_material(style);
        self->setBackgroundColor(material.color);
        as<CABackdropLayer>(self->layer())->setBlurRadius(material.blur_radius);
        return self;
    }

    void didMoveToSuperview() {
        super<"didMoveToSuperview">();
        UIView* superview = this->superview();
        if (!superview) return;
        setFrame(superview->bounds());
        setAutoresizingMask(sim::follows_size);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(_UIBackdropView, UIView, BackdropView,
           class_method<"layerClass", &BackdropView::layerClass>,
           property<"style", &BackdropView::Ivars::style>,
           method<"initWithStyle:", &BackdropView::initWithStyle>,
           method<"didMoveToSuperview", &BackdropView::didMoveToSuperview>)
