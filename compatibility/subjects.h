// What a description is about: the lists that CMake makes of compatibility/subjects.txt.
#pragma once
#include <span>

namespace compatibility {

std::span<const char* const> described_classes();
std::span<const char* const> described_functions();

}  // namespace compatibility
