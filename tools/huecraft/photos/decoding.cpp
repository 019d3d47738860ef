#include "photos/decoding.h"

#include <algorithm>
#include <string_view>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/picture_limits.h"

namespace command {
namespace {

bool is_heic(std::string_view bytes) {
    if (bytes.size() < 12 || bytes.substr(4, 4) != "ftyp") return false;
    for (std::string_view brand : {"heic", "heix", "hevc", "heim", "heis", "mif1", "msf1", "avif"})
        if (bytes.substr(8, 4) == brand) return true;
    return false;
}

}  // namespace

int orientation_in_exif(std::string_view block) {
    const bool little = block.starts_with("II");
    const auto number = [&](size_t at, size_t bytes) -> size_t {
        size_t value = 0;
        if (at > block.size() || block.size() - at < bytes) return 0;
        for (size_t i = 0; i < bytes; ++i)
            value = value << 8 | static_cast<unsigned char>(block[at + (little ? bytes - 1 - i : i)]);
        return value;
    };
    constexpr size_t orientation_tag = 0x112, entry_size = 12;
    const size_t directory = number(4, 4), entries = number(directory, 2);
    for (size_t i = 0; i < entries; ++i) {
        const size_t entry = directory + 2 + i * entry_size;
        if (number(entry, 2) != orientation_tag) continue;
        const size_t value = number(entry + 8, 2);
        return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
    }
    return 1;
}

void require_room(const std::string& file, size_t pixels_left) {
    if (pixels_left > most_decoded_pixels)
        throw Unusable(file, "so small a part of so large a picture does not fit into memory; cut it first");
}

RowReducer::RowReducer(size_t width, size_t height, size_t factor)
    : width_(width),
      factor_(factor),
      picture_((width + factor - 1) / factor, (height + factor - 1) / factor),
      sums_(picture_.width * 4) {}

void RowReducer::take(const uint8_t* row) {
    for (size_t x = 0; x < width_; ++x)
        for (size_t c = 0; c < 4; ++c) sums_[x / factor_ * 4 + c] += row[x * 4 + c];
    if (++rows_ == factor_) put_row();
}

void RowReducer::put_row() {
    uint8_t* row = picture_.at(0, done_++);
    for (size_t x = 0; x < picture_.width; ++x) {
        const size_t columns = std::min(factor_, width_ - x * factor_);
        const auto count = static_cast<uint32_t>(columns * rows_);
        for (size_t c = 0; c < 4; ++c)
            row[x * 4 + c] = static_cast<uint8_t>((sums_[x * 4 + c] + count / 2) / count);
    }
    std::ranges::fill(sums_, 0u);
    rows_ = 0;
}

Picture RowReducer::finish() {
    if (rows_) put_row();
    return std::move(picture_);
}

namespace {

bool is_jpeg(std::string_view bytes) { return bytes.starts_with("\xff\xd8\xff"); }
bool is_png(std::string_view bytes) { return bytes.starts_with("\x89PNG\r\n\x1a\n"); }
bool is_webp(std::string_view bytes) {
    return bytes.starts_with("RIFF") && bytes.substr(0, 12).ends_with("WEBP");
}

}  // namespace

void require_picture(std::string_view bytes, const std::string& file) {
    if (is_jpeg(bytes) || is_png(bytes) || is_webp(bytes) || is_heic(bytes)) return;
    throw Unusable(
        file, "it is not a picture that can be read: found " +
                  (bytes.empty() ? "an empty file" : in_quotes(bytes.substr(0, 8)) + " at its beginning") +
                  ", expected PNG, JPEG, WebP or HEIC");
}

Decoded decode_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
    const std::string_view view = bytes;
    if (const std::string why = laborious(view); !why.empty()) throw Unusable(file, why);
    require_picture(view, file);
    if (is_jpeg(view)) return decode_jpeg_photo(bytes, file, reduction);
    if (is_png(view)) return decode_png_photo(bytes, file, reduction);
    if (is_webp(view)) return decode_webp_photo(bytes, file, reduction);
    return decode_heic_photo(bytes, file, reduction);
}

}  // namespace command
