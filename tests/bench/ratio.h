// One measurement: what is measured, what it is measured against, and how much more it may cost.
#pragma once
#include <string>
#include <vector>

namespace bench {

struct Ratio {
    std::string what;
    std::string against;
    /// What `what` may cost, in costs of `against`.
    double limit;
    /// Seconds.
    double cost = 0, cost_against = 0;
    /// Allocations of one call, and how many are allowed; not counted when negative.
    long allocations = -1, allowed_allocations = -1;
};

/// Adds the measured ratios of the colour tools, the hooks and the start.
void measure_colours(std::vector<Ratio>&);
void measure_hooks(std::vector<Ratio>&);
void measure_startup(std::vector<Ratio>&);

/// The seconds that one call of `work` takes, and of `other`: medians of interleaved runs.
void compare(Ratio& ratio, void (*work)(), void (*other)());

}  // namespace bench
