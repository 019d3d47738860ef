// Running main executables that are built for the device.
#pragma once
#include <string>
#include <vector>

namespace sim {

/// Runs what lies at the path of the device in this process, which claims to have these arguments; the first
/// one is what it claims to be. Returns its exit status. Throws a Refusal.
int run_executable(const std::string& device_path, const std::vector<std::string>& arguments);

/// The device's path of what is run; empty before.
const std::string& running_executable();

}  // namespace sim
