// Icons: of the colour picker's copy and paste buttons, and of the row in Settings.
#pragma once
#include <filesystem>

namespace resources {

/// Draws copy.png and paste.png into the folder: 60 x 60 pixels, which the picker scales to 20 x 20 points,
/// in black on nothing, of which only the shape counts.
void draw_icons(const std::filesystem::path& phone, const std::filesystem::path& folder);

/// Draws icon.png, icon@2x.png and icon@3x.png into the folder: 29 points, a key before a theme's gradient.
/// Settings rounds no corners itself.
void draw_settings_icons(const std::filesystem::path& phone, const std::filesystem::path& folder);

}  // namespace resources
