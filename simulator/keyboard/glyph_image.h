// The keyboard's glyphs as images.
#pragma once
#include "keyboard/glyphs.h"
#include "platform/uikit.h"

namespace sim {

/// A square image, `size` points each way, at the screen's scale.
UIImage* glyph_image(Glyph glyph, CGFloat size, UIColor* color);

/// The same as a template, for views that draw it in their tint colour.
UIImage* template_glyph_image(Glyph glyph, CGFloat size);

}  // namespace sim
