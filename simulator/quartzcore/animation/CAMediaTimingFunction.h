// The curves that animations go by.
#pragma once
#include "platform/animation.h"
#include "quartzcore/animation/timing.h"

namespace sim {

/// nil is linear.
Timing timing_of(CAMediaTimingFunction*);

/// "linear", "easeIn", "easeOut", "easeInEaseOut", "default"; stops the process for any other name.
Timing timing_named(const char* name);

}  // namespace sim
