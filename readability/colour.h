// Colours as numbers: their texts, what lies over what, and contrast. Without the system's classes, so that
// the command and the settings pane judge themes by the same code.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace readability {

/// From 0 to 1, not multiplied by alpha.
struct Colour {
    double red = 0, green = 0, blue = 0, alpha = 1;
    friend bool operator==(const Colour&, const Colour&) = default;
};

/// "#RRGGBB" or "#RRGGBBAA", with "#" or without: what the library reads as it is written. Nothing else: the
/// library takes "12#456" too, for a colour that nobody meant.
std::optional<Colour> colour_of(std::string_view hex);

/// "#RRGGBB", or with alpha where it is not opaque; to the nearest.
std::string hex_of(const Colour& colour);

/// As such a text keeps it: to the nearest of 256 steps.
Colour rounded(const Colour& colour);

/// What is seen where `upper` lies over an opaque colour.
Colour over(const Colour& upper, const Colour& opaque);

/// The contrast ratio of two opaque colours, from 1 to 21, as WCAG 2 defines it.
double contrast(const Colour& a, const Colour& b);

/// A component of sRGB in linear light.
double linear(double component);

/// Relative luminance as WCAG 2 defines it, from 0 to 1, and the contrast of two of them.
double luminance(const Colour& opaque);
double contrast_of_luminances(double a, double b);

}  // namespace readability
