// The rows of a run, for a terminal.
#pragma once
#include <string>
#include <vector>

#include "measuring/cost.h"
#include "measuring/ratio.h"

namespace bench {

/// In the unit that each is easily read in: "12.5 us", "1.5 KB".
std::string time_in_words(double seconds);
std::string bytes_in_words(double bytes);

void print(const std::vector<Ratio>&);
void print(const std::vector<Cost>&);

}  // namespace bench
