// Photos that tests make, and the picture that a theme keeps.
#pragma once
#include <array>
#include <functional>
#include <string>
#include <vector>

namespace test {

using Rgb = std::array<int, 3>;

/// A picture by its pixels, rows from above.
struct Sample {
    int width = 0, height = 0;
    std::vector<Rgb> pixels;

    const Rgb& at(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
};

Sample sample(int width, int height, const std::function<Rgb(int x, int y)>& colour);

struct JpegWish {
    int orientation = 0;       ///< EXIF's; 0 writes none
    std::string profile = {};  ///< ICC
    bool inks = false;         ///< CMYK, as Adobe writes it, from red, green and blue without black
};
std::string jpeg_of(const Sample& picture, const JpegWish& wish = {});
/// From left to right from black to white, made row by row.
std::string large_jpeg(int width, int height);
std::string png_of(const Sample& picture);
std::string webp_of(const Sample& picture);
std::string heic_of(const Sample& picture);
/// The profile of a wider space: Display P3.
std::string wide_profile();

/// The picture in a theme's file, which is XML.
Sample picture_in(const std::string& theme);
/// What it is kept as, and how many bytes.
std::string picture_bytes_in(const std::string& theme);

}  // namespace test
