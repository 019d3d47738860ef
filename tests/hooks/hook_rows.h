// The hook table as the tests know it: "-[Class selector]", in the order of installation.
#pragma once
#include <string>
#include <vector>

#include "support/phone.h"

namespace test {

using Rows = std::vector<std::string>;

inline const std::string springboard_row = "-[SpringBoard applicationDidFinishLaunching:]";
inline const std::string named_colour_row = "function UIKBGetNamedColor";

/// With theming off: in an arm64e process the function is hooked only when it is on.
inline Rows and_named_colours_unless_arm64e(Rows rows) {
    if (process_under_test() != SIM_PROCESS_ARM64E) rows.push_back(named_colour_row);
    return rows;
}

inline const Rows render_factory_rows{
    "-[UIKBRenderFactory controlKeyShadowColorName]",
    "-[UIKBRenderFactory defaultKeyShadowColorName]",
    "-[UIKBRenderFactory controlKeyForegroundColorName]",
    "-[UIKBRenderFactory _controlKeyBackgroundColorName]",
    "-[UIKBRenderFactory controlKeyBackgroundColorName]",
    "-[UIKBRenderFactory defaultKeyBackgroundColorName]",
};

inline const Rows rows_from_8{
    "-[UIKBBlurredKeyView initWithFrame:keyplane:key:]",
    "-[UIInputSwitcherTableView layoutSubviews]",
    "-[UIInputSwitcherTableCell initWithStyle:reuseIdentifier:]",
    "-[UIInputSwitcherTableCellSegmentView layoutSubviews]",
    "-[UIKeyboardEmojiSectionHeader setHeaderTextColor:]",
    "-[UIKeyboardEmojiSectionHeader setHeaderOpacity:]",
    "-[UIKeyboardEmojiSectionHeader headerTextColor]",
    "-[UIKeyboardEmojiSectionHeader headerOpacity]",
    "-[UIKeyboardEmojiSectionHeader setUseVibrantBlend:]",
    "-[UIKeyboardEmojiSectionHeader useVibrantBlend]",
    "-[UIKeyboardEmojiCategoryBar displayLayer:]",
    "-[UIKeyboardPredictionCell textColor]",
    "-[UIKeyboardPredictionCell layoutSubviews]",
    "-[UIKeyboardDockItemButton layoutSubviews]",
    "-[UIKBBackdropView initWithFrame:style:]",
    "-[UIKBBackdropView activeBackgroundView] added as @@:",
    "-[UIKBBackdropView setActiveBackgroundView:] added as v@:@",
    "-[UIKBVisualEffectView initWithFrame:style:]",
    "-[UIKBInputBackdropView inputBackdropFullView]",
    "-[UIKBInputBackdropView inputBackdropLeftView]",
    "-[UIKBInputBackdropView inputBackdropRightView]",
    "-[UIKBInputBackdropView layoutSubviews]",
    "-[UIKBInputBackdropView removeKBBackdropEffects:] added as v@:@",
    "-[UIKBTextStyle textColor]",
    "+[UIKBRenderConfig backdropStyleForStyle:quality:]",
    "-[UIKBRenderConfig lightKeyboard]",
    "+[UIKBGradient gradientWithFlatColor:]",
    "+[UIKBGradient gradientWithName:]",
    "-[UIKBGradient initWithFlatColor:]",
    "-[UIKBGradient initWithName:]",
    "-[UIWebFormAccessory layoutSubviews]",
    "-[UIKBEdgeEffect edges]",
    "+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]",
    "+[UIKBEdgeEffect effectWithColor:edges:insets:weight:]",
    "-[UIKBEdgeEffect initWithColor:edges:insets:weight:]",
    "+[UIKBShadowEffect effectWithColor:offset:insets:weight:]",
    "-[UIKBShadowEffect initWithColor:offset:insets:weight:]",
};

/// Of a row: the class, and whether it is added where nothing stood.
inline std::string owner_of(const std::string& row) { return row.substr(2, row.find(' ') - 2); }
inline bool is_added(const std::string& row) { return row.find(" added as ") != std::string::npos; }

/// All 44, as a themed SpringBoard with hidden key caps gets them.
inline Rows whole_table() {
    Rows all{springboard_row};
    all.insert(all.end(), render_factory_rows.begin(), render_factory_rows.end());
    all.insert(all.end(), rows_from_8.begin(), rows_from_8.end());
    return all;
}

}  // namespace test
