// The libraries that a process on iOS 12.0 offers to an image.
#pragma once
#include <cstdint>
#include <string_view>

namespace macho {

struct OfferedLibrary {
    std::string_view install_name;
    uint32_t compatibility_version;
    uint32_t minimum_system;  ///< that it is made for itself
};

/// A row of device/libraries.txt; null for a library that it does not list.
const OfferedLibrary* system_library(std::string_view install_name);

}  // namespace macho
