#include "screen/picture.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "coregraphics/CGContext.h"
#include "coregraphics/pictures/picture_files.h"
#include "quartzcore/animation/running_animations.h"

namespace sim {

objc::strong<CGContext> drawn_view(UIView* view, PictureGround ground, CGFloat scale, std::string& error) {
    view->layoutIfNeeded();
    const CGRect bounds = view->bounds();
    if (scale == 0) scale = UIScreen::mainScreen()->scale();
    auto context = image_context(bounds.size, ground == PictureGround::black, scale);
    if (!context) {
        error = "the view is " + std::to_string(bounds.size.width) + " x " +
                std::to_string(bounds.size.height) + " points at " + std::to_string(scale) +
                " pixels per point; a picture needs a size, and not more than 32767 pixels a side";
        return nullptr;
    }
    // Where the size is not a whole number of pixels, the view fills the last ones, too.
    cairo_surface_t* pixels = canvas_of(context).bitmap().surface();
    CGContextScaleCTM(context, cairo_image_surface_get_width(pixels) / (bounds.size.width * scale),
                      cairo_image_surface_get_height(pixels) / (bounds.size.height * scale));
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    const AnimatedValues shown;
    view->layer()->renderInContext(context);
    return context;
}

bool write_picture(UIView* view, PictureGround ground, CGFloat scale, const std::string& path,
                   std::string& error) {
    const auto context = drawn_view(view, ground, scale, error);
    if (!context) return false;
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
