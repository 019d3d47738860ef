// The page of a gallery, written piece by piece.
#pragma once
#include <string>

namespace command {

/// A theme on the page. The pictures are PNG.
struct GalleryEntry {
    std::string file, name, preview, keyboard;
    /// How the two pictures differ, if they do.
    std::string difference = {};
};

std::string gallery_head(size_t themes);
std::string gallery_piece(const GalleryEntry& entry);
std::string gallery_end();

}  // namespace command
