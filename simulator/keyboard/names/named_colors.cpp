// UIKBGetNamedColor: the colours that the keyboard draws with, by name; the function that the library
// replaces.
#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/keyboard.h"
#include "runtime/exported.h"
#include "runtime/hookable_function.h"
#include "runtime/not_modelled.h"

namespace {

using std::operator""sv;

/// A colour that is grey when its three components are one: the system keeps greys in the grey colour space.
struct NamedColor {
    std::string_view name;
    unsigned rgb;
    double alpha;
};

// The names are the system's. What stands behind the first three follows from the name; the others are this
// model's reading of a light keyboard.
constexpr NamedColor named_colors[] = {
    {"UIKBColorClear", 0x000000, 0},
    {"UIKBColorBlack", 0x000000, 1},
    {"UIKBColorWhite", 0xffffff, 1},
    {"UIKBColorKeyBlueKeyBackground", 0x007aff, 1},
    {"UIKBColorKeyGrayKeyLightBackground", 0xb4bbc4, 1},
    {"UIKBColorKeyGrayKeyDarkBackground", 0x6b6f76, 1},
};

// Names that only the library gives to its own colours. The system knows neither, and answers NULL.
constexpr std::string_view unknown_to_the_system[] = {"UIKBColorText", "UIKBColorHighlight"};

/// "UIKBColorBlack_Alpha30" is black at 30 percent; so with every opaque colour of the table, 1 to 99.
std::optional<double> alpha_of_suffix(std::string_view suffix) {
    constexpr auto lead = "_Alpha"sv;
    if (!suffix.starts_with(lead)) return std::nullopt;
    suffix.remove_prefix(lead.size());
    int percent = 0;
    auto [end, failure] = std::from_chars(suffix.data(), suffix.data() + suffix.size(), percent);
    if (failure != std::errc() || end != suffix.data() + suffix.size() || percent < 1 || percent > 99)
        return std::nullopt;
    return percent / 100.0;
}

std::optional<NamedColor> color_named(std::string_view name) {
    for (const NamedColor& color : named_colors) {
        if (name == color.name) return color;
        if (color.alpha != 1 || !name.starts_with(color.name)) continue;
        if (auto alpha = alpha_of_suffix(name.substr(color.name.size())))
            return NamedColor{name, color.rgb, *alpha};
    }
    return std::nullopt;
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
        auto color = color_named(text);
        if (!color) sim::not_modelled("UIKBGetNamedColor", "no colour is named \"" + std::string(text) + '"');
        known = made.emplace(text, make(*color)).first;
    }
    return known->second->CGColor();
}

constinit sim::HookableFunction named_color("UIKBGetNamedColor", &UIKBGetNamedColor, &system_named_color);
[[gnu::used, gnu::section("hookable_functions")]] constinit sim::Hookable* const listed = &named_color;

}  // namespace

SIM_EXPORTED CGColorRef UIKBGetNamedColor(NSString* name) { return named_color(name); }
