// Views of candidates over a backdrop of the keyboard's style: the grid and its header are alike in this.
#pragma once
#include "keyboard/backdrops/backdrop_behind.h"
#include "keyboard/backdrops/backdrop_styles.h"
#include "objc/class.h"

namespace sim {

template <class Face>
struct OverBackdrop : objc::Implements<OverBackdrop<Face>, Face> {
    struct Ivars {
        objc::strong<UIKBBackdropView> backdropView;
    };

    objc::strong<Face> initWithFrame(CGRect frame) {
        auto self = this->template initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().backdropView = add_backdrop_behind(
            self->self(), UIKBRenderConfig::backdropStyle(keyboard_style_light, keyboard_quality_full));
        return self;
    }
};

}  // namespace sim
