// The phone's time, which passes only when a caller advances it.
#pragma once

namespace sim {

/// Seconds since boot.
double clock_now();

/// Lets time pass until that moment. What ends on the way ends in its order and at its time, and whatever
/// waits for it is notified then. False when ends and beginnings go on without time passing; the clock has
/// stopped there.
bool advance_clock_to(double moment);

}  // namespace sim
