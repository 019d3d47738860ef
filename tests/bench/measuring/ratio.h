// One measurement: what is measured, what it is measured against, and how much more it may cost.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "measured.h"

namespace bench {

/// What is counted beside the time, and how much of it is allowed.
struct Counted {
    const char* what;
    size_t counted, allowed;
};

struct Ratio {
    std::string what;
    std::string against;
    /// What `what` may cost, in costs of `against`; nothing for a figure that is only reported.
    std::optional<double> limit = {};
    /// Seconds.
    Measured cost = {}, cost_against = {};
    std::optional<Counted> counted = {};
    /// Why the limit is exceeded, where that is known. Such a row is marked like any other, but does not fail
    /// the benchmark.
    const char* known = nullptr;

    Measured value() const {
        return {cost.value / cost_against.value, cost.low / cost_against.high, cost.high / cost_against.low};
    }
    bool is_slow() const { return limit && value() > *limit; }
    bool counts_too_many() const { return counted && counted->counted > counted->allowed; }
    bool fails() const { return counts_too_many() || (is_slow() && !known); }
};

// Each adds its rows. Those of the first group measure in processes of their own, and come before a phone is
// booted in this one.
void measure_startup(std::vector<Ratio>&);
void measure_backdrops(std::vector<Ratio>&);
void measure_keyboard_pictures(std::vector<Ratio>&);
void measure_command(std::vector<Ratio>&);
void measure_opening(std::vector<Ratio>&);
void measure_pane(std::vector<Ratio>&);

void measure_colours(std::vector<Ratio>&);
void measure_hooks(std::vector<Ratio>&);
void measure_gradients(std::vector<Ratio>&);
void measure_averages(std::vector<Ratio>&);
void measure_picker(std::vector<Ratio>&);  // which it leaves on the screen

}  // namespace bench
