// The colours of gradients, as layers take them.
#pragma once
#include "platform/uikit.h"

/// The CGColors of UIColors, in their order. A single one stands twice, so that it fills the layer evenly.
NSArray* gradient_layer_colours(NSArray* colours);
