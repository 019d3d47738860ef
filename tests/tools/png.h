// Pictures that the command wrote.
#pragma once
#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace test {

struct Png {
    int width = 0, height = 0;
    std::vector<unsigned> pixels;  // 0xRRGGBB

    explicit Png(const std::filesystem::path& file) {
        cairo_surface_t* surface = cairo_image_surface_create_from_png(file.c_str());
        EXPECT_EQ(cairo_surface_status(surface), CAIRO_STATUS_SUCCESS) << file;
        width = cairo_image_surface_get_width(surface);
        height = cairo_image_surface_get_height(surface);
        const int stride = cairo_image_surface_get_stride(surface);
        const unsigned char* data = cairo_image_surface_get_data(surface);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels.push_back(*reinterpret_cast<const unsigned*>(data + y * stride + 4 * x) & 0xffffff);
        cairo_surface_destroy(surface);
    }

    unsigned at(int x, int y) const {
        return pixels.at(static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x));
    }
};

/// How many channels of two pictures' pixels differ clearly.
inline int strays(const std::vector<unsigned>& a, const std::vector<unsigned>& b) {
    constexpr int tolerance = 8;
    int count = 0;
    for (size_t i = 0; i < a.size(); ++i)
        for (const int shift : {0, 8, 16})
            count += std::abs(static_cast<int>(a[i] >> shift & 255) - static_cast<int>(b[i] >> shift & 255)) >
                     tolerance;
    return count;
}

}  // namespace test
