#include "readability/colour.h"

#include <algorithm>
#include <cmath>

namespace readability {
namespace {

constexpr std::string_view digits_of_hex = "0123456789ABCDEF";

int byte_of(double component) { return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255)); }

/// -1 for anything but a digit.
int value_of(char digit) {
    if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
    const size_t place = digits_of_hex.find(digit);
    return place == digits_of_hex.npos ? -1 : static_cast<int>(place);
}

double computed_light(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

}  // namespace

double linear(double component) {
    // Nearly all components are of pixels and of hex texts, one of 256 steps: each is computed once.
    static constinit double known[256]{};
    if (!(component >= 0 && component <= 1)) return computed_light(component);
    const auto step = static_cast<size_t>(component * 255 + 0.5);
    if (static_cast<double>(step) / 255 != component) return computed_light(component);
    double light;
    __atomic_load(&known[step], &light, __ATOMIC_RELAXED);
    if (light > 0) return light;
    light = computed_light(component);
    __atomic_store(&known[step], &light, __ATOMIC_RELAXED);
    return light;
}

std::optional<Colour> colour_of(std::string_view hex) {
    if (hex.starts_with('#')) hex.remove_prefix(1);
    if (hex.size() != 6 && hex.size() != 8) return std::nullopt;
    double components[4] = {0, 0, 0, 1};
    for (size_t pair = 0; pair < hex.size() / 2; ++pair) {
        const int high = value_of(hex[2 * pair]), low = value_of(hex[2 * pair + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        components[pair] = (16 * high + low) / 255.0;
    }
    return Colour{components[0], components[1], components[2], components[3]};
}

std::string hex_of(const Colour& colour) {
    std::string text = "#";
    auto append = [&](double component) {
        const int byte = byte_of(component);
        text += digits_of_hex[static_cast<size_t>(byte / 16)];
        text += digits_of_hex[static_cast<size_t>(byte % 16)];
    };
    for (const double component : {colour.red, colour.green, colour.blue}) append(component);
    if (byte_of(colour.alpha) != 255) append(colour.alpha);
    return text;
}

Colour rounded(const Colour& colour) {
    auto step = [](double component) { return byte_of(component) / 255.0; };
    return {step(colour.red), step(colour.green), step(colour.blue), step(colour.alpha)};
}

Colour over(const Colour& upper, const Colour& opaque) {
    auto mix = [&](double above, double below) { return below + (above - below) * upper.alpha; };
    return {mix(upper.red, opaque.red), mix(upper.green, opaque.green), mix(upper.blue, opaque.blue), 1};
}

double luminance(const Colour& opaque) {
    return 0.2126 * linear(opaque.red) + 0.7152 * linear(opaque.green) + 0.0722 * linear(opaque.blue);
}

double contrast_of_luminances(double a, double b) {
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

double contrast(const Colour& a, const Colour& b) {
    return contrast_of_luminances(luminance(a), luminance(b));
}

}  // namespace readability
