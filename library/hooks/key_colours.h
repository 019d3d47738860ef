// Keys, labels, glyphs and highlights in the theme's colours. Each body's row is in hook_table.h.
#pragma once
#include "objc/hook.h"
#include "platform/keyboard.h"

namespace hooks {

/// Every key background, shadow and control-key foreground; the named-colour hook makes it transparent. Here,
/// so that the replacement consists of it and calls nothing.
inline NSString* clear_colour_name() {
    using namespace objc::literals;
    return "UIKBColorClear"_ns;
}
UIColor* text_colour();

objc::strong<UIView> drop_language_indicator(
    objc::Previous<objc::strong<UIView>(CGRect, id, UIKBTree*)> previous, UIView* self, CGRect frame,
    id keyplane, UIKBTree* key);
void pass_text_colour(UIColor*& colour);
void pass_opaque(double& opacity);
void pass_no(bool& flag);
void recolour_category_glyphs(UIKeyboardEmojiCategoryBar* self, CALayer* layer);
void highlight_active_cell(UIKeyboardPredictionCell* self);
void tint_with_text_colour(UIKeyboardDockItemButton* self);
NSString* text_colour_name_unless_emoji(objc::Previous<NSString*()> previous, UIKBTextStyle* self);
void pass_translucent_style(NSInteger& style, NSInteger& quality);
void pass_highlight_for_blue_key(NSString*& colour_name);
void pass_no_edges_inset(NSString*& colour_name, NSUInteger& edges, double& inset, double& weight);
void pass_no_edges(NSString*& colour_name, NSUInteger& edges, UIEdgeInsets& insets, double& weight);
void pass_no_shadow(NSString*& colour_name, CGSize& offset, UIEdgeInsets& insets, double& weight);

}  // namespace hooks
