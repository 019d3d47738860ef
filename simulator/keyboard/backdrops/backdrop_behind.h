// The backdrop that some views of a keyboard have for themselves.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// A backdrop of that style behind everything in the view, as large as it and following its size.
objc::strong<UIKBBackdropView> add_backdrop_behind(UIView* view, NSInteger style);

}  // namespace sim
