// A view that draws a key plane.
#pragma once
#include "platform/keyboard.h"

/// Has a view for each key of its plane; a mark on another key is drawn by a UIKBBlurredKeyView, where there
/// is one.
struct UIKBKeyplaneView : objc::Interface<UIKBKeyplaneView, "UIKBKeyplaneView", UIView> {
    objc::strong<UIKBKeyplaneView> initWithFrame(CGRect frame, UIKBTree* keyplane,
                                                 UIKBRenderFactory* factory) {
        return send<"initWithFrame:keyplane:factory:", objc::strong<UIKBKeyplaneView>>(frame, keyplane,
                                                                                       factory);
    }

    UIKBTree* keyplane() { return send<"keyplane", UIKBTree*>(); }
    /// The key that a finger rests on, one of the plane's; nil for none. A character shows in a pop-up, which
    /// this view does not draw.
    void setPressedKey(UIKBTree* key) { send<"setPressedKey:">(key); }
};
