// One picture of several: for a first look.
#pragma once
#include <filesystem>
#include <vector>

namespace demo {

/// Puts the pictures of a phone's screen side by side and writes them as one. Needs a phone that is on.
void write_overview(const std::vector<std::filesystem::path>& pictures,
                    const std::filesystem::path& overview);

}  // namespace demo
