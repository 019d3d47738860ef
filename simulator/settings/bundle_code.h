// The code of preference bundles.
#pragma once
#include <functional>
#include <string>

#include "platform/services.h"

namespace sim {

/// Loads a library that lies at that path of the device, if it is not loaded yet, and puts its classes into
/// the bundle. False, and why, when it cannot be loaded.
using LoadCode =
    std::function<bool(const std::string& device_path, const std::string& bundle, std::string& error)>;

/// What the interface to the outside loads libraries with; set before Settings is opened.
void load_bundles_with(LoadCode);

/// Loads the bundle's executable. False, and why, when there is none, or it cannot be loaded.
bool load_bundle(NSBundle*, std::string& error);

}  // namespace sim
