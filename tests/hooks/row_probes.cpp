// A probe for each row of the hook table.
#include "hooks/row_probes.h"

#include "platform/keyboard.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

constexpr CGRect frame{{0, 0}, {100, 40}};

bool is(UIColor* found, const Rgba& expected) { return found && rgba(found) == expected; }
bool is_clear(NSString* name) { return utf8(name) == "UIKBColorClear"; }
bool is_clear(UIKBEdgeEffect* effect) {
    return effect && is_clear(variable<NSString*>(effect, "_colorName"));
}
bool casts_nothing(UIKBShadowEffect* effect) {
    return effect && is_clear(variable<NSString*>(effect, "_colorName")) && effect->weight() == 0;
}
bool has_one_filter(CALayer* layer) { return layer->filters()->count() == 1; }

template <objc::Name Selector>
bool factory_answers_clear() {
    return is_clear(objc::send<Selector, NSString*>(made("UIKBRenderFactory")));
}

NSString* blue_key() { return text("UIKBColorKeyBlueKeyBackground"); }
bool is_highlight(NSString* name) { return utf8(name) == "UIKBColorHighlight"; }
bool is_named_highlight(UIKBGradient* gradient) {
    return gradient && is_highlight(variable<NSString*>(gradient, "_gradientName"));
}

template <class View>
View* laid_out(const char* class_name) {
    auto* view = static_cast<View*>(made<"initWithFrame:">(class_name, frame));
    view->layoutSubviews();
    return view;
}

UIKeyboardEmojiSectionHeader* header() {
    return static_cast<UIKeyboardEmojiSectionHeader*>(made("UIKeyboardEmojiSectionHeader"));
}

/// A backdrop of the class, made while the theme's background has the type.
UIKBBackdropView* backdrop(const char* class_name, NSUInteger type) {
    objc::send<"setBackgroundType:">(active_theme(), type);
    auto* made_view =
        static_cast<UIKBBackdropView*>(made<"initWithFrame:style:">(class_name, frame, NSInteger{2}));
    objc::send<"setBackgroundType:">(active_theme(), NSUInteger{2});
    return made_view;
}

/// With all three pieces.
UIKBInputBackdropView* input_backdrop() {
    auto* view = static_cast<UIKBInputBackdropView*>(made<"initWithFrame:">("UIKBInputBackdropView", frame));
    view->layoutToSplit(frame, frame, 0);
    return view;
}

std::string name_of_class(id object) { return object ? object_getClassName(object) : "nil"; }

template <UIKBBackdropView* (UIKBInputBackdropView::*Piece)()>
bool has_image_behind() {
    auto* input = input_backdrop();
    objc::send<"setBackgroundType:">(active_theme(), NSUInteger{3});
    UIKBBackdropView* piece = (input->*Piece)();
    objc::send<"setBackgroundType:">(active_theme(), NSUInteger{2});
    return name_of_class(piece->activeBackgroundView()) == "_UIBackdropImageView";
}

bool strips_the_pieces() {
    if (!objc_getClass("UCBView")) {
        Class sibling = objc_allocateClassPair(objc_getClass("UIView"), "UCBView", 0);
        class_addMethod(sibling, sel_registerName("initForUCB:"),
                        reinterpret_cast<IMP>(+[](id self, SEL, id) { return self; }), "@@:@");
        objc_registerClassPair(sibling);
    }
    auto* parent = static_cast<UIView*>(made("UIView"));
    auto* input = input_backdrop();
    parent->addSubview(input);
    parent->addSubview(static_cast<UIView*>(made("UCBView")));
    UIKBBackdropView* full = input->inputBackdropFullView();
    full->setActiveBackgroundView(static_cast<UIView*>(made("UIView")));
    input->layoutSubviews();
    return !full->activeBackgroundView();
}

bool drops_the_language_indicator() {
    objc::strong<UIKBTree> key = UIKBTree::alloc()->initWithType(0);
    key->setName(text("EnabledLanguageIndicator"));
    return !UIKBBlurredKeyView::alloc()->initWithFrame(frame, nullptr, key);
}

bool recolours_the_category_glyphs() {
    auto bar = UIKeyboardEmojiCategoryBar::alloc()->initWithFrame(frame, nullptr, nullptr);
    bar->displayLayer(bar->layer());
    return has_one_filter(bar->scrubView()->layer());
}

bool filters_the_toolbars() {
    auto* bar = laid_out<UIView>("UIWebFormAccessory");
    auto* contents = variable<UIView*>(bar, "_leftToolbar")->subviews();
    for (NSUInteger i = 0; i < contents->count(); ++i)
        if (has_one_filter(static_cast<UIView*>(contents->objectAtIndex(i))->layer())) return true;
    return false;
}

}  // namespace

