// What follows from the size of the screen.
#pragma once
#include <algorithm>

#include "phone/device.h"

namespace sim {

/// Points that are covered at each edge of a window.
struct ScreenEdges {
    double top = 0, left = 0, bottom = 0, right = 0;
};

/// The smallest iPad is 768 points wide, the largest phone 414.
inline bool is_pad() { return std::min(device().screen_width, device().screen_height) >= 600; }

/// A phone with rounded corners and a notch is more than twice as high as wide.
inline bool has_notch() {
    const auto [shorter, longer] = std::minmax(device().screen_width, device().screen_height);
    return !is_pad() && longer / shorter > 2;
}

/// What the status bar, the notch and the indicator at the bottom cover. A phone held sideways has no status
/// bar.
inline ScreenEdges covered_edges(double width, double height) {
    const bool sideways = width > height;
    if (has_notch()) return sideways ? ScreenEdges{0, 44, 21, 44} : ScreenEdges{44, 0, 34, 0};
    return sideways && !is_pad() ? ScreenEdges{} : ScreenEdges{20, 0, 0, 0};
}

}  // namespace sim
