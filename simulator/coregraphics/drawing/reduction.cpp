// Scaling pictures down: rows are summed into one row of the result, then its columns into pixels. Rows that
// count whole are summed as the numbers that they are, which is what takes the time of large pictures.
#include "coregraphics/drawing/reduction.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "coregraphics/drawing/pixels.h"

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

/// Sums rows; short numbers hold those of a few rows, which are more of them to a register.
class WholeRows {
  public:
    explicit WholeRows(size_t components) : few_(components), all_(components) {}

    void add(std::span<const uint8_t> row) {
        if (++rows_ == most_of_few) flush();
        uint16_t* sum = few_.data();
        const uint8_t* value = row.data();
        for (size_t i = 0, count = row.size(); i < count; ++i)
            sum[i] = static_cast<uint16_t>(sum[i] + value[i]);
    }

    /// Adds the sums, weighted, and begins again.
    void move_to(std::vector<float>& sums, float weight) {
        flush();
        for (size_t i = 0; i < sums.size(); ++i)
            sums[i] += weight * static_cast<float>(static_cast<int>(all_[i]));
        std::fill(all_.begin(), all_.end(), 0);
    }

  private:
    static constexpr size_t most_of_few = UINT16_MAX / UINT8_MAX;

    void flush() {
        for (size_t i = 0; i < few_.size(); ++i) all_[i] += few_[i];
        std::fill(few_.begin(), few_.end(), uint16_t{0});
        rows_ = 0;
    }

    std::vector<uint16_t> few_;
    std::vector<uint32_t> all_;
    size_t rows_ = 0;
};

using Bytes = uint8_t __attribute__((vector_size(4)));

/// The components of two neighbouring pixels.
using Pair = uint16_t __attribute__((vector_size(16)));
using PairBytes = uint8_t __attribute__((vector_size(8)));

Pair pair(const uint8_t* pixels) {
    PairBytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return __builtin_convertvector(bytes, Pair);
}

/// A picture of half the width and height, which is what the weighted sums below come to. It is the common
/// case: a picture for two pixels a point, drawn with one.
void halve(const Pixels& source, const Pixels& result) {
    for (size_t y = 0; y < result.height(); ++y) {
        const auto upper = source.row(2 * y), lower = source.row(2 * y + 1), row = result.row(y);
        for (size_t i = 0; i < row.size(); i += Pixels::bytes) {
            const Pair columns = pair(&upper[2 * i]) + pair(&lower[2 * i]);
            const auto sums = __builtin_shufflevector(columns, columns, 0, 1, 2, 3) +
                              __builtin_shufflevector(columns, columns, 4, 5, 6, 7);
            const Bytes means = __builtin_convertvector((sums + 2) / 4, Bytes);
            std::memcpy(&row[i], &means, sizeof means);
        }
    }
}

/// The components of a pixel side by side, for which processors have registers.
using Floats = float __attribute__((vector_size(16)));

Floats components(const std::vector<float>& sums, size_t x) {
    Floats pixel;
    std::memcpy(&pixel, &sums[x * Pixels::bytes], sizeof pixel);
    return pixel;
}

void write_rounded(Floats mean, uint8_t* pixel) {
    using Whole = int32_t __attribute__((vector_size(16)));
    const Bytes bytes = __builtin_convertvector(__builtin_convertvector(mean + 0.5f, Whole), Bytes);
    std::memcpy(pixel, &bytes, sizeof bytes);
}

}  // namespace

Surface reduced(cairo_surface_t* picture, size_t width, size_t height) {
    const Pixels source(picture);
    Surface surface = unwritten_surface(cairo_image_surface_get_format(picture), width, height);
    const Pixels result(surface);
    if (source.width() == 2 * width && source.height() == 2 * height) {
        halve(source, result);
        result.changed();
        return surface;
    }
    std::vector<Stretch> columns;
    columns.reserve(width);
    for (size_t x = 0; x < width; ++x) columns.emplace_back(x, width, source.width());

    std::vector<float> sums(source.width() * Pixels::bytes);
    const bool many_rows = source.height() / height > 8;
    WholeRows whole_rows(many_rows ? sums.size() : 0);
    for (size_t y = 0; y < height; ++y) {
        std::fill(sums.begin(), sums.end(), 0.0f);
        const Stretch rows(y, height, source.height());
        for (size_t line = rows.first; line <= rows.last; ++line) {
            if (many_rows && rows.weight(line) == rows.whole_weight)
                whole_rows.add(source.row(line));
            else
                add_row(sums, source.row(line), rows.weight(line));
        }
        if (many_rows) whole_rows.move_to(sums, rows.whole_weight);

        uint8_t* pixel = result.row(y).data();
        for (const Stretch& column : columns) {
            Floats mean = column.first_weight * components(sums, column.first);
            for (size_t x = column.first + 1; x < column.last; ++x)
                mean += column.whole_weight * components(sums, x);
            if (column.last > column.first) mean += column.last_weight * components(sums, column.last);
            write_rounded(mean, pixel);
            pixel += Pixels::bytes;
        }
    }
    result.changed();
    return surface;
}

}  // namespace sim
