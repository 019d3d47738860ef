// Fills pixels with linear gradients. Along an axis one row or column of colours serves for all. On a slant
// each row is the one before it moved sideways; where colours change too fast for that, they are looked up in
// a table.
#include "coregraphics/drawing/gradient_fill.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstring>

#include "coregraphics/drawing/pixels.h"
#include "coregraphics/transform.h"

namespace sim {
namespace {

double limited(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

uint32_t pixel_of(const RGBA& premultiplied) {
    auto stored = [](double component) { return static_cast<uint32_t>(component * 255 + 0.5); };
    return stored(premultiplied.alpha) << 24 | stored(premultiplied.red) << 16 |
           stored(premultiplied.green) << 8 | stored(premultiplied.blue);
}

RGBA mixed(const RGBA& a, const RGBA& b, double amount) {
    auto mix = [amount](double from, double to) { return from + (to - from) * amount; };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha)};
}

RGBA multiplied(const RGBA& color) {
    return {color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha, color.alpha};
}

/// The most by which a component of 255 differs.
double distance(const RGBA& a, const RGBA& b) {
    return 255 * std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue),
                           std::abs(a.alpha - b.alpha)});
}

bool all_clear(std::span<const uint32_t> pixels) {
    uint32_t any = 0;
    for (uint32_t pixel : pixels) any |= pixel;
    return !any;
}

/// `premultiplied` in 16 bits, of which a register holds more.
uint16_t faded(uint16_t component, uint16_t alpha) {
    const auto product = static_cast<uint16_t>(component * alpha + 128);
    return static_cast<uint16_t>(product + (product >> 8)) >> 8;
}

/// Colours in a row, which are laid over pixels from any place in it on.
class Line {
  public:
    explicit Line(bool opaque) : opaque_(opaque) {}

    /// Takes the colours from the function, as many as that.
    template <class Color>
        requires std::invocable<Color, size_t>
    void assign(size_t count, Color color) {
        colors_.resize(count);
        for (size_t i = 0; i < count; ++i) colors_[i] = color(i);
        if (opaque_) return;
        what_shows_.resize(count * Pixels::bytes);
        for (size_t i = 0; i < count; ++i)
            std::fill_n(&what_shows_[i * Pixels::bytes], Pixels::bytes,
                        static_cast<uint8_t>(255 - (colors_[i] >> 24)));
    }

    void assign(size_t count, uint32_t color) {
        colors_.assign(count, color);
        if (!opaque_) what_shows_.assign(count * Pixels::bytes, static_cast<uint8_t>(255 - (color >> 24)));
    }

    void lay(std::span<uint32_t> row, size_t from) const {
        if (opaque_ || all_clear(row)) {
            std::memcpy(row.data(), &colors_[from], row.size_bytes());
            return;
        }
        auto* below = reinterpret_cast<uint8_t*>(row.data());
        auto* above = reinterpret_cast<const uint8_t*>(&colors_[from]);
        const uint8_t* shows = &what_shows_[from * Pixels::bytes];
        for (size_t i = 0; i < row.size_bytes(); ++i)
            below[i] = static_cast<uint8_t>(above[i] + faded(below[i], shows[i]));
    }

  private:
    bool opaque_;
    std::vector<uint32_t> colors_;
    std::vector<uint8_t> what_shows_;  // of each component below
};

/// The rows of a rectangle of a surface.
class Rows {
  public:
    Rows(cairo_surface_t* surface, const cairo_rectangle_int_t& area) : pixels_(surface), area_(area) {}
    size_t count() const { return static_cast<size_t>(area_.height); }
    size_t width() const { return static_cast<size_t>(area_.width); }
    std::span<uint32_t> operator[](size_t index) const {
        auto* row = reinterpret_cast<uint32_t*>(pixels_.row(static_cast<size_t>(area_.y) + index).data());
        return {row + area_.x, width()};
    }

  private:
    Pixels pixels_;
    const cairo_rectangle_int_t& area_;
};

}  // namespace

GradientFill::GradientFill(const LinearGradient& gradient, const CGAffineTransform& to_pixels)
    : stops_(gradient.stops),
      reaches_before_(gradient.reaches_before),
      reaches_after_(gradient.reaches_after),
      mixing_(gradient.mixing) {
    double reached = 0;
    for (GradientStop& stop : stops_) {
        stop.location = reached = std::max(reached, limited(stop.location));
        for (double* component : {&stop.color.red, &stop.color.green, &stop.color.blue, &stop.color.alpha})
            *component = limited(*component);
        if (mixing_ == ColorMixing::premultiplied) stop.color = multiplied(stop.color);
        opaque_ = opaque_ && stop.color.alpha >= 1;
    }
    opaque_ = opaque_ && reaches_before_ && reaches_after_;
    for (size_t i = 1; i < stops_.size(); ++i) {
        const double length = stops_[i].location - stops_[i - 1].location;
        // Mixed plainly, a component also changes because alpha does.
        const double factor = mixing_ == ColorMixing::plain ? 2 : 1;
        if (length > 0)
            steepness_ =
                std::max(steepness_, factor * distance(stops_[i].color, stops_[i - 1].color) / length);
    }

    const auto from_pixels = inverted(to_pixels);
    const CGPoint start = gradient.start;
    const double x = gradient.end.x - start.x, y = gradient.end.y - start.y, length = x * x + y * y;
    if (!from_pixels || stops_.empty() || !(length > 0)) return;
    across_ = (from_pixels->a * x + from_pixels->b * y) / length;
    down_ = (from_pixels->c * x + from_pixels->d * y) / length;
    const CGPoint first = apply(*from_pixels, {0.5, 0.5});  // the middle of the pixel
    at_origin_ = ((first.x - start.x) * x + (first.y - start.y) * y) / length;
    visible_ = std::isfinite(across_ + down_ + at_origin_);
}

