// The filter that draws a layer in shades of one colour.
#pragma once
#include "platform/quartzcore.h"

namespace hooks {

/// Makes a monochrome filter the layer's only filter. A NULL colour is passed on.
void set_monochrome_filter(CALayer* layer, CGColorRef colour, float bias, float amount = 1.0f);

}  // namespace hooks
