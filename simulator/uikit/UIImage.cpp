// Images of UIKit: a bitmap, its scale, and how it is to be drawn.
#include <filesystem>

#include "coregraphics/CGImage.h"
#include "coregraphics/pictures/picture_files.h"
#include "coregraphics/transform.h"
#include "objc/class.h"
#include "platform/uikit.h"
#include "runtime/exported.h"
#include "uikit/image_lookup.h"
#include "uikit/image_orientation.h"

namespace {

using objc::strong;

struct Image : objc::Implements<Image, UIImage> {
    struct Ivars {
        strong<::CGImage> image;
        CGFloat scale;
        UIImageOrientation orientation;
        UIImageRenderingMode renderingMode;
    };

    // ---- Making ---------------------------------------------------------------------------------

    strong<UIImage> initWithCGImage(CGImageRef image, CGFloat scale, UIImageOrientation orientation) {
        auto self = initialised_by_super<"init">();
        if (!self || !image) return nullptr;
        self->ivars().image = image;
        self->ivars().scale = scale > 0 ? scale : 1;
        self->ivars().orientation = orientation;
        return self;
    }

    strong<UIImage> initWithData(NSData* data, CGFloat scale) {
        return initWithBytes({static_cast<const uint8_t*>(data->bytes()), data->length()}, scale);
    }
    strong<UIImage> initWithDataAlone(NSData* data) {
        return send<"initWithData:scale:", strong<UIImage>>(data, 1.0);
    }

    strong<UIImage> initWithContentsOfFile(NSString* path) {
        const auto file =
            path ? sim::find_picture(path->UTF8String(), UIScreen::mainScreen()->scale()) : std::nullopt;
        return initWithBytes(file ? file->bytes : std::span<const uint8_t>(), file ? file->scale : 1);
    }

    static UIImage* imageWithCGImage(Class self, CGImageRef image, CGFloat scale,
                                     UIImageOrientation orientation) {
        return objc::make<"initWithCGImage:scale:orientation:", UIImage>(self, image, scale, orientation)
            .autoreleased();
    }
    static UIImage* imageWithCGImageAlone(Class self, CGImageRef image) {
        return imageWithCGImage(self, image, 1, UIImageOrientationUp);
    }
    static UIImage* imageWithData(Class self, NSData* data) {
        return objc::make<"initWithData:", UIImage>(self, data).autoreleased();
    }
    static UIImage* imageWithDataAndScale(Class self, NSData* data, CGFloat scale) {
        return objc::make<"initWithData:scale:", UIImage>(self, data, scale).autoreleased();
    }
    static UIImage* imageWithContentsOfFile(Class self, NSString* path) {
        return objc::make<"initWithContentsOfFile:", UIImage>(self, path).autoreleased();
    }

    // From the folder of the process's executable, which is its bundle.
    static UIImage* imageNamed(Class self, NSString* name) {
        NSArray* arguments = NSProcessInfo::processInfo()->arguments();
        if (!name || !arguments->count()) return nullptr;
        const auto* executable = static_cast<NSString*>(arguments->objectAtIndex(0))->UTF8String();
        auto path = std::filesystem::path(executable).replace_filename(name->UTF8String());
        if (!path.has_extension()) path += ".png";
        return imageWithContentsOfFile(self, NSString::stringWithUTF8String(path.c_str()));
    }

    UIImage* imageWithRenderingMode(UIImageRenderingMode mode) {
        auto* copy =
            static_cast<Image*>(UIImage::imageWithCGImage(ivars().image, ivars().scale, ivars().orientation));
        if (copy) copy->ivars().renderingMode = mode;
        return copy;
    }

    // ---- Asking ---------------------------------------------------------------------------------

    CGImageRef CGImage() { return ivars().image; }
    CGFloat scale() { return ivars().scale; }
    UIImageOrientation imageOrientation() { return ivars().orientation; }
    UIImageRenderingMode renderingMode() { return ivars().renderingMode; }

    CGSize size() {
        const CGFloat scale = ivars().scale;
        const CGSize size{static_cast<CGFloat>(CGImageGetWidth(ivars().image)) / scale,
                          static_cast<CGFloat>(CGImageGetHeight(ivars().image)) / scale};
        return sim::is_turned_sideways(ivars().orientation) ? CGSize{size.height, size.width} : size;
    }

