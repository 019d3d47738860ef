// The colours of each kind of key, by name. Which names the system answers for which keyboard is the model's
// reading; the light ones give the greys and whites of a light keyboard, the dark ones let the backdrop shine
// through.
#include "keyboard/rendering/UIKBRenderFactory.h"

#include <string>

#include "objc/class.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct RenderFactory : objc::Implements<RenderFactory, UIKBRenderFactory> {
    struct Ivars {
        strong<UIKBRenderingContext> renderingContext;
        bool suppressSegmentTraits;
    };

    static Class factoryClassForVisualStyle(Class, int style) {
        switch (static_cast<sim::VisualStyle>(style)) {
            case sim::VisualStyle::letters: return UIKBRenderFactoryiPhone::class_object();
            case sim::VisualStyle::emoji: return UIKBRenderFactory_Emoji::class_object();
            case sim::VisualStyle::number_pad: return UIKBRenderFactoryNumberPad::class_object();
            case sim::VisualStyle::candidates: return UIKBRenderFactory_Candidates::class_object();
        }
        sim::not_modelled("UIKBRenderFactory",
                          "factoryClassForVisualStyle:", "the visual style " + std::to_string(style));
    }

    static UIKBRenderFactory* factory(Class self, int style, UIKBRenderingContext* context) {
        Class chosen = objc::send<"factoryClassForVisualStyle:", Class>(reinterpret_cast<id>(self), style);
        auto* empty = objc::send<"alloc", UIKBRenderFactory*>(reinterpret_cast<id>(chosen));
        return empty->initWithRenderingContext(context, false).autoreleased();
    }

    strong<UIKBRenderFactory> initWithRenderingContext(UIKBRenderingContext* context,
                                                       bool skip_layout_segments) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().renderingContext = context;
        self->ivars().suppressSegmentTraits = skip_layout_segments;
        return self;
    }

    UIKBRenderConfig* renderConfig() { return ivars().renderingContext->renderConfig(); }

    NSString* defaultKeyBackgroundColorName() {
        return light() ? "UIKBColorWhite"_ns : "UIKBColorWhite_Alpha30"_ns;
    }
    NSString* defaultKeyShadowColorName() {
        return light() ? "UIKBColorBlack_Alpha35"_ns : "UIKBColorBlack_Alpha40"_ns;
    }

    NSString* controlKeyBackgroundColorName() { return send<"_controlKeyBackgroundColorName", NSString*>(); }
    NSString* _controlKeyBackgroundColorName() {
        return light() ? "UIKBColorKeyGrayKeyLightBackground"_ns : "UIKBColorWhite_Alpha12"_ns;
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

UIKBRenderFactory* sim::factory_of_style(VisualStyle style) {
    return UIKBRenderFactory::factory(static_cast<int>(style),
                                      UIKBRenderingContext::forConfig(UIKBRenderConfig::defaultConfig()));
}

UIKBRenderFactory* sim::factory_of(UIKBTree* keyplane) {
    return factory_of_style(static_cast<VisualStyle>(keyplane->visualStyle()));
}

using namespace objc::definition;
using Factory = RenderFactory;

OBJC_CLASS(UIKBRenderFactory, NSObject, RenderFactory,
           property<"renderingContext", &Factory::Ivars::renderingContext>,
           ivar<"_suppressSegmentTraits", &Factory::Ivars::suppressSegmentTraits>,
           class_method<"factoryClassForVisualStyle:", &Factory::factoryClassForVisualStyle>,
           class_method<"factoryForVisualStyle:renderingContext:", &Factory::factory>,
           method<"initWithRenderingContext:skipLayoutSegments:", &Factory::initWithRenderingContext>,
           method<"renderConfig", &Factory::renderConfig>,
           method<"defaultKeyBackgroundColorName", &Factory::defaultKeyBackgroundColorName>,
           method<"defaultKeyShadowColorName", &Factory::defaultKeyShadowColorName>,
           method<"_controlKeyBackgroundColorName", &Factory::_controlKeyBackgroundColorName>,
           method<"controlKeyBackgroundColorName", &Factory::controlKeyBackgroundColorName>,
           method<"controlKeyForegroundColorName", &Factory::controlKeyForegroundColorName>,
           method<"controlKeyShadowColorName", &Factory::controlKeyShadowColorName>)
