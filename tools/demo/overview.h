// One picture of several: for a first look.
#pragma once
#include <filesystem>
#include <vector>

namespace demo {

/// Puts the pictures of a phone's screen side by side and writes them as one. Needs a phone that is on.
void write_overview(const std::vector<std::filesystem::path>& pictures,
                    const std::filesystem::path& overview);

/// The keyboards of the pictures, one below the other and as wide as a phone's screen, which is where it can
/// still be read.
void write_keyboards(const std::vector<std::filesystem::path>& pictures,
                     const std::filesystem::path& keyboards);

}  // namespace demo
