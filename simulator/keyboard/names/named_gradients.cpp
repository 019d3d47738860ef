// UIKBGetNamedLinearGradient: the keyboard's gradients, by name. The library does not replace it.
#include <array>
#include <iterator>
#include <map>
#include <string_view>

#include "platform/keyboard.h"
#include "runtime/exported.h"

namespace {

struct NamedGradient {
    std::string_view name;
    unsigned top, bottom;
};

// The names that iOS 12.0 to 12.4 export. Every value is a guess: no description has them, and the model
// draws no key with one.
constexpr NamedGradient named_gradients[] = {
    {"UIKBColorCandidateBarBackgroundGradient", 0xf7f7f7, 0xe1e1e1},
    {"UIKBColorCandidateListBackgroundGradient", 0xf7f7f7, 0xe1e1e1},
    {"UIKBColorHandwritingBackgroundGradient", 0xfafafa, 0xf0f0f0},
    {"UIKBColorHandwritingTransparentBackgroundGradient", 0xfafafa, 0xf0f0f0},
    {"UIKBColorKeyPhoneKeyplaneSwitchActiveGradient", 0xb4bbc4, 0x8c96a3},
    {"UIKBColorWhiteBackgroundGradient", 0xffffff, 0xf2f2f2},
    {"UIKBColorWildcatBarActiveGradient", 0x66acff, 0x007aff},
    {"UIKBColorWildcatKeyActiveBlueGradient", 0x66acff, 0x007aff},
    {"UIKBColorWildcatKeyActiveGradient", 0xb4bbc4, 0x8c96a3},
    {"UIKBColorWildcatKeyGradient", 0xffffff, 0xe6e8eb},
};
static_assert(std::size(named_gradients) == 10);

CGGradientRef make(const NamedGradient& gradient) {
    auto component = [](unsigned rgb, int shift) { return (rgb >> shift & 255) / 255.0; };
    std::array<CGFloat, 8> components;
    size_t next = 0;
    for (const unsigned rgb : {gradient.top, gradient.bottom}) {
        for (const int shift : {16, 8, 0}) components[next++] = component(rgb, shift);
        components[next++] = 1;
    }
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGGradientRef made = CGGradientCreateWithColorComponents(space, components.data(), nullptr, 2);
    CGColorSpaceRelease(space);
    return made;
}

}  // namespace

SIM_EXPORTED CGGradientRef UIKBGetNamedLinearGradient(NSString* name) {
    if (!name) return nullptr;
    // Kept for the life of the process: callers do not own what they are answered.
    static auto& made = *new std::map<std::string_view, CGGradientRef>;
    const std::string_view text = name->UTF8String();
    for (const NamedGradient& gradient : named_gradients) {
        if (gradient.name != text) continue;
        CGGradientRef& known = made[gradient.name];
        if (!known) known = make(gradient);
        return known;
    }
    return nullptr;
}
