// What a picture's file says of itself, before the time and memory are spent that decoding it takes.
#pragma once
#include <string>
#include <string_view>

namespace command {

/// The pixels that a PNG or JPEG picture says to have; 0 for what is neither.
size_t announced_pixels(std::string_view bytes);

/// Why the decoder would be at it for long, however few its pixels are: a PNG picture with many compressed
/// texts, each of which may unpack to megabytes, or a JPEG picture whose pixels come in many passes. Empty
/// where there is no reason.
std::string laborious(std::string_view bytes);

}  // namespace command
