// The descriptions that come with the command.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "doctor/device_description.h"

namespace command {

/// Their names, the oldest system first: "11.0", "12.0-beta", "12.0".
std::vector<std::string> described_systems();

/// A file that they come from.
std::filesystem::path description_file(const std::string& system);

/// Of one of these systems, or of any other file's. Throws Unusable.
DeviceDescription description_of_system(const std::string& system);
DeviceDescription description_in_file(const std::string& file);

}  // namespace command
