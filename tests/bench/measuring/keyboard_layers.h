// A keyboard's picture taken apart into layers, as files.
#pragma once
#include <filesystem>
#include <vector>

namespace bench {

/// A file that lies over the background, its upper left corner so many pixels from the background's.
struct Layer {
    std::filesystem::path file;
    int left = 0, top = 0;
};

struct Size {
    int width = 0, height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};
Size size_of(const std::filesystem::path& png);

/// Writes what the second picture shows and the first does not: a file for each part of it that stands by
/// itself, transparent where the pictures are alike. What is no farther apart than `gap` pixels is one part.
/// The pictures are equally large. `name` begins the files' names.
std::vector<Layer> write_layers(const std::filesystem::path& without, const std::filesystem::path& with,
                                const std::filesystem::path& name, int gap);

/// Writes the background and the layers into one file, as pixels: of each its place and size, as four 32-bit
/// numbers, and 32 bits a pixel, those of the background opaque.
void write_pixels(const std::filesystem::path& background, const std::vector<Layer>& layers,
                  const std::filesystem::path& file);

/// Cuts off what is above the lowest rows of a picture.
void keep_lowest(const std::filesystem::path& png, int rows);

/// Whether every pixel is the same.
bool look_alike(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace bench
