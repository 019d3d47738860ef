// Commands whose cost has a figure in seconds for its limit.
#pragma once
#include "process.h"
#include "ratio.h"

namespace bench {

/// The command's processor time against a figure in seconds. An exit status above `worst_status` stops the
/// benchmark.
Ratio against_figure(const std::string& what, double seconds, const Command& command, int worst_status = 0);

}  // namespace bench
