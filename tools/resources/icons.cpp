// Two sheets, and a clipboard.
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

}  // namespace

void draw_icons(const fs::path& phone, const fs::path& folder) {
    tools::in_child_process("drawing the icons", [&] {
        tools::boot(phone, tools::settings);
        objc::AutoreleasePool pool;
        draw(draw_copy, folder / "copy.png");
        draw(draw_paste, folder / "paste.png");
    });
}

}  // namespace resources
