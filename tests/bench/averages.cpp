// What the average colour of a large picture costs, against cairo scaling the same picture down.
//
// Painted to one pixel at once, cairo would read no more than 16 x 16 of the picture's pixels. So it goes in
// steps whose filter covers all of them, by the factor that turns out to be quicker: 16, the most that the
// filter spans, or 2.
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

#include "measuring/check.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "support/phone.h"

namespace bench {

namespace {

constexpr int width = 3000, height = 2000;

using CairoSurface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Cairo = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

/// Noise that is redder to the left and greener to the top, and opaque.
uint32_t colour_at(int x, int y) {
    const uint32_t noise = (static_cast<uint32_t>(x) * 2654435761u ^ static_cast<uint32_t>(y) * 40503u) >> 7;
    const auto red = 255 - static_cast<uint32_t>(x) * 200 / width - (noise & 31);
    const auto green = 255 - static_cast<uint32_t>(y) * 200 / height - (noise >> 5 & 31);
    return 0xff000000 | red << 16 | green << 8 | (noise >> 10 & 255);
}

/// The bitmap that is drawn into in memory's own order.
CGContextRef bitmap() {
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    CGContextRef context =
        CGBitmapContextCreate(nullptr, width, height, 8, width * 4, rgb,
                              kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little);
    CGColorSpaceRelease(rgb);
    check(context, "there is a large bitmap");
    auto* pixel = static_cast<uint32_t*>(CGBitmapContextGetData(context));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) *pixel++ = colour_at(x, y);
    return context;
}

CairoSurface reduced_by_cairo(cairo_surface_t* picture, int factor) {
    const int from_width = cairo_image_surface_get_width(picture);
    const int from_height = cairo_image_surface_get_height(picture);
    const int to_width = (from_width + factor - 1) / factor, to_height = (from_height + factor - 1) / factor;
    CairoSurface smaller(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, to_width, to_height),
                         &cairo_surface_destroy);
    const Cairo cairo(cairo_create(smaller.get()), &cairo_destroy);
    cairo_scale(cairo.get(), static_cast<double>(to_width) / from_width,
                static_cast<double>(to_height) / from_height);
    cairo_set_operator(cairo.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo.get(), picture, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo.get()), CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(cairo.get()), CAIRO_EXTEND_PAD);
    cairo_paint(cairo.get());
    return smaller;
}

uint32_t average_by_cairo(cairo_surface_t* picture, int factor) {
    CairoSurface smaller = reduced_by_cairo(picture, factor);
    while (cairo_image_surface_get_width(smaller.get()) > 1 ||
           cairo_image_surface_get_height(smaller.get()) > 1)
        smaller = reduced_by_cairo(smaller.get(), factor);
    cairo_surface_flush(smaller.get());
    return *reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(smaller.get()));
}

id tool() { return reinterpret_cast<id>(objc_getClass("HCCITool")); }

UIColor* average_with_alpha(UIImage* image) {
    return objc::send<"averageColorWithAlphaForImage:", UIColor*>(tool(), image);
}
UIColor* average(UIImage* image) { return objc::send<"averageColorForImage:", UIColor*>(tool(), image); }

/// Whether the components of both are near to each other.
bool agree(UIColor* colour, uint32_t pixel) {
    double components[4];
    colour->getRGB(&components[0], &components[1], &components[2], &components[3]);
    constexpr double apart = 4;  // each of cairo's steps rounds
    constexpr int shifts[] = {16, 8, 0, 24};
    for (int i = 0; i < 4; ++i)
        if (std::abs(components[i] * 255 - (pixel >> shifts[i] & 255)) > apart) return false;
    return true;
}

}  // namespace

void measure_averages(std::vector<Ratio>& ratios) {
    objc::AutoreleasePool pool;
    CGContextRef context = bitmap();
    CGImageRef picture = CGBitmapContextCreateImage(context);
    objc::strong<UIImage> image = UIImage::imageWithCGImage(picture);
    CGImageRelease(picture);
    const CairoSurface surface(
        cairo_image_surface_create_for_data(static_cast<uint8_t*>(CGBitmapContextGetData(context)),
                                            CAIRO_FORMAT_ARGB32, width, height, width * 4),
        &cairo_surface_destroy);
    for (int factor : {16, 2}) {
        const uint32_t pixel = average_by_cairo(surface.get(), factor);
        check(agree(average_with_alpha(image), pixel) && agree(average(image), pixel),
              "the library and cairo find the same average");
    }

    constexpr int rounds = 15;
    const auto seconds = seconds_of(
        rounds, {[&] { average_with_alpha(image); }, [&] { average(image); },
                 [&] { average_by_cairo(surface.get(), 16); }, [&] { average_by_cairo(surface.get(), 2); }});
    const bool by_sixteen = seconds[2] < seconds[3];
    const char* against = by_sixteen ? "cairo scaling it to one pixel by sixteenths"
                                     : "cairo scaling it to one pixel by halves";
    const double quicker = std::min(seconds[2], seconds[3]);
    auto row = [&](const char* what, std::optional<double> limit, double cost) {
        ratios.push_back(
            {.what = what, .against = against, .limit = limit, .cost = cost, .cost_against = quicker});
    };
    constexpr double twice = 2;
    row("averageColorWithAlphaForImage:, 3000 x 2000", twice, seconds[0]);
    row("averageColorForImage:, 3000 x 2000", twice, seconds[1]);
    row(by_sixteen ? "  cairo by halves" : "  cairo by sixteenths", {}, std::max(seconds[2], seconds[3]));
    CGContextRelease(context);
}

}  // namespace bench
