// How one key is drawn.
#include "keyboard/rendering/key_traits.h"

#include "keyboard/planes/key_kind.h"

namespace sim {
namespace {

using namespace objc::literals;

constexpr NSUInteger bottom_edge = 4;
constexpr CGFloat key_corner_radius = 5;

UIKBTextStyle* text_style(CGFloat size, NSString* color) {
    UIKBTextStyle* style = UIKBTextStyle::style(nullptr, size);
    style->setTextColor(color);
    return style;
}

NSString* foreground(UIKBRenderFactory* factory) {
    return factory->renderConfig()->lightKeyboard() ? "UIKBColorBlack"_ns : "UIKBColorWhite"_ns;
}

/// One point of shade below the cap, as if the key had a height.
UIKBEdgeEffect* bottom_line(NSString* color) { return UIKBEdgeEffect::effect(color, bottom_edge, 0.0, 1.0); }

UIKBGradient* blue() { return UIKBGradient::gradientWithFlatColor("UIKBColorKeyBlueKeyBackground"_ns); }

bool is_lower_case(NSString* text) {
    const char first = text && text->length() == 1 ? *text->UTF8String() : '\0';
    return first >= 'a' && first <= 'z';
}

KeyTraits plain_traits(UIKBRenderFactory* factory, CGFloat text_size) {
    return {
        .fill = UIKBGradient::gradientWithFlatColor(factory->defaultKeyBackgroundColorName()),
        .wash = nullptr,
        .edge = bottom_line(factory->defaultKeyShadowColorName()),
        .shadow = nullptr,
        .text = text_style(text_size, foreground(factory)),
        .corner_radius = key_corner_radius,
    };
}

KeyTraits control_traits(UIKBRenderFactory* factory, CGFloat text_size) {
    KeyTraits traits = plain_traits(factory, text_size);
    traits.fill = UIKBGradient::gradientWithFlatColor(factory->controlKeyBackgroundColorName());
    traits.wash = UIKBGradient::gradientWithFlatColor(factory->controlKeyForegroundColorName());
    traits.edge = bottom_line(factory->controlKeyShadowColorName());
    return traits;
}

KeyTraits highlighted(KeyTraits traits) {
    traits.fill = blue();
    traits.wash = nullptr;
    traits.text->setTextColor("UIKBColorWhite"_ns);
    return traits;
}

/// Without a cap.
KeyTraits bare_traits(UIKBRenderFactory* factory, CGFloat text_size) {
    KeyTraits traits = plain_traits(factory, text_size);
    traits.fill = UIKBGradient::gradientWithFlatColor("UIKBColorClear"_ns);
    traits.edge = nullptr;
    return traits;
}

/// A cap and nothing around it.
KeyTraits emoji_control_traits(UIKBRenderFactory* factory, CGFloat text_size) {
    KeyTraits traits = bare_traits(factory, text_size);
    traits.fill = UIKBGradient::gradientWithFlatColor(factory->controlKeyBackgroundColorName());
    return traits;
}

/// Like a letter's cap, and as round as menus are.
KeyTraits menu_traits(UIKBRenderFactory* factory) {
    KeyTraits traits = plain_traits(factory, 17);
    traits.edge = nullptr;
    traits.corner_radius = menu_corner_radius;
    return traits;
}

/// A mark on another key, fainter than the key's own text.
KeyTraits indicator_traits(UIKBRenderFactory* factory) {
    KeyTraits traits = bare_traits(factory, 10);
    const bool light = factory->renderConfig()->lightKeyboard();
    traits.text->setTextColor(light ? "UIKBColorBlack_Alpha40"_ns : "UIKBColorWhite_Alpha40"_ns);
    return traits;
}

}  // namespace

KeyTraits key_traits(UIKBRenderFactory* factory, UIKBTree* key) {
    constexpr CGFloat control_text = 16, upper_text = 23, lower_text = 25;
    const bool pressed = static_cast<KeyState>(key->state()) == KeyState::pressed;
    auto pressable = [&](const KeyTraits& idle) { return pressed ? highlighted(idle) : idle; };
    switch (static_cast<KeyKind>(key->displayType())) {
        case KeyKind::character:
            return plain_traits(factory, is_lower_case(key->displayString()) ? lower_text : upper_text);
        case KeyKind::space:
        case KeyKind::engaged_control: return pressable(plain_traits(factory, control_text));
        case KeyKind::control: return pressable(control_traits(factory, control_text));
        case KeyKind::confirming:
            // Already highlighted: held down, it loses that.
            return pressed ? plain_traits(factory, control_text)
                           : highlighted(control_traits(factory, control_text));
        case KeyKind::emoji_control: return emoji_control_traits(factory, control_text);
        case KeyKind::categories:
        case KeyKind::bare: return bare_traits(factory, control_text);
        case KeyKind::indicator: return indicator_traits(factory);
        case KeyKind::menu: return menu_traits(factory);
    }
    return plain_traits(factory, control_text);
}

PopUpTraits pop_up_traits(UIKBRenderFactory* factory) {
    PopUpTraits traits{plain_traits(factory, 32), highlighted(plain_traits(factory, 32))};
    traits.body.shadow =
        UIKBShadowEffect::effect("UIKBColorBlack_Alpha30"_ns, CGSize{0, 1}, UIEdgeInsets{}, 6);
    traits.field.edge = nullptr;
    return traits;
}

KeyTraits candidate_traits(UIKBRenderFactory* factory, bool chosen, NSUInteger edges) {
    KeyTraits traits = bare_traits(factory, 18);
    if (chosen) traits.fill = UIKBGradient::gradientWithFlatColor("UIKBColorCandidateHighlight"_ns);
    traits.edge = UIKBEdgeEffect::effect("UIKBColorCandidateVerticalLight"_ns, edges, 0.0, 0.5);
    traits.corner_radius = 0;
    return traits;
}

KeyTraits candidate_header_traits(UIKBRenderFactory* factory) { return bare_traits(factory, 13); }

KeyTraits candidate_toggle_traits(UIKBRenderFactory* factory) {
    KeyTraits traits = control_traits(factory, 16);
    traits.edge = nullptr;
    traits.corner_radius = 0;
    return traits;
}

UIColor* color_named(NSString* name) {
    CGColorRef color = UIKBGetNamedColor(name);
    return color ? UIColor::colorWithCGColor(color) : nullptr;
}

}  // namespace sim
