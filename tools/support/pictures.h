// Pictures as files on this machine. All of it needs a phone that is on.
#pragma once
#include <filesystem>

#include "platform/uikit.h"

namespace tools {

/// One point to a pixel.
UIImage* read_picture(const std::filesystem::path& png);

void write_picture(UIImage* picture, const std::filesystem::path& png);

}  // namespace tools
