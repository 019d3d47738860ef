// ImageIO's sources: a file of the phone, and its picture scaled down while it is decoded. Only what is
// always made of the picture itself and turned upright.
#include "coregraphics/CGImage.h"
#include "coregraphics/drawing/pixels.h"
#include "coregraphics/drawing/reduction.h"
#include "coregraphics/pictures/picture_files.h"
#include "objc/class.h"
#include "objc/string.h"
#include "platform/imageio.h"
#include "platform/owned_graphics.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"
#include "uikit/image_lookup.h"
#include "uikit/image_orientation.h"

struct CGImageSource : objc::Interface<CGImageSource, "CGImageSource", NSObject> {};

using namespace objc::literals;
extern "C" {
[[gnu::visibility("default")]] NSString* const kCGImageSourceCreateThumbnailFromImageAlways =
    "kCGImageSourceCreateThumbnailFromImageAlways"_ns;
[[gnu::visibility("default")]] NSString* const kCGImageSourceCreateThumbnailWithTransform =
    "kCGImageSourceCreateThumbnailWithTransform"_ns;
[[gnu::visibility("default")]] NSString* const kCGImageSourceThumbnailMaxPixelSize =
    "kCGImageSourceThumbnailMaxPixelSize"_ns;
}

namespace {

using objc::strong;

struct Source : objc::Implements<Source, CGImageSource> {
    struct Ivars {
        std::vector<uint8_t> bytes;
    };
};

bool is_on(NSDictionary* options, NSString* key) {
    auto* value = as<NSNumber>(options->objectForKey(key));
    return value && value->boolValue();
}

/// A picture is never made larger.
sim::Surface fitted(cairo_surface_t* picture, size_t longest) {
    const sim::Pixels pixels(picture);
    const size_t width = pixels.width(), height = pixels.height(), side = std::max(width, height);
    if (side <= longest) return sim::Surface(cairo_surface_reference(picture));
    const auto scaled = [&](size_t length) {
        return std::max<size_t>(1, (length * longest + side / 2) / side);
    };
    return sim::reduced(picture, scaled(width), scaled(height));
}

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGImageSource, NSObject, Source, ivar<"bytes", &Source::Ivars::bytes>)

SIM_EXPORTED CGImageSourceRef CGImageSourceCreateWithURL(NSURL* url, NSDictionary*) {
    NSString* path = url ? url->path() : nullptr;
    auto file = path ? sim::find_picture(path->UTF8String(), 1) : std::nullopt;
    if (!file) return nullptr;
    auto source = strong<CGImageSource>::adopt(CGImageSource::alloc());
    static_cast<Source*>(source.get())->ivars().bytes = std::move(file->bytes);
    return source.leak();
}

SIM_EXPORTED CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef source, size_t index,
                                                            NSDictionary* options) {
    if (index != 0 || !is_on(options, kCGImageSourceCreateThumbnailFromImageAlways) ||
        !is_on(options, kCGImageSourceCreateThumbnailWithTransform))
        sim::not_modelled("CGImageSource", "CGImageSourceCreateThumbnailAtIndex",
                          "other thumbnails than of the first picture itself, upright");
    auto* size = as<NSNumber>(options->objectForKey(kCGImageSourceThumbnailMaxPixelSize));
    if (!source || !size || size->integerValue() < 1) return nullptr;
    const auto longest = static_cast<size_t>(size->integerValue());
    auto picture = sim::decode_picture(static_cast<Source*>(source)->ivars().bytes, longest);
    if (!picture) return nullptr;
    const auto image = sim::image_of(fitted(picture->surface, longest), picture->model);
    const auto orientation = sim::orientation_of_exif(picture->exif_orientation);
    if (orientation == UIImageOrientationUp) return CGImageRetain(image);
    UIImage* turned = UIImage::imageWithCGImage(image, 1, orientation);
    const cg::ImageContext context(turned->size(), 1);
    turned->drawInRect({{0, 0}, turned->size()});
    return CGImageRetain(context.image()->CGImage());
}
