#include "quartzcore/animation/clock.h"

#include <algorithm>

#include "quartzcore/animation/running_animations.h"

namespace sim {
namespace {

double& now() {
    static double seconds = 0;
    return seconds;
}

}  // namespace

double clock_now() { return now(); }

bool advance_clock_to(double moment) {
    constexpr int most_at_once = 100'000;
    int at_once = 0;
    for (double next = next_ending(); next <= moment; next = next_ending()) {
        at_once = next > now() ? 0 : at_once + 1;
        if (at_once > most_at_once) return false;
        now() = std::max(now(), next);
        end_one();
    }
    now() = moment;
    return true;
}

}  // namespace sim
