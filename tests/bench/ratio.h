// One measurement: what is measured, what it is measured against, and how much more it may cost.
#pragma once
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// What one call allocates, and how much of it is allowed.
struct Allocations {
    size_t counted, allowed;
};

struct Ratio {
    std::string what;
    std::string against;
    /// What `what` may cost, in costs of `against`; nothing for a figure that is only told.
    std::optional<double> limit = {};
    /// Seconds.
    double cost = 0, cost_against = 0;
    /// Where they are counted.
    std::optional<Allocations> allocations = {};

    double value() const { return cost / cost_against; }
    bool is_kept() const {
        return (!limit || value() <= *limit) &&
               (!allocations || allocations->counted <= allocations->allowed);
    }
};

/// Adds the measured ratios of the colour tools, the hooks and the start.
void measure_colours(std::vector<Ratio>&);
void measure_hooks(std::vector<Ratio>&);
void measure_startup(std::vector<Ratio>&);

using Work = void (*)();

/// The seconds that one call of each takes, from interleaved runs.
std::vector<double> seconds_of(const std::vector<Work>& works);

/// The ratio with its costs measured: one call of `work` against one of `other`.
Ratio compared(Ratio ratio, Work work, Work other);

/// The cost that a quarter of the runs stay below. What disturbs a run only ever adds to it, so that this
/// says more on a busy machine than the median does.
double undisturbed(std::vector<double> costs);

}  // namespace bench
