// Pictures of the screen, as files.
#pragma once
#include <string>

#include "platform/uikit.h"

namespace sim {

/// What a picture shows where nothing is drawn.
enum class PictureGround { black, transparent };

/// Lays the view's tree out and draws it at `scale` pixels per point (0 is the screen's). The view's own
/// position and transformation do not count. NULL when there is nothing to draw into; `error` then says so in
/// one line.
objc::strong<CGContext> drawn_view(UIView*, PictureGround, CGFloat scale, std::string& error);

/// The same, written to a path of the host as PNG. False when there is nothing to draw into or the file
/// cannot be written.
bool write_picture(UIView*, PictureGround, CGFloat scale, const std::string& path, std::string& error);

}  // namespace sim
