// Exceptions of the system.
#pragma once
#include <string>

#include "platform/foundation.h"

namespace sim {

/// Raises an NSException with that name and reason.
[[noreturn]] void raise(NSString* name, const std::string& reason);

}  // namespace sim
