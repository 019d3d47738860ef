// The pop-up over a pressed character key.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// A key's view that covers the key and what is above it: a body, drawn as the factory says like any cap, and
/// in it a field with the key's character. `key_frame` is in the coordinates of the view that the pop-up is
/// to be put into, whose width it keeps to.
objc::strong<UIView> make_pop_up(UIKBTree* key, CGRect key_frame, CGFloat width, UIKBRenderFactory* factory);

}  // namespace sim
