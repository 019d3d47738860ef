#include "model/HCCITool.h"

#include <cstdint>
#include <limits>

#include "objc/class.h"
#include "platform/owned_graphics.h"

namespace {

using objc::strong;

/// Calls `visit` with each UTF-16 unit of the text, whose length the caller knows, until it answers false. A
/// chunk is read at a time, so that no text is copied whole. Whether all units were visited.
template <class Visit>
bool each_unit(NSString* text, NSUInteger length, Visit visit) {
    constexpr NSUInteger chunk_size = 32;
    char16_t chunk[chunk_size];
    for (NSUInteger read = 0; read < length;) {
        const NSUInteger left = length - read, count = left < chunk_size ? left : chunk_size;
        text->getCharacters(chunk, {read, count});
        read += count;
        for (NSUInteger i = 0; i < count; ++i)
            if (!visit(chunk[i])) return false;
    }
    return true;
}

/// The value of a hexadecimal digit, or -1.
constexpr int digit_value(char16_t unit) {
    const unsigned digit = unit - '0', letter = (unit | 0x20) - 'a';
    return digit < 10 ? static_cast<int>(digit) : letter < 6 ? static_cast<int>(letter) + 10 : -1;
}

/// What a scanner skips before a number unless another set is given: Unicode's spaces, tab and line ends.
constexpr bool is_space(char16_t unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r') || unit == 0x85 || unit == 0xa0 || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200b) || unit == 0x2028 || unit == 0x2029 || unit == 0x202f ||
           unit == 0x205f || unit == 0x3000;
}

/// Truncated toward zero, as the device's processor does it: beyond the range the nearest value, 0 for NaN.
int32_t truncated(double value) {
    using Limits = std::numeric_limits<int32_t>;
    if (value != value) return 0;
    if (value >= Limits::max()) return Limits::max();
    if (value <= Limits::min()) return Limits::min();
    return static_cast<int32_t>(value);
}

/// Writes "%02X" of the number at `end` and answers the new end.
char* write_hex_pair(char* end, int32_t number) {
    auto bits = static_cast<uint32_t>(number);
    int digits = 2;
    while (digits < 8 && bits >> (4 * digits)) ++digits;
    for (int i = digits - 1; i >= 0; --i) *end++ = "0123456789ABCDEF"[bits >> (4 * i) & 15];
    return end;
}

/// The colour itself, or its RGB form when it is grey; the caller keeps the argument alive.
UIColor* in_rgb(UIColor* colour) {
    CGColorRef core = colour->CGColor();
    if (CGColorSpaceGetModel(CGColorGetColorSpace(core)) != kCGColorSpaceModelMonochrome) return colour;
    const CGFloat* grey = CGColorGetComponents(core);
    const CGFloat components[] = {grey[0], grey[0], grey[0], grey[1]};
    const cg::owned rgb(CGColorSpaceCreateDeviceRGB());
    return UIColor::colorWithCGColor(cg::owned(CGColorCreate(rgb, components)));
}

struct ColorAndImageTool : objc::Implements<ColorAndImageTool, HCCITool> {
    using Ivars = objc::NoIvars;

    // ---- Hex texts ------------------------------------------------------------------------------

    static uint32_t intFromString(Class, NSString* text) {
        const NSUInteger length = text->length();
        const bool room_for_hash = length == 7 || length == 9;
        uint64_t value = 0;
        NSUInteger digits = 0;
        each_unit(text, length, [&](char16_t unit) {
            if (const int digit = digit_value(unit); digit >= 0) {
                ++digits;
                value = value << 4 | static_cast<unsigned>(digit);
                return value <= UINT32_MAX;
            }
            if (digits == 0) return room_for_hash ? unit == '#' : is_space(unit);
            return digits++ == 1 && value == 0 && (unit | 0x20) == 'x';  // of "0x1F"
        });
        return value > UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(value);
    }

    static bool isValidHexColorLetter(Class, NSString* text) {
        return each_unit(text, text->length(),
                         [](char16_t unit) { return unit == '#' || digit_value(unit) >= 0; });
    }

    static bool isValidHexColorString(Class, NSString* text) {
        NSUInteger length = text->length();
        return HCCITool::isValidHexColorLetter(text) && length >= 6 && length <= 9;
    }

    static NSString* hexStringFromColor(Class, UIColor* colour) {
        if (!colour) return nullptr;
        CGFloat red = 0, green = 0, blue = 0, alpha = 0;
        colour->getRGB(&red, &green, &blue, &alpha);
        char text[1 + 4 * 8 + 1] = "#";
        char* end = text + 1;
        for (CGFloat component : {red, green, blue}) end = write_hex_pair(end, truncated(component * 255.0));
        if (!(alpha >= 1.0)) end = write_hex_pair(end, truncated(alpha * 255.0));
        *end = 0;
        return NSString::stringWithUTF8String(text);
    }

