// Animated PNGs, taken apart: every frame becomes a PNG of its own, which libpng reads.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

namespace test {

struct AnimationFrame {
    double seconds = 0;
    /// What the file holds of it.
    int x = 0, y = 0, width = 0, height = 0;
    /// How the whole looks with it, as 0xRRGGBB.
    std::vector<unsigned> pixels;
};

struct Animation {
    int width = 0, height = 0;
    /// 0 is for ever.
    unsigned plays = 1;
    std::vector<AnimationFrame> frames;

    double seconds() const;
    /// What is shown after so many seconds.
    const AnimationFrame& at(double seconds) const;
};

/// Fails the test for a file that is not one: also for wrong checksums, numbers and counts.
Animation read_animation(const std::filesystem::path& file);

/// Of a PNG of one picture.
std::vector<unsigned> pixels_of(const std::filesystem::path& png);

}  // namespace test
