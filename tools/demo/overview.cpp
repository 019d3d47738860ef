// One picture of several.
#include "overview.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "phone.h"
#include "platform/uikit.h"

namespace demo {
namespace {

namespace fs = std::filesystem;

UIImage* read(const fs::path& picture) {
    std::ifstream file(picture, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    NSData* data = NSData::class_send<"dataWithBytes:length:", NSData*>(
        static_cast<const void*>(bytes.data()), NSUInteger{bytes.size()});
    UIImage* image = UIImage::imageWithData(data);
    if (!image) throw Failure("cannot read the picture " + picture.string());
    return image;
}

}  // namespace

void write_overview(const std::vector<fs::path>& pictures, const fs::path& overview) {
    constexpr CGFloat space = 40;
    CGSize total{space, 0};
    std::vector<UIImage*> images;
    for (const fs::path& picture : pictures) {
        images.push_back(read(picture));
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
    NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    std::ofstream file(overview, std::ios::binary);
    if (!file.write(static_cast<const char*>(png->bytes()), static_cast<std::streamsize>(png->length()))
             .flush())
        throw Failure("cannot write the picture " + overview.string());
}

}  // namespace demo
