// Pictures of keyboards as small files.
#pragma once
#include <optional>
#include <string>

#include "gallery/drawn_keyboard.h"

namespace command {

struct EncodedPicture {
    std::string bytes;
    const char* media_type;
};

/// PNG with a palette where a few colours are all that there is, but for the edges of labels; WebP elsewhere,
/// in the best quality that has room. Where there is none at all, half as many pixels each way.
EncodedPicture encoded_within(const KeyboardPixels& picture, size_t most_bytes);

}  // namespace command
