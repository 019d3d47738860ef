// The processor of the device that this process runs on.
#pragma once

namespace compatibility {

/// As the processor says it, whatever the caller was built for: "arm64", "arm64e", "x86_64" or "unknown".
const char* processor();

}  // namespace compatibility
