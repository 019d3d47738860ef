// How much a property list may hold: more than any theme does, and little enough for the time and memory at
// hand.
#pragma once
#include <cstdint>
#include <string>

#include "platform/foundation.h"

namespace command {

// A theme has a dozen values. What holds a hundred thousand is refused before it is read, and so is what
// unfolds to as many because its parts stand in several places. Both throw Unusable, naming the file.
constexpr uint64_t most_values = 100'000;
/// What is done with themes takes longer, for each value.
constexpr uint64_t most_values_of_a_theme = 5'000;

/// Before the list is read.
void require_moderate(const std::string& bytes, const std::string& file);
/// When it has been.
void require_moderate(id root, const std::string& file, uint64_t most = most_values);

}  // namespace command
