// Pictures of the screen, as files.
#pragma once
#include <string>

#include "platform/uikit.h"

namespace sim {

/// Lays the view's tree out, draws it on black at `scale` pixels per point (0 is the screen's) and writes
/// that to a path of the host, as PNG. The view's own position and transformation do not count. False when
/// there is nothing to draw into or the file cannot be written; `error` then says so in one line.
bool write_picture(UIView*, CGFloat scale, const std::string& path, std::string& error);

}  // namespace sim
