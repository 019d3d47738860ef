// Pictures of the screen: see the header.
#include "uikit/picture.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "coregraphics/CGContext.h"
#include "coregraphics/picture_files.h"

namespace sim {

bool write_picture(UIView* view, CGFloat scale, const std::string& path, std::string& error) {
    const CGRect bounds = view->bounds();
    const auto context =
        image_context(bounds.size, true, scale == 0 ? UIScreen::mainScreen()->scale() : scale);
    if (!context) {
        error = "there is nothing to draw into: the view or the scale has no size, or they are too large";
        return false;
    }
    view->layoutIfNeeded();
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    view->layer()->renderInContext(context);

    const auto png = encode_png(canvas_of(context).bitmap().surface());
    if (!png) {
        error = "the picture cannot be encoded";
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(png->data()), static_cast<std::streamsize>(png->size()));
    file.close();
    if (!file) error = "cannot write the picture " + path + ": " + std::strerror(errno);
    return static_cast<bool>(file);
}

}  // namespace sim
