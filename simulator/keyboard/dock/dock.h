// The bar below the keys, on phones with a home indicator.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// The globe on the left and the microphone on the right.
objc::strong<UIView> make_dock(CGRect frame);

}  // namespace sim
