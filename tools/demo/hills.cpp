#include "hills.h"

namespace demo {
namespace {

struct Shade {
    double red, green, blue;
};

void fill_sky(CGContextRef context, CGSize size) {
    const CGFloat components[] = {0.53, 0.77, 0.95, 1, 0.80, 0.91, 0.97, 1, 1, 0.95, 0.83, 1};
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGGradientRef sky = CGGradientCreateWithColorComponents(space, components, nullptr, 3);
    CGContextDrawLinearGradient(context, sky, {0, 0}, {0, size.height * 0.8},
                                kCGGradientDrawsAfterEndLocation);
    CGGradientRelease(sky);
    CGColorSpaceRelease(space);
}

/// One ridge across the picture: heights are fractions of the picture's, from the top.
void fill_ridge(CGContextRef context, CGSize size, Shade shade, CGFloat left, CGFloat dip, CGFloat rise,
                CGFloat right) {
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, 0, size.height);
    CGContextAddLineToPoint(context, 0, left * size.height);
    CGContextAddCurveToPoint(context, size.width / 3, dip * size.height, size.width * 2 / 3,
                             rise * size.height, size.width, right * size.height);
    CGContextAddLineToPoint(context, size.width, size.height);
    CGContextClosePath(context);
    CGContextSetRGBFillColor(context, shade.red, shade.green, shade.blue, 1);
    CGContextFillPath(context);
}

}  // namespace

UIImage* draw_hills(CGSize size) {
    UIGraphicsBeginImageContextWithOptions(size, true, 2);
    CGContextRef context = UIGraphicsGetCurrentContext();
    fill_sky(context, size);
    const CGFloat sun = size.height * 0.16;
    CGContextSetRGBFillColor(context, 1, 0.86, 0.45, 1);
    CGContextFillEllipseInRect(context, {{size.width * 0.62, size.height * 0.46}, {sun, sun}});
    fill_ridge(context, size, {0.66, 0.83, 0.66}, 0.62, 0.45, 0.85, 0.55);
    fill_ridge(context, size, {0.53, 0.76, 0.55}, 0.72, 0.90, 0.55, 0.74);
    fill_ridge(context, size, {0.44, 0.69, 0.48}, 0.92, 0.70, 0.98, 0.82);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

}  // namespace demo
