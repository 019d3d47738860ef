// Both packages' files on a phone, as installing lays them out.
#pragma once
#include <filesystem>

#include "support/phone.h"

namespace test {

/// The library's pictures, and the pane's entry and bundle with this build of its image.
void lay_out_packages(const Phone& phone, const std::filesystem::path& pane);

}  // namespace test
