#include "loader/format/versions.h"

#include "loader/format/format.h"

namespace macho {

std::string version_text(uint32_t version) {
    std::string text = std::to_string(version >> 16) + "." + std::to_string(version >> 8 & 0xff);
    if (const uint32_t patch = version & 0xff) text += "." + std::to_string(patch);
    return text;
}

std::string platform_text(uint32_t platform) {
    switch (platform) {
        case PLATFORM_MACOS: return "macOS";
        case PLATFORM_IOS: return "iOS";
        case PLATFORM_TVOS: return "tvOS";
        case PLATFORM_WATCHOS: return "watchOS";
        case PLATFORM_IOSSIMULATOR: return "the iOS simulator";
        case PLATFORM_TVOSSIMULATOR: return "the tvOS simulator";
        case PLATFORM_WATCHOSSIMULATOR: return "the watchOS simulator";
        default: return "platform " + std::to_string(platform);
    }
}

}  // namespace macho
