#include "photo.h"

namespace demo {
namespace {

constexpr CGSize size{1600, 1200};
constexpr CGFloat horizon = 640;

void fill_gradient(CGContextRef context, const CGFloat* components, size_t count, CGFloat top,
                   CGFloat bottom) {
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGGradientRef gradient = CGGradientCreateWithColorComponents(space, components, nullptr, count);
    CGContextSaveGState(context);
    CGContextClipToRect(context, {{0, top}, {size.width, bottom - top}});
    CGContextDrawLinearGradient(context, gradient, {0, top}, {0, bottom}, 0);
    CGContextRestoreGState(context);
    CGGradientRelease(gradient);
    CGColorSpaceRelease(space);
}

/// An island: its height above the water between two places, in pixels.
void fill_island(CGContextRef context, CGFloat left, CGFloat right, CGFloat height) {
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, left, horizon);
    const CGFloat width = right - left;
    CGContextAddCurveToPoint(context, left + width * 0.3, horizon - height * 1.6, left + width * 0.5,
                             horizon - height * 0.2, right, horizon);
    CGContextClosePath(context);
    CGContextFillPath(context);
}

}  // namespace

UIImage* draw_photo() {
    UIGraphicsBeginImageContextWithOptions(size, true, 1);
    CGContextRef context = UIGraphicsGetCurrentContext();
    const CGFloat sky[] = {0.10, 0.13, 0.33, 1, 0.46, 0.24, 0.47, 1, 0.93, 0.45, 0.32, 1, 1, 0.80, 0.48, 1};
    fill_gradient(context, sky, 4, 0, horizon);
    const CGFloat sea[] = {0.80, 0.48, 0.38, 1, 0.22, 0.21, 0.38, 1, 0.03, 0.05, 0.13, 1};
    fill_gradient(context, sea, 3, horizon, size.height);
    CGContextSetRGBFillColor(context, 1, 0.95, 0.78, 1);
    CGContextFillEllipseInRect(context, {{980, horizon - 150}, {190, 190}});
    fill_gradient(context, sea, 3, horizon, size.height);
    // The sun on the water: broken lines that grow towards the viewer.
    CGContextSetRGBFillColor(context, 1, 0.82, 0.55, 0.75);
    for (int i = 0; i < 26; ++i) {
        const CGFloat y = horizon + 8 + i * i * 0.8, width = 150 + (i * 67 % 110) - i * 2,
                      shift = i * 43 % 60 - 30;
        CGContextFillEllipseInRect(context, {{1075 - width / 2 + shift, y}, {width, 3.0 + i * 0.35}});
    }
    CGContextSetRGBFillColor(context, 0.16, 0.10, 0.22, 1);
    fill_island(context, -120, 760, 190);
    CGContextSetRGBFillColor(context, 0.25, 0.14, 0.27, 1);
    fill_island(context, 1250, 1900, 120);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

}  // namespace demo
