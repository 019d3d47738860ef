#include "pane/drawing/photo.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "pane/drawing/fill.h"
#include "platform/imageio.h"

namespace pane {
namespace {

constexpr CGSize largest_keyboard{1242, 798};
/// The library draws an image a little higher than the keyboard is.
constexpr CGFloat additional_height = 40;
constexpr CGFloat longest_side = 2 * largest_keyboard.width;
/// A blur needs no details: it is made of so many pixels along the longer side.
constexpr CGFloat blurred_side = 160;
constexpr int blur_radius = 4, blur_passes = 3;

CGSize whole(CGFloat width, CGFloat height) {
    const auto to_whole = [](CGFloat length) {
        return std::max(1.0, static_cast<CGFloat>(static_cast<NSInteger>(length + 0.5)));
    };
    return {to_whole(width), to_whole(height)};
}

CGSize fitted(CGSize size, CGFloat longest) {
    const CGFloat scale = std::min(1.0, longest / std::max(size.width, size.height));
    return whole(size.width * scale, size.height * scale);
}

UIImage* drawn(UIImage* photo, CGSize size, CGRect where) {
    UIGraphicsBeginImageContextWithOptions(size, false, 1);
    CGContextSetInterpolationQuality(UIGraphicsGetCurrentContext(), kCGInterpolationHigh);
    photo->drawInRect(where);
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

/// The mean of each channel over the pixels on both sides, along lines whose pixels are `step` bytes apart;
/// beyond the ends the last pixel goes on.
void smooth(const uint8_t* from, uint8_t* to, int count, ptrdiff_t step) {
    for (int channel = 0; channel < 4; ++channel) {
        const auto at = [&](int place) { return from[std::clamp(place, 0, count - 1) * step + channel]; };
        int sum = 0;
        for (int place = -blur_radius; place <= blur_radius; ++place) sum += at(place);
        for (int place = 0; place < count; ++place) {
            to[place * step + channel] = static_cast<uint8_t>(sum / (2 * blur_radius + 1));
            sum += at(place + blur_radius + 1) - at(place - blur_radius);
        }
    }
}

}  // namespace

CGSize keyboard_pixels() {
    const CGSize keyboard = HCPreview::keyboardPortraitSize();
    if (keyboard.width <= 0) return largest_keyboard;
    const CGFloat scale = UIScreen::mainScreen()->scale();
    const CGSize wanted{keyboard.width * scale, (keyboard.height + additional_height) * scale};
    const CGFloat fit =
        std::min({1.0, largest_keyboard.width / wanted.width, largest_keyboard.height / wanted.height});
    return whole(wanted.width * fit, wanted.height * fit);
}

UIImage* workable(UIImage* photo) {
    if (!photo) return nullptr;
    const CGSize points = photo->size();
    if (!(points.width > 0 && points.height > 0)) return nullptr;
    const CGSize pixels{points.width * photo->scale(), points.height * photo->scale()};
    const CGSize size = fitted(pixels, longest_side);
    return drawn(photo, size, {{0, 0}, size});
}

UIImage* workable(NSURL* file) {
    if (!file) return nullptr;
    const auto source = objc::adopt(reinterpret_cast<NSObject*>(CGImageSourceCreateWithURL(file, nullptr)));
    if (!source) return nullptr;
    const id keys[] = {kCGImageSourceCreateThumbnailFromImageAlways,
                       kCGImageSourceCreateThumbnailWithTransform, kCGImageSourceThumbnailMaxPixelSize};
    NSNumber* yes = NSNumber::numberWithBool(true);
    const id values[] = {yes, yes, NSNumber::numberWithInteger(static_cast<NSInteger>(longest_side))};
    CGImageRef image =
        CGImageSourceCreateThumbnailAtIndex(reinterpret_cast<CGImageSourceRef>(source.get()), 0,
                                            NSDictionary::dictionaryWithObjects(values, keys, 3));
    UIImage* photo = image ? UIImage::imageWithCGImage(image) : nullptr;
    CGImageRelease(image);
    return photo;
}

UIImage* cropped(UIImage* photo, CGRect part, CGSize pixels) {
    const CGFloat across = pixels.width / part.size.width, down = pixels.height / part.size.height;
    const CGSize size = photo->size();
    return drawn(
        photo, pixels,
        {{-part.origin.x * across, -part.origin.y * down}, {size.width * across, size.height * down}});
}

UIImage* dimmed(UIImage* photo) {
    const CGRect all{{0, 0}, photo->size()};
    UIGraphicsBeginImageContextWithOptions(all.size, false, 1);
    photo->drawInRect(all);
    fill(UIColor::colorWithWhite(0, dimming), all);
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

UIImage* blurred(UIImage* photo) {
    const CGSize size = fitted(photo->size(), blurred_side);
    const auto width = static_cast<int>(size.width), height = static_cast<int>(size.height);
    const ptrdiff_t row = ptrdiff_t{4} * width;
    std::vector<uint8_t> pixels(static_cast<size_t>(row * height)), other(pixels.size());
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(
        pixels.data(), static_cast<size_t>(width), static_cast<size_t>(height), 8, static_cast<size_t>(row),
        space, kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
    CGColorSpaceRelease(space);
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, 1, -1);
    UIGraphicsPushContext(context);
    photo->drawInRect({{0, 0}, size});
    UIGraphicsPopContext();
    for (int pass = 0; pass < blur_passes; ++pass) {
        for (int y = 0; y < height; ++y) smooth(pixels.data() + y * row, other.data() + y * row, width, 4);
        for (ptrdiff_t x = 0; x < row; x += 4) smooth(other.data() + x, pixels.data() + x, height, row);
    }
    CGImageRef small = CGBitmapContextCreateImage(context);
    CGContextRelease(context);
    const CGSize full = photo->size();
    UIImage* picture = drawn(UIImage::imageWithCGImage(small), full, {{0, 0}, full});
    CGImageRelease(small);
    return picture;
}

}  // namespace pane
