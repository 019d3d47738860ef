// A picture in place of a photo.
#pragma once
#include "platform/uikit.h"

namespace demo {

/// An evening by the sea: with bright and dark parts, as photos have, so that no label can be read everywhere
/// without help. 1600 by 1200 pixels.
UIImage* draw_photo();

}  // namespace demo
