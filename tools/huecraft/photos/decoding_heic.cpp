// HEIC, as telephones take photos. Its decoder turns the picture by itself.
#include <libheif/heif.h>

#include <algorithm>
#include <memory>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/decoding.h"

namespace command {

Decoded decode_heic_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
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
    if (decoded.width * decoded.height > most_heic_pixels)
        throw Unusable(file, "it has " + std::to_string(decoded.width * decoded.height / 1'000'000) +
                                 " megapixels, expected at most " +
                                 std::to_string(most_heic_pixels / 1'000'000) + " of a HEIC picture");
    const auto factor =
        static_cast<size_t>(std::max(1.0, reduction(decoded.width, decoded.height, decoded.orientation)));
    decoded.reduction = static_cast<double>(factor);
    // What the decoder keeps takes half of what would have room.
    const size_t pixels = decoded.width * decoded.height;
    require_room(file, pixels / 2 + pixels / (factor * factor));
    decoded.profile.resize(heif_image_handle_get_raw_color_profile_size(found));
    if (!decoded.profile.empty() &&
        heif_image_handle_get_raw_color_profile(found, decoded.profile.data()).code != heif_error_Ok)
        decoded.profile.clear();
    heif_image* image = nullptr;
    require(heif_decode_image(found, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, nullptr));
    const std::unique_ptr<heif_image, void (*)(const heif_image*)> holding(image, heif_image_release);
    int stride = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    const auto width = static_cast<size_t>(heif_image_get_width(image, heif_channel_interleaved)),
               height = static_cast<size_t>(heif_image_get_height(image, heif_channel_interleaved));
    RowReducer reducer(width, height, factor);
    for (size_t y = 0; y < height; ++y) reducer.take(rows + y * static_cast<size_t>(stride));
    decoded.picture = reducer.finish();
    return decoded;
}

}  // namespace command
