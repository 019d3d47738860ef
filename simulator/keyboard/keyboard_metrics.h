// Sizes of the keyboard on each screen, from general knowledge of the phones.
#pragma once
#include "platform/coregraphics.h"

namespace sim {

/// All in points. Keys stand `gap` apart in ten columns, `side` from the edges; rows begin `row_pitch` apart.
struct KeyboardMetrics {
    CGSize size;
    CGFloat side, gap, top;
    CGSize key;
    CGFloat row_pitch;
    CGFloat prediction_height;
    /// The bar below the keys with the globe and the microphone; 0 on a phone without a home indicator, where
    /// both are keys.
    CGFloat dock_height;
};

/// The bar along the bottom of the emoji plane, and the keys at its ends.
constexpr CGFloat emoji_bar_height = 40, emoji_bar_key_width = 48;

/// Whether the booted device is a tablet: its screen is at least 700 points wide, held upright.
bool is_tablet();

/// For the booted device's screen, held upright or sideways. A screen as wide as none of the known phones'
/// gets the heights of the next narrower one.
KeyboardMetrics keyboard_metrics(bool landscape);

}  // namespace sim
