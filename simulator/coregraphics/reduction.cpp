// Scaling pictures down: rows are summed into one row of the result, then its columns into pixels.
#include "coregraphics/reduction.h"

#include <vector>

#include "coregraphics/pixels.h"

namespace sim {
namespace {

/// The stretch of `size` source lines that one of `count` result lines covers.
struct Stretch {
    size_t first, last;  // inclusive
    float first_weight, whole_weight, last_weight;

    Stretch(size_t index, size_t count, size_t size) {
        // In units of 1/count of a source line everything is a whole number.
        const size_t begin = index * size, end = begin + size;
        first = begin / count;
        last = (end - 1) / count;
        const size_t covered_of_first = last == first ? end - begin : (first + 1) * count - begin;
        first_weight = static_cast<float>(covered_of_first) / static_cast<float>(size);
        last_weight = static_cast<float>(end - last * count) / static_cast<float>(size);
        whole_weight = static_cast<float>(count) / static_cast<float>(size);
    }

    /// The weight that a line of the stretch has in the mean; they add up to 1.
    float weight(size_t line) const {
        return line == first ? first_weight : line == last ? last_weight : whole_weight;
    }
};

void add_row(std::vector<float>& sums, std::span<const uint8_t> row, float weight) {
    float* sum = sums.data();
    const uint8_t* value = row.data();
    for (size_t i = 0, count = row.size(); i < count; ++i) sum[i] += weight * static_cast<float>(value[i]);
}

uint8_t rounded(float value) { return static_cast<uint8_t>(value + 0.5f); }

}  // namespace

Surface reduced(cairo_surface_t* picture, size_t width, size_t height) {
    const Pixels source(picture);
    Surface surface(cairo_image_surface_create(cairo_image_surface_get_format(picture), static_cast<int>(width),
                                               static_cast<int>(height)));
    const Pixels result(surface);
    std::vector<Stretch> columns;
    columns.reserve(width);
    for (size_t x = 0; x < width; ++x) columns.emplace_back(x, width, source.width());

    std::vector<float> sums(source.width() * Pixels::bytes);
    for (size_t y = 0; y < height; ++y) {
        std::fill(sums.begin(), sums.end(), 0.0f);
        const Stretch rows(y, height, source.height());
        for (size_t line = rows.first; line <= rows.last; ++line)
            add_row(sums, source.row(line), rows.weight(line));

        uint8_t* pixel = result.row(y).data();
        for (const Stretch& column : columns) {
            float mean[Pixels::bytes] = {};
            for (size_t x = column.first; x <= column.last; ++x) {
                const float weight = column.weight(x);
                for (size_t i = 0; i < Pixels::bytes; ++i) mean[i] += weight * sums[x * Pixels::bytes + i];
            }
            for (float component : mean) *pixel++ = rounded(component);
        }
    }
    result.changed();
    return surface;
}

}  // namespace sim