    // The same bitmap, drawn in the same way.
    bool isEqual(id other) {
        auto* image = as<UIImage>(other);
        return image && image->CGImage() == ivars().image && image->scale() == ivars().scale &&
               image->imageOrientation() == ivars().orientation &&
               image->renderingMode() == ivars().renderingMode;
    }
    NSUInteger hash() { return reinterpret_cast<NSUInteger>(ivars().image.get()) >> 4; }
    strong<UIImage> copyWithZone(void*) { return this; }  // an image never changes

    // ---- Drawing --------------------------------------------------------------------------------

    void drawInRect(CGRect rect) { self()->drawInRect(rect, kCGBlendModeNormal, 1); }

    void drawInRectBlended(CGRect rect, CGBlendMode mode, CGFloat alpha) {
        CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextSaveGState(context);
        CGContextSetBlendMode(context, mode);
        CGContextSetAlpha(context, alpha);
        // Bitmaps are upright where y points up, and UIKit's points down.
        rect = sim::standardized(rect);
        CGContextConcatCTM(context, {rect.size.width, 0, 0, rect.size.height, rect.origin.x, rect.origin.y});
        CGContextConcatCTM(context, sim::upright(ivars().orientation));
        CGContextConcatCTM(context, {1, 0, 0, -1, 0, 1});
        CGContextDrawImage(context, {{0, 0}, {1, 1}}, ivars().image);
        CGContextRestoreGState(context);
    }

    void drawAtPoint(CGPoint point) {
        auto* self = this->self();
        self->drawInRect({point, self->size()});
    }

  private:
    strong<UIImage> initWithBytes(std::span<const uint8_t> bytes, CGFloat scale) {
        auto picture = sim::decode_picture(bytes);
        if (!picture) {
            auto discarded = strong<Image>::adopt(this);
            return nullptr;
        }
        return initWithCGImage(sim::image_of(picture->surface, picture->model), scale,
                               sim::orientation_of_exif(picture->exif_orientation));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIImage, NSObject, Image,
           ivar<"_image", &Image::Ivars::image>,
           ivar<"_scale", &Image::Ivars::scale>,
           ivar<"_orientation", &Image::Ivars::orientation>,
           ivar<"_renderingMode", &Image::Ivars::renderingMode>,
           class_method<"imageWithCGImage:", &Image::imageWithCGImageAlone>,
           class_method<"imageWithCGImage:scale:orientation:", &Image::imageWithCGImage>,
           class_method<"imageWithData:", &Image::imageWithData>,
           class_method<"imageWithData:scale:", &Image::imageWithDataAndScale>,
           class_method<"imageWithContentsOfFile:", &Image::imageWithContentsOfFile>,
           class_method<"imageNamed:", &Image::imageNamed>,
           method<"initWithCGImage:scale:orientation:", &Image::initWithCGImage>,
           method<"initWithData:", &Image::initWithDataAlone>,
           method<"initWithData:scale:", &Image::initWithData>,
           method<"initWithContentsOfFile:", &Image::initWithContentsOfFile>,
           method<"imageWithRenderingMode:", &Image::imageWithRenderingMode>,
           method<"CGImage", &Image::CGImage>,
           method<"scale", &Image::scale>,
           method<"imageOrientation", &Image::imageOrientation>,
           method<"renderingMode", &Image::renderingMode>,
           method<"size", &Image::size>,
           method<"isEqual:", &Image::isEqual>,
           method<"hash", &Image::hash>,
           method<"copyWithZone:", &Image::copyWithZone>,
           method<"drawInRect:", &Image::drawInRect>,
           method<"drawInRect:blendMode:alpha:", &Image::drawInRectBlended>,
           method<"drawAtPoint:", &Image::drawAtPoint>)

// The bitmap as it is: an orientation other than up is not applied.
SIM_EXPORTED NSData* UIImagePNGRepresentation(UIImage* image) {
    const sim::Surface surface = sim::surface_of(image->CGImage());
    const auto file = surface ? sim::encode_png(surface) : std::nullopt;
    if (!file) return nullptr;
    return NSData::class_send<"dataWithBytes:length:", NSData*>(static_cast<const void*>(file->data()),
                                                                static_cast<NSUInteger>(file->size()));
}
