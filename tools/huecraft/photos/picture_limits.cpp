#include "photos/picture_limits.h"

namespace command {
namespace {

size_t number(std::string_view bytes, size_t at, size_t length) {
    size_t value = 0;
    for (size_t i = at; i < at + length && i < bytes.size(); ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

size_t compressed_texts(std::string_view png) {
    size_t count = 0;
    constexpr size_t signature = 8, around_content = 12;
    for (size_t at = signature; at + around_content <= png.size();) {
        const std::string_view type = png.substr(at + 4, 4);
        count += type == "zTXt" || type == "iTXt";
        const size_t length = number(png, at, 4);
        if (length > png.size() - at - around_content) break;
        at += around_content + length;
    }
    return count;
}

/// Within a scan's data this marker cannot stand.
size_t scans(std::string_view jpeg) {
    size_t count = 0;
    for (size_t at = 0; (at = jpeg.find("\xff\xda", at)) != jpeg.npos; at += 2) ++count;
    return count;
}

}  // namespace

size_t announced_pixels(std::string_view bytes) {
    if (bytes.starts_with("\x89PNG")) return number(bytes, 16, 4) * number(bytes, 20, 4);
    if (!bytes.starts_with("\xff\xd8")) return 0;
    // Segments with their lengths, up to the one that begins a frame.
    for (size_t at = 2; at + 9 < bytes.size() && number(bytes, at, 1) == 0xff;
         at += 2 + number(bytes, at + 2, 2)) {
        const size_t marker = number(bytes, at + 1, 1);
        const bool frame =
            marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
        if (frame) return number(bytes, at + 5, 2) * number(bytes, at + 7, 2);
    }
    return 0;
}

std::string laborious(std::string_view bytes) {
    constexpr size_t most_texts = 20, most_scans = 32;
    const auto found = [](size_t count, const char* what, size_t most) {
        return count <= most ? ""
                             : "found " + std::to_string(count) + " " + what + ", expected at most " +
                                   std::to_string(most);
    };
    if (bytes.starts_with("\x89PNG")) return found(compressed_texts(bytes), "compressed texts", most_texts);
    if (bytes.starts_with("\xff\xd8")) return found(scans(bytes), "scans", most_scans);
    return "";
}

}  // namespace command
