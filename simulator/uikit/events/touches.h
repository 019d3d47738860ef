// The finger: hit testing finds what it touches, which gets the touches.
#pragma once
#include <string>
#include <vector>

#include "platform/application.h"

namespace sim {

/// Lays the screen out, then puts the finger down at that point of the screen, moves it there or lifts it.
/// False when there is nothing to touch, or the finger is not where the phase wants it; `error` then says so
/// in one line.
bool move_finger(UITouchPhase, CGPoint, std::string& error);

/// The same of two fingers at once, which land, move and are lifted together.
bool move_fingers(UITouchPhase, const std::vector<CGPoint>&, std::string& error);

/// Time has passed: a finger that is down may have become a long press.
void let_finger_wait();

/// Takes the finger away, if it is down, because what it touched is leaving the screen.
void cancel_touch();

}  // namespace sim
