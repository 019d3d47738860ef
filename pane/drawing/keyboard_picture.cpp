#include "pane/drawing/keyboard_picture.h"

#include <algorithm>

#include "objc/fast_enumeration.h"
#include "pane/drawing/fill.h"

namespace pane {
namespace {

using namespace objc::literals;
using objc::strong;

struct Points {
    CGPoint start, end;
};

/// Of the directions 1 to 8, in units of the area.
constexpr Points points_of_directions[] = {
    {{0.5, 1}, {0.5, 0}}, {{0.5, 0}, {0.5, 1}}, {{1, 0.5}, {0, 0.5}}, {{0, 0.5}, {1, 0.5}},
    {{1, 1}, {0, 0}},     {{0, 1}, {1, 0}},     {{1, 0}, {0, 1}},     {{0, 0}, {1, 1}},
};

void draw_gradient(NSArray* colors, NSUInteger direction, CGRect rect) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(colors->count());
    objc::for_each<UIColor>(colors,
                            [&](UIColor* color) { list->addObject(reinterpret_cast<id>(color->CGColor())); });
    const auto& [start, end] = points_of_directions[direction >= 1 && direction <= 8 ? direction - 1 : 1];
    auto in_rect = [&](CGPoint unit) {
        return CGPoint{rect.origin.x + unit.x * rect.size.width, rect.origin.y + unit.y * rect.size.height};
    };
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGGradientRef gradient = CGGradientCreateWithColors(space, list, nullptr);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    CGContextClipToRect(context, rect);
    CGContextDrawLinearGradient(context, gradient, in_rect(start), in_rect(end),
                                kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation);
    CGContextRestoreGState(context);
    CGGradientRelease(gradient);
    CGColorSpaceRelease(space);
}

strong<UIImage> preview_picture(NSString* name, CGSize size) {
    UIImage* picture = UIImage::imageWithContentsOfFile(
        "/Library/PreferenceBundles/Huecraft.bundle/"_ns->stringByAppendingString(name));
    if (!picture) return nullptr;
    UIGraphicsBeginImageContextWithOptions(size, false, 0);
    picture->drawInRect({{0, 0}, size});
    strong<UIImage> small = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return small;
}

void draw_tinted(UIImage* shape, UIColor* color, CGRect rect) {
    if (shape && color) HCCITool::newColor(color, shape)->drawInRect(rect);
}

}  // namespace

void draw_background(HuecraftConfig* theme, CGRect rect) {
    NSArray* colors = theme->getColors();
    switch (theme->getBackgroundType()) {
        case huecraft::flat_background:
            if (colors) fill(static_cast<UIColor*>(colors->objectAtIndex(0)), rect);
            break;
        case huecraft::gradient_background:
            if (colors) draw_gradient(colors, theme->getGradientDirection(), rect);
            break;
        case huecraft::image_background:
            if (UIImage* image = theme->getImage())
                image->drawInRect(rect, kCGBlendModeNormal, std::clamp(theme->getImageAlpha(), 0.0, 1.0));
            break;
        default: break;
    }
}

KeyboardPainter::KeyboardPainter(CGSize size)
    : size_(size),
      plain_(preview_picture("PreviewKeyboardBackground.png"_ns, size)),
      labels_(preview_picture("PreviewKeyboardText.png"_ns, size)),
      highlights_(preview_picture("PreviewKeyboardHighlight.png"_ns, size)),
      caps_(preview_picture("PreviewKeyboardKeyCaps.png"_ns, size)) {}

UIImage* KeyboardPainter::picture_of(HuecraftConfig* theme) const {
    const CGRect all{{0, 0}, size_};
    UIGraphicsBeginImageContextWithOptions(size_, false, 0);
    if (plain_) plain_->drawInRect(all);
    draw_background(theme, all);
    if (theme->getVisibleKeycaps())
        draw_tinted(caps_, UIColor::darkGrayColor()->colorWithAlphaComponent(0.5), all);
    draw_tinted(highlights_, theme->getHighlightColor(), all);
    draw_tinted(labels_, theme->getTextColor(), all);
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

}  // namespace pane
