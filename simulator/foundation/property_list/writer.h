// Writing property lists as the device does.
#pragma once
#include <optional>
#include <string>

#include "platform/foundation.h"

namespace sim::plist {

/// What keeps an object from being written as a property list: the kind of thing found in it, for an error.
/// Nothing when it can be. Dictionaries have strings for keys; what stands in them is strings, numbers, data,
/// dates, arrays and dictionaries.
std::optional<std::string> fault_of(id object);

/// The XML form, with sorted keys. The object has no fault.
std::string xml_of(id object);

/// The binary form. The object has no fault.
std::string binary_of(id object);

}  // namespace sim::plist
