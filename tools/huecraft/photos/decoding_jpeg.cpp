// JPEG, reduced by whole eighths while it is decoded, which costs neither the time nor the memory of all its
// pixels.

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdlib>

#include "cli/files.h"
#include "cli/terminal.h"
#include "photos/decoding.h"
#include "photos/jpeg_library.h"

namespace command {
namespace {

struct Errors {
    jpeg_error_mgr manager;
    jmp_buf back;
    char text[JMSG_LENGTH_MAX] = {};
    bool warned = false;
};

/// The library's errors come back here; its own objects are all that is between, so nothing is left behind.
void go_back(j_common_ptr state) {
    auto* errors = reinterpret_cast<Errors*>(state->err);
    state->err->format_message(state, errors->text);
    longjmp(errors->back, 1);
}

/// A file that ends early would be completed in grey, and the message is all that there is of it.
void note_warning(j_common_ptr state, int level) {
    if (level >= 0) return;
    auto* errors = reinterpret_cast<Errors*>(state->err);
    if (!errors->warned) state->err->format_message(state, errors->text);
    errors->warned = true;
}

int orientation_of(const jpeg_decompress_struct& jpeg) {
    constexpr std::string_view exif("Exif\0\0", 6);
    for (const auto* marker = jpeg.marker_list; marker; marker = marker->next) {
        const std::string_view data(reinterpret_cast<const char*>(marker->data), marker->data_length);
        if (marker->marker == JPEG_APP0 + 1 && data.starts_with(exif))
            return orientation_in_exif(data.substr(exif.size()));
    }
    return 1;
}

/// Everything with a destructor lives outside of the calls that may jump.
struct Reading {
    jpeg_decompress_struct jpeg{};
    Errors errors{};
    Decoded decoded;
    std::vector<uint8_t> row;
    ~Reading() { jpeg_destroy_decompress(&jpeg); }
};

bool read_header(Reading& reading, const std::string& bytes) {
    jpeg_decompress_struct& jpeg = reading.jpeg;
    jpeg.err = jpeg_std_error(&reading.errors.manager);
    reading.errors.manager.error_exit = go_back;
    reading.errors.manager.emit_message = note_warning;
    if (setjmp(reading.errors.back)) return false;
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    constexpr unsigned whole = 0xffff;
    jpeg_save_markers(&jpeg, JPEG_APP0 + 1, whole);
    jpeg_save_markers(&jpeg, JPEG_APP0 + 2, whole);
    jpeg_read_header(&jpeg, TRUE);
    return true;
}

bool start(Reading& reading) {
    if (setjmp(reading.errors.back)) return false;
    jpeg_start_decompress(&reading.jpeg);
    return true;
}

bool read_row(Reading& reading) {
    if (setjmp(reading.errors.back)) return false;
    JSAMPROW row = reading.row.data();
    return jpeg_read_scanlines(&reading.jpeg, &row, 1) == 1;
}

/// Where the pixels come in several scans, all that was read of them is kept until the last.
void require_room_for_scans(jpeg_decompress_struct& jpeg, const std::string& file) {
    if (!jpeg_has_multiple_scans(&jpeg)) return;
    constexpr size_t most_bytes = 360 << 20;
    size_t bytes = 0;
    for (int i = 0; i < jpeg.num_components; ++i)
        bytes +=
            size_t{jpeg.comp_info[i].width_in_blocks} * jpeg.comp_info[i].height_in_blocks * sizeof(JBLOCK);
    if (bytes > most_bytes)
        throw Unusable(file,
                       "it takes " + std::to_string(bytes >> 20) +
                           " MB while it is decoded, as its pixels come in several scans; expected at most " +
                           std::to_string(most_bytes >> 20) + ": save it without, as baseline JPEG");
}

bool read_profile(Reading& reading) {
    if (setjmp(reading.errors.back)) return false;
    JOCTET* profile = nullptr;
    unsigned length = 0;
    if (jpeg_read_icc_profile(&reading.jpeg, &profile, &length)) {
        reading.decoded.profile.assign(reinterpret_cast<const char*>(profile), length);
        std::free(profile);
    }
    return true;
}

}  // namespace

Decoded decode_jpeg_photo(const std::string& bytes, const std::string& file, const Reduction& reduction) {
    Reading reading;
    const auto require = [&](bool done) {
        if (!done || reading.errors.warned)
            throw Unusable(file, "it is a damaged JPEG picture: " + one_line(reading.errors.text, 200));
    };
    require(read_header(reading, bytes));
    jpeg_decompress_struct& jpeg = reading.jpeg;
    Decoded& decoded = reading.decoded;
    decoded.format = "JPEG";
    decoded.width = jpeg.image_width;
    decoded.height = jpeg.image_height;
    decoded.orientation = orientation_of(jpeg);
    if (decoded.width * decoded.height > most_pixels)
        throw Unusable(file, "it has " + std::to_string(decoded.width * decoded.height / 1'000'000) +
                                 " megapixels, expected at most " + std::to_string(most_pixels / 1'000'000));
    require_room_for_scans(jpeg, file);
    read_profile(reading);
    const bool inks = jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
    decoded.inks = inks ? Decoded::Inks::cmyk : Decoded::Inks::rgb;
    jpeg.out_color_space = inks ? JCS_CMYK : JCS_EXT_RGBA;
    // The library's scales are eighths. Where the whole is hardly wanted, it is cheapest by far.
    const double wanted = std::max(1.0, reduction(decoded.width, decoded.height, decoded.orientation));
    jpeg.scale_num = static_cast<unsigned>(std::clamp(std::ceil(8 / wanted), 1.0, 8.0));
    jpeg.scale_denom = 8;
    decoded.reduction = 8.0 / jpeg.scale_num;
    require(start(reading));
    const size_t width = jpeg.output_width, height = jpeg.output_height;
    require_room(file, width * height);
    decoded.picture = Picture(width, height);
    reading.row.resize(width * 4);
    for (size_t y = 0; y < height; ++y) {
        require(read_row(reading));
        std::ranges::copy(reading.row, decoded.picture.at(0, y));
    }
    // Adobe's programs write how much paper is left, and say so; so does nearly everyone else.
    if (inks && jpeg.saw_Adobe_marker)
        for (uint8_t& ink : decoded.picture.pixels) ink = static_cast<uint8_t>(255 - ink);
    return std::move(decoded);
}

}  // namespace command
