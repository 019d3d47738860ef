// Pictures in memory, and what is done to them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "themes/colour.h"

namespace command {

/// Rows from above, four bytes a pixel: red, green and blue of sRGB, and alpha, which the others are not
/// multiplied by.
struct Picture {
    size_t width = 0, height = 0;
    std::vector<uint8_t> pixels;

    Picture() = default;
    Picture(size_t w, size_t h) : width(w), height(h), pixels(w * h * 4) {}
    uint8_t* at(size_t x, size_t y) { return &pixels[(y * width + x) * 4]; }
    const uint8_t* at(size_t x, size_t y) const { return &pixels[(y * width + x) * 4]; }
    bool is_opaque() const;
    Colour mean() const;
};

/// In pixels, from the upper left corner.
struct Region {
    double x = 0, y = 0, width = 0, height = 0;
};

/// Turned and mirrored as EXIF's orientation, 1 to 8, says that the picture is shown.
Picture upright(const Picture& picture, int orientation);

/// The region, scaled to a size. What is reduced is averaged, in linear light.
Picture scaled(const Picture& picture, const Region& region, size_t width, size_t height);

/// Black over it, from 0 to 1.
void dim(Picture& picture, double part);

/// As a Gaussian of this deviation in pixels.
void blur(Picture& picture, double deviation);

/// The largest region of the shape, width through height, that holds most of what draws the eye: see
/// docs/command.md.
Region best_region(const Picture& picture, double shape);

/// The mean of the pixels along its edges.
Colour mean_of_edges(const Picture& picture);

}  // namespace command
