#include "uikit/image_lookup.h"

#include "foundation/file_contents.h"

namespace sim {
namespace {

std::optional<std::vector<uint8_t>> contents_of(const std::string& device_path) {
    std::vector<uint8_t> contents;
    if (read_file(device_path, contents) != 0) return std::nullopt;
    return contents;
}

std::string density_suffix(int density) { return "@" + std::to_string(density) + "x"; }

}  // namespace

std::optional<PictureFile> find_picture(const std::string& device_path, double screen_scale) {
    const size_t slash = device_path.rfind('/');
    size_t dot = device_path.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) dot = device_path.size();
    const std::string stem = device_path.substr(0, dot), extension = device_path.substr(dot);

    double own_scale = 1;
    for (int density : {2, 3})
        if (stem.ends_with(density_suffix(density))) own_scale = density;
    if (own_scale == 1) {
        for (int density = static_cast<int>(screen_scale); density >= 2; --density)
            if (auto bytes = contents_of(stem + density_suffix(density) + extension))
                return PictureFile{std::move(*bytes), static_cast<double>(density)};
    }
    if (auto bytes = contents_of(device_path)) return PictureFile{std::move(*bytes), own_scale};
    return std::nullopt;
}

}  // namespace sim
