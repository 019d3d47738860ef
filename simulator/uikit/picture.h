// Pictures of the screen, as files.
#pragma once
#include <string>

#include "platform/uikit.h"

namespace sim {

/// What a picture shows where nothing is drawn.
enum class PictureGround { black, transparent };

/// Lays the view's tree out, draws it at `scale` pixels per point (0 is the screen's) and writes that to a
/// path of the host, as PNG. The view's own position and transformation do not count. False when there is
/// nothing to draw into or the file cannot be written; `error` then says so in one line.
bool write_picture(UIView*, PictureGround, CGFloat scale, const std::string& path, std::string& error);

}  // namespace sim
