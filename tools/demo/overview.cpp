#include "overview.h"

#include <algorithm>

#include "support/pictures.h"

namespace demo {

using namespace tools;

namespace fs = std::filesystem;

void write_overview(const std::vector<fs::path>& pictures, const fs::path& overview) {
    constexpr CGFloat space = 40;
    CGSize total{space, 0};
    std::vector<UIImage*> images;
    for (const fs::path& picture : pictures) {
        images.push_back(read_picture(picture));
        const CGSize size = images.back()->size();
        total = {total.width + size.width + space, std::max(total.height, size.height + 2 * space)};
    }
    UIGraphicsBeginImageContextWithOptions(total, true, 1);
    CGContextSetGrayFillColor(UIGraphicsGetCurrentContext(), 0.9, 1);
    UIRectFill({{0, 0}, total});
    CGFloat left = space;
    for (UIImage* image : images) {
        image->drawInRect({{left, space}, image->size()});
        left += image->size().width + space;
    }
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    write_picture(picture, overview);
}

void write_keyboards(const std::vector<fs::path>& pictures, const fs::path& keyboards) {
    constexpr CGFloat width = 750, height = 516, space = 12;  // with two pixels per point
    const CGSize total{width, static_cast<CGFloat>(pictures.size()) * (height + space) - space};
    UIGraphicsBeginImageContextWithOptions(total, true, 1);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetGrayFillColor(context, 1, 1);
    UIRectFill({{0, 0}, total});
    CGFloat top = 0;
    for (const fs::path& file : pictures) {
        UIImage* image = read_picture(file);
        CGContextSaveGState(context);
        CGContextClipToRect(context, {{0, top}, {width, height}});
        image->drawInRect({{0, top + height - image->size().height}, image->size()});
        CGContextRestoreGState(context);
        top += height + space;
    }
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    write_picture(picture, keyboards);
}

}  // namespace demo
