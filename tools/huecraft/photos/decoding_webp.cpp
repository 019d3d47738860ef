// WebP, scaled by its own decoder.
#include <webp/decode.h>

#include <algorithm>
#include <cmath>

#include "cli/files.h"
#include "photos/decoding.h"

namespace command {
namespace {

/// What a chunk of the file holds; empty without one.
std::string_view chunk_of(std::string_view bytes, std::string_view name) {
    for (size_t at = 12; bytes.size() - at >= 8;) {
        size_t length = 0;
        for (size_t i = 4; i-- > 0;) length = length << 8 | static_cast<unsigned char>(bytes[at + 4 + i]);
        const std::string_view rest = bytes.substr(at + 8);
        if (length > rest.size()) return {};
        if (bytes.substr(at, 4) == name) return rest.substr(0, length);
        at += 8 + length + std::min(length % 2, rest.size() - length);
    }
    return {};
}

}  // namespace

Decoded decode_webp_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
    WebPDecoderConfig config;
    const Unusable damaged(file, "it is a damaged WebP picture");
    if (!WebPInitDecoderConfig(&config) ||
        WebPGetFeatures(data, bytes.size(), &config.input) != VP8_STATUS_OK)
        throw damaged;
    if (config.input.has_animation) throw Unusable(file, "it is an animation, expected a picture");
    Decoded decoded;
    decoded.format = "WebP";
    decoded.width = static_cast<size_t>(config.input.width);
    decoded.height = static_cast<size_t>(config.input.height);
    // Other than the lossy ones without, those are unpacked as a whole.
    constexpr int lossless = 2;
    if (config.input.format == lossless || config.input.has_alpha) {
        if (decoded.width * decoded.height > most_decoded_pixels)
            throw Unusable(file, "it has " + std::to_string(decoded.width * decoded.height / 1'000'000) +
                                     " megapixels, expected at most " +
                                     std::to_string(most_decoded_pixels / 1'000'000) +
                                     " of a WebP picture that is lossless or has an alpha channel");
    }
    decoded.profile = chunk_of(bytes, "ICCP");
    std::string_view exif = chunk_of(bytes, "EXIF");
    if (exif.starts_with(std::string_view("Exif\0\0", 6))) exif.remove_prefix(6);
    decoded.orientation = orientation_in_exif(exif);
    decoded.reduction = std::max(1.0, reduction(decoded.width, decoded.height, decoded.orientation));
    const auto reduced = [&](size_t length) {
        return std::max<size_t>(
            1, static_cast<size_t>(std::lround(static_cast<double>(length) / decoded.reduction)));
    };
    require_room(file, reduced(decoded.width) * reduced(decoded.height));
    decoded.picture = Picture(reduced(decoded.width), reduced(decoded.height));
    config.options.use_scaling = 1;
    config.options.scaled_width = static_cast<int>(decoded.picture.width);
    config.options.scaled_height = static_cast<int>(decoded.picture.height);
    config.output.colorspace = MODE_RGBA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA = {decoded.picture.pixels.data(), static_cast<int>(decoded.picture.width * 4),
                            decoded.picture.pixels.size()};
    if (WebPDecode(data, bytes.size(), &config) != VP8_STATUS_OK) throw damaged;
    return decoded;
}

}  // namespace command
