// What matters in a picture: where it has detail and colours that stand out.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "photos/picture.h"
#include "readability/oklab.h"

namespace command {
namespace {

constexpr size_t looked_at = 160;  // pixels of the longer side

/// How much each pixel draws the eye.
std::vector<double> interest_of(const Picture& small) {
    std::vector<Oklab> colours;
    Oklab mean;
    for (size_t i = 0; i < small.pixels.size(); i += 4) {
        const uint8_t* pixel = &small.pixels[i];
        colours.push_back(oklab_of({pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1}));
        mean.lightness += colours.back().lightness;
        mean.a += colours.back().a;
        mean.b += colours.back().b;
    }
    const auto count = static_cast<double>(colours.size());
    mean = {mean.lightness / count, mean.a / count, mean.b / count};
    std::vector<double> interest(colours.size());
    const size_t width = small.width;
    for (size_t y = 1; y + 1 < small.height; ++y)
        for (size_t x = 1; x + 1 < width; ++x) {
            const size_t at = y * width + x;
            const double detail = distance(colours[at - 1], colours[at + 1]) +
                                  distance(colours[at - width], colours[at + width]);
            // Half counts how far the colour is from the picture's mean: what is unusual is the subject.
            interest[at] = detail + 0.5 * distance(colours[at], mean);
        }
    return interest;
}

/// Where a window of the length stands best on a line of sums: most inside, little cut through at its edges,
/// and of equals the one nearest to the middle. A window has a place at least, however short it is.
double best_place(const std::vector<double>& sums, double length) {
    const auto window = std::clamp<size_t>(static_cast<size_t>(std::lround(length)), 1, sums.size());
    const double all = std::accumulate(sums.begin(), sums.end(), 0.0) + 1e-9;
    const auto room = static_cast<double>(sums.size() - window);
    double best = -1e9, place = room / 2;
    for (size_t at = 0; at + window <= sums.size(); ++at) {
        const double inside = std::accumulate(sums.begin() + static_cast<std::ptrdiff_t>(at),
                                              sums.begin() + static_cast<std::ptrdiff_t>(at + window), 0.0) /
                              all;
        const double cut = (at ? sums[at] : 0) + (at + window < sums.size() ? sums[at + window - 1] : 0);
        const double off = room > 0 ? std::abs(static_cast<double>(at) - room / 2) / room : 0;
        const double score = inside - 0.5 * cut / all - 0.1 * off;
        if (score > best + 1e-9) {
            best = score;
            place = static_cast<double>(at);
        }
    }
    return place;
}

}  // namespace

Region best_region(const Picture& picture, double shape) {
    const auto width = static_cast<double>(picture.width), height = static_cast<double>(picture.height);
    Region region{0, 0, std::min(width, height * shape), std::min(height, width / shape)};
    const double scale = std::min(1.0, looked_at / std::max(width, height));
    const auto small_width = std::max<size_t>(1, static_cast<size_t>(width * scale)),
               small_height = std::max<size_t>(1, static_cast<size_t>(height * scale));
    const Picture small = scaled(picture, {0, 0, width, height}, small_width, small_height);
    const std::vector<double> interest = interest_of(small);
    std::vector<double> columns(small_width), rows(small_height);
    for (size_t y = 0; y < small_height; ++y)
        for (size_t x = 0; x < small_width; ++x) {
            columns[x] += interest[y * small_width + x];
            rows[y] += interest[y * small_width + x];
        }
    const double across = static_cast<double>(small_width) / width,
                 down = static_cast<double>(small_height) / height;
    if (region.width < width)
        region.x = std::clamp(best_place(columns, region.width * across) / across, 0.0, width - region.width);
    if (region.height < height)
        region.y = std::clamp(best_place(rows, region.height * down) / down, 0.0, height - region.height);
    return region;
}

}  // namespace command
