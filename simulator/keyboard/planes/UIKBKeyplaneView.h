// A view that draws a key plane.
#pragma once
#include "keyboard/planes/UIKBSplitImageView.h"
#include "platform/keyboard.h"

/// Has a view for each key of its plane; a mark on another key is drawn by a UIKBBlurredKeyView, where there
/// is one.
struct UIKBKeyplaneView : objc::Interface<UIKBKeyplaneView, "UIKBKeyplaneView", UIKBSplitImageView> {
    objc::strong<UIKBKeyplaneView> initWithFrame(CGRect frame, UIKBTree* keyplane) {
        return send<"initWithFrame:keyplane:", objc::strong<UIKBKeyplaneView>>(frame, keyplane);
    }

    UIKBTree* keyplane() { return send<"keyplane", UIKBTree*>(); }
    /// Made for the plane's visual style when it is first asked for.
    UIKBRenderFactory* factory() { return send<"factory", UIKBRenderFactory*>(); }
    /// The view of one of the plane's keys.
    UIView* viewForKey(UIKBTree* key) { return send<"viewForKey:", UIView*>(key); }
    /// A character that is held down shows in a pop-up, which this view does not draw.
    void setState(int state, UIKBTree* key) { send<"setState:forKey:">(state, key); }
};
