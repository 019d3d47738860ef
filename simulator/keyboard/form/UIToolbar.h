// A bar of buttons, as much of it as the keyboard's accessories need.
#pragma once
#include "platform/keyboard.h"

/// Its buttons are views of their own size, side by side in its content view, in the tint colour.
struct UIToolbar : objc::Interface<UIToolbar, "UIToolbar", UIView> {};

namespace sim {

/// The view that holds the bar's buttons; nil where the system lacks its class.
_UIToolbarContentView* buttons_of(UIToolbar* bar);

}  // namespace sim
