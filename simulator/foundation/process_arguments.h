// The argument vector that the process claims to have.
#pragma once
#include <string>
#include <vector>

namespace sim {

enum class ClaimedArguments {
    executable,  ///< the executable's path alone
    none,        ///< no element at all
    nil,         ///< one element, which is nil
};

/// Starts Foundation with the executable's path as what was run, and makes NSProcessInfo answer the
/// arguments. Comes before anything else that touches Foundation.
void start_foundation(const std::string& executable, ClaimedArguments);

/// From now on the process claims to have these.
void claim_arguments(const std::vector<std::string>& arguments);

}  // namespace sim
