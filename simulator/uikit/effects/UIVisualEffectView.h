// A view that shows effects, and what is put into its content view over them.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// What the view shows below its content: the model's only effect is a plain colour; nil shows nothing.
void show_effect(UIVisualEffectView* view, UIColor* color);

}  // namespace sim
