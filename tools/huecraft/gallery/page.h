// The page of a gallery, written piece by piece. It is HTML that is well-formed XML, too.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "gallery/drawn_keyboard.h"

namespace command {

/// What a theme may take on the page, in bytes.
constexpr size_t most_bytes_of_a_theme = 15'000;

struct Swatch {
    std::string what, hex;
};

/// A theme on the page.
struct GalleryEntry {
    std::string file, name, contents, digest;
    std::vector<Swatch> colours;
    /// The folder of the page.
    std::string folder;
};

/// `digest` is the library's.
std::string gallery_head(size_t themes, const std::string& digest);
std::string gallery_piece(const GalleryEntry& entry, const DrawnKeyboard& keyboard);
std::string gallery_end();

/// Where a theme stands by the colour of its background, from red around to red and then, greys, from black
/// to white.
double place_by_colour(const Oklab& background);

}  // namespace command
