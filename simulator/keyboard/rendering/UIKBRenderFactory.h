// The factories of the planes, and what they draw for.
#pragma once
#include "keyboard/planes/key_kind.h"
#include "platform/keyboard.h"

/// What a factory draws for.
struct UIKBRenderingContext : objc::Interface<UIKBRenderingContext, "UIKBRenderingContext", NSObject> {
    static UIKBRenderingContext* forConfig(UIKBRenderConfig* config) {
        return class_send<"renderingContextForRenderConfig:", UIKBRenderingContext*>(config);
    }
    UIKBRenderConfig* renderConfig() { return send<"renderConfig", UIKBRenderConfig*>(); }
};

struct UIKBRenderFactoryiPhone
    : objc::Interface<UIKBRenderFactoryiPhone, "UIKBRenderFactoryiPhone", UIKBRenderFactory> {};
struct UIKBRenderFactory_Emoji
    : objc::Interface<UIKBRenderFactory_Emoji, "UIKBRenderFactory_Emoji", UIKBRenderFactory> {};
struct UIKBRenderFactoryNumberPad
    : objc::Interface<UIKBRenderFactoryNumberPad, "UIKBRenderFactoryNumberPad", UIKBRenderFactory> {};
struct UIKBRenderFactory_Candidates
    : objc::Interface<UIKBRenderFactory_Candidates, "UIKBRenderFactory_Candidates", UIKBRenderFactory> {};

namespace sim {

// In the keyboard's default configuration, both.

UIKBRenderFactory* factory_of_style(VisualStyle style);
/// The factory that draws a plane.
UIKBRenderFactory* factory_of(UIKBTree* keyplane);

}  // namespace sim
