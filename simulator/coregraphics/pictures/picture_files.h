// Picture files: PNG and JPEG in, PNG out.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"

namespace sim {

struct DecodedPicture {
    /// ARGB32 where the file has alpha, else RGB24.
    Surface surface;
    /// Grey or RGB, as the file says.
    CGColorSpaceModel model;
    /// How the picture is to be turned, as EXIF numbers it: 1 is upright, 2 to 8 are not.
    int exif_orientation = 1;
};

/// Nothing for data that is not PNG or JPEG, is cut off or damaged, or holds a picture beyond the limits of
/// coregraphics/pixels.h. 16-bit and indexed pictures come out in 8 bits; colour profiles are not applied.
/// A JPEG of which only so many pixels along its longer side are needed is decoded smaller, where that leaves
/// as many; its memory is that of the smaller picture.
std::optional<DecodedPicture> decode_picture(std::span<const uint8_t> data, size_t needed = SIZE_MAX);

/// The same bytes for the same pixels; nothing when the surface cannot be encoded.
std::optional<std::vector<uint8_t>> encode_png(cairo_surface_t*);

}  // namespace sim
