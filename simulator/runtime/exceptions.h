// Objective-C exceptions as code of the device catches them.
#pragma once
#include <string_view>

#include "objc/runtime.h"

namespace sim {

/// What a handler's table points to: the class of what it catches, as OBJC_EHTYPE_$_NSException. A compiler
/// writes such a structure itself for classes that do not say that they are exceptions.
struct CaughtType {
    const void* const* functions;
    const char* class_name;
    Class type;  ///< not looked at: in a library's own structure it is the library's own
};

/// The structure for a class of the system; null where there is no such class.
const CaughtType* caught_type(std::string_view class_name);

}  // namespace sim
