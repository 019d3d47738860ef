#include "coregraphics/CGImage.h"

#include "coregraphics/CGColor.h"
#include "coregraphics/CGColorSpace.h"
#include "objc/class.h"
#include "runtime/exported.h"

namespace {

using objc::strong;

struct Image : objc::Implements<Image, CGImage> {
    struct Ivars {
        sim::Surface surface;
        strong<CGColorSpace> space;
    };
};

Image* body(CGImageRef image) { return static_cast<Image*>(image); }

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGImage, NSObject, Image,
           ivar<"surface", &Image::Ivars::surface>,
           ivar<"space", &Image::Ivars::space>)

namespace sim {

strong<CGImage> image_of(Surface surface, CGColorSpaceModel model) {
    if (!surface || cairo_surface_status(surface) || !cairo_image_surface_get_width(surface) ||
        !cairo_image_surface_get_height(surface))
        return nullptr;
    auto image = strong<CGImage>::adopt(CGImage::alloc());
    body(image)->ivars().surface = std::move(surface);
    body(image)->ivars().space = color_space_of(model);
    return image;
}

Surface surface_of(CGImageRef image) { return image ? body(image)->ivars().surface : Surface(); }

bool has_alpha(CGImageRef image) {
    return image && cairo_image_surface_get_format(body(image)->ivars().surface) == CAIRO_FORMAT_ARGB32;
}

strong<CGImage> tinted(CGImageRef image, CGColorRef color) {
    if (!image) return nullptr;
    Surface shape = surface_of(image);
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(shape),
                                               cairo_image_surface_get_height(shape)));
    Cairo cairo(cairo_create(surface));
    cairo_set_source(cairo, source_of(color, 1));
    cairo_mask_surface(cairo, shape, 0, 0);
    return image_of(surface);
}

}  // namespace sim

SIM_EXPORTED size_t CGImageGetWidth(CGImageRef image) {
    return image ? static_cast<size_t>(cairo_image_surface_get_width(body(image)->ivars().surface)) : 0;
}

SIM_EXPORTED size_t CGImageGetHeight(CGImageRef image) {
    return image ? static_cast<size_t>(cairo_image_surface_get_height(body(image)->ivars().surface)) : 0;
}

SIM_EXPORTED size_t CGImageGetBitsPerComponent(CGImageRef image) { return image ? 8 : 0; }

SIM_EXPORTED size_t CGImageGetBitsPerPixel(CGImageRef image) { return image ? 32 : 0; }

SIM_EXPORTED size_t CGImageGetBytesPerRow(CGImageRef image) {
    return image ? static_cast<size_t>(cairo_image_surface_get_stride(body(image)->ivars().surface)) : 0;
}

SIM_EXPORTED CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image) {
    if (!image) return kCGImageAlphaNone;
    return sim::has_alpha(image) ? kCGImageAlphaPremultipliedFirst : kCGImageAlphaNoneSkipFirst;
}

SIM_EXPORTED CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image) {
    return image ? CGImageGetAlphaInfo(image) | kCGBitmapByteOrder32Little : 0;
}

SIM_EXPORTED CGColorSpaceRef CGImageGetColorSpace(CGImageRef image) {
    return image ? body(image)->ivars().space.get() : nullptr;
}

SIM_EXPORTED CGImageRef CGImageRetain(CGImageRef image) {
    objc_retain(image);
    return image;
}

SIM_EXPORTED void CGImageRelease(CGImageRef image) { objc_release(image); }
