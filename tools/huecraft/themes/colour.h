// Colours as the command computes with them, and the system's.
#pragma once
#include "platform/uikit.h"
#include "readability/colour.h"

namespace command {

using namespace readability;
using readability::colour_of;

Colour colour_of(UIColor* color);
UIColor* ui_color(const Colour& colour);

}  // namespace command
