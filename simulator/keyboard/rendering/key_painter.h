// Paints keys with their traits.
#pragma once
#include "keyboard/rendering/key_traits.h"
#include "keyboard/rendering/path.h"
#include "platform/uikit.h"

namespace sim {

/// A key's view is higher than its cap: below that there is room for the line along its bottom edge.
constexpr CGFloat room_below_cap = 1;

/// Fills the cap and draws the lines along its edges. A colour that does not exist or is clear, no edges and
/// a weight of zero paint nothing.
void paint_cap(CGContextRef context, const Path& cap, const KeyTraits& traits);

/// Gives the layer the shadow of a shape in its coordinates. No effect, no colour or a weight of zero is no
/// shadow.
void apply_shadow(CALayer* layer, const Path& shape, UIKBShadowEffect* effect);

/// An image that `draw` fills, as the contents of a new layer of that size.
template <class Draw>
CALayer* drawn_layer(CGSize size, Draw draw) {
    UIGraphicsBeginImageContextWithOptions(size, false, 0);
    draw(UIGraphicsGetCurrentContext());
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    CALayer* layer = CALayer::layer();
    layer->setFrame({{0, 0}, size});
    layer->setContents(reinterpret_cast<id>(image->CGImage()));
    layer->setContentsScale(image->scale());
    return layer;
}

/// The font of a text style.
UIFont* font_of(UIKBTextStyle* style);

/// A label with the style's font and the colour behind its colour's name, centred.
objc::strong<UILabel> make_label(UIKBTextStyle* style, NSString* text);

}  // namespace sim
