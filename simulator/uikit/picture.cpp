// Pictures of views: see the header.
#include "uikit/picture.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "coregraphics/CGContext.h"
#include "coregraphics/picture_files.h"

namespace sim {

Surface picture_of(UIView* view, CGFloat scale) {
    const CGRect bounds = view->bounds();
    const auto context = image_context(bounds.size, false, scale);
    if (!context) return {};
    view->layoutIfNeeded();
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    view->layer()->renderInContext(context);
    return snapshot(canvas_of(context).bitmap().surface());
}

bool write_picture(UIView* view, CGFloat scale, const std::string& path, std::string& error) {
    const Surface picture = picture_of(view, scale);
    if (!picture) {
        error = "there is nothing to draw: the view or the scale has no size";
        return false;
    }
    const auto bytes = encode_png(picture);
    if (!bytes) {
        error = "the picture cannot be encoded as PNG";
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes->data()), static_cast<std::streamsize>(bytes->size()));
    file.close();
    if (file) return true;
    error = path + " cannot be written: " + std::strerror(errno);
    return false;
}

}  // namespace sim
