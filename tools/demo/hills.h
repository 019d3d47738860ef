// A picture for the image theme.
#pragma once
#include "platform/uikit.h"

namespace demo {

/// Green hills under a morning sun, drawn with the phone's own calls.
UIImage* draw_hills(CGSize size);

}  // namespace demo
