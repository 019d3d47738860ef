// Commands as processes, and what they cost; ImageMagick's among them.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "measuring/keyboard_layers.h"

namespace bench {

using Command = std::vector<std::string>;

/// Of the process and those that it waited for.
struct Spent {
    double wall = 0, processor = 0;
    /// Of the largest of them.
    long peak_kilobytes = 0;
};

/// Runs the command to its end, without what it says on standard output. An exit status above `worst` stops
/// the benchmark.
Spent run(const Command& command, int worst = 0);

/// The command that has ImageMagick lay the layers over the background and write the picture, with options
/// for the picture's format.
Command compose(const std::filesystem::path& background, const std::vector<Layer>& layers,
                const Command& options, const std::filesystem::path& picture);

/// The simulator's PNG is quick rather than small: ImageMagick is set to do the same.
extern const Command quick_png;

}  // namespace bench
