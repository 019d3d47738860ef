// What something costs by itself: a row of the table of costs.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "measured.h"

namespace bench {

struct Cost {
    /// What happens, and to what: "a keyboard appears for the first time", "gradient".
    std::string event, to;
    /// Processor time.
    std::optional<Measured> seconds = {};
    /// Counted by callgrind.
    std::optional<size_t> instructions = {};
    /// Of memory; the event says whether they are written to or held.
    std::optional<Measured> bytes = {};
    /// The size that a series of rows of one event goes by, in bytes; 0 where there is none.
    size_t size = 0;
};

// Each adds its rows, measured in processes of their own.
void measure_starts_and_appearances(std::vector<Cost>&);
void measure_image_sizes(std::vector<Cost>&);
void measure_pictures_a_second(std::vector<Cost>&);

}  // namespace bench
