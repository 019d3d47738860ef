// What stands on a key: its text, its glyph, or the symbols of the emoji categories.
#pragma once
#include "platform/keyboard.h"

namespace sim {

/// In the colour behind the style's name, in the middle of the cap; without a colour nothing.
void draw_symbols(CGContextRef context, UIKBTree* key, UIKBTextStyle* style, CGRect cap);

/// All categories side by side in the box, white: a mask, which is given its colour as a layer.
void draw_categories(CGRect box);

/// Where the symbol of a category stands.
CGPoint middle_of_category(NSUInteger index, CGRect box);

}  // namespace sim