GradientFill::Pixel GradientFill::color_at(double place) const {
    if ((place < 0 && !reaches_before_) || (place > 1 && !reaches_after_)) return 0;
    auto stored = [this](const RGBA& color) {
        return pixel_of(mixing_ == ColorMixing::premultiplied ? color : multiplied(color));
    };
    // Stops are mostly spaced evenly: the search begins where the next one would be.
    auto next = stops_.begin() + static_cast<ptrdiff_t>(limited(place) * static_cast<double>(stops_.size()));
    while (next != stops_.begin() && next[-1].location > place) --next;
    while (next != stops_.end() && next->location <= place) ++next;
    if (next == stops_.begin()) return stored(next->color);
    const GradientStop& last = next[-1];
    if (next == stops_.end()) return stored(last.color);
    return stored(mixed(last.color, next->color, (place - last.location) / (next->location - last.location)));
}

void GradientFill::draw(cairo_surface_t* surface, const cairo_rectangle_int_t& area) const {
    constexpr double nothing = 1e-9, little = 0.25;
    if (std::abs(across_) * area.width < nothing) return draw_rows_of_one_color(surface, area);
    const double moved = std::abs(down_ / across_) * area.height;
    const bool half_a_pixel_shows =
        std::abs(down_) * area.height >= nothing && std::abs(across_) / 2 * steepness_ > little;
    if (half_a_pixel_shows || !(moved < 4.0 * area.width)) return draw_from_table(surface, area);
    draw_shifted_rows(surface, area);
}

void GradientFill::draw_rows_of_one_color(cairo_surface_t* surface, const cairo_rectangle_int_t& area) const {
    const Rows rows(surface, area);
    Line line(opaque_);
    for (size_t y = 0; y < rows.count(); ++y) {
        const auto row = rows[y];
        const Pixel color = color_at(place_of(area.x, area.y + static_cast<double>(y)));
        if (opaque_ || all_clear(row)) {
            std::fill(row.begin(), row.end(), color);
        } else {
            line.assign(row.size(), color);
            line.lay(row, 0);
        }
    }
}

// One line has the colours of all rows, each from where it begins to the nearest pixel.
void GradientFill::draw_shifted_rows(cairo_surface_t* surface, const cairo_rectangle_int_t& area) const {
    const Rows rows(surface, area);
    const double shift = down_ / across_, last_shift = shift * (area.height - 1);
    const double leftmost = std::floor(std::min(0.0, last_shift));
    Line line(opaque_);
    line.assign(rows.width() + static_cast<size_t>(std::ceil(std::abs(last_shift))) + 1, [&](size_t i) {
        return color_at(place_of(area.x + leftmost + static_cast<double>(i), area.y));
    });
    for (size_t y = 0; y < rows.count(); ++y)
        line.lay(rows[y], static_cast<size_t>(std::lround(shift * static_cast<double>(y) - leftmost)));
}

// From before the start, at 0, to after the end; between them so many that neighbours differ by half of 1/255
// at most, as long as that takes no more than 2^18.
std::vector<GradientFill::Pixel> GradientFill::color_table() const {
    constexpr double least = 1 << 10, most = 1 << 18;
    const auto steps = static_cast<size_t>(std::clamp(2 * steepness_, least, most));
    std::vector<Pixel> table(steps + 3);
    table.front() = color_at(-1);
    table.back() = color_at(2);
    for (size_t i = 0; i <= steps; ++i)
        table[i + 1] = color_at(static_cast<double>(i) / static_cast<double>(steps));
    return table;
}

void GradientFill::draw_from_table(cairo_surface_t* surface, const cairo_rectangle_int_t& area) const {
    const Rows rows(surface, area);
    const std::vector<Pixel> table = color_table();
    const auto steps = static_cast<double>(table.size() - 3), last = steps + 2, step = across_ * steps;
    Line line(opaque_);
    for (size_t y = 0; y < rows.count(); ++y) {
        const double first =
            place_of(area.x, area.y + static_cast<double>(y)) * steps + 1.5;  // to the nearest
        line.assign(rows.width(), [&](size_t x) {
            const double index =
                std::clamp(first + step * static_cast<double>(static_cast<int>(x)), 0.0, last);
            return table[static_cast<size_t>(static_cast<int>(index))];
        });
        line.lay(rows[y], 0);
    }
}

}  // namespace sim
