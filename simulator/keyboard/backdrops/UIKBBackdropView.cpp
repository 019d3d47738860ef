// What stands behind a keyboard or a part of one: a material of the system's and, over it, whatever is put
// into the content view. The model's materials are plain colours; nothing is blurred.
#include "keyboard/backdrops/backdrop_material.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "uikit/effects/UIVisualEffectView.h"

namespace {

struct KeyboardBackdropView : objc::Implements<KeyboardBackdropView, UIKBBackdropView> {
    using Ivars = objc::NoIvars;

    objc::strong<UIKBBackdropView> initWithFrame(CGRect frame, NSInteger style) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (self) self->self()->transitionToStyle(style);
        return self;
    }

    void transitionToStyle(NSInteger style) { sim::show_effect(this, sim::backdrop_material(style).color); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBBackdropView, UIVisualEffectView, KeyboardBackdropView,
           method<"initWithFrame:style:", &KeyboardBackdropView::initWithFrame>,
           method<"transitionToStyle:", &KeyboardBackdropView::transitionToStyle>)
