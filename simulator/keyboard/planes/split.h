// Keys of a keyboard that is split in a left and a right half.
#pragma once
#include <cmath>

#include "keyboard/keyboard_metrics.h"
#include "platform/keyboard.h"

namespace sim {

/// The width of each half of a split keyboard, in whole points: two fifths of the whole.
inline CGFloat split_half(CGFloat width) { return std::round(width * 0.4); }

/// Moves the keys of a plane apart: row by row, those left of the middle squeezed into the left half, the
/// others into the right one. A space bar becomes two,
/// without a mark of the language.
void split_keyplane(UIKBTree* plane, const KeyboardMetrics& metrics);

}  // namespace sim
