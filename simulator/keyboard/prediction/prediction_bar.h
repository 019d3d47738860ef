// The bar of suggestions above the keys.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// Three suggestions, the middle one active, with lines between them.
objc::strong<UIView> make_prediction_bar(CGRect frame);

}  // namespace sim
