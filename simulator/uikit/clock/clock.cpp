// The phone's time: see the header.
#include "uikit/clock/clock.h"

namespace sim {
namespace {

double& now() {
    static double seconds = 0;
    return seconds;
}

}  // namespace

double clock_now() { return now(); }

}  // namespace sim
