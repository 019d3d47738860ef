// Theme and preference files for tests, written as property lists by hand: what the library must read.
#pragma once
#include <string>
#include <string_view>

#include "support/phone.h"

namespace test {

/// An XML property list around the XML of its root.
std::string property_list(std::string_view root);

/// A gradient theme: text #00FF00, highlight #FF8000, black and red, direction 7. `more` is XML of further
/// keys.
std::string theme(std::string_view more = "");

/// Writes the preference file, and the theme that it names.
void arrange_theme(const Phone& phone, bool enabled = true, std::string_view more_of_theme = "");

/// Writes the preference file, and a theme that it names which holds exactly what the XML says.
void arrange_theme_of(const Phone& phone, std::string_view xml_of_dictionary);

/// The theme that the store answers from; its setters change what hooks see.
id active_theme();
/// Gives the active theme a text and a highlight colour.
void recolour_theme(UIColor* text, UIColor* highlight);

/// The theme's colours as read back.
inline constexpr Rgba theme_text{0, 1, 0, 1};
inline constexpr Rgba theme_highlight{1, 128 / 255.0, 0, 1};

}  // namespace test
