// PNG, row by row: what is too large is reduced on the way.
#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/decoding.h"

namespace command {
namespace {

struct Source {
    const std::string* bytes = nullptr;
    size_t at = 0;
    std::string error;
};

void read_bytes(png_structp png, png_bytep into, size_t count) {
    auto* source = static_cast<Source*>(png_get_io_ptr(png));
    if (source->bytes->size() - source->at < count) png_error(png, "the file ends early");
    std::memcpy(into, source->bytes->data() + source->at, count);
    source->at += count;
}

[[noreturn]] void go_back(png_structp png, png_const_charp text) {
    static_cast<Source*>(png_get_error_ptr(png))->error = text;
    png_longjmp(png, 1);
}

/// Everything with a destructor lives outside of the calls that may jump.
struct Reading {
    Source source = {};
    png_structp png = nullptr;
    png_infop info = nullptr;
    std::vector<uint8_t> row, all;
    std::vector<png_bytep> rows;
    size_t bytes_of_a_row = 0;  ///< in the file
    ~Reading() { png_destroy_read_struct(&png, &info, nullptr); }
};

bool read_header(Reading& reading) {
    if (setjmp(png_jmpbuf(reading.png))) return false;
    png_set_read_fn(reading.png, &reading.source, read_bytes);
    png_set_user_limits(reading.png, 100'000, 100'000);
    png_read_info(reading.png, reading.info);
    reading.bytes_of_a_row = png_get_rowbytes(reading.png, reading.info);
    png_set_expand(reading.png);
    png_set_scale_16(reading.png);
    png_set_gray_to_rgb(reading.png);
    png_set_add_alpha(reading.png, 255, PNG_FILLER_AFTER);
    png_set_interlace_handling(reading.png);
    png_read_update_info(reading.png, reading.info);
    return true;
}

bool read_row(Reading& reading) {
    if (setjmp(png_jmpbuf(reading.png))) return false;
    png_read_row(reading.png, reading.row.data(), nullptr);
    return true;
}

bool read_all(Reading& reading) {
    if (setjmp(png_jmpbuf(reading.png))) return false;
    png_read_image(reading.png, reading.rows.data());
    return true;
}

}  // namespace

Decoded decode_png_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
    Reading reading;
    reading.source.bytes = &bytes;
    reading.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &reading.source, go_back,
                                         [](png_structp, png_const_charp) {});
    reading.info = png_create_info_struct(reading.png);
    const auto require = [&](bool done) {
        if (!done)
            throw Unusable(file, "it is a damaged PNG picture: " + one_line(reading.source.error, 200));
    };
    require(read_header(reading));
    Decoded decoded;
    decoded.format = "PNG";
    decoded.width = png_get_image_width(reading.png, reading.info);
    decoded.height = png_get_image_height(reading.png, reading.info);
    png_charp name = nullptr;
    png_bytep profile = nullptr;
    png_uint_32 length = 0;
    int compression = 0;
    if (png_get_iCCP(reading.png, reading.info, &name, &compression, &profile, &length) == PNG_INFO_iCCP)
        decoded.profile.assign(reinterpret_cast<const char*>(profile), length);
    png_bytep exif = nullptr;
    if (png_get_eXIf_1(reading.png, reading.info, &length, &exif) == PNG_INFO_eXIf)
        decoded.orientation = orientation_in_exif({reinterpret_cast<const char*>(exif), length});

    const bool interlaced = png_get_interlace_type(reading.png, reading.info) != PNG_INTERLACE_NONE;
    const size_t pixels = decoded.width * decoded.height;
    const size_t most = interlaced ? most_decoded_pixels : most_pixels;
    if (pixels > most)
        throw Unusable(file, "it has " + std::to_string(pixels / 1'000'000) +
                                 " megapixels, expected at most " + std::to_string(most / 1'000'000));
    constexpr size_t most_bytes = 900'000'000;
    const size_t unpacked = decoded.height * reading.bytes_of_a_row;
    if (unpacked > most_bytes)
        throw Unusable(file, "it unpacks to " + std::to_string(unpacked / 1'000'000) +
                                 " MB, expected at most " + std::to_string(most_bytes / 1'000'000));
    const double wanted = std::max(1.0, reduction(decoded.width, decoded.height, decoded.orientation));
    const auto factor = static_cast<size_t>(wanted);
    decoded.reduction = static_cast<double>(factor);
    require_room(file, pixels / (factor * factor));
    RowReducer reducer(decoded.width, decoded.height, factor);
    reading.row.resize(decoded.width * 4);
    if (interlaced) {
        reading.all.resize(pixels * 4);
        for (size_t y = 0; y < decoded.height; ++y)
            reading.rows.push_back(reading.all.data() + y * decoded.width * 4);
        require(read_all(reading));
        for (png_bytep row : reading.rows) reducer.take(row);
    } else {
        for (size_t y = 0; y < decoded.height; ++y) {
            require(read_row(reading));
            reducer.take(reading.row.data());
        }
    }
    decoded.picture = reducer.finish();
    return decoded;
}

}  // namespace command
