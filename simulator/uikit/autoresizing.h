// How a subview follows its superview's size.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// The subview's frame after its superview's bounds went from one size to another. What may grow shares the
/// change in the proportions that it had; without any the frame stays.
CGRect autoresized(CGRect frame, UIViewAutoresizing mask, CGSize from, CGSize to);

}  // namespace sim
