// The phone's time, which passes only when it is told to.
#pragma once

namespace sim {

/// Seconds since boot.
double clock_now();

}  // namespace sim
