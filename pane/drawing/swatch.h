// Colours as small pictures for rows.
#pragma once
#include "pane/huecraft.h"

namespace pane {

/// With a ring, so that white is seen on white; what is translucent lies over grey and white squares.
UIImage* swatch_of(UIColor* colour);

}  // namespace pane
