// How long something takes on a machine that does other things meanwhile: rounds in turn, and the cost that a
// quarter of them stay below.
#pragma once
#include <functional>
#include <vector>

#include "objc/strong.h"
#include "ratio.h"

namespace bench {

/// Processor time of this process.
double processor_seconds();

/// The cost that a quarter of the runs stay below. What disturbs a run only ever adds to it, so that this
/// says more on a busy machine than the median does.
Measured undisturbed(std::vector<double> costs);
Measured median(std::vector<double> costs);

/// A hundred calls of something small, so that the call of the work itself does not count.
using SmallWork = void (*)();
template <auto Function>
void calls_of() {
    objc::AutoreleasePool pool;
    for (int i = 0; i < 100; ++i) Function();
}

/// The seconds that one call takes, for each.
std::vector<Measured> seconds_of(const std::vector<SmallWork>&);

/// The ratio with its costs measured: one call of `work` against one of `other`.
Ratio compared(Ratio ratio, SmallWork work, SmallWork other);

/// The seconds of each work in each round; in a round a work is called twice, in a pool of its own, and the
/// second call counts.
std::vector<std::vector<double>> rounds_of(int rounds, const std::vector<std::function<void()>>&);

/// The same as one figure for each: what they take undisturbed.
std::vector<Measured> seconds_of(int rounds, const std::vector<std::function<void()>>&);

}  // namespace bench
