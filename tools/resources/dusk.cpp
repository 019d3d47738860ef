// Ridges under an evening sky.
#include "dusk.h"

#include <cmath>
#include <cstdint>

#include "platform/uikit.h"
#include "support/phone.h"
#include "support/pictures.h"

namespace resources {
namespace {

namespace fs = std::filesystem;

constexpr CGSize size{750, 520};

/// The same sequence on every machine.
class Numbers {
  public:
    /// From 0 up to 1.
    double next() {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(state_ >> 40) / (1 << 24);
    }

  private:
    uint64_t state_ = 12;
};

void fill_sky(CGContextRef context) {
    constexpr CGFloat components[] = {0.02, 0.02, 0.08, 1, 0.06, 0.05, 0.15, 1,
                                      0.12, 0.07, 0.18, 1, 0.17, 0.08, 0.16, 1};
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGGradientRef sky = CGGradientCreateWithColorComponents(space, components, nullptr, 4);
    CGContextDrawLinearGradient(context, sky, {0, 0}, {0, size.height * 0.8},
                                kCGGradientDrawsAfterEndLocation);
    CGGradientRelease(sky);
    CGColorSpaceRelease(space);
}

void scatter_stars(CGContextRef context) {
    Numbers numbers;
    for (int star = 0; star < 70; ++star) {
        const CGFloat x = numbers.next() * size.width, y = std::pow(numbers.next(), 2) * size.height * 0.55;
        const CGFloat diameter = 1 + 1.6 * numbers.next();
        CGContextSetGrayFillColor(context, 1, 0.1 + 0.25 * numbers.next());
        CGContextFillEllipseInRect(context, {{x, y}, {diameter, diameter}});
    }
}

/// A ridge across the picture: waves around a height, from the top in points.
void fill_ridge(CGContextRef context, CGFloat height, CGFloat roughness, CGFloat phase, CGFloat shade) {
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, 0, size.height);
    for (CGFloat x = 0; x <= size.width; x += 5) {
        const CGFloat way = x / size.width * 2 * M_PI;
        const CGFloat wave = std::sin(way + phase) + 0.5 * std::sin(2.3 * way + 2 * phase) +
                             0.22 * std::sin(6.1 * way + 3 * phase);
        CGContextAddLineToPoint(context, x, height + roughness * wave);
    }
    CGContextAddLineToPoint(context, size.width, size.height);
    CGContextClosePath(context);
    CGContextSetRGBFillColor(context, 0.10 * shade, 0.06 * shade, 0.13 * shade, 1);
    CGContextFillPath(context);
}

}  // namespace

void draw_dusk(const fs::path& phone, const fs::path& folder) {
    tools::in_child_process("drawing Dusk.png", [&] {
        tools::boot(phone, tools::settings);
        objc::AutoreleasePool pool;
        UIGraphicsBeginImageContextWithOptions(size, true, 1);
        CGContextRef context = UIGraphicsGetCurrentContext();
        fill_sky(context);
        scatter_stars(context);
        fill_ridge(context, 300, 34, 0.4, 1.0);
        fill_ridge(context, 370, 30, 2.1, 0.72);
        fill_ridge(context, 440, 24, 4.0, 0.45);
        UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        tools::write_picture(image, folder / "Dusk.png");
    });
}

}  // namespace resources
