#include "uikit/tables/cell_pictures.h"

#include <initializer_list>

namespace sim {
namespace {

/// Begins a picture with lines of that colour and width.
CGContextRef begin(CGSize size, UIColor* color, CGFloat width) {
    UIGraphicsBeginImageContextWithOptions(size, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetStrokeColorWithColor(context, color->CGColor());
    CGContextSetLineWidth(context, width);
    return context;
}

UIImage* end() {
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

void stroke(CGContextRef context, std::initializer_list<CGPoint> points) {
    bool first = true;
    for (CGPoint point : points) {
        if (first)
            CGContextMoveToPoint(context, point.x, point.y);
        else
            CGContextAddLineToPoint(context, point.x, point.y);
        first = false;
    }
    CGContextStrokePath(context);
}

}  // namespace

UIImage* disclosure_picture(bool leftwards) {
    CGContextRef context = begin({8, 13}, UIColor::colorWithRGB(0.78, 0.78, 0.8, 1), 2);
    if (leftwards)
        stroke(context, {{7, 1}, {1.5, 6.5}, {7, 12}});
    else
        stroke(context, {{1, 1}, {6.5, 6.5}, {1, 12}});
    return end();
}

UIImage* checkmark_picture() {
    CGContextRef context = begin({14, 12}, UIColor::blackColor(), 2);
    stroke(context, {{1, 6.5}, {5, 10.5}, {13, 1}});
    return end()->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

UIImage* detail_picture() {
    CGContextRef context = begin({22, 22}, UIColor::blackColor(), 1.2);
    CGContextAddEllipseInRect(context, {{1, 1}, {20, 20}});
    CGContextStrokePath(context);
    CGContextFillEllipseInRect(context, {{9.8, 5}, {2.4, 2.4}});
    CGContextFillRect(context, {{10.1, 9}, {1.8, 7.5}});
    return end()->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

UIImage* edit_picture(bool inserts) {
    CGContextRef context = begin({22, 22}, UIColor::whiteColor(), 2);
    if (inserts)
        CGContextSetRGBFillColor(context, 0.3, 0.85, 0.39, 1);
    else
        CGContextSetRGBFillColor(context, 1, 0.23, 0.19, 1);
    CGContextFillEllipseInRect(context, {{0, 0}, {22, 22}});
    stroke(context, {{6, 11}, {16, 11}});
    if (inserts) stroke(context, {{11, 6}, {11, 16}});
    return end();
}

UIImage* grip_picture() {
    CGContextRef context = begin({22, 9}, UIColor::colorWithRGB(0.78, 0.78, 0.8, 1), 1);
    for (CGFloat y : {0.5, 4.5, 8.5}) stroke(context, {{0, y}, {22, y}});
    return end();
}

}  // namespace sim
