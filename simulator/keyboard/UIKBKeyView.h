// A view that draws one key.
#pragma once
#include "keyboard/key_traits.h"
#include "platform/keyboard.h"

/// Draws its key as the factory says: cap and edges by itself, the text with a label, the glyph of a key
/// without text as a path.
struct UIKBKeyView : objc::Interface<UIKBKeyView, "UIKBKeyView", UIView> {
    /// The key lies in its plane where the view's frame has it.
    objc::strong<UIKBKeyView> initWithKey(UIKBTree* key, UIKBRenderFactory* factory) {
        return send<"initWithKey:factory:", objc::strong<UIKBKeyView>>(key, factory);
    }

    UIKBTree* key() { return send<"key", UIKBTree*>(); }
    bool isPressed() { return send<"isPressed", bool>(); }
    void setPressed(bool pressed) { send<"setPressed:">(pressed); }
};