    static UIColor* colorFromHexString(Class, NSString* text) {
        if (!HCCITool::isValidHexColorString(text)) return UIColor::colorWithRGB(0, 0, 0, 0);
        const uint32_t value = HCCITool::intFromString(text);
        auto component = [value](int shift) { return (value >> shift & 255) / 255.0; };
        // "#12345" is as long as "RRGGBB", scans to 0 and so is opaque black: kept.
        const NSUInteger length = text->length();
        if (length == 7 || length == 6)
            return UIColor::colorWithRGB(component(16), component(8), component(0), 1.0);
        return UIColor::colorWithRGB(component(24), component(16), component(8), component(0));
    }

    // ---- Images ---------------------------------------------------------------------------------

    static strong<UIImage> newScale(Class, CGSize size, UIImage* image) {
        const cg::ImageContext context(size);
        image->drawInRect({{0, 0}, size});
        return context.image();
    }

    static strong<UIImage> newColor(Class, UIColor* colour, UIImage* image) {
        const CGSize size = image->size();
        const CGRect bounds{{0, 0}, size};
        const cg::ImageContext context(size, image->scale());
        colour->setFill();
        CGContextTranslateCTM(context, 0, size.height);
        CGContextScaleCTM(context, 1.0, -1.0);
        CGContextClipToMask(context, bounds, image->CGImage());
        CGContextFillRect(context, bounds);
        return context.image();
    }

    static UIImage* imageFromColor(Class, UIColor* colour, CGSize size) {
        const cg::ImageContext context(size, 1.0);
        colour->setFill();
        CGContextFillRect(context, {{0, 0}, size});
        return context.image();
    }

    // ---- Averages -------------------------------------------------------------------------------

    static UIColor* averageColorForImage(Class, UIImage* image) {
        const CGRect pixel{{0, 0}, {1, 1}};
        const cg::ImageContext context(pixel.size, 1.0);
        CGContextSetInterpolationQuality(context, kCGInterpolationMedium);
        image->drawInRect(pixel, kCGBlendModeCopy, 1.0);
        // The context's pixels are 32 bits, alpha first, little-endian: blue, green, red, alpha in memory.
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(context));
        if (!bytes) return UIColor::colorWithRGB(0, 0, 0, 1.0);  // there was no memory for it
        auto component = [bytes](int index) {
            return static_cast<CGFloat>(static_cast<float>(bytes[index]) / 255.0f);
        };
        return UIColor::colorWithRGB(component(2), component(1), component(0), 1.0);
    }

    static UIColor* averageColorWithAlphaForImage(Class, UIImage* image) {
        uint8_t pixel[4] = {};
        const cg::owned rgb(CGColorSpaceCreateDeviceRGB());
        const cg::owned context(CGBitmapContextCreate(
            pixel, 1, 1, 8, sizeof pixel, rgb, kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big));
        CGContextDrawImage(context, {{0, 0}, {1, 1}}, image->CGImage());
        const CGFloat alpha = pixel[3] / 255.0;
        if (pixel[3] == 0)
            return UIColor::colorWithRGB(pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, alpha);
        // The components are premultiplied already: they are multiplied by alpha once more, which darkens
        // translucent averages. Themes are made with it, so it stays.
        const CGFloat factor = alpha / 255.0;
        return UIColor::colorWithRGB(pixel[0] * factor, pixel[1] * factor, pixel[2] * factor, alpha);
    }

    // ---- Comparing ------------------------------------------------------------------------------

    static bool isColorEqual(Class, UIColor* a, UIColor* b) { return in_rgb(a)->isEqual(in_rgb(b)); }
};

}  // namespace

using namespace objc::definition;
using Tool = ColorAndImageTool;

OBJC_CLASS(HCCITool, NSObject, ColorAndImageTool,
           // Hex texts
           class_method<"intFromString:", &Tool::intFromString>,
           class_method<"isValidHexColorLetter:", &Tool::isValidHexColorLetter>,
           class_method<"isValidHexColorString:", &Tool::isValidHexColorString>,
           class_method<"hexStringFromColor:", &Tool::hexStringFromColor>,
           class_method<"colorFromHexString:", &Tool::colorFromHexString>,

           // Images
           class_method<"newScale:forImage:", &Tool::newScale>,
           class_method<"newColor:forImage:", &Tool::newColor>,
           class_method<"imageFromColor:withSize:", &Tool::imageFromColor>,

           // Averages
           class_method<"averageColorForImage:", &Tool::averageColorForImage>,
           class_method<"averageColorWithAlphaForImage:", &Tool::averageColorWithAlphaForImage>,

           // Comparing
           class_method<"isColor:equalToColor:", &Tool::isColorEqual>)
