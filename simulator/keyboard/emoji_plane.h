// The emoji plane: a section with its title, the category bar, and the two keys beside that.
#pragma once
#include "keyboard/keyboard_metrics.h"
#include "platform/keyboard.h"

namespace sim {

/// A view of the keys' size. `keyplane_view` draws the plane's two keys, and goes in front.
objc::strong<UIView> make_emoji_plane(UIView* keyplane_view, const KeyboardMetrics& metrics);

}  // namespace sim
