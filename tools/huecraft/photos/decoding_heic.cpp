// HEIC, as telephones take photos. Its decoder turns the picture by itself.
#include <libheif/heif.h>

#include <cstring>
#include <memory>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/decoding.h"

namespace command {

Decoded decode_heic_photo(const std::string& bytes, const std::string& file) {
    const auto require = [&](const heif_error& error) {
        if (error.code != heif_error_Ok)
            throw Unusable(file,
                           "it is not a HEIC picture that can be read: " + one_line(error.message, 200));
    };
    const std::unique_ptr<heif_context, void (*)(heif_context*)> context(heif_context_alloc(),
                                                                         heif_context_free);
    require(heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr));
    heif_image_handle* found = nullptr;
    require(heif_context_get_primary_image_handle(context.get(), &found));
    const std::unique_ptr<heif_image_handle, void (*)(const heif_image_handle*)> handle(
        found, heif_image_handle_release);
    Decoded decoded;
    decoded.format = "HEIC";
    decoded.width = static_cast<size_t>(heif_image_handle_get_width(found));
    decoded.height = static_cast<size_t>(heif_image_handle_get_height(found));
    if (decoded.width * decoded.height > most_decoded_pixels)
        throw Unusable(file, "it has " + std::to_string(decoded.width * decoded.height / 1'000'000) +
                                 " megapixels, expected at most " +
                                 std::to_string(most_decoded_pixels / 1'000'000) + " of a HEIC picture");
    decoded.profile.resize(heif_image_handle_get_raw_color_profile_size(found));
    if (!decoded.profile.empty() &&
        heif_image_handle_get_raw_color_profile(found, decoded.profile.data()).code != heif_error_Ok)
        decoded.profile.clear();
    heif_image* image = nullptr;
    require(heif_decode_image(found, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, nullptr));
    const std::unique_ptr<heif_image, void (*)(const heif_image*)> holding(image, heif_image_release);
    int stride = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    decoded.picture = Picture(static_cast<size_t>(heif_image_get_width(image, heif_channel_interleaved)),
                              static_cast<size_t>(heif_image_get_height(image, heif_channel_interleaved)));
    for (size_t y = 0; y < decoded.picture.height; ++y)
        std::memcpy(decoded.picture.at(0, y), rows + y * static_cast<size_t>(stride),
                    decoded.picture.width * 4);
    return decoded;
}

}  // namespace command
