// How one key is drawn: what the render factory's names come to for its kind and state.
#pragma once
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace sim {

/// The rounding of a menu's corners.
constexpr CGFloat menu_corner_radius = 12;

struct KeyTraits {
    objc::strong<UIKBGradient> fill;
    /// Over the fill; nil for none.
    objc::strong<UIKBGradient> wash;
    /// nil for none, both.
    objc::strong<UIKBEdgeEffect> edge;
    objc::strong<UIKBShadowEffect> shadow;
    objc::strong<UIKBTextStyle> text;
    CGFloat corner_radius;
};

/// The traits of a key in its state, asked of the factory and of the classes that its names are handed to.
KeyTraits key_traits(UIKBRenderFactory* factory, UIKBTree* key);

/// The traits of a pressed character's pop-up: of its body, and of the field in it that holds the character.
struct PopUpTraits {
    KeyTraits body, field;
};
PopUpTraits pop_up_traits(UIKBRenderFactory* factory);

/// The traits of a candidate, with lines along some edges; the chosen one is the first of them all.
KeyTraits candidate_traits(UIKBRenderFactory* factory, bool chosen, NSUInteger edges);
/// Of the title over candidates.
KeyTraits candidate_header_traits(UIKBRenderFactory* factory);
/// Of the button that shows more candidates, or fewer.
KeyTraits candidate_toggle_traits(UIKBRenderFactory* factory);

/// The colour behind a name, as the keyboard resolves it; nil where there is none.
UIColor* color_named(NSString* name);

}  // namespace sim