const std::map<std::string, RowProbe>& row_probes() {
    static const std::map<std::string, RowProbe> probes{
        {"-[UIKBRenderFactory controlKeyShadowColorName]",
         {{}, factory_answers_clear<"controlKeyShadowColorName">}},
        {"-[UIKBRenderFactory defaultKeyShadowColorName]",
         {{}, factory_answers_clear<"defaultKeyShadowColorName">}},
        {"-[UIKBRenderFactory controlKeyForegroundColorName]",
         {{}, factory_answers_clear<"controlKeyForegroundColorName">}},
        {"-[UIKBRenderFactory _controlKeyBackgroundColorName]",
         {{}, factory_answers_clear<"_controlKeyBackgroundColorName">}},
        {"-[UIKBRenderFactory controlKeyBackgroundColorName]",
         {{}, factory_answers_clear<"controlKeyBackgroundColorName">}},
        {"-[UIKBRenderFactory defaultKeyBackgroundColorName]",
         {{}, factory_answers_clear<"defaultKeyBackgroundColorName">}},
        {"-[UIKBBlurredKeyView initWithFrame:keyplane:key:]", {{"UIKBTree"}, drops_the_language_indicator}},
        {"-[UIInputSwitcherTableView layoutSubviews]",
         {{}, [] { return is(laid_out<UIView>("UIInputSwitcherTableView")->tintColor(), theme_highlight); }}},
        {"-[UIInputSwitcherTableCell initWithStyle:reuseIdentifier:]",
         {{"CAFilter", "UILabel"},
          [] {
              auto* cell = static_cast<UIInputSwitcherTableCell*>(made<"initWithStyle:reuseIdentifier:">(
                  "UIInputSwitcherTableCell", NSInteger{0}, text("cell")));
              return has_one_filter(cell->textLabel()->layer());
          }}},
        {"-[UIInputSwitcherTableCellSegmentView layoutSubviews]",
         {{"UIImageView"},
          [] {
              auto* segment =
                  laid_out<UIInputSwitcherTableCellSegmentView>("UIInputSwitcherTableCellSegmentView");
              return is(segment->imageView()->tintColor(), theme_text);
          }}},
        {"-[UIKeyboardEmojiSectionHeader setHeaderTextColor:]",
         {{},
          [] {
              auto* one = header();
              one->setHeaderTextColor(color(1, 0, 0));
              return is(one->headerTextColor(), theme_text);
          }}},
        {"-[UIKeyboardEmojiSectionHeader setHeaderOpacity:]",
         {{},
          [] {
              auto* one = header();
              one->setHeaderOpacity(0.3);
              return one->headerOpacity() == 1;
          }}},
        {"-[UIKeyboardEmojiSectionHeader headerTextColor]",
         {{}, [] { return is(header()->headerTextColor(), theme_text); }}},
        {"-[UIKeyboardEmojiSectionHeader headerOpacity]",
         {{}, [] { return header()->headerOpacity() == 1; }}},
        {"-[UIKeyboardEmojiSectionHeader setUseVibrantBlend:]",
         {{},
          [] {
              auto* one = header();
              one->setUseVibrantBlend(true);
              return !one->useVibrantBlend();
          }}},
        {"-[UIKeyboardEmojiSectionHeader useVibrantBlend]",
         {{}, [] { return !header()->useVibrantBlend(); }}},
        {"-[UIKeyboardEmojiCategoryBar displayLayer:]", {{"CAFilter"}, recolours_the_category_glyphs}},
        {"-[UIKeyboardPredictionCell textColor]",
         {{},
          [] {
              auto* cell = static_cast<UIKeyboardPredictionCell*>(made("UIKeyboardPredictionCell"));
              return is(cell->textColor(), theme_text);
          }}},
        {"-[UIKeyboardPredictionCell layoutSubviews]",
         {{},
          [] {
              auto* cell = laid_out<UIView>("UIKeyboardPredictionCell");
              CGColorRef shown = variable<UIView*>(cell, "m_activeView")->layer()->backgroundColor();
              return shown && is(UIColor::colorWithCGColor(shown), theme_highlight);
          }}},
        {"-[UIKeyboardDockItemButton layoutSubviews]",
         {{}, [] { return is(laid_out<UIView>("UIKeyboardDockItemButton")->tintColor(), theme_text); }}},
        {"-[UIKBBackdropView initWithFrame:style:]",
         {{"_UIBackdropView"},
          [] {
              return name_of_class(backdrop("UIKBBackdropView", 2)->activeBackgroundView()) ==
                     "_UIBackdropGradientView";
          }}},
        {"-[UIKBBackdropView activeBackgroundView]",
         {{},
          [] {
              return class_respondsToSelector(objc_getClass("UIKBBackdropView"),
                                              sel_registerName("activeBackgroundView")) != 0;
          }}},
        {"-[UIKBBackdropView setActiveBackgroundView:]",
         {{},
          [] {
              auto* owner = backdrop("UIKBBackdropView", 2);
              auto* view = static_cast<UIView*>(made("UIView"));
              owner->setActiveBackgroundView(view);
              return owner->activeBackgroundView() == view;
          }}},
        {"-[UIKBVisualEffectView initWithFrame:style:]",
         {{},
          [] {
              auto* view = backdrop("UIKBVisualEffectView", 1);
              return !view->activeBackgroundView() && is(view->backgroundColor(), {0, 0, 0, 1});
          }}},
        {"-[UIKBInputBackdropView inputBackdropFullView]",
         {{"UIKBBackdropView", "_UIBackdropView"},
          has_image_behind<&UIKBInputBackdropView::inputBackdropFullView>}},
        {"-[UIKBInputBackdropView inputBackdropLeftView]",
         {{"UIKBBackdropView", "_UIBackdropView"},
          has_image_behind<&UIKBInputBackdropView::inputBackdropLeftView>}},
        {"-[UIKBInputBackdropView inputBackdropRightView]",
         {{"UIKBBackdropView", "_UIBackdropView"},
          has_image_behind<&UIKBInputBackdropView::inputBackdropRightView>}},
        {"-[UIKBInputBackdropView layoutSubviews]", {{"UIKBBackdropView"}, strips_the_pieces}},
        {"-[UIKBInputBackdropView removeKBBackdropEffects:]",
         {{"UIKBBackdropView"},
          [] {
              auto* piece = backdrop("UIKBBackdropView", 2);
              piece->setActiveBackgroundView(static_cast<UIView*>(made("UIView")));
              input_backdrop()->removeKBBackdropEffects(piece);
              return !piece->activeBackgroundView();
          }}},
        {"-[UIKBTextStyle textColor]",
         {{},
          [] {
              return utf8(static_cast<UIKBTextStyle*>(made("UIKBTextStyle"))->textColor()) == "UIKBColorText";
          }}},
        {"+[UIKBRenderConfig backdropStyleForStyle:quality:]",
         {{}, [] { return UIKBRenderConfig::backdropStyle(0, 100) == -2; }}},
        {"-[UIKBRenderConfig lightKeyboard]",
         {{}, [] { return !UIKBRenderConfig::defaultConfig()->lightKeyboard(); }}},
        {"+[UIKBGradient gradientWithFlatColor:]",
         {{}, [] { return is_highlight(UIKBGradient::gradientWithFlatColor(blue_key())->flatColorName()); }}},
        {"+[UIKBGradient gradientWithName:]",
         {{}, [] { return is_named_highlight(UIKBGradient::gradientWithName(blue_key())); }}},
        {"-[UIKBGradient initWithFlatColor:]",
         {{},
          [] {
              return is_highlight(UIKBGradient::alloc()->initWithFlatColor(blue_key())->flatColorName());
          }}},
        {"-[UIKBGradient initWithName:]",
         {{}, [] { return is_named_highlight(UIKBGradient::alloc()->initWithName(blue_key()).get()); }}},
        {"-[UIWebFormAccessory layoutSubviews]",
         {{"CAFilter", "_UIToolbarContentView"}, filters_the_toolbars}},
        {"-[UIKBEdgeEffect edges]",
         {{}, [] { return UIKBEdgeEffect::alloc()->initWithColor(blue_key(), 15, {}, 1.0)->edges() == 0; }}},
        {"+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]",
         {{}, [] { return is_clear(UIKBEdgeEffect::effect(blue_key(), 15, 1.0, 1.0)); }}},
        {"+[UIKBEdgeEffect effectWithColor:edges:insets:weight:]",
         {{}, [] { return is_clear(UIKBEdgeEffect::effect(blue_key(), 15, UIEdgeInsets{}, 1.0)); }}},
        {"-[UIKBEdgeEffect initWithColor:edges:insets:weight:]",
         {{},
          [] { return is_clear(UIKBEdgeEffect::alloc()->initWithColor(blue_key(), 15, {}, 1.0).get()); }}},
        {"+[UIKBShadowEffect effectWithColor:offset:insets:weight:]",
         {{}, [] { return casts_nothing(UIKBShadowEffect::effect(blue_key(), {0, 1}, UIEdgeInsets{}, 2)); }}},
        {"-[UIKBShadowEffect initWithColor:offset:insets:weight:]",
         {{},
          [] {
              return casts_nothing(UIKBShadowEffect::alloc()->initWithColor(blue_key(), {0, 1}, {}, 2).get());
          }}},
    };
    return probes;
}

}  // namespace test
