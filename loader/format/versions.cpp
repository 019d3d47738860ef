// Versions in words.
#include "loader/format/versions.h"

namespace macho {

std::string version_text(uint32_t version) {
    std::string text = std::to_string(version >> 16) + "." + std::to_string(version >> 8 & 0xff);
    if (const uint32_t patch = version & 0xff) text += "." + std::to_string(patch);
    return text;
}

}  // namespace macho
