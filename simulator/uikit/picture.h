// Pictures of views: what is on the screen, in pixels.
#pragma once
#include <string>

#include "coregraphics/cairo_handles.h"
#include "platform/uikit.h"

namespace sim {

/// Lays the view's tree out and draws it at `scale` pixels per point: an ARGB32 surface as large as the view's bounds,
/// transparent where nothing is drawn. The view's own position and transformation do not count. Null where there is
/// nothing to draw into: no view, an empty or endless size, a scale that is not positive.
Surface picture_of(UIView*, CGFloat scale);

/// The same, as a PNG file at a path of the host. False, with a line that says why, when that fails.
bool write_picture(UIView*, CGFloat scale, const std::string& path, std::string& error);

}  // namespace sim
