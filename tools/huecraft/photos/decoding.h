// Photos as their files hold them: decoded, not larger than they are needed.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "photos/picture.h"

namespace command {

/// What the decoder makes of the file, before it is turned upright and its colours are converted.
struct Decoded {
    enum class Inks { rgb, cmyk } inks = Inks::rgb;
    std::string format;            ///< "JPEG"
    size_t width = 0, height = 0;  ///< of the whole picture in the file
    double reduction = 1;          ///< how many of its pixels became one, along each side
    int orientation = 1;           ///< EXIF's; 1 where the decoder has turned it already
    std::string profile;           ///< ICC; empty for sRGB
    /// Of CMYK, the four inks in place of red, green, blue and alpha, 0 for none.
    Picture picture;
};

/// By how much a picture of this size may be reduced, at most: the decoder stays at it or below.
using Reduction = std::function<double(size_t width, size_t height, int orientation)>;

/// Throws Unusable, naming the file, for what is not a picture of a known format, or damaged, or has more
/// pixels than fit into memory.
Decoded decode_photo(const std::string& bytes, const std::string& file, const Reduction& reduction);

// Of the single formats.
Decoded decode_jpeg_photo(const std::string& bytes, const std::string& file, const Reduction& reduction);
Decoded decode_png_photo(const std::string& bytes, const std::string& file, const Reduction& reduction);
Decoded decode_webp_photo(const std::string& bytes, const std::string& file, const Reduction& reduction);
Decoded decode_heic_photo(const std::string& bytes, const std::string& file, const Reduction& reduction);

/// Throws Unusable for bytes that begin as no picture does that can be decoded.
void require_picture(std::string_view bytes, const std::string& file);

/// The orientation that a block of EXIF tells, without the "Exif" before it; 1 where it tells none.
int orientation_in_exif(std::string_view block);

/// Takes rows one after another, and keeps the means of so many by so many pixels.
class RowReducer {
  public:
    RowReducer(size_t width, size_t height, size_t factor);
    /// Of four bytes a pixel.
    void take(const uint8_t* row);
    Picture finish();

  private:
    void put_row();
    size_t width_, factor_, rows_ = 0, done_ = 0;
    Picture picture_;
    std::vector<uint32_t> sums_;
};

/// The pixels that a picture may take in memory when it is decoded. Turning it upright takes them once more.
inline constexpr size_t most_decoded_pixels = 48'000'000;
/// The pixels that a file may have that is reduced while it is decoded.
inline constexpr size_t most_pixels = 250'000'000;
/// The pixels of a HEIC picture, which its decoder has in memory as it has them itself, and once more in red,
/// green and blue.
inline constexpr size_t most_heic_pixels = 64'000'000;

/// Throws Unusable where more than may be decoded is left of the picture when it is reduced.
void require_room(const std::string& file, size_t pixels_left);

}  // namespace command
