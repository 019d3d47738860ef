// Figures of a long run: a table and a picture, and whether they are flat.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

namespace test {

/// What the process holds after so many repetitions.
struct Sample {
    size_t repetitions = 0;
    /// In allocations that were not given back.
    size_t bytes = 0;
    size_t descriptors = 0;
};

Sample sample_now(size_t repetitions);

/// By how many bytes each repetition made the process larger, from the first quarter's end on: the slope of
/// the line that fits best.
double growth(const std::vector<Sample>& samples);

/// `name`.tsv and `name`.svg.
void write_figures(const std::filesystem::path& folder, const std::string& name,
                   const std::vector<Sample>& samples);

}  // namespace test
