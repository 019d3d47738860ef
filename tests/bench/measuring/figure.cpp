// Commands whose cost has a figure in seconds for its limit.
#include "figure.h"

#include "timing.h"

namespace bench {

Ratio against_figure(const std::string& what, double seconds, const Command& command, int worst_status) {
    constexpr int rounds = 11;
    std::vector<double> costs;
    for (int round = 0; round < rounds; ++round) costs.push_back(run(command, worst_status).processor);
    return {.what = what,
            .against = "a figure, which is not measured",
            .limit = 1,
            .cost = undisturbed(costs),
            .cost_against = seconds};
}

}  // namespace bench
