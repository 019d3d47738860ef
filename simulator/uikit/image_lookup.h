// Picture files of the device, and their variants for denser screens.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct PictureFile {
    std::vector<uint8_t> bytes;
    /// Pixels per point, as the name says: "icon@2x.png" has 2, a plain name 1.
    double scale;
};

/// Reads the file at a path of the device or, for a path that names no density itself, the variant beside it
/// that suits the screen: its own density, then lower ones, then the plain file. Nothing where there is none.
std::optional<PictureFile> find_picture(const std::string& device_path, double screen_scale);

}  // namespace sim
