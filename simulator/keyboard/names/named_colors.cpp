// UIKBGetNamedColor: the colours that the keyboard draws with, by name; the function that the library
// replaces.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "keyboard/names/color_names.h"
#include "platform/keyboard.h"
#include "runtime/exported.h"
#include "runtime/injection/hookable_function.h"
#include "runtime/not_modelled.h"

namespace {

using std::operator""sv;

/// A colour that is grey when its three components are one: the system keeps greys in the grey colour space.
struct NamedColor {
    std::string_view name;
    unsigned rgb;
    double alpha;
};

// Of the other names that say no value, those that the model draws with, as a light keyboard may have them.
constexpr NamedColor named_colors[] = {
    {"UIKBColorClear", 0x000000, 0},
    {"UIKBColorBlack", 0x000000, 1},
    {"UIKBColorWhite", 0xffffff, 1},
    {"UIKBColorKeyBlueKeyBackground", 0x007aff, 1},
    {"UIKBColorKeyGrayKeyLightBackground", 0xb4bbc4, 1},
    {"UIKBColorCandidateHighlight", 0xffffff, 1},
    {"UIKBColorCandidateVerticalLight", 0x000000, 0.2},
};

// Names that only the library gives to its own colours. The system knows neither, and answers NULL.
constexpr std::string_view unknown_to_the_system[] = {"UIKBColorText", "UIKBColorHighlight"};

/// "UIKBColorBlack_Alpha30" is black at 30 percent, "UIKBColorWhite_Alpha87_50" white at 87.5.
std::optional<NamedColor> translucent_color(std::string_view name) {
    constexpr auto mark = "_Alpha"sv;
    const size_t at = name.find(mark);
    if (at == name.npos) return std::nullopt;
    std::string percent(name.substr(at + mark.size()));
    std::ranges::replace(percent, '_', '.');
    for (const NamedColor& color : named_colors)
        if (color.name == name.substr(0, at))
            return NamedColor{name, color.rgb, std::strtod(percent.c_str(), nullptr) / 100};
    return std::nullopt;
}

std::optional<NamedColor> color_named(std::string_view name) {
    for (const NamedColor& color : named_colors)
        if (name == color.name) return color;
    return translucent_color(name);
}

objc::strong<UIColor> make(const NamedColor& color) {
    auto component = [&](int shift) { return (color.rgb >> shift & 255) / 255.0; };
    if (component(16) == component(8) && component(8) == component(0))
        return UIColor::colorWithWhite(component(0), color.alpha);
    return UIColor::colorWithRGB(component(16), component(8), component(0), color.alpha);
}

CGColorRef system_named_color(NSString* name) {
    if (!name) return nullptr;
    const std::string_view text = name->UTF8String();
    // Kept for the life of the process: callers do not own what they are answered.
    static std::map<std::string, objc::strong<UIColor>, std::less<>> made;
    auto known = made.find(text);
    if (known == made.end()) {
        for (std::string_view unknown : unknown_to_the_system)
            if (text == unknown) return nullptr;
        const std::string quoted = '"' + std::string(text) + '"';
        if (!sim::is_color_name(text)) sim::not_modelled("UIKBGetNamedColor", "no colour is named " + quoted);
        auto color = color_named(text);
        if (!color) sim::not_modelled("UIKBGetNamedColor", "what colour " + quoted + " is, is not known");
        known = made.emplace(text, make(*color)).first;
    }
    return known->second->CGColor();
}

constinit sim::HookableFunction named_color("UIKBGetNamedColor", &UIKBGetNamedColor, &system_named_color);
[[gnu::used, gnu::section("hookable_functions")]] constinit sim::Hookable* const listed = &named_color;

}  // namespace

SIM_EXPORTED CGColorRef UIKBGetNamedColor(NSString* name) { return named_color(name); }
