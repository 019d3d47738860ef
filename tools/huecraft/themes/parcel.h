// Themes on their way to a phone: read once, and known to be themes.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/workshop.h"

namespace command {

/// A theme's file as it arrives.
struct ParcelledTheme {
    std::string file;  ///< where it was read
    std::string name;  ///< of the file on the phone, "Midnight.plist"
    std::string title;
    std::string contents;

    std::string stem() const { return name.substr(0, name.size() - 6); }
};

/// Reads the themes. Whatever is not a theme, has errors in its values or a name that no phone should have is
/// complained of; then the answer is nothing. Needs a phone that is on, with the library.
std::optional<std::vector<ParcelledTheme>> parcel(const Workshop& workshop,
                                                  const std::vector<std::string>& files);

}  // namespace command
