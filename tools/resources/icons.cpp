// Two sheets, a clipboard, and a keyboard.
#include "icons.h"

#include "platform/uikit.h"
#include "support/phone.h"
#include "support/pictures.h"

namespace resources {
namespace {

namespace fs = std::filesystem;

constexpr CGFloat line_width = 4;

void stroke(CGRect rect, CGFloat corner_radius) {
    UIBezierPath* path = UIBezierPath::bezierPathWithRoundedRect(rect, corner_radius);
    path->setLineWidth(line_width);
    path->stroke();
}

void fill(CGRect rect, CGFloat corner_radius) {
    UIBezierPath::bezierPathWithRoundedRect(rect, corner_radius)->fill();
}

/// Frees what will stand in front, with a rim around it.
void clear(CGRect rect) {
    CGContextClearRect(UIGraphicsGetCurrentContext(),
                       {{rect.origin.x - line_width, rect.origin.y - line_width},
                        {rect.size.width + 2 * line_width, rect.size.height + 2 * line_width}});
}

void draw_copy() {
    constexpr CGRect back{{8, 6}, {30, 36}}, front{{22, 18}, {30, 36}};
    stroke(back, 5);
    clear(front);
    stroke(front, 5);
}

void draw_paste() {
    stroke({{12, 10}, {36, 44}}, 5);
    constexpr CGRect clip{{21, 5}, {18, 10}};
    clear(clip);
    fill(clip, 4);
    for (CGFloat y : {25, 34, 43}) fill({{20, y}, {y == 43 ? 12.0 : 20.0, line_width}}, line_width / 2);
}

void draw(void (*icon)(), const fs::path& file) {
    UIGraphicsBeginImageContextWithOptions({60, 60}, false, 1);
    UIColor::blackColor()->set();
    icon();
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    tools::write_picture(image, file);
}

/// In 29 points: rows of keys over a gradient, one of them lit.
void draw_keyboard() {
    constexpr CGRect all{{0, 0}, {29, 29}};
    UIBezierPath::bezierPathWithRoundedRect(all, 6.5)->addClip();
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    constexpr CGFloat colours[] = {0.98, 0.55, 0.35, 1, 0.62, 0.27, 0.62, 1, 0.20, 0.20, 0.50, 1};
    CGGradientRef gradient = CGGradientCreateWithColorComponents(space, colours, nullptr, 3);
    CGContextDrawLinearGradient(UIGraphicsGetCurrentContext(), gradient, {0, 0}, {29, 29}, 0);
    CGGradientRelease(gradient);
    CGColorSpaceRelease(space);
    const struct {
        CGFloat left, top, width;
    } keys[] = {{4, 8, 4.2},    {9.6, 8, 4.2},   {15.2, 8, 4.2},  {20.8, 8, 4.2}, {4, 14, 4.2},
                {9.6, 14, 4.2}, {15.2, 14, 4.2}, {20.8, 14, 4.2}, {9.6, 20, 9.8}};
    for (const auto& key : keys) {
        const bool lit = key.left == 15.2 && key.top == 14;
        UIColor::colorWithRGB(1, lit ? 0.85 : 1, lit ? 0.3 : 1, lit ? 1 : 0.85)->set();
        fill({{key.left, key.top}, {key.width, 4.2}}, 1.1);
    }
}

}  // namespace

void draw_icons(const fs::path& phone, const fs::path& folder) {
    tools::in_child_process("drawing the icons", [&] {
        tools::boot(phone, tools::settings);
        objc::AutoreleasePool pool;
        draw(draw_copy, folder / "copy.png");
        draw(draw_paste, folder / "paste.png");
    });
}

void draw_settings_icons(const fs::path& phone, const fs::path& folder) {
    tools::in_child_process("drawing the icons of Settings", [&] {
        tools::boot(phone, tools::settings);
        objc::AutoreleasePool pool;
        for (int scale = 1; scale <= 3; ++scale) {
            UIGraphicsBeginImageContextWithOptions({29, 29}, false, scale);
            draw_keyboard();
            UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
            UIGraphicsEndImageContext();
            const std::string finer = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
            tools::write_picture(image, folder / ("icon" + finer + ".png"));
        }
    });
}

}  // namespace resources
