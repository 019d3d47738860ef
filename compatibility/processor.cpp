#include "compatibility/processor.h"

#include <cstddef>

extern "C" int sysctlbyname(const char* name, void* value, size_t* size, const void* new_value,
                            size_t new_size);

namespace compatibility {

const char* processor() {
    constexpr int arm64 = 0x0100000c, arm64e = 2, x86_64 = 0x01000007;
    int type = 0, subtype = 0;
    size_t size = sizeof type;
    if (sysctlbyname("hw.cputype", &type, &size, nullptr, 0) != 0) return "unknown";
    size = sizeof subtype;
    if (sysctlbyname("hw.cpusubtype", &subtype, &size, nullptr, 0) != 0) return "unknown";
    if (type == x86_64) return "x86_64";
    if (type != arm64) return "unknown";
    return subtype == arm64e ? "arm64e" : "arm64";
}

}  // namespace compatibility
