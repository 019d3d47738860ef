// The equations of a tree of views, and their solution.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// Solves the constraints of the tree below a topmost view, keeps in each view what they say of it, and
/// reports what they contradict each other in or leave open.
void solve_layout(UIView* top);

}  // namespace sim
