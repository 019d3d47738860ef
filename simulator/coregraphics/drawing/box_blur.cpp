// Blurs pictures: sums that slide along rows, and rows of sums that slide down the columns.
#include "coregraphics/drawing/box_blur.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "coregraphics/drawing/pixels.h"

namespace sim {
namespace {

/// The components of a pixel side by side, for which processors have registers.
using Components = uint32_t __attribute__((vector_size(16)));
using Bytes = uint8_t __attribute__((vector_size(4)));
using Floats = float __attribute__((vector_size(16)));
using Whole = int32_t __attribute__((vector_size(16)));

Components components(const uint8_t* pixel) {
    Bytes bytes;
    std::memcpy(&bytes, pixel, sizeof bytes);
    return __builtin_convertvector(bytes, Components);
}

/// The mean of `2 * reach + 1` values from their sum, to nearest.
class Mean {
  public:
    explicit Mean(size_t reach) : factor_(1.0f / static_cast<float>(2 * reach + 1)) {}
    uint8_t operator()(uint32_t sum) const {
        return static_cast<uint8_t>(
            static_cast<int>(static_cast<float>(static_cast<int>(sum)) * factor_ + 0.5f));
    }
    void write(Components sum, uint8_t* pixel) const {
        const Floats mean =
            __builtin_convertvector(__builtin_convertvector(sum, Whole), Floats) * factor_ + 0.5f;
        const Bytes bytes = __builtin_convertvector(__builtin_convertvector(mean, Whole), Bytes);
        std::memcpy(pixel, &bytes, sizeof bytes);
    }

  private:
    float factor_;
};

/// What lies within reach of the first of `count` lines; `line(i)` answers line i, or a component of it.
template <class Line>
auto first_sum(size_t count, size_t reach, Line line) {
    const size_t inside = std::min(reach, count - 1);
    auto sum =
        line(0) * static_cast<uint32_t>(reach + 1) + line(count - 1) * static_cast<uint32_t>(reach - inside);
    for (size_t i = 1; i <= inside; ++i) sum += line(i);
    return sum;
}

void average_along(std::span<const uint8_t> from, std::span<uint8_t> to, size_t reach) {
    const size_t count = from.size() / Pixels::bytes, last = count - 1;
    const Mean mean(reach);
    auto pixel = [&](size_t x) { return components(from.data() + x * Pixels::bytes); };
    Components sum = first_sum(count, reach, pixel);
    for (size_t x = 0; x < count; ++x) {
        mean.write(sum, to.data() + x * Pixels::bytes);
        sum += pixel(std::min(x + reach + 1, last)) - pixel(x > reach ? x - reach : 0);
    }
}

// Whole rows at a time, as memory has them.
void average_down(const Pixels& from, const Pixels& to, size_t reach) {
    const size_t count = from.height(), last = count - 1, width = from.row(0).size();
    const Mean mean(reach);
    std::vector<uint32_t> sums(width);
    for (size_t i = 0; i < width; ++i)
        sums[i] = first_sum(count, reach, [&](size_t y) { return uint32_t{from.row(y)[i]}; });
    for (size_t y = 0; y < count; ++y) {
        const uint8_t* enters = from.row(std::min(y + reach + 1, last)).data();
        const uint8_t* leaves = from.row(y > reach ? y - reach : 0).data();
        uint8_t* row = to.row(y).data();
        uint32_t* sum = sums.data();
        for (size_t i = 0; i < width; ++i) {
            row[i] = mean(sum[i]);
            sum[i] += enters[i];
            sum[i] -= leaves[i];
        }
    }
}

/// A page's plain background behind a keyboard, for one.
bool is_even(const Pixels& pixels) {
    const auto first = pixels.row(0);
    if (std::memcmp(first.data(), first.data() + Pixels::bytes, first.size() - Pixels::bytes) != 0)
        return false;
    for (size_t y = 1; y < pixels.height(); ++y)
        if (std::memcmp(first.data(), pixels.row(y).data(), first.size()) != 0) return false;
    return true;
}

}  // namespace

size_t box_reach(double deviation) {
    if (!(deviation > 0)) return 0;
    const double reach = std::round((std::sqrt(4 * deviation * deviation + 1) - 1) / 2);
    return static_cast<size_t>(std::min<double>(reach, longest_side));
}

void box_blur(cairo_surface_t* surface, double deviation) {
    const size_t reach = box_reach(deviation);
    const Pixels pixels(surface);
    if (!reach || !pixels.width() || !pixels.height() || is_even(pixels)) return;
    const Surface other(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(pixels.width()),
                                                   static_cast<int>(pixels.height())));
    if (cairo_surface_status(other)) return;
    const Pixels spare(other);
    for (int pass = 0; pass < 3; ++pass) {
        for (size_t y = 0; y < pixels.height(); ++y) average_along(pixels.row(y), spare.row(y), reach);
        average_down(spare, pixels, reach);
    }
    pixels.changed();
}

}  // namespace sim
