// How pictures are turned for display.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// UIKit's number of an EXIF orientation, 1 to 8.
UIImageOrientation orientation_of_exif(int number);

/// Whether width and height change places.
bool is_turned_sideways(UIImageOrientation);

/// From the unit square of the bitmap to the unit square of what is displayed, both y down.
CGAffineTransform upright(UIImageOrientation);

}  // namespace sim
