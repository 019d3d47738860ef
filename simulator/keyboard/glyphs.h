// The keyboard's pictures without a text: shift, delete, globe, microphone and the emoji categories, as
// paths.
#pragma once
#include <cairo.h>

#include "platform/coregraphics.h"

namespace sim {

enum class Glyph {
    shift,
    shift_engaged,
    backspace,
    globe,
    microphone,
    check,
    previous,
    next,
    // The emoji categories, in the order of their bar.
    recent,
    smileys,
    animals,
    food,
    activities,
    travel,
    objects,
    symbols,
    flags,
};

constexpr Glyph first_category = Glyph::recent;
constexpr int category_count = 9;

/// Draws in the context's source colour, as large as fits the middle of the box.
void draw_glyph(cairo_t* context, Glyph glyph, CGRect box);

}  // namespace sim
