// What became dearer from one run to another, beyond what the rounds of each vary by.
#pragma once
#include <string>
#include <vector>

#include "figures.h"

namespace bench {

struct Change {
    Figure then, now;
};

struct Comparison {
    /// Largest change first.
    std::vector<Change> dearer = {}, cheaper = {};
    /// Names and units of what only one of the runs has.
    std::vector<std::string> gone = {}, added = {};
    /// Seconds say nothing between two processors, and are not compared then.
    bool same_processor = true;
};

/// A figure has changed when the ranges have nothing in common, and when they are apart by more than what a
/// machine changes by from one run to the next: a twentieth for what is timed, a hundredth for bytes and
/// instructions, nothing for other counts. Where a ratio is known, its seconds are not compared. `in_part`:
/// only some subjects were measured now, and what is missing is not gone.
Comparison compare(const Measurements& then, const Measurements& now, bool in_part = false);

/// As lines, one for each change; says when there is none.
std::string in_words(const Comparison&);

}  // namespace bench
