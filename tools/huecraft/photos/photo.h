// From a photo's file to a keyboard's background.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "photos/picture.h"

namespace command {

/// How a photo of another shape comes to the keyboard's.
enum class Fit { fill, inside, stretch };

/// The largest keyboard's pixels: 414 by 226 points and the 40 that the library adds, of 3 pixels.
inline constexpr size_t largest_width = 1242, largest_height = 798;
inline constexpr double keyboard_shape = static_cast<double>(largest_width) / largest_height;

struct PhotoWish {
    Fit fit = Fit::fill;
    /// In pixels of the photo as it is shown; in place of what is found to matter.
    std::optional<Region> crop = {};
    double dim = 0;   ///< black over it, from 0 to 1
    double blur = 0;  ///< in points of the keyboard
};

struct PreparedPhoto {
    Picture picture;
    /// What was done, a few words each: "turned upright", "reduced to 1242 x 798 pixels".
    std::vector<std::string> done;
};

/// Throws Unusable, naming the file, for what is not a picture, or for a region outside of it.
PreparedPhoto prepare_photo(const std::string& bytes, const std::string& file, const PhotoWish& wish);

/// The picture as a theme keeps it: JPEG, or PNG where it is transparent or no larger for it.
struct StoredPicture {
    std::string bytes;
    const char* format;
};
StoredPicture stored_picture(const Picture& picture);

}  // namespace command
