#include "themes/colour.h"

#include "model/HCCITool.h"
#include "support/text.h"

namespace command {

Colour colour_of(UIColor* color) {
    Colour colour;
    color->getRGB(&colour.red, &colour.green, &colour.blue, &colour.alpha);
    return colour;
}

// Through the text, which is what a theme keeps: computing with components would lose one of 255 here and
// there.
UIColor* ui_color(const Colour& colour) { return HCCITool::colorFromHexString(tools::text(hex_of(colour))); }

}  // namespace command
