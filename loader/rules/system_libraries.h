// The libraries that a process on iOS 12.0 offers to an image.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace macho {

struct OfferedLibrary {
    uint32_t compatibility_version;
    uint32_t minimum_system;  ///< that the library itself is made for
};

/// A row of device/libraries.txt; nothing for a library that it does not list.
std::optional<OfferedLibrary> system_library(std::string_view install_name);

}  // namespace macho
