// The style that the keyboard is drawn in, and the backdrop that belongs to it.
#include <string>

#include "keyboard/backdrops/backdrop_styles.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "runtime/not_modelled.h"

namespace {

struct RenderConfig : objc::Implements<RenderConfig, UIKBRenderConfig> {
    struct Ivars {
        bool lightKeyboard;
    };

    objc::strong<UIKBRenderConfig> init() {
        auto self = initialised_by_super<"init">();
        if (self) self->ivars().lightKeyboard = true;
        return self;
    }

    // The quality, which lowers the blur on slow devices, changes nothing: the model's materials do not blur.
    static NSInteger backdropStyle(Class, NSInteger style, NSInteger) {
        switch (style) {
            case sim::keyboard_style_light: return sim::backdrop_style_light_keyboard;
            case sim::keyboard_style_dark: return sim::backdrop_style_dark_keyboard;
            case sim::backdrop_style_none: return sim::backdrop_style_none;
        }
        sim::not_modelled("UIKBRenderConfig",
                          "backdropStyleForStyle:quality:", "the style " + std::to_string(style));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderConfig, NSObject, RenderConfig,
           property<"lightKeyboard", &RenderConfig::Ivars::lightKeyboard>,
           method<"init", &RenderConfig::init>,
           class_method<"backdropStyleForStyle:quality:", &RenderConfig::backdropStyle>)
