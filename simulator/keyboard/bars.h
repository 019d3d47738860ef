// The bars above and below the keys.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// Three suggestions, the middle one active, with lines between them.
objc::strong<UIView> make_prediction_bar(CGRect frame);

/// The globe on the left and the microphone on the right.
objc::strong<UIView> make_dock(CGRect frame);

}  // namespace sim
