// What is built for the device, mapped into this process: a library or a main executable.
#pragma once
#include <string>
#include <vector>

#include "loader/image.h"

namespace sim {

struct LoadedImage {
    macho::Image image;
    std::vector<std::string> classes;  ///< those that it defined, sorted
};

/// Maps and binds the image and makes its classes classes of the runtime; nothing of it has run. `contents`
/// are the file's. Throws macho::Error.
LoadedImage load_image(const std::string& host_path, std::string contents, macho::FileType type);

}  // namespace sim
