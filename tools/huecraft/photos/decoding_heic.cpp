// HEIC, as telephones take photos. Its decoder turns the picture by itself.
#include <dlfcn.h>
#include <libheif/heif.h>

#include <algorithm>
#include <memory>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/decoding.h"

namespace command {
namespace {

/// What is used of libheif, which is opened with the first of these pictures: it comes with the libraries of
/// several video formats, and loading those would be a fourth of every start of the command.
class Heif {
    void* const library_ = dlopen("libheif.so.1", RTLD_NOW);
    bool is_missing_ = !library_;

    /// Of whatever type it is asked for as.
    struct Found {
        void* symbol;
        template <class Function>
        operator Function*() const {
            return reinterpret_cast<Function*>(symbol);
        }
    };
    Found find(const char* name) {
        void* const symbol = library_ ? dlsym(library_, name) : nullptr;
        if (!symbol) is_missing_ = true;
        return {symbol};
    }

  public:
    bool is_missing() const { return is_missing_; }

    decltype(heif_context_alloc)* context_alloc = find("heif_context_alloc");
    decltype(heif_context_free)* context_free = find("heif_context_free");
    decltype(heif_context_read_from_memory_without_copy)* context_read =
        find("heif_context_read_from_memory_without_copy");
    decltype(heif_context_get_primary_image_handle)* primary_image =
        find("heif_context_get_primary_image_handle");
    decltype(heif_image_handle_release)* handle_release = find("heif_image_handle_release");
    decltype(heif_image_handle_get_width)* handle_width = find("heif_image_handle_get_width");
    decltype(heif_image_handle_get_height)* handle_height = find("heif_image_handle_get_height");
    decltype(heif_image_handle_get_raw_color_profile_size)* profile_size =
        find("heif_image_handle_get_raw_color_profile_size");
    decltype(heif_image_handle_get_raw_color_profile)* profile =
        find("heif_image_handle_get_raw_color_profile");
    decltype(heif_decode_image)* decode = find("heif_decode_image");
    decltype(heif_image_release)* image_release = find("heif_image_release");
    decltype(heif_image_get_plane_readonly)* plane = find("heif_image_get_plane_readonly");
    decltype(heif_image_get_width)* image_width = find("heif_image_get_width");
    decltype(heif_image_get_height)* image_height = find("heif_image_get_height");
};

}  // namespace

Decoded decode_heic_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
    static const Heif heif;
    if (heif.is_missing())
        throw Unusable(file, "it is a HEIC picture, and libheif, which reads those, is missing");
    const auto require = [&](const heif_error& error) {
        if (error.code != heif_error_Ok)
            throw Unusable(file,
                           "it is not a HEIC picture that can be read: " + one_line(error.message, 200));
    };
    const std::unique_ptr<heif_context, void (*)(heif_context*)> context(heif.context_alloc(),
                                                                         heif.context_free);
    require(heif.context_read(context.get(), bytes.data(), bytes.size(), nullptr));
    heif_image_handle* found = nullptr;
    require(heif.primary_image(context.get(), &found));
    const std::unique_ptr<heif_image_handle, void (*)(const heif_image_handle*)> handle(found,
                                                                                        heif.handle_release);
    Decoded decoded;
    decoded.format = "HEIC";
    decoded.width = static_cast<size_t>(heif.handle_width(found));
    decoded.height = static_cast<size_t>(heif.handle_height(found));
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
    decoded.profile.resize(heif.profile_size(found));
    if (!decoded.profile.empty() && heif.profile(found, decoded.profile.data()).code != heif_error_Ok)
        decoded.profile.clear();
    heif_image* image = nullptr;
    require(heif.decode(found, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, nullptr));
    const std::unique_ptr<heif_image, void (*)(const heif_image*)> holding(image, heif.image_release);
    int stride = 0;
    const uint8_t* rows = heif.plane(image, heif_channel_interleaved, &stride);
    const auto width = static_cast<size_t>(heif.image_width(image, heif_channel_interleaved)),
               height = static_cast<size_t>(heif.image_height(image, heif_channel_interleaved));
    RowReducer reducer(width, height, factor);
    for (size_t y = 0; y < height; ++y) reducer.take(rows + y * static_cast<size_t>(stride));
    decoded.picture = reducer.finish();
    return decoded;
}

}  // namespace command
