// NSString objects and C++ text.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation.h"

namespace sim {

/// The string as UTF-8, zero bytes included. Nothing for nil, and for a string that holds half of a
/// character, which Foundation's own conversion raises an exception for.
std::optional<std::string> utf8_of(NSString* string);

/// The string's UTF-16 units.
std::u16string units_of(NSString* string);

/// An autoreleased string; nil for what is not UTF-8.
NSString* string_of(std::string_view utf8);

}  // namespace sim
