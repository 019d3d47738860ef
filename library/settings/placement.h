// How the settings pane's views are put in their places.
#pragma once
#include "platform/uikit.h"

namespace settings {

/// Grows with the superview in both directions; from a frame of zero, it fills it.
constexpr UIViewAutoresizing growing = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;

inline void activate(NSLayoutConstraint* constraint) { constraint->setActive(true); }

inline void fix_size(UIView* view, CGSize size) {
    activate(view->heightAnchor()->constraintEqualToConstant(size.height));
    activate(view->widthAnchor()->constraintEqualToConstant(size.width));
}

}  // namespace settings
