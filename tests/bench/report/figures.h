// The figures of a run, as others read them and as later runs are compared with them.
#pragma once
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "measuring/cost.h"
#include "measuring/ratio.h"

namespace bench {

struct Figure {
    /// Unique together with the unit.
    std::string name;
    /// "ratio", "seconds", "instructions", "bytes", or what was counted.
    std::string unit;
    Measured value;
};

/// All that one run measured, and the processor that it ran on, as the kernel names it.
struct Measurements {
    std::string processor;
    std::vector<Figure> figures;
};

/// What the rows say, with the ranges.
Measurements run_of(const std::vector<Ratio>&, const std::vector<Cost>&);

/// {"format": 1, "processor": ..., "figures": [{"name", "unit", "value", "low", "high"}...]}
std::string json_of(const Measurements&);

/// A file that is not what json_of writes: the message names it, the place, and what was expected.
struct UnreadableRun : std::runtime_error {
    using std::runtime_error::runtime_error;
};
Measurements read_run(const std::filesystem::path& file);

}  // namespace bench
