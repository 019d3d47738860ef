// The picture of the theme Dusk.
#pragma once
#include <filesystem>

namespace resources {

/// Draws ridges under an evening sky into the folder: Dusk.png, 750 x 520 pixels. `phone` is a folder that
/// plays the device's file system.
void draw_dusk(const std::filesystem::path& phone, const std::filesystem::path& folder);

}  // namespace resources
