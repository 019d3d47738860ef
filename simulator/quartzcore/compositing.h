// How a layer is blended with what lies below it.
#pragma once
#include "platform/quartzcore.h"

namespace sim {

/// The blend mode of a layer's compositing filter, a name or a CAFilter of that name; normal for nil. Stops
/// the process for one that the model does not draw.
CGBlendMode blend_mode_of(id compositing_filter);

}  // namespace sim
