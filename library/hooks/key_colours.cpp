#include "hooks/key_colours.h"

#include "hooks/monochrome_filter.h"
#include "hooks/shared_preferences.h"
#include "objc/fast_enumeration.h"
#include "objc/instance_variable.h"

namespace hooks {

using namespace objc::literals;

UIColor* text_colour() { return sharedPreferences->getTextColor(); }

/// The language indicator gets no blurred view.
objc::strong<UIView> drop_language_indicator(
    objc::Previous<objc::strong<UIView>(CGRect, id, UIKBTree*)> previous, UIView*, CGRect frame, id keyplane,
    UIKBTree* key) {
    objc::strong<UIView> view = previous(frame, keyplane, key);
    if (key->name()->isEqualToString("EnabledLanguageIndicator"_ns)) return nullptr;
    return view;
}

void pass_text_colour(UIColor*& colour) { colour = text_colour(); }

void pass_opaque(double& opacity) { opacity = 1.0; }

void pass_no(bool& flag) { flag = false; }

/// Glyphs are tinted by multiplication; everything else in the bar becomes the highlight colour.
void recolour_category_glyphs(UIKeyboardEmojiCategoryBar*, CALayer* layer) {
    objc::for_each<CALayer>(layer->sublayers(), [](CALayer* sublayer) {
        if (sublayer->isKindOfClass(_UIKBKeyViewLayer::class_object()))
            sublayer->setContentsMultiplyColor(text_colour()->CGColor());
        else if (sublayer->isKindOfClass(CALayer::class_object()))
            set_monochrome_filter(sublayer, sharedPreferences->getHighlightColor()->CGColor(), 0.5f);
        else
            return;
        sublayer->setCompositingFilter(nullptr);  // the system's blend mode
    });
}

/// The active cell's own drawing goes; its layer shows the highlight colour.
void highlight_active_cell(UIKeyboardPredictionCell* self) {
    UIView* active = objc::instance_variable<UIView*>(self, "m_activeView");
    active->layer()->setSublayers(nullptr);
    active->layer()->setBackgroundColor(sharedPreferences->getHighlightColor()->CGColor());
}

void tint_with_text_colour(UIKeyboardDockItemButton* self) { self->setTintColor(text_colour()); }

/// Emoji keep their own colours.
NSString* text_colour_name_unless_emoji(objc::Previous<NSString*()> previous, UIKBTextStyle* self) {
    if (self->fontName()->isEqualToString("AppleColorEmoji"_ns)) return previous();
    return "UIKBColorText"_ns;
}

/// Whatever style was asked for, the backdrop that the system numbers -2.
void pass_translucent_style(NSInteger& style, NSInteger&) { style = -2; }

void pass_highlight_for_blue_key(NSString*& colour_name) {
    if (colour_name->isEqualToString("UIKBColorKeyBlueKeyBackground"_ns))
        colour_name = "UIKBColorHighlight"_ns;
}

void pass_no_edges_inset(NSString*& colour_name, NSUInteger& edges, double&, double&) {
    colour_name = clear_colour_name();
    edges = 0;
}

void pass_no_edges(NSString*& colour_name, NSUInteger& edges, UIEdgeInsets&, double&) {
    colour_name = clear_colour_name();
    edges = 0;
}

void pass_no_shadow(NSString*& colour_name, CGSize& offset, UIEdgeInsets& insets, double& weight) {
    colour_name = clear_colour_name();
    offset = {};
    insets = {};
    weight = 0.0;
}

}  // namespace hooks
