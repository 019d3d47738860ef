// A touch's phase by the C interface's number.
#pragma once
#include <string>

#include "interface/refusal.h"
#include "platform/application.h"
#include "simulator.h"

namespace sim {

/// Throws Refusal, in the function's name, where there is no such phase.
inline UITouchPhase touch_phase(int phase, const char* function) {
    switch (phase) {
        case SIM_TOUCH_BEGAN: return UITouchPhaseBegan;
        case SIM_TOUCH_MOVED: return UITouchPhaseMoved;
        case SIM_TOUCH_ENDED: return UITouchPhaseEnded;
        case SIM_TOUCH_CANCELLED: return UITouchPhaseCancelled;
    }
    throw Refusal(SIM_MISUSE, std::string(function) + ": there is no phase " + std::to_string(phase));
}

}  // namespace sim
