#include "photos/photo_samples.h"

#include <cairo.h>
#include <gtest/gtest.h>
#include <lcms2.h>
#include <libheif/heif.h>
#include <turbojpeg.h>
#include <webp/encode.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
// It needs <cstdio> before it.
#include <jpeglib.h>

#include "support/base64.h"

namespace test {
namespace {

std::vector<uint8_t> packed(const Sample& picture) {
    std::vector<uint8_t> bytes;
    for (const Rgb& pixel : picture.pixels)
        for (int component : pixel) bytes.push_back(static_cast<uint8_t>(component));
    return bytes;
}

/// A JPEG file that is written into memory, of three colours or four inks.
struct JpegWriter {
    JpegWriter(int width, int height, bool inks) {
        jpeg.err = jpeg_std_error(&errors);
        jpeg_create_compress(&jpeg);
        jpeg_mem_dest(&jpeg, &bytes, &length);
        jpeg.image_width = static_cast<JDIMENSION>(width);
        jpeg.image_height = static_cast<JDIMENSION>(height);
        jpeg.input_components = inks ? 4 : 3;
        jpeg.in_color_space = inks ? JCS_CMYK : JCS_RGB;
        jpeg_set_defaults(&jpeg);
    }
    std::string file() {
        jpeg_finish_compress(&jpeg);
        jpeg_destroy_compress(&jpeg);
        std::string written(reinterpret_cast<const char*>(bytes), length);
        std::free(bytes);
        return written;
    }

    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors;
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
};

}  // namespace

Sample sample(int width, int height, const std::function<Rgb(int x, int y)>& colour) {
    Sample picture{width, height, {}};
    picture.pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.pixels.push_back(colour(x, y));
    return picture;
}

std::string jpeg_of(const Sample& picture, const JpegWish& wish) {
    JpegWriter writer(picture.width, picture.height, wish.inks);
    jpeg_compress_struct& jpeg = writer.jpeg;
    jpeg_set_quality(&jpeg, 95, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    if (wish.orientation) {
        std::string exif("Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\0\0\0\0\0\0\0", 32);
        exif[6 + 8 + 2 + 9] = static_cast<char>(wish.orientation);
        jpeg_write_marker(&jpeg, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.data()),
                          static_cast<unsigned>(exif.size()));
    }
    if (!wish.profile.empty())
        jpeg_write_icc_profile(&jpeg, reinterpret_cast<const JOCTET*>(wish.profile.data()),
                               static_cast<unsigned>(wish.profile.size()));
    for (int y = 0; y < picture.height; ++y) {
        std::vector<uint8_t> row;
        for (int x = 0; x < picture.width; ++x) {
            for (int component : picture.at(x, y)) row.push_back(static_cast<uint8_t>(component));
            if (wish.inks) row.push_back(255);  // all of the paper: no black
        }
        JSAMPROW line = row.data();
        jpeg_write_scanlines(&jpeg, &line, 1);
    }
    return writer.file();
}

std::string large_jpeg(int width, int height) {
    std::vector<uint8_t> row;
    for (int x = 0; x < width * 3; ++x) row.push_back(static_cast<uint8_t>(x / 3 * 255 / width));
    JpegWriter writer(width, height, false);
    jpeg_start_compress(&writer.jpeg, TRUE);
    JSAMPROW line = row.data();
    for (int y = 0; y < height; ++y) jpeg_write_scanlines(&writer.jpeg, &line, 1);
    return writer.file();
}

std::string png_of(const Sample& picture) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        auto* row = reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(surface) +
                                                y * cairo_image_surface_get_stride(surface));
        for (int x = 0; x < picture.width; ++x) {
            const Rgb& pixel = picture.at(x, y);
            row[x] = static_cast<uint32_t>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
        }
    }
    cairo_surface_mark_dirty(surface);
    std::string file;
    cairo_surface_write_to_png_stream(
        surface,
        [](void* to, const unsigned char* data, unsigned length) {
            static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
            return CAIRO_STATUS_SUCCESS;
        },
        &file);
    cairo_surface_destroy(surface);
    return file;
}

