// Blurs pictures: sums that slide along rows, and rows of sums that slide down the columns.
#include "coregraphics/box_blur.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "coregraphics/pixels.h"

namespace sim {
namespace {

/// The mean of `2 * reach + 1` values from their sum, to nearest.
class Mean {
  public:
    explicit Mean(size_t reach) : factor_(1.0f / static_cast<float>(2 * reach + 1)) {}
    uint8_t operator()(uint32_t sum) const {
        return static_cast<uint8_t>(
            static_cast<int>(static_cast<float>(static_cast<int>(sum)) * factor_ + 0.5f));
    }

  private:
    float factor_;
};

/// What lies within reach of the first of `count` lines; `line(i)` answers a component of line i.
template <class Line>
uint32_t first_sum(size_t count, size_t reach, Line line) {
    const size_t inside = std::min(reach, count - 1);
    auto sum = static_cast<uint32_t>((reach + 1) * line(0) + (reach - inside) * line(count - 1));
    for (size_t i = 1; i <= inside; ++i) sum += line(i);
    return sum;
}

void average_along(std::span<const uint8_t> from, std::span<uint8_t> to, size_t reach) {
    const size_t count = from.size() / Pixels::bytes, last = count - 1;
    const Mean mean(reach);
    uint32_t sums[Pixels::bytes];
    for (size_t c = 0; c < Pixels::bytes; ++c)
        sums[c] = first_sum(count, reach, [&](size_t i) { return from[i * Pixels::bytes + c]; });
    for (size_t x = 0; x < count; ++x) {
        const uint8_t* enters = from.data() + std::min(x + reach + 1, last) * Pixels::bytes;
        const uint8_t* leaves = from.data() + (x > reach ? x - reach : 0) * Pixels::bytes;
        uint8_t* pixel = to.data() + x * Pixels::bytes;
        for (size_t c = 0; c < Pixels::bytes; ++c) {
            pixel[c] = mean(sums[c]);
            sums[c] += enters[c];
            sums[c] -= leaves[c];
        }
    }
}

// Whole rows at a time, as memory has them.
void average_down(const Pixels& from, const Pixels& to, size_t reach) {
    const size_t count = from.height(), last = count - 1, width = from.row(0).size();
    const Mean mean(reach);
    std::vector<uint32_t> sums(width);
    for (size_t i = 0; i < width; ++i)
        sums[i] = first_sum(count, reach, [&](size_t y) { return from.row(y)[i]; });
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

}  // namespace

size_t box_reach(double deviation) {
    if (!(deviation > 0)) return 0;
    const double reach = std::round((std::sqrt(4 * deviation * deviation + 1) - 1) / 2);
    return static_cast<size_t>(std::min<double>(reach, longest_side));
}

void box_blur(cairo_surface_t* surface, double deviation) {
    const size_t reach = box_reach(deviation);
    const Pixels pixels(surface);
    if (!reach || !pixels.width() || !pixels.height()) return;
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
