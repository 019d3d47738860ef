// The keyboard as a gallery shows it: with a key held down, and what can be measured in the picture.
#pragma once
#include <cstdint>
#include <vector>

#include "themes/colour.h"
#include "themes/oklab.h"

namespace command {

/// Rows from above, 0xRRGGBB a pixel.
struct KeyboardPixels {
    /// Of the pictures; their screen has as many.
    static constexpr int per_point = 2;
    size_t width = 0, height = 0;
    std::vector<uint32_t> pixels;
};

struct DrawnKeyboard {
    KeyboardPixels picture;
    /// The mean between the keys.
    Oklab background;
    /// Of the labels with what is beside them, where it is smallest.
    double contrast = 0;
};

/// Shows a keyboard of the phone, which is on and has the library with a theme in force, and draws its keys.
/// The page above it and the bar of predictions, which are alike on all, are left out.
DrawnKeyboard draw_keyboard(const Colour& labels);

}  // namespace command
