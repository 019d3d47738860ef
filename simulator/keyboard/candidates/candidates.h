// What an input method suggests for what is being typed, in place of the prediction bar.
#pragma once
#include "keyboard/keyboard_metrics.h"
#include "platform/keyboard.h"

namespace sim {

enum class Candidates {
    none,
    /// One row above the keys.
    row,
    /// Rows of them, in place of the keys, too.
    expanded,
};

/// With their upper left corner there; as wide as the keyboard, and with a backdrop of their own. nil for
/// none.
objc::strong<UIView> make_candidates(Candidates candidates, CGPoint origin, const KeyboardMetrics& metrics);

}  // namespace sim
