// What a backdrop draws for the code of its style.
#pragma once
#include "keyboard/backdrop_styles.h"
#include "platform/uikit.h"

namespace sim {

/// nil for a style without a material: -2, and every code that is not in backdrop_styles.h, since what the
/// system draws for those is a blur, which the model does not have.
UIColor* backdrop_material(NSInteger style);

}  // namespace sim
