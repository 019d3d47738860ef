// What filling a keyboard with a gradient costs, against writing its pixels once.
//
// The keyboard is 375 x 256 points at 3 pixels each; its layer is drawn into a bitmap as a screen's is. All
// rows write the same memory.
#include <cairo.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>

#include "measuring/check.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "platform/quartzcore.h"
#include "support/phone.h"

namespace bench {

namespace {

constexpr size_t scale = 3, points_wide = 375, points_high = 256, width = points_wide * scale,
                 height = points_high * scale;

using CairoSurface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, decltype(&cairo_pattern_destroy)>;
using Cairo = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

/// The keyboard's pixels, for both to draw into.
class Screen {
  public:
    Screen() {
        CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
        context_ = CGBitmapContextCreate(nullptr, width, height, 8, width * 4, rgb,
                                         kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little);
        CGColorSpaceRelease(rgb);
        check(context_, "there is a bitmap of the keyboard's size");
        CGContextScaleCTM(context_, scale, scale);
        surface_.reset(cairo_image_surface_create_for_data(pixels(), CAIRO_FORMAT_ARGB32, width, height,
                                                           static_cast<int>(width * 4)));
    }
    Screen(const Screen&) = delete;
    ~Screen() { CGContextRelease(context_); }

    CGContextRef context() const { return context_; }
    uint8_t* pixels() const { return static_cast<uint8_t*>(CGBitmapContextGetData(context_)); }
    cairo_surface_t* surface() const { return surface_.get(); }
    void write_once(int byte) const { std::memset(pixels(), byte, width * height * 4); }

  private:
    CGContextRef context_;
    CairoSurface surface_{nullptr, &cairo_surface_destroy};
};

/// Colours from one end to the other of a wheel, so that neighbours differ and all of them count.
objc::strong<CAGradientLayer> layer_with(size_t colours, double alpha, CGPoint start, CGPoint end) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(colours);
    for (size_t i = 0; i < colours; ++i) {
        const double turn = static_cast<double>(i) * 2.4;
        list->addObject(reinterpret_cast<id>(
            UIColor::colorWithRGB(0.5 + 0.5 * std::sin(turn), 0.5 + 0.5 * std::cos(turn), 0.3, alpha)
                ->CGColor()));
    }
    objc::strong<CAGradientLayer> layer = CAGradientLayer::layer();
    layer->setFrame({{0, 0}, {points_wide, points_high}});
    layer->setColors(list);
    layer->setStartPoint(start);
    layer->setEndPoint(end);
    return layer;
}

void fill_by_cairo(const Screen& screen) {
    const CairoPattern pattern(cairo_pattern_create_linear(0, 0, width, height), &cairo_pattern_destroy);
    cairo_pattern_add_color_stop_rgb(pattern.get(), 0, 0.5, 1, 0.3);
    cairo_pattern_add_color_stop_rgb(pattern.get(), 1, 0.84, 0.13, 0.3);
    const Cairo cairo(cairo_create(screen.surface()), &cairo_destroy);
    cairo_set_source(cairo.get(), pattern.get());
    cairo_paint(cairo.get());
    cairo_surface_flush(screen.surface());
}

struct Row {
    const char* what;
    std::optional<double> limit;
    size_t colours;
    double alpha;
    CGPoint start, end;
};

constexpr CGPoint left{0, 0.5}, right{1, 0.5}, top{0.5, 0}, bottom{0.5, 1}, top_left{0, 0},
    bottom_right{1, 1};
constexpr double along_an_axis = 3, on_a_slant = 12;
const Row rows[] = {
    {"gradient, top to bottom", along_an_axis, 2, 1, top, bottom},
    {"gradient, left to right", along_an_axis, 2, 1, left, right},
    {"gradient, diagonal", on_a_slant, 2, 1, top_left, bottom_right},
    {"  translucent over content, top to bottom", {}, 2, 0.5, top, bottom},
    {"  translucent over content, left to right", {}, 2, 0.5, left, right},
    {"  translucent over content, diagonal", {}, 2, 0.5, top_left, bottom_right},
    {"  1000 colours, top to bottom", {}, 1000, 1, top, bottom},
    {"  1000 colours, left to right", {}, 1000, 1, left, right},
    {"  1000 colours, diagonal", {}, 1000, 1, top_left, bottom_right},
};

/// Whether the layer's first and last pixel have the colours of its ends.
void check_drawing(const Screen& screen) {
    screen.write_once(0);
    objc::strong<CAGradientLayer> layer = layer_with(2, 1, top_left, bottom_right);
    layer->renderInContext(screen.context());
    uint32_t first, last;
    // User space has y up, so the layer's top is in the bitmap's last row.
    std::memcpy(&first, screen.pixels() + width * (height - 1) * 4, 4);
    std::memcpy(&last, screen.pixels() + (width - 1) * 4, 4);
    auto near = [](uint32_t pixel, double red, double green) {
        return std::abs((pixel >> 16 & 255) - red * 255) < 2 &&
               std::abs((pixel >> 8 & 255) - green * 255) < 2;
    };
    check(near(first, 0.5, 1), "the gradient begins with its first colour");
    check(near(last, 0.5 + 0.5 * std::sin(2.4), 0.5 + 0.5 * std::cos(2.4)), "and ends with its last");
}

}  // namespace

void measure_gradients(std::vector<Ratio>& ratios) {
    objc::AutoreleasePool pool;
    const Screen screen;
    check_drawing(screen);
    std::vector<objc::strong<CAGradientLayer>> layers;
    std::vector<std::function<void()>> works{[&] { screen.write_once(0x80); },
                                             [&] { fill_by_cairo(screen); }};
    for (const Row& row : rows) {
        layers.push_back(layer_with(row.colours, row.alpha, row.start, row.end));
        works.push_back([&screen, layer = layers.back().get()] { layer->renderInContext(screen.context()); });
    }
    constexpr int rounds = 61;
    const auto seconds = seconds_of(rounds, works);
    auto against_writing = [&](const char* what, std::optional<double> limit, double cost) {
        ratios.push_back({.what = what,
                          .against = "writing the keyboard's 1125 x 768 pixels once",
                          .limit = limit,
                          .cost = cost,
                          .cost_against = seconds[0]});
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        against_writing(rows[i].what, rows[i].limit, seconds[2 + i]);
        if (rows[i].limit == on_a_slant)
            against_writing("  the same diagonal by cairo", std::nullopt, seconds[1]);
    }
}

}  // namespace bench
