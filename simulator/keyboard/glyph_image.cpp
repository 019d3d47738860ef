#include "keyboard/glyph_image.h"

#include <cmath>

#include "coregraphics/CGColor.h"
#include "coregraphics/CGImage.h"

namespace sim {

UIImage* glyph_image(Glyph glyph, CGFloat size, UIColor* color) {
    const CGFloat scale = UIScreen::mainScreen()->scale();
    const int pixels = static_cast<int>(std::ceil(size * scale));
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels, pixels));
    Cairo context(cairo_create(surface));
    cairo_set_source(context, source_of(color->CGColor(), 1));
    draw_glyph(context, glyph, {{0, 0}, {pixels * 1.0, pixels * 1.0}});
    cairo_surface_flush(surface);
    return UIImage::imageWithCGImage(image_of(surface), scale, UIImageOrientationUp);
}

UIImage* template_glyph_image(Glyph glyph, CGFloat size) {
    return glyph_image(glyph, size, UIColor::blackColor())
        ->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

}  // namespace sim
