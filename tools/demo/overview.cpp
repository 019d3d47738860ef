// One picture of several.
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

}  // namespace demo
