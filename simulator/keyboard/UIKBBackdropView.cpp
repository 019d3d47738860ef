// What stands behind a keyboard or a part of one: a material of the system's and, over it, whatever is put
// into the content view. The model's materials are plain colours; nothing is blurred.
#include "keyboard/backdrop_material.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct BackdropView : objc::Implements<BackdropView, UIKBBackdropView> {
    struct Ivars {
        NSInteger style;
        strong<UIView> materialView, contentView;
    };

    strong<UIKBBackdropView> initWithFrame(CGRect frame, NSInteger style) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().style = style;
        self->ivars().materialView = self->add_filling_view(sim::backdrop_material(style).color);
        self->ivars().contentView = self->add_filling_view(nullptr);
        return self;
    }

  private:
    strong<UIView> add_filling_view(UIColor* color) {
        auto view = sim::make_view<UIView>(bounds());
        view->setBackgroundColor(color);
        view->setAutoresizingMask(sim::follows_size);
        addSubview(view);
        return view;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBBackdropView, UIView, BackdropView,
           property<"style", &BackdropView::Ivars::style>,
           ivar<"_materialView", &BackdropView::Ivars::materialView>,
           property<"contentView", &BackdropView::Ivars::contentView>,
           method<"initWithFrame:style:", &BackdropView::initWithFrame>)
