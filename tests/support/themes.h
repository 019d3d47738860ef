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

/// The theme's colours as read back.
inline constexpr Rgba theme_text{0, 1, 0, 1};
inline constexpr Rgba theme_highlight{1, 128 / 255.0, 0, 1};

}  // namespace test
