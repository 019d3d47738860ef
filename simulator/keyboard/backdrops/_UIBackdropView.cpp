// The system's backdrop for a numeric style: a blur of what lies behind it, and a colour over that, each a
// part of its own. It fills the view that it is put into, and stays as large.
#include "keyboard/backdrops/_UIBackdropView.h"

#include "keyboard/backdrops/backdrop_material.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "quartzcore/CABackdropLayer.h"

namespace {

using objc::strong;

struct BackdropView : objc::Implements<BackdropView, _UIBackdropView> {
    struct Ivars {
        NSInteger style;
        strong<UIView> backdropEffectView, colorTintView, contentView;
    };

    static Class layerClass(Class) { return _UIBackdropViewLayer::class_object(); }

    strong<_UIBackdropView> initWithStyle(NSInteger style) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        self->ivars().style = style;
        const sim::BackdropMaterial material = sim::backdrop_material(style);
        if (material.blur_radius > 0) {
            auto effect = sim::make_view<_UIBackdropEffectView>();
            as<CABackdropLayer>(effect->layer())->setBlurRadius(material.blur_radius);
            self->ivars().backdropEffectView = self->added(effect);
        }
        if (material.color) {
            auto tint = sim::make_view<UIView>();
            tint->setBackgroundColor(material.color);
            self->ivars().colorTintView = self->added(tint);
        }
        return self;
    }

    NSInteger style() { return ivars().style; }
    UIView* backdropEffectView() { return ivars().backdropEffectView; }
    UIView* colorTintView() { return ivars().colorTintView; }

    // Made when it is first asked for.
    UIView* contentView() {
        if (!ivars().contentView) ivars().contentView = added(sim::make_view<UIView>());
        return ivars().contentView;
    }

    void didMoveToSuperview() {
        super<"didMoveToSuperview">();
        UIView* superview = this->superview();
        if (!superview) return;
        setFrame(superview->bounds());
        setAutoresizingMask(sim::follows_size);
    }

  private:
    strong<UIView> added(UIView* part) {
        part->setFrame(bounds());
        part->setAutoresizingMask(sim::follows_size);
        addSubview(part);
        return strong<UIView>(part);
    }
};

}  // namespace

namespace sim {

void round_blur(_UIBackdropView* view, CGFloat corner_radius) {
    UIView* effect = static_cast<BackdropView*>(view)->backdropEffectView();
    CALayer* shape = CALayer::layer();
    shape->setFrame(effect->bounds());
    shape->setBackgroundColor(UIColor::blackColor()->CGColor());
    shape->setCornerRadius(corner_radius);
    effect->layer()->setMask(shape);
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(_UIBackdropView, UIView, BackdropView,
           class_method<"layerClass", &BackdropView::layerClass>,
           ivar<"_style", &BackdropView::Ivars::style>,
           ivar<"_backdropEffectView", &BackdropView::Ivars::backdropEffectView>,
           ivar<"_colorTintView", &BackdropView::Ivars::colorTintView>,
           ivar<"_contentView", &BackdropView::Ivars::contentView>,
           method<"initWithStyle:", &BackdropView::initWithStyle>,
           method<"style", &BackdropView::style>,
           method<"backdropEffectView", &BackdropView::backdropEffectView>,
           method<"colorTintView", &BackdropView::colorTintView>,
           method<"contentView", &BackdropView::contentView>,
           method<"didMoveToSuperview", &BackdropView::didMoveToSuperview>)
