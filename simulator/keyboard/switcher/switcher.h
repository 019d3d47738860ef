// The input switcher, open.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// The list that opens over the globe key: three keyboards, the first of them in use, and a row of pictures
/// for where the keyboard stands, the middle one chosen. `corner` is where its lower left corner is.
objc::strong<UIView> make_switcher(CGPoint corner);

}  // namespace sim
