// The hook table: every method of the system that the library replaces or adds, in the order of installation.
#pragma once
#include "hooks/background.h"
#include "hooks/decision.h"
#include "hooks/key_colours.h"
#include "hooks/keyboard_cache.h"
#include "hooks/switcher_accessory.h"
#include "objc/hook.h"

namespace hooks {

/// A row and the condition under which it is installed.
struct TableRow {
    Condition condition;
    objc::HookRow hook;
};

namespace rows {

using namespace objc::behaviour;
using objc::hook;
using enum Condition;

// clang-format off
inline constexpr TableRow hook_table[] = {
    {accepted_process, hook<"-[SpringBoard applicationDidFinishLaunching:]",                  after<remove_keyboard_cache>>},

    {caps_hidden,      hook<"-[UIKBRenderFactory controlKeyShadowColorName]",                 answers<clear_colour_name>>},
    {caps_hidden,      hook<"-[UIKBRenderFactory defaultKeyShadowColorName]",                 answers<clear_colour_name>>},
    {caps_hidden,      hook<"-[UIKBRenderFactory controlKeyForegroundColorName]",             answers<clear_colour_name>>},
    {caps_hidden,      hook<"-[UIKBRenderFactory _controlKeyBackgroundColorName]",            answers<clear_colour_name>>},
    {caps_hidden,      hook<"-[UIKBRenderFactory controlKeyBackgroundColorName]",             answers<clear_colour_name>>},
    {caps_hidden,      hook<"-[UIKBRenderFactory defaultKeyBackgroundColorName]",             answers<clear_colour_name>>},

    {themed,           hook<"-[UIKBBlurredKeyView initWithFrame:keyplane:key:]",              around<drop_language_indicator>>},

    {themed,           hook<"-[UIInputSwitcherTableView layoutSubviews]",                     after<tint_switcher>>},
    {themed,           hook<"-[UIInputSwitcherTableCell initWithStyle:reuseIdentifier:]",     around<filter_switcher_label>>},
    {themed,           hook<"-[UIInputSwitcherTableCellSegmentView layoutSubviews]",          after<tint_segment_images>>},

    {themed,           hook<"-[UIKeyboardEmojiSectionHeader setHeaderTextColor:]",            substitutes<void, pass_text_colour>>},
    {themed,           hook<"-[UIKeyboardEmojiSectionHeader setHeaderOpacity:]",              substitutes<void, pass_opaque>>},
    {themed,           hook<"-[UIKeyboardEmojiSectionHeader headerTextColor]",                answers<text_colour>>},
    {themed,           hook<"-[UIKeyboardEmojiSectionHeader headerOpacity]",                  answers<1.0>>},
    {themed,           hook<"-[UIKeyboardEmojiSectionHeader setUseVibrantBlend:]",            substitutes<void, pass_no>>},
    {themed,           hook<"-[UIKeyboardEmojiSectionHeader useVibrantBlend]",                answers<false>>},
    {themed,           hook<"-[UIKeyboardEmojiCategoryBar displayLayer:]",                    after<recolour_category_glyphs>>},

    {themed,           hook<"-[UIKeyboardPredictionCell textColor]",                          answers<text_colour>>},
    {themed,           hook<"-[UIKeyboardPredictionCell layoutSubviews]",                     after<highlight_active_cell>>},
    {themed,           hook<"-[UIKeyboardDockItemButton layoutSubviews]",                     after<tint_with_text_colour>>},

    {themed,           hook<"-[UIKBBackdropView initWithFrame:style:]",                       around<install_background>>},
    {themed,           hook<"-[UIKBBackdropView activeBackgroundView]",                       adds<active_background_view>>},
    {themed,           hook<"-[UIKBBackdropView setActiveBackgroundView:]",                   adds<set_active_background_view>>},
    {themed,           hook<"-[UIKBVisualEffectView initWithFrame:style:]",                   around<approximate_background>>},
    {themed,           hook<"-[UIKBInputBackdropView inputBackdropFullView]",                 around<put_image_behind>>},
    {themed,           hook<"-[UIKBInputBackdropView inputBackdropLeftView]",                 around<put_image_behind>>},
    {themed,           hook<"-[UIKBInputBackdropView inputBackdropRightView]",                around<put_image_behind>>},
    {themed,           hook<"-[UIKBInputBackdropView layoutSubviews]",                        after<strip_pieces>>},
    {themed,           hook<"-[UIKBInputBackdropView removeKBBackdropEffects:]",              adds<remove_backdrop_effects>>},

    {themed,           hook<"-[UIKBTextStyle textColor]",                                     around<text_colour_name_unless_emoji>>},
    {themed,           hook<"+[UIKBRenderConfig backdropStyleForStyle:quality:]",             substitutes<NSInteger, pass_translucent_style>>},
    {themed,           hook<"-[UIKBRenderConfig lightKeyboard]",                              answers<false>>},
    {themed,           hook<"+[UIKBGradient gradientWithFlatColor:]",                         substitutes<id, pass_highlight_for_blue_key>>},
    {themed,           hook<"+[UIKBGradient gradientWithName:]",                              substitutes<id, pass_highlight_for_blue_key>>},
    {themed,           hook<"-[UIKBGradient initWithFlatColor:]",                             substitutes<id, pass_highlight_for_blue_key>>},
    {themed,           hook<"-[UIKBGradient initWithName:]",                                  substitutes<id, pass_highlight_for_blue_key>>},

    {themed,           hook<"-[UIWebFormAccessory layoutSubviews]",                           after<filter_toolbars>>},

    {themed,           hook<"-[UIKBEdgeEffect edges]",                                        answers<NSUInteger{0}>>},
    {themed,           hook<"+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]",          substitutes<id, pass_no_edges_inset>>},
    {themed,           hook<"+[UIKBEdgeEffect effectWithColor:edges:insets:weight:]",         substitutes<id, pass_no_edges>>},
    {themed,           hook<"-[UIKBEdgeEffect initWithColor:edges:insets:weight:]",           substitutes<id, pass_no_edges>>},
    {themed,           hook<"+[UIKBShadowEffect effectWithColor:offset:insets:weight:]",      substitutes<id, pass_no_shadow>>},
    {themed,           hook<"-[UIKBShadowEffect initWithColor:offset:insets:weight:]",        substitutes<id, pass_no_shadow>>},
};
// clang-format on

}  // namespace rows

using rows::hook_table;

/// Installs the rows that stand under the condition, in order. A class that this system lacks makes its rows
/// do nothing.
void install(Condition);

}  // namespace hooks
