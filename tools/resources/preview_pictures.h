// The pictures that a preview of a theme is put together from.
#pragma once
#include <filesystem>

namespace resources {

/// Draws them into the folder, each for one, two and three pixels to a point. They are the keyboard's own
/// layers: what the library makes of a theme that shows nothing else.
///
///     PreviewKeyboardBackground.png   the system's keyboard without keys
///     PreviewKeyboardText.png         labels and glyphs, in black on nothing
///     PreviewKeyboardHighlight.png    the keys in the highlight colour: shift, held down, and go
///     PreviewKeyboardKeyCaps.png      the key caps
///
/// All have the size of the portrait keyboard's keys on a screen 375 points wide. The library stretches them
/// for others, and tints all but the first, of which only the shape counts. `phone` is a folder that plays
/// the device's file system.
void draw_preview_pictures(const std::filesystem::path& phone, const std::filesystem::path& folder);

}  // namespace resources
