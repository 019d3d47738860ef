// A view that is filled by its subviews and fills its superview, with a blur below where it is wanted.
#pragma once
#include "platform/keyboard.h"

/// Each subview is pinned to its edges when it is added, and it is pinned to its superview's.
struct HCView : objc::Interface<HCView, "HCView", UIView> {
    /// Below all other subviews; once it is there, it only goes back to that place.
    void enableBlur() { send<"enableBlur">(); }
    void disableBlur() { send<"disableBlur">(); }
    /// nil while no blur is shown.
    _UIBackdropView* backgroundBlur() { return send<"backgroundBlur", _UIBackdropView*>(); }
    void setBackgroundBlur(_UIBackdropView* blur) { send<"setBackgroundBlur:">(blur); }
};
