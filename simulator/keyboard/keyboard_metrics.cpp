// Sizes of the keyboard on each screen.
#include "keyboard/keyboard_metrics.h"

#include <algorithm>

#include "phone/device.h"

namespace sim {
namespace {

struct Phone {
    CGFloat width;  // upright
    CGFloat height, key_height;
    CGFloat landscape_height, landscape_key_height;
};

constexpr Phone phones[] = {
    {320, 216, 39, 162, 32},
    {375, 216, 42, 162, 32},
    {414, 226, 45, 162, 32},
};

}  // namespace

bool is_tablet() { return std::min(device().screen_width, device().screen_height) >= 700; }

KeyboardMetrics keyboard_metrics(bool landscape) {
    const Device& screen = device();
    const CGFloat narrow = std::min(screen.screen_width, screen.screen_height);
    const CGFloat wide = std::max(screen.screen_width, screen.screen_height);
    const CGFloat width = landscape ? wide : narrow;
    // Phones with a home indicator are the ones whose screen is more than twice as high as wide.
    const bool has_home_indicator = wide > 2 * narrow;
    const Phone* phone = phones;
    for (const Phone& other : phones)
        if (other.width <= narrow) phone = &other;

    constexpr CGFloat side = 3, gap = 6;
    const CGFloat height = landscape ? phone->landscape_height : phone->height;
    const CGFloat key_height = landscape ? phone->landscape_key_height : phone->key_height;
    const CGFloat row_pitch = height / 4;
    return {
        .size = {width, height},
        .side = side,
        .gap = gap,
        // The space between rows is split two to one: more of it above the first row than below the last.
        .top = (row_pitch - key_height) * 2 / 3,
        .key = {(width - 2 * side - 9 * gap) / 10, key_height},
        .row_pitch = row_pitch,
        .prediction_height = landscape ? 34.0 : 42.0,
        .dock_height = !has_home_indicator ? 0.0
                       : landscape         ? 53.0
                                           : 75.0,
    };
}

}  // namespace sim
