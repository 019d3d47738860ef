// Where the fields are that tests damage, in bytes from the start of a load command or of a section's row.
#pragma once
#include <cstddef>

namespace loader_test {

constexpr size_t kCommandSize = 4;
/// Of a segment's load command.
constexpr size_t kAddress = 24, kSize = 32, kFileOffset = 40, kFileSize = 48, kMostAccess = 56, kAccess = 60,
                 kSectionCount = 64;
/// Of a section's row.
constexpr size_t kSectionAddress = 32, kSectionSize = 40, kSectionOffset = 48, kSectionFlags = 64;

}  // namespace loader_test
