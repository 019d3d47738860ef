// The colours of each kind of key, by name. Which names the system answers for which keyboard is the model's
// reading; the light ones give the greys and whites of a light keyboard, the dark ones let the backdrop shine
// through.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct RenderFactory : objc::Implements<RenderFactory, UIKBRenderFactory> {
    struct Ivars {
        strong<UIKBRenderConfig> renderConfig;
    };

    /// With the configuration that a keyboard has unless it is given another: light.
    strong<UIKBRenderFactory> init() {
        auto config = sim::make<UIKBRenderConfig>();
        return static_cast<UIKBRenderFactory*>(this)->initWithRenderConfig(config);
    }

    strong<UIKBRenderFactory> initWithRenderConfig(UIKBRenderConfig* config) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().renderConfig = config;
        return self;
    }

    NSString* defaultKeyBackgroundColorName() {
        return light() ? "UIKBColorWhite"_ns : "UIKBColorWhite_Alpha30"_ns;
    }
    NSString* defaultKeyShadowColorName() {
        return light() ? "UIKBColorBlack_Alpha35"_ns : "UIKBColorBlack_Alpha40"_ns;
    }

    NSString* controlKeyBackgroundColorName() { return send<"_controlKeyBackgroundColorName", NSString*>(); }
    NSString* _controlKeyBackgroundColorName() {
        return light() ? "UIKBColorKeyGrayKeyBackground"_ns : "UIKBColorWhite_Alpha12"_ns;
    }
    // A wash over the background, below the glyph: control keys are a shade darker than their background.
    NSString* controlKeyForegroundColorName() {
        return light() ? "UIKBColorBlack_Alpha5"_ns : "UIKBColorBlack_Alpha10"_ns;
    }
    NSString* controlKeyShadowColorName() {
        return static_cast<UIKBRenderFactory*>(this)->defaultKeyShadowColorName();
    }

  private:
    bool light() { return static_cast<UIKBRenderFactory*>(this)->renderConfig()->lightKeyboard(); }
};

}  // namespace

using namespace objc::definition;
using Factory = RenderFactory;

OBJC_CLASS(UIKBRenderFactory, NSObject, RenderFactory,
           property<"renderConfig", &Factory::Ivars::renderConfig>,
           method<"init", &Factory::init>,
           method<"initWithRenderConfig:", &Factory::initWithRenderConfig>,
           method<"defaultKeyBackgroundColorName", &Factory::defaultKeyBackgroundColorName>,
           method<"defaultKeyShadowColorName", &Factory::defaultKeyShadowColorName>,
           method<"_controlKeyBackgroundColorName", &Factory::_controlKeyBackgroundColorName>,
           method<"controlKeyBackgroundColorName", &Factory::controlKeyBackgroundColorName>,
           method<"controlKeyForegroundColorName", &Factory::controlKeyForegroundColorName>,
           method<"controlKeyShadowColorName", &Factory::controlKeyShadowColorName>)
