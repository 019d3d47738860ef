// What a backdrop draws for the code of its style.
#pragma once
#include "keyboard/backdrops/backdrop_styles.h"
#include "platform/uikit.h"

namespace sim {

struct BackdropMaterial {
    /// Drawn over what is blurred; nil draws nothing.
    UIColor* color;
    /// In points; 0 leaves what lies behind as it is.
    CGFloat blur_radius;
};

/// Without colour and blur for -2 and for every code that is not in backdrop_styles.h. The keyboards' own
/// materials are opaque, so that nothing is blurred below them. The figures are the model's own.
BackdropMaterial backdrop_material(NSInteger style);

}  // namespace sim