std::string webp_of(const Sample& picture) {
    const auto bytes = packed(picture);
    uint8_t* encoded = nullptr;
    const size_t length =
        WebPEncodeRGB(bytes.data(), picture.width, picture.height, picture.width * 3, 90, &encoded);
    std::string file(reinterpret_cast<const char*>(encoded), length);
    WebPFree(encoded);
    return file;
}

std::string heic_of(const Sample& picture) {
    heif_context* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_image* image = nullptr;
    EXPECT_EQ(heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder).code,
              heif_error_Ok);
    heif_image_create(picture.width, picture.height, heif_colorspace_RGB, heif_chroma_interleaved_RGB,
                      &image);
    heif_image_add_plane(image, heif_channel_interleaved, picture.width, picture.height, 8);
    int stride = 0;
    uint8_t* rows = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    const auto bytes = packed(picture);
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(rows + y * stride, &bytes[static_cast<size_t>(y * picture.width * 3)],
                    static_cast<size_t>(picture.width * 3));
    EXPECT_EQ(heif_context_encode_image(context, image, encoder, nullptr, nullptr).code, heif_error_Ok);
    heif_writer writer{1, [](heif_context*, const void* data, size_t size, void* to) {
                           static_cast<std::string*>(to)->assign(static_cast<const char*>(data), size);
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    std::string file;
    heif_context_write(context, &writer, &file);
    heif_image_release(image);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return file;
}

std::string wide_profile() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}};
    const double curve[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* tone = cmsBuildParametricToneCurve(nullptr, 4, curve);
    cmsToneCurve* curves[] = {tone, tone, tone};
    cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    std::string bytes(length, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    cmsFreeToneCurve(tone);
    return bytes;
}

std::string picture_bytes_in(const std::string& theme) {
    const size_t key = theme.find("<key>_Image</key>"), begin = theme.find("<data>", key);
    if (key == theme.npos || begin == theme.npos) return "";
    return from_base64(theme.substr(begin + 6, theme.find("</data>", begin) - begin - 6));
}

Sample picture_in(const std::string& theme) {
    const std::string bytes = picture_bytes_in(theme);
    Sample picture;
    if (bytes.starts_with("\xff\xd8")) {
        tjhandle jpeg = tjInitDecompress();
        int sampling = 0, space = 0;
        const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
        EXPECT_EQ(
            tjDecompressHeader3(jpeg, data, bytes.size(), &picture.width, &picture.height, &sampling, &space),
            0);
        std::vector<unsigned char> rgb(static_cast<size_t>(picture.width * picture.height * 3));
        EXPECT_EQ(tjDecompress2(jpeg, data, bytes.size(), rgb.data(), picture.width, 0, picture.height,
                                TJPF_RGB, 0),
                  0);
        tjDestroy(jpeg);
        for (size_t i = 0; i < rgb.size(); i += 3) picture.pixels.push_back({rgb[i], rgb[i + 1], rgb[i + 2]});
        return picture;
    }
    struct Source {
        const std::string* bytes;
        size_t at;
    } source{&bytes, 0};
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(
        [](void* from, unsigned char* into, unsigned length) {
            auto* read = static_cast<Source*>(from);
            if (read->bytes->size() - read->at < length) return CAIRO_STATUS_READ_ERROR;
            std::memcpy(into, read->bytes->data() + read->at, length);
            read->at += length;
            return CAIRO_STATUS_SUCCESS;
        },
        &source);
    EXPECT_EQ(cairo_surface_status(surface), CAIRO_STATUS_SUCCESS);
    picture.width = cairo_image_surface_get_width(surface);
    picture.height = cairo_image_surface_get_height(surface);
    for (int y = 0; y < picture.height; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(surface) +
                                                            y * cairo_image_surface_get_stride(surface));
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back({static_cast<int>(row[x] >> 16 & 255),
                                      static_cast<int>(row[x] >> 8 & 255), static_cast<int>(row[x] & 255)});
    }
    cairo_surface_destroy(surface);
    return picture;
}

}  // namespace test
