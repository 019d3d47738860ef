// What switches and sliders are made of: rounded parts, and a knob that casts a shadow.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// A view without touches of its own, in front of what the control has.
objc::strong<UIView> add_rounded_part(UIView* control, CGRect frame, CGFloat corner_radius);

/// The same, with a shadow below it.
objc::strong<UIView> add_knob(UIView* control, CGRect frame, CGFloat size, float shadow_opacity);

}  // namespace sim
