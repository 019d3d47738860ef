// One picture of all themes.
#pragma once
#include <filesystem>

namespace resources {

/// Draws the library's preview of each theme in `folder`/themes, with its name below, into
/// `folder`/themes.png. The previews are made of the pictures in `folder`/Huecraft.bundle. `phone` plays the
/// device's file system.
void draw_themes_picture(const std::filesystem::path& phone, const std::filesystem::path& folder);

}  // namespace resources
