// The style that the keyboard is drawn in, and the backdrop that belongs to it.
#include <string>

#include "keyboard/backdrops/backdrop_styles.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "runtime/not_modelled.h"

namespace {

struct RenderConfig : objc::Implements<RenderConfig, UIKBRenderConfig> {
    struct Ivars {
        bool lightKeyboard;
    };

    static UIKBRenderConfig* defaultConfig(Class) { return config(true); }
    static UIKBRenderConfig* darkConfig(Class) { return config(false); }

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

  private:
    static UIKBRenderConfig* config(bool light) {
        auto made = sim::make<UIKBRenderConfig>();
        made->setLightKeyboard(light);
        return std::move(made).autoreleased();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderConfig, NSObject, RenderConfig,
           property<"lightKeyboard", &RenderConfig::Ivars::lightKeyboard>,
           class_method<"defaultConfig", &RenderConfig::defaultConfig>,
           class_method<"darkConfig", &RenderConfig::darkConfig>,
           class_method<"backdropStyleForStyle:quality:", &RenderConfig::backdropStyle>)
