// Bundles of the device: folders with Info.plist, resources and translations beside each other.
#pragma once
#include <string>
#include <string_view>

#include "platform/foundation.h"

namespace sim {

/// Gives Foundation's NSBundle the device's layout and the user's language. Called once, at boot.
void correct_bundles(const std::string& language);

/// From now on +bundleForClass: answers that folder of the device for the class.
void put_class_into_bundle(std::string_view class_name, const std::string& bundle_path);

}  // namespace sim
