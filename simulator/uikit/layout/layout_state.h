// What layout by constraints keeps of a view.
#pragma once
#include <string>
#include <vector>

#include "platform/uikit.h"

namespace sim {

struct LayoutState {
    /// Frame and autoresizing mask say where the view is, and not constraints.
    bool translates_mask = true;
    /// The active constraints that the view holds, in the order of their activation.
    std::vector<objc::strong<NSLayoutConstraint>> constraints;
    /// How many active constraints involve the view, whichever view holds them.
    int naming = 0;
    /// By axis.
    UILayoutPriority hugging[2] = {UILayoutPriorityDefaultLow, UILayoutPriorityDefaultLow};
    UILayoutPriority compression[2] = {UILayoutPriorityDefaultHigh, UILayoutPriorityDefaultHigh};

    // What the last solution of its tree says.
    bool takes_part = false, has_solution = false, is_ambiguous = false;
    /// In the superview's coordinates, on whole pixels.
    CGRect solution{};

    // Of the topmost view of a tree.
    /// Something changed since the last solution.
    bool is_outdated = false;
    /// What the last solution had to report, so that it is not said twice.
    std::vector<std::string> reported;
};

}  // namespace sim
