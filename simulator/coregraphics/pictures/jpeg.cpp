#include "coregraphics/pictures/jpeg.h"

#include <turbojpeg.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "coregraphics/drawing/pixels.h"

namespace sim {
namespace {

/// Reads numbers of a TIFF block, whose bytes run in either order. Beyond its end they are 0.
class Tiff {
  public:
    explicit Tiff(std::span<const uint8_t> block)
        : block_(block),
          little_(block.size() > 1 && block[0] == 'I' && block[1] == 'I') {}

    unsigned number(size_t at, size_t bytes) const {
        unsigned value = 0;
        if (at > block_.size() || block_.size() - at < bytes) return 0;
        for (size_t i = 0; i < bytes; ++i) value = value << 8 | block_[at + (little_ ? bytes - 1 - i : i)];
        return value;
    }

    /// The orientation of the first image described; 1 where there is none.
    int orientation() const {
        constexpr unsigned orientation_tag = 0x112;
        constexpr size_t entry_size = 12;
        const size_t directory = number(4, 4), entries = number(directory, 2);
        for (size_t i = 0; i < entries; ++i) {
            const size_t entry = directory + 2 + i * entry_size;
            if (number(entry, 2) != orientation_tag) continue;
            const unsigned value = number(entry + 8, 2);
            return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
        }
        return 1;
    }

  private:
    std::span<const uint8_t> block_;
    bool little_;
};

/// From the EXIF segment, which precedes the picture.
int orientation_in(std::span<const uint8_t> data) {
    constexpr uint8_t marker = 0xff, application_1 = 0xe1, start_of_scan = 0xda;
    constexpr std::string_view exif("Exif\0\0", 6);
    size_t at = 2;
    while (data.size() - at >= 4 && data[at] == marker && data[at + 1] != start_of_scan) {
        const size_t length = static_cast<size_t>(data[at + 2]) << 8 | data[at + 3];  // counts itself
        if (length < 2 || data.size() - at - 2 < length) return 1;
        const auto content = data.subspan(at + 4, length - 2);
        if (data[at + 1] == application_1 && content.size() > exif.size() &&
            std::equal(exif.begin(), exif.end(), content.begin()))
            return Tiff(content.subspan(exif.size())).orientation();
        at += 2 + length;
    }
    return 1;
}

/// The smallest size that the decoder itself can make of the picture with `needed` pixels along a side.
void reduce(int& width, int& height, size_t needed) {
    int count = 0;
    const tjscalingfactor* factors = tjGetScalingFactors(&count);
    const int full_width = width, full_height = height;
    for (int i = 0; i < count; ++i) {
        const int across = TJSCALED(full_width, factors[i]), down = TJSCALED(full_height, factors[i]);
        if (across < width && static_cast<size_t>(std::max(across, down)) >= needed)
            width = across, height = down;
    }
}

}  // namespace

bool is_jpeg(std::span<const uint8_t> data) { return data.size() > 3 && data[0] == 0xff && data[1] == 0xd8; }

std::optional<DecodedPicture> decode_jpeg(std::span<const uint8_t> data, size_t needed) {
    const std::unique_ptr<void, int (*)(tjhandle)> jpeg(tjInitDecompress(), &tjDestroy);
    int width = 0, height = 0, sampling = 0, color_space = 0;
    if (!jpeg ||
        tjDecompressHeader3(jpeg.get(), data.data(), data.size(), &width, &height, &sampling, &color_space))
        return std::nullopt;
    // Inks of printing cannot be shown without a profile.
    if (color_space == TJCS_CMYK || color_space == TJCS_YCCK) return std::nullopt;
    if (!fits_limits(static_cast<size_t>(width), static_cast<size_t>(height))) return std::nullopt;
    reduce(width, height, needed);
    DecodedPicture picture;
    picture.surface = Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    picture.model = color_space == TJCS_GRAY ? kCGColorSpaceModelMonochrome : kCGColorSpaceModelRGB;
    picture.exif_orientation = orientation_in(data);
    if (cairo_surface_status(picture.surface)) return std::nullopt;
    const Pixels pixels(picture.surface);
    // A file that ends early would be completed in grey: it counts as damaged.
    if (tjDecompress2(jpeg.get(), data.data(), data.size(), pixels.row(0).data(), width,
                      cairo_image_surface_get_stride(picture.surface), height, TJPF_BGRX,
                      TJFLAG_STOPONWARNING))
        return std::nullopt;
    pixels.changed();
    return picture;
}

}  // namespace sim
