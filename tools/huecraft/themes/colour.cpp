#include "themes/colour.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "model/HCCITool.h"
#include "support/text.h"

namespace command {
namespace {

int byte_of(double component) { return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255)); }

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

}  // namespace

std::optional<Colour> colour_of(const std::string& hex) {
    const std::string digits = hex.starts_with('#') ? hex.substr(1) : hex;
    if ((digits.size() != 6 && digits.size() != 8) ||
        digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return std::nullopt;
    auto component = [&](size_t pair) { return std::stoi(digits.substr(2 * pair, 2), nullptr, 16) / 255.0; };
    return Colour{component(0), component(1), component(2), digits.size() == 8 ? component(3) : 1};
}

Colour colour_of(UIColor* color) {
    Colour colour;
    color->getRGB(&colour.red, &colour.green, &colour.blue, &colour.alpha);
    return colour;
}

// Through the text, which is what a theme keeps: reckoning with components would lose one of 255 here and
// there.
UIColor* ui_color(const Colour& colour) { return HCCITool::colorFromHexString(tools::text(hex_of(colour))); }

std::string hex_of(const Colour& c) {
    char text[16];
    if (byte_of(c.alpha) == 255)
        std::snprintf(text, sizeof text, "#%02X%02X%02X", byte_of(c.red), byte_of(c.green), byte_of(c.blue));
    else
        std::snprintf(text, sizeof text, "#%02X%02X%02X%02X", byte_of(c.red), byte_of(c.green),
                      byte_of(c.blue), byte_of(c.alpha));
    return text;
}

Colour over(const Colour& upper, const Colour& opaque) {
    auto mix = [&](double above, double below) { return below + (above - below) * upper.alpha; };
    return {mix(upper.red, opaque.red), mix(upper.green, opaque.green), mix(upper.blue, opaque.blue), 1};
}

double luminance(const Colour& c) {
    return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
}

double contrast_of_luminances(double a, double b) {
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

double contrast(const Colour& a, const Colour& b) {
    return contrast_of_luminances(luminance(a), luminance(b));
}

}  // namespace command
