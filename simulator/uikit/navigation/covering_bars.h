// Bars that cover views.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// How far down the window a navigation bar reaches over the page that the view is in; 0 for none.
CGFloat bar_bottom_above(UIView*);

}  // namespace sim
