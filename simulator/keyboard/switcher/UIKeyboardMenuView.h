// A list of choices that opens over a key.
#pragma once
#include "platform/keyboard.h"

/// Shadow and blur, the surface in front of them, and a table in front of that. Subclasses say what is in the
/// table.
struct UIKeyboardMenuView : objc::Interface<UIKeyboardMenuView, "UIKeyboardMenuView", UIView> {
    UIInputSwitcherTableView* table() { return send<"table", UIInputSwitcherTableView*>(); }
    NSInteger numberOfItems() { return send<"numberOfItems", NSInteger>(); }
    /// The size that all of them need.
    CGSize preferredSize() { return send<"preferredSize", CGSize>(); }
    /// Puts the parts where they belong at that size.
    void setUpShadowView(CGSize size) { send<"setupShadowViewWithSize:">(size); }
    void setUpBackgroundKeyView(CGSize size) { send<"setupBackgroundKeyViewWithSize:">(size); }
};

/// The keyboards of the phone, and the row of pictures for where the keyboard stands.
struct UIInputSwitcherView : objc::Interface<UIInputSwitcherView, "UIInputSwitcherView", UIKeyboardMenuView> {
};

/// The shadow of a menu, and a blur of what lies behind it, which is its variable `_blurView`.
struct UIInputSwitcherShadowView
    : objc::Interface<UIInputSwitcherShadowView, "UIInputSwitcherShadowView", UIView> {};
