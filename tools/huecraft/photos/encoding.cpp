// Pictures as themes keep them.
#include <cstdlib>

#include "photos/jpeg_library.h"
#include "photos/photo.h"
#include "photos/png_file.h"

namespace command {
namespace {

/// The library ends the process when it has no memory; nothing else can go wrong.
std::string jpeg_of(const Picture& picture) {
    constexpr int quality = 88;
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors;
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&jpeg, &bytes, &length);
    jpeg.image_width = static_cast<JDIMENSION>(picture.width);
    jpeg.image_height = static_cast<JDIMENSION>(picture.height);
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_EXT_RGBX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    jpeg.optimize_coding = TRUE;
    jpeg_start_compress(&jpeg, TRUE);
    for (size_t y = 0; y < picture.height; ++y) {
        auto* row = const_cast<JSAMPROW>(picture.at(0, y));
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::string file(reinterpret_cast<const char*>(bytes), length);
    std::free(bytes);
    return file;
}

std::string png_of(const Picture& picture, bool opaque) {
    std::vector<uint8_t> packed;
    if (opaque)
        for (size_t i = 0; i < picture.pixels.size(); ++i)
            if (i % 4 != 3) packed.push_back(picture.pixels[i]);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = opaque ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    const auto& pixels = opaque ? packed : picture.pixels;
    return png_file(image, pixels);
}

}  // namespace

StoredPicture stored_picture(const Picture& picture) {
    const bool opaque = picture.is_opaque();
    std::string png = png_of(picture, opaque);
    if (!opaque) return {std::move(png), "PNG"};
    std::string jpeg = jpeg_of(picture);
    if (png.size() <= jpeg.size()) return {std::move(png), "PNG"};
    return {std::move(jpeg), "JPEG"};
}

}  // namespace command
