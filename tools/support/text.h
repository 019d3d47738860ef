// Texts between C++ and Foundation.
#pragma once
#include <string>

#include "platform/foundation.h"

namespace tools {

/// nil when it is not UTF-8.
inline NSString* text(const std::string& utf8) { return NSString::stringWithUTF8String(utf8.c_str()); }

/// "" for nil.
inline std::string utf8(NSString* string) { return string ? string->UTF8String() : ""; }

}  // namespace tools
