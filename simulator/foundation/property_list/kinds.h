// What an object is to a property list.
#pragma once
#include <vector>

#include "platform/foundation.h"

namespace sim::plist {

inline bool is_kind(id object, const char* class_name) {
    return static_cast<NSObject*>(object)->isKindOfClass(objc_getClass(class_name));
}

enum class NumberKind { boolean, integer, unsigned_integer, real, single_real };

/// Booleans are the two that numberWithBool: makes.
NumberKind number_kind(id number);

std::vector<id> elements_of(id array);

/// By their UTF-16 units. All keys are strings.
std::vector<id> sorted_keys_of(id dictionary);

}  // namespace sim::plist
