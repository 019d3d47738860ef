// Versions as the format packs them (16 bits, and twice 8) and platforms, in words.
#pragma once
#include <cstdint>
#include <string>

namespace macho {

constexpr uint32_t packed_version(uint32_t major, uint32_t minor = 0, uint32_t patch = 0) {
    return major << 16 | minor << 8 | patch;
}

/// "12.0", "1252.200.5".
std::string version_text(uint32_t version);

/// "iOS", "the iOS simulator", "platform 42".
std::string platform_text(uint32_t platform);

}  // namespace macho
