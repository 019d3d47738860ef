// What is done to pictures: turning, scaling, dimming, blurring.
#include "photos/picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace command {
namespace {

/// sRGB's bytes in linear light.
const std::array<float, 256>& linear_of_byte() {
    static const auto table = [] {
        std::array<float, 256> values{};
        for (size_t i = 0; i < values.size(); ++i) {
            const double c = static_cast<double>(i) / 255;
            values[i] = static_cast<float>(c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
        }
        return values;
    }();
    return table;
}

/// The way back, by a table that is fine enough for every byte.
uint8_t byte_of_linear(float light) {
    constexpr int steps = 1 << 14;
    static const auto table = [] {
        std::vector<uint8_t> values(steps + 1);
        for (int i = 0; i <= steps; ++i) {
            const double c = static_cast<double>(i) / steps;
            const double encoded = c <= 0.0031308 ? c * 12.92 : 1.055 * std::pow(c, 1 / 2.4) - 0.055;
            values[static_cast<size_t>(i)] = static_cast<uint8_t>(std::lround(encoded * 255));
        }
        return values;
    }();
    return table[static_cast<size_t>(std::clamp(light, 0.0f, 1.0f) * steps + 0.5f)];
}

/// Which pixels of one axis make up one of another, and with what weight.
struct Share {
    size_t first = 0;
    std::vector<float> weights;
};

std::vector<Share> shares(double from, double length, size_t available, size_t wanted) {
    std::vector<Share> all(wanted);
    const double step = length / static_cast<double>(wanted);
    const double last = static_cast<double>(available) - 1;
    for (size_t i = 0; i < wanted; ++i) {
        if (step >= 1) {
            const double begin = std::max(from + static_cast<double>(i) * step, 0.0);
            const double end = std::clamp(begin + step, begin, last + 1);
            all[i].first = static_cast<size_t>(std::min(begin, last));
            for (double at = static_cast<double>(all[i].first); at < end; ++at)
                all[i].weights.push_back(static_cast<float>(std::min(at + 1, end) - std::max(at, begin)));
        } else {
            const double middle = std::clamp(from + (static_cast<double>(i) + 0.5) * step - 0.5, 0.0, last);
            all[i].first = static_cast<size_t>(middle);
            const auto part = static_cast<float>(middle - std::floor(middle));
            all[i].weights = {1 - part};
            if (part > 0 && middle + 1 <= last) all[i].weights.push_back(part);
        }
        float sum = 0;
        for (float weight : all[i].weights) sum += weight;
        for (float& weight : all[i].weights) weight /= sum;
    }
    return all;
}

}  // namespace

bool Picture::is_opaque() const {
    for (size_t i = 3; i < pixels.size(); i += 4)
        if (pixels[i] != 255) return false;
    return true;
}

Colour Picture::mean() const {
    std::array<double, 4> sums{};
    for (size_t i = 0; i < pixels.size(); ++i) sums[i % 4] += pixels[i];
    const double all = 255.0 * static_cast<double>(width * height);
    return {sums[0] / all, sums[1] / all, sums[2] / all, 1};
}

Colour mean_of_edges(const Picture& picture) {
    std::array<double, 3> sums{};
    double count = 0;
    for (size_t y = 0; y < picture.height; ++y)
        for (size_t x = 0; x < picture.width; ++x) {
            if (x && y && x + 1 < picture.width && y + 1 < picture.height) continue;
            for (size_t c = 0; c < 3; ++c) sums[c] += picture.at(x, y)[c] / 255.0;
            ++count;
        }
    return {sums[0] / count, sums[1] / count, sums[2] / count, 1};
}

Picture upright(const Picture& picture, int orientation) {
    if (orientation <= 1 || orientation > 8) return picture;
    const bool swaps = orientation >= 5;
    Picture turned(swaps ? picture.height : picture.width, swaps ? picture.width : picture.height);
    for (size_t y = 0; y < turned.height; ++y)
        for (size_t x = 0; x < turned.width; ++x) {
            size_t from_x = swaps ? y : x, from_y = swaps ? x : y;
            const bool right_to_left =
                orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
            const bool bottom_up =
                orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
            if (right_to_left) from_x = picture.width - 1 - from_x;
            if (bottom_up) from_y = picture.height - 1 - from_y;
            std::copy_n(picture.at(from_x, from_y), 4, turned.at(x, y));
        }
    return turned;
}

Picture scaled(const Picture& picture, const Region& region, size_t width, size_t height) {
    const auto columns = shares(region.x, region.width, picture.width, width);
    const auto rows = shares(region.y, region.height, picture.height, height);
    const auto& linear = linear_of_byte();
    Picture result(width, height);
    std::vector<float> sums(width * 4);
    for (size_t y = 0; y < height; ++y) {
        std::ranges::fill(sums, 0.0f);
        for (size_t row = 0; row < rows[y].weights.size(); ++row)
            for (size_t x = 0; x < width; ++x) {
                float* sum = &sums[x * 4];
                for (size_t column = 0; column < columns[x].weights.size(); ++column) {
                    const uint8_t* pixel = picture.at(columns[x].first + column, rows[y].first + row);
                    const float alpha =
                        columns[x].weights[column] * rows[y].weights[row] * static_cast<float>(pixel[3]);
                    for (int c = 0; c < 3; ++c) sum[c] += linear[pixel[c]] * alpha;
                    sum[3] += alpha;
                }
            }
        for (size_t x = 0; x < width; ++x) {
            const float* sum = &sums[x * 4];
            uint8_t* pixel = result.at(x, y);
            for (int c = 0; c < 3; ++c) pixel[c] = sum[3] > 0 ? byte_of_linear(sum[c] / sum[3]) : 0;
            pixel[3] = static_cast<uint8_t>(std::lround(std::clamp(sum[3], 0.0f, 255.0f)));
        }
    }
    return result;
}

void dim(Picture& picture, double part) {
    const double kept = 1 - part;
    for (size_t i = 0; i < picture.pixels.size(); ++i)
        if (i % 4 != 3) picture.pixels[i] = static_cast<uint8_t>(std::lround(picture.pixels[i] * kept));
}

namespace {

/// The mean of 2 * radius + 1 neighbours along a line of pixels; beyond its ends, the last one goes on.
void blur_line(const std::vector<float>& from, std::vector<float>& to, size_t count, size_t radius) {
    const auto last = static_cast<std::ptrdiff_t>(count) - 1, reach = static_cast<std::ptrdiff_t>(radius);
    const auto value = [&](std::ptrdiff_t at, size_t c) {
        return from[static_cast<size_t>(std::clamp(at, std::ptrdiff_t{0}, last)) * 4 + c];
    };
    for (size_t c = 0; c < 4; ++c) {
        float sum = 0;
        for (std::ptrdiff_t at = -reach; at <= reach; ++at) sum += value(at, c);
        for (std::ptrdiff_t at = 0; at <= last; ++at) {
            to[static_cast<size_t>(at) * 4 + c] = sum / static_cast<float>(2 * radius + 1);
            sum += value(at + reach + 1, c) - value(at - reach, c);
        }
    }
}

}  // namespace

void blur(Picture& picture, double deviation) {
    // Three means after one another are nearly a Gaussian; their widths add up to its variance.
    const auto radius = static_cast<size_t>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
    if (radius == 0) return;
    auto along = [&](size_t lines, size_t count, auto place) {
        std::vector<float> a(count * 4), b(count * 4);
        for (size_t line = 0; line < lines; ++line) {
            for (size_t i = 0; i < count * 4; ++i) a[i] = picture.pixels[place(line, i / 4) * 4 + i % 4];
            for (int pass = 0; pass < 3; ++pass) {
                blur_line(a, b, count, radius);
                a.swap(b);
            }
            for (size_t i = 0; i < count * 4; ++i)
                picture.pixels[place(line, i / 4) * 4 + i % 4] =
                    static_cast<uint8_t>(std::lround(std::clamp(a[i], 0.0f, 255.0f)));
        }
    };
    along(picture.height, picture.width, [&](size_t line, size_t i) { return line * picture.width + i; });
    along(picture.width, picture.height, [&](size_t line, size_t i) { return i * picture.width + line; });
}

}  // namespace command
