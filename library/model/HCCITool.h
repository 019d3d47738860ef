// Colour and image tools: the hex colour format, and images scaled, tinted, filled and averaged.
#pragma once
#include "platform/uikit.h"

/// Stateless class operations.
///
/// A hex colour string is "#RRGGBB" for an opaque colour and "#RRGGBBAA" otherwise, upper-case when written;
/// read with or without "#" and in either case. Components are truncated, not rounded, to 8 bits.
struct HCCITool : objc::Interface<HCCITool, "HCCITool", NSObject> {
    /// The leading hexadecimal digits as a number, 0 without any. A "#" is stepped over only where the length
    /// (7 or 9) makes room for it. More than 32 bits read as all bits set.
    static uint32_t intFromString(NSString* text) { return class_send<"intFromString:", uint32_t>(text); }

    /// Whether the text holds "#" and hexadecimal digits only; the empty text does.
    static bool isValidHexColorLetter(NSString* text) {
        return class_send<"isValidHexColorLetter:", bool>(text);
    }

    /// Letters as above, and 6 to 9 UTF-16 units of them. The place of a "#" is not looked at.
    static bool isValidHexColorString(NSString* text) {
        return class_send<"isValidHexColorString:", bool>(text);
    }

    /// nil for nil; a colour without an RGB form counts as zeros.
    static NSString* hexStringFromColor(UIColor* colour) {
        return class_send<"hexStringFromColor:", NSString*>(colour);
    }

    /// Never nil: transparent black for what is not a hex colour string.
    static UIColor* colorFromHexString(NSString* text) {
        return class_send<"colorFromHexString:", UIColor*>(text);
    }

    /// The image stretched to `size` points at the screen's scale.
    static objc::strong<UIImage> newScale(CGSize size, UIImage* image) {
        return class_send<"newScale:forImage:", objc::strong<UIImage>>(size, image);
    }

    /// The image's shape, filled with the colour.
    static objc::strong<UIImage> newColor(UIColor* colour, UIImage* image) {
        return class_send<"newColor:forImage:", objc::strong<UIImage>>(colour, image);
    }

    /// A rectangle of the colour, one pixel to a point.
    static UIImage* imageFromColor(UIColor* colour, CGSize size) {
        return class_send<"imageFromColor:withSize:", UIImage*>(colour, size);
    }

    /// The average, always opaque; transparency darkens it. Black where there is no memory to draw it.
    static UIColor* averageColorForImage(UIImage* image) {
        return class_send<"averageColorForImage:", UIColor*>(image);
    }

    /// The average with its alpha. A translucent average is darkened by its alpha once more.
    static UIColor* averageColorWithAlphaForImage(UIImage* image) {
        return class_send<"averageColorWithAlphaForImage:", UIColor*>(image);
    }

    /// Exact equality, after grey colours have been brought to RGB.
    static bool isColorEqual(UIColor* a, UIColor* b) {
        return class_send<"isColor:equalToColor:", bool>(a, b);
    }
};
