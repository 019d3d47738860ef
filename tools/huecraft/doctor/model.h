// The simulator's classes against the real system's.
#pragma once
#include <string>
#include <vector>

#include "doctor/device_description.h"

namespace command {

/// What the model of a phone has otherwise than the system: classes and members that the system lacks, or of
/// which nothing is recorded; superclasses; types. A line each, in the order of their names.
std::vector<std::string> model_differences(const std::map<std::string, ClassRecord>& model,
                                           const DeviceDescription& system);

}  // namespace command
