// What the window of a keyboard holds: keys and bars, and a backdrop of its own behind each.
#pragma once
#include "keyboard/keyboard_metrics.h"
#include "platform/keyboard.h"

namespace sim {

/// The parts of a keyboard, from above; nil for what it does not have. Each is as high as its frame says, and
/// as wide as the keyboard.
struct InputParts {
    objc::strong<UIView> accessory, predictions, keys, dock;
    /// The room for a row of candidates, which come later and bring a backdrop of their own.
    CGFloat candidate_height = 0;
};

struct InputWindow {
    /// As large as all the parts.
    objc::strong<UIView> host;
    /// Where these begin, in the host.
    CGFloat candidate_top, key_top, dock_top;
};

/// Puts the parts below each other into one view. Behind accessory and predictions, and behind keys and dock
/// together, is a backdrop each; all of them are siblings of the parts. While the keyboard is split, the
/// backdrop of the keys is in two pieces.
InputWindow make_input_window(const InputParts& parts, CGFloat width, bool split);

}  // namespace sim
