// UIKit's views that show effects.
#pragma once
#include "platform/uikit.h"

/// Shows effects, and over them what is put into its content view. A view that is added to itself raises.
struct UIVisualEffectView : objc::Interface<UIVisualEffectView, "UIVisualEffectView", UIView> {
    UIView* contentView() { return send<"contentView", UIView*>(); }
};
