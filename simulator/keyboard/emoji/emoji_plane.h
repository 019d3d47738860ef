// The emoji plane: a section with its title, and below it the keys.
#pragma once
#include "keyboard/keyboard_metrics.h"
#include "platform/keyboard.h"

namespace sim {

/// A view of the keys' size. `keyplane_view` draws the category bar and the keys beside it, and goes in
/// front.
objc::strong<UIView> make_emoji_plane(UIView* keyplane_view, const KeyboardMetrics& metrics);

}  // namespace sim
