#include "compatibility/effects.h"

namespace compatibility {
namespace {

constexpr EffectWithout sentences[] = {
    {"-[SpringBoard applicationDidFinishLaunching:]",
     "keyboards of an earlier theme may be shown until the system clears its cache of pictures"},

    {"-[UIKBRenderFactory controlKeyShadowColorName]",
     "shift, delete and the keys of the lower row keep the line below them"},
    {"-[UIKBRenderFactory defaultKeyShadowColorName]", "letter keys keep the line below them"},
    {"-[UIKBRenderFactory controlKeyForegroundColorName]",
     "shift, delete and the keys of the lower row keep their grey wash"},
    {"-[UIKBRenderFactory _controlKeyBackgroundColorName]",
     "shift, delete and the keys of the lower row may keep their caps"},
    {"-[UIKBRenderFactory controlKeyBackgroundColorName]",
     "shift, delete and the keys of the lower row keep their caps over the background"},
    {"-[UIKBRenderFactory defaultKeyBackgroundColorName]", "letter keys keep their caps over the background"},

    {"-[UIKBBlurredKeyView initWithFrame:keyplane:key:]",
     "the mark of the language on the space bar is shown, on a patch of the theme"},

    {"-[UIInputSwitcherTableView layoutSubviews]",
     "the check mark in the list of keyboards keeps the system's colour"},
    {"-[UIInputSwitcherTableCell initWithStyle:reuseIdentifier:]",
     "the names in the list of keyboards keep the system's colour"},
    {"-[UIInputSwitcherTableCellSegmentView layoutSubviews]",
     "the pictures of left, whole and right keyboard keep the system's colour"},

    {"-[UIKeyboardEmojiSectionHeader setHeaderTextColor:]",
     "titles over the emoji may be drawn in the system's colour"},
    {"-[UIKeyboardEmojiSectionHeader setHeaderOpacity:]", "titles over the emoji may be drawn faintly"},
    {"-[UIKeyboardEmojiSectionHeader headerTextColor]", "titles over the emoji keep the system's colour"},
    {"-[UIKeyboardEmojiSectionHeader headerOpacity]", "titles over the emoji stay faint"},
    {"-[UIKeyboardEmojiSectionHeader setUseVibrantBlend:]",
     "titles over the emoji may be blended into the background"},
    {"-[UIKeyboardEmojiSectionHeader useVibrantBlend]",
     "titles over the emoji stay blended into the background"},
    {"-[UIKeyboardEmojiCategoryBar displayLayer:]", "the categories below the emoji keep the system's greys"},

    {"-[UIKeyboardPredictionCell textColor]", "suggestions above the keys keep the system's text colour"},
    {"-[UIKeyboardPredictionCell layoutSubviews]", "the chosen suggestion keeps the system's highlight"},
    {"-[UIKeyboardDockItemButton layoutSubviews]", "globe and microphone keep the system's grey"},

    {"-[UIKBBackdropView initWithFrame:style:]",
     "the keyboard keeps the system's background; colour and gradient are not shown"},
    {"-[UIKBBackdropView activeBackgroundView]",
     "the themed view of a backdrop is not found again, and may stay where it should go"},
    {"-[UIKBBackdropView setActiveBackgroundView:]",
     "the themed view of a backdrop is not kept, and colour and gradient are not shown"},
    {"-[UIKBVisualEffectView initWithFrame:style:]",
     "the strip of applications in Messages keeps the system's background"},
    {"-[UIKBInputBackdropView inputBackdropFullView]", "a background image is not shown behind the keyboard"},
    {"-[UIKBInputBackdropView inputBackdropLeftView]",
     "a background image is not shown behind the left half of a split keyboard"},
    {"-[UIKBInputBackdropView inputBackdropRightView]",
     "a background image is not shown behind the right half of a split keyboard"},
    {"-[UIKBInputBackdropView layoutSubviews]",
     "the keyboard of a web form shows the theme, which otherwise is taken from behind it"},
    {"-[UIKBInputBackdropView removeKBBackdropEffects:]",
     "the keyboard of a web form shows the theme, which otherwise is taken from behind it"},

    {"-[UIKBTextStyle textColor]", "the labels of keys keep the system's colour"},
    {"+[UIKBRenderConfig backdropStyleForStyle:quality:]",
     "the system's blurred material stays in front of the themed background"},
    {"-[UIKBRenderConfig lightKeyboard]",
     "keys are drawn as on a light keyboard where the application asks for one"},
    {"+[UIKBGradient gradientWithFlatColor:]",
     "a blue return key and pressed keys may stay the system's blue"},
    {"+[UIKBGradient gradientWithName:]", "a blue return key and pressed keys may stay the system's blue"},
    {"-[UIKBGradient initWithFlatColor:]", "a blue return key and pressed keys may stay the system's blue"},
    {"-[UIKBGradient initWithName:]", "a blue return key and pressed keys may stay the system's blue"},

    {"-[UIWebFormAccessory layoutSubviews]",
     "the arrows and \"Done\" above the keyboard of a web form keep the system's colours"},

    {"-[UIKBEdgeEffect edges]", "keys keep the lines along their edges"},
    {"+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]",
     "some keys may keep the lines along their edges"},
    {"+[UIKBEdgeEffect effectWithColor:edges:insets:weight:]",
     "some keys may keep the lines along their edges"},
    {"-[UIKBEdgeEffect initWithColor:edges:insets:weight:]",
     "some keys may keep the lines along their edges"},
    {"+[UIKBShadowEffect effectWithColor:offset:insets:weight:]",
     "the pop-up over a pressed key keeps its shadow"},
    {"-[UIKBShadowEffect initWithColor:offset:insets:weight:]",
     "the pop-up over a pressed key may keep its shadow"},

    {"UIKBGetNamedColor",
     "labels and highlights are not in the theme's colours, and key caps stay: their colours are asked "
     "for "
     "by name"},
};

}  // namespace

std::span<const EffectWithout> effects() { return sentences; }

const char* effect_without(std::string_view target) {
    for (const EffectWithout& each : sentences)
        if (each.target == target) return each.sentence;
    return nullptr;
}

}  // namespace compatibility
