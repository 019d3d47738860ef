// CoreGraphics: geometry, colours, images, bitmap contexts, paths and gradients.
#pragma once
#include <cstdint>

#include "objc/encoding.h"

using CGFloat = double;

/// Points, or pixels where a context says so.
struct CGPoint {
    CGFloat x, y;
    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};
struct CGSize {
    CGFloat width, height;
    friend bool operator==(const CGSize&, const CGSize&) = default;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
    friend bool operator==(const CGRect&, const CGRect&) = default;
};
/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    CGFloat a, b, c, d, tx, ty;
    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};
constexpr CGAffineTransform identity_transform{1, 0, 0, 1, 0, 0};

template <>
inline constexpr auto objc::structure_encoding<CGPoint> = objc::Name("{CGPoint=dd}");
template <>
inline constexpr auto objc::structure_encoding<CGSize> = objc::Name("{CGSize=dd}");
template <>
inline constexpr auto objc::structure_encoding<CGRect> = objc::Name("{CGRect={CGPoint=dd}{CGSize=dd}}");
template <>
inline constexpr auto objc::structure_encoding<CGAffineTransform> = objc::Name("{CGAffineTransform=dddddd}");

struct CGColor;
struct CGColorSpace;
struct CGContext;
struct CGGradient;
struct CGImage;
struct CGPath;
using CGColorRef = CGColor*;
using CGColorSpaceRef = CGColorSpace*;
using CGContextRef = CGContext*;
using CGGradientRef = CGGradient*;
using CGImageRef = CGImage*;
using CGPathRef = const CGPath*;
using CGMutablePathRef = CGPath*;

template <>
inline constexpr auto objc::structure_encoding<CGColor> = objc::Name("{CGColor=}");
template <>
inline constexpr auto objc::structure_encoding<CGColorSpace> = objc::Name("{CGColorSpace=}");
template <>
inline constexpr auto objc::structure_encoding<CGContext> = objc::Name("{CGContext=}");
template <>
inline constexpr auto objc::structure_encoding<CGGradient> = objc::Name("{CGGradient=}");
template <>
inline constexpr auto objc::structure_encoding<CGImage> = objc::Name("{CGImage=}");
template <>
inline constexpr auto objc::structure_encoding<CGPath> = objc::Name("{CGPath=}");
template <>
inline constexpr auto objc::structure_encoding<const CGPath> = objc::Name("{CGPath=}");

using CGBlendMode = int32_t;
constexpr CGBlendMode kCGBlendModeNormal = 0;
constexpr CGBlendMode kCGBlendModeMultiply = 1;
constexpr CGBlendMode kCGBlendModeScreen = 2;
constexpr CGBlendMode kCGBlendModeOverlay = 3;
constexpr CGBlendMode kCGBlendModeDarken = 4;
constexpr CGBlendMode kCGBlendModeLighten = 5;
constexpr CGBlendMode kCGBlendModeColorDodge = 6;
constexpr CGBlendMode kCGBlendModeColorBurn = 7;
constexpr CGBlendMode kCGBlendModeSoftLight = 8;
constexpr CGBlendMode kCGBlendModeHardLight = 9;
constexpr CGBlendMode kCGBlendModeDifference = 10;
constexpr CGBlendMode kCGBlendModeExclusion = 11;
constexpr CGBlendMode kCGBlendModeHue = 12;
constexpr CGBlendMode kCGBlendModeSaturation = 13;
constexpr CGBlendMode kCGBlendModeColor = 14;
constexpr CGBlendMode kCGBlendModeLuminosity = 15;
constexpr CGBlendMode kCGBlendModeClear = 16;
constexpr CGBlendMode kCGBlendModeCopy = 17;
constexpr CGBlendMode kCGBlendModeSourceIn = 18;
constexpr CGBlendMode kCGBlendModeSourceOut = 19;
constexpr CGBlendMode kCGBlendModeSourceAtop = 20;
constexpr CGBlendMode kCGBlendModeDestinationOver = 21;
constexpr CGBlendMode kCGBlendModeDestinationIn = 22;
constexpr CGBlendMode kCGBlendModeDestinationOut = 23;
constexpr CGBlendMode kCGBlendModeDestinationAtop = 24;
constexpr CGBlendMode kCGBlendModeXOR = 25;
constexpr CGBlendMode kCGBlendModePlusDarker = 26;
constexpr CGBlendMode kCGBlendModePlusLighter = 27;

using CGInterpolationQuality = int32_t;
constexpr CGInterpolationQuality kCGInterpolationDefault = 0;
constexpr CGInterpolationQuality kCGInterpolationNone = 1;
constexpr CGInterpolationQuality kCGInterpolationLow = 2;
constexpr CGInterpolationQuality kCGInterpolationHigh = 3;
constexpr CGInterpolationQuality kCGInterpolationMedium = 4;

using CGColorSpaceModel = int32_t;
constexpr CGColorSpaceModel kCGColorSpaceModelUnknown = -1;
constexpr CGColorSpaceModel kCGColorSpaceModelMonochrome = 0;
constexpr CGColorSpaceModel kCGColorSpaceModelRGB = 1;
constexpr CGColorSpaceModel kCGColorSpaceModelPattern = 6;

/// Where a pixel has its alpha: a kind of alpha and an order of bytes, added.
using CGBitmapInfo = uint32_t;
using CGImageAlphaInfo = uint32_t;
constexpr CGImageAlphaInfo kCGImageAlphaNone = 0;
/// Colours are multiplied by alpha.
constexpr CGImageAlphaInfo kCGImageAlphaPremultipliedLast = 1;
constexpr CGImageAlphaInfo kCGImageAlphaPremultipliedFirst = 2;
constexpr CGImageAlphaInfo kCGImageAlphaLast = 3;
constexpr CGImageAlphaInfo kCGImageAlphaFirst = 4;
constexpr CGImageAlphaInfo kCGImageAlphaNoneSkipLast = 5;
constexpr CGImageAlphaInfo kCGImageAlphaNoneSkipFirst = 6;
constexpr CGImageAlphaInfo kCGImageAlphaOnly = 7;
constexpr CGBitmapInfo kCGBitmapAlphaInfoMask = 0x1f;
constexpr CGBitmapInfo kCGBitmapFloatComponents = 1 << 8;
constexpr CGBitmapInfo kCGBitmapByteOrderMask = 0x7000;
constexpr CGBitmapInfo kCGBitmapByteOrderDefault = 0;
constexpr CGBitmapInfo kCGBitmapByteOrder32Little = 2 << 12;
constexpr CGBitmapInfo kCGBitmapByteOrder32Big = 4 << 12;

using CGGradientDrawingOptions = uint32_t;
constexpr CGGradientDrawingOptions kCGGradientDrawsBeforeStartLocation = 1;
constexpr CGGradientDrawingOptions kCGGradientDrawsAfterEndLocation = 2;

struct NSArray;
struct NSDictionary;

// Every function takes NULL for an object and then does nothing; results are NULL or zero. "Create" and
// "Copy" hand ownership to the caller, "Get" does not.
extern "C" {
CGColorSpaceRef CGColorSpaceCreateDeviceGray();
CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
/// -1 for NULL.
CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef);
/// Without alpha.
size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef);
CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef);
void CGColorSpaceRelease(CGColorSpaceRef);

/// `components`: those of the space, then alpha; kept as given.
CGColorRef CGColorCreate(CGColorSpaceRef, const CGFloat* components);
CGColorRef CGColorCreateCopy(CGColorRef);
CGColorRef CGColorCreateCopyWithAlpha(CGColorRef, CGFloat alpha);
CGColorSpaceRef CGColorGetColorSpace(CGColorRef);
/// With alpha.
size_t CGColorGetNumberOfComponents(CGColorRef);
const CGFloat* CGColorGetComponents(CGColorRef);
CGFloat CGColorGetAlpha(CGColorRef);
/// The same space and the same components, exactly.
bool CGColorEqualToColor(CGColorRef, CGColorRef);
CGColorRef CGColorRetain(CGColorRef);
void CGColorRelease(CGColorRef);

/// In pixels.
size_t CGImageGetWidth(CGImageRef);
size_t CGImageGetHeight(CGImageRef);
size_t CGImageGetBitsPerComponent(CGImageRef);
size_t CGImageGetBitsPerPixel(CGImageRef);
size_t CGImageGetBytesPerRow(CGImageRef);
CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef);
CGBitmapInfo CGImageGetBitmapInfo(CGImageRef);
CGColorSpaceRef CGImageGetColorSpace(CGImageRef);
CGImageRef CGImageRetain(CGImageRef);
void CGImageRelease(CGImageRef);

/// A context that draws into `data`, or into memory of its own where that is NULL. NULL for a size of zero,
/// for rows that are too short, and for a format that cannot be drawn into.
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bits_per_component,
                                   size_t bytes_per_row, CGColorSpaceRef, CGBitmapInfo);
/// The pixels, the top row first.
void* CGBitmapContextGetData(CGContextRef);
size_t CGBitmapContextGetWidth(CGContextRef);
size_t CGBitmapContextGetHeight(CGContextRef);
size_t CGBitmapContextGetBytesPerRow(CGContextRef);
CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef);
/// A picture of the context as it is now.
CGImageRef CGBitmapContextCreateImage(CGContextRef);
CGContextRef CGContextRetain(CGContextRef);
void CGContextRelease(CGContextRef);

void CGContextSaveGState(CGContextRef);
void CGContextRestoreGState(CGContextRef);
void CGContextTranslateCTM(CGContextRef, CGFloat x, CGFloat y);
void CGContextScaleCTM(CGContextRef, CGFloat x, CGFloat y);
/// In radians; counter-clockwise where y points up.
void CGContextRotateCTM(CGContextRef, CGFloat angle);
void CGContextConcatCTM(CGContextRef, CGAffineTransform);
/// From user space to the device's, whose origin is the lower left pixel corner.
CGAffineTransform CGContextGetCTM(CGContextRef);

void CGContextSetFillColorWithColor(CGContextRef, CGColorRef);
void CGContextSetStrokeColorWithColor(CGContextRef, CGColorRef);
void CGContextSetGrayFillColor(CGContextRef, CGFloat white, CGFloat alpha);
void CGContextSetRGBFillColor(CGContextRef, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextSetAlpha(CGContextRef, CGFloat alpha);
void CGContextSetBlendMode(CGContextRef, CGBlendMode);
void CGContextSetLineWidth(CGContextRef, CGFloat width);
void CGContextSetInterpolationQuality(CGContextRef, CGInterpolationQuality);
CGInterpolationQuality CGContextGetInterpolationQuality(CGContextRef);

void CGContextBeginPath(CGContextRef);
void CGContextMoveToPoint(CGContextRef, CGFloat x, CGFloat y);
void CGContextAddLineToPoint(CGContextRef, CGFloat x, CGFloat y);
void CGContextAddCurveToPoint(CGContextRef, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat x,
                              CGFloat y);
/// `clockwise` is seen where y points up.
void CGContextAddArc(CGContextRef, CGFloat x, CGFloat y, CGFloat radius, CGFloat start, CGFloat end,
                     int clockwise);
void CGContextAddRect(CGContextRef, CGRect);
void CGContextAddEllipseInRect(CGContextRef, CGRect);
void CGContextAddPath(CGContextRef, CGPathRef);
void CGContextClosePath(CGContextRef);
/// Filling, stroking and clipping empty the path.
void CGContextFillPath(CGContextRef);
void CGContextStrokePath(CGContextRef);
void CGContextClip(CGContextRef);
void CGContextEOFillPath(CGContextRef);
void CGContextEOClip(CGContextRef);
void CGContextClipToRect(CGContextRef, CGRect);
/// The mask is drawn into the rectangle as an image would be; painting shows where it is opaque.
void CGContextClipToMask(CGContextRef, CGRect, CGImageRef mask);
/// In user space.
CGRect CGContextGetClipBoundingBox(CGContextRef);

void CGContextFillRect(CGContextRef, CGRect);
void CGContextStrokeRect(CGContextRef, CGRect);
void CGContextFillEllipseInRect(CGContextRef, CGRect);
void CGContextClearRect(CGContextRef, CGRect);
/// Upright where y points up.
void CGContextDrawImage(CGContextRef, CGRect, CGImageRef);
/// What is drawn until the end is composited as one picture, with the alpha and blend mode of the beginning.
void CGContextBeginTransparencyLayer(CGContextRef, NSDictionary* reserved);
void CGContextEndTransparencyLayer(CGContextRef);

/// `colors` holds CGColors. `locations` from 0 to 1, as many as there are colours; NULL spaces them evenly.
CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef, NSArray* colors, const CGFloat* locations);
CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef, const CGFloat* components,
                                                  const CGFloat* locations, size_t count);
CGGradientRef CGGradientRetain(CGGradientRef);
void CGGradientRelease(CGGradientRef);
void CGContextDrawLinearGradient(CGContextRef, CGGradientRef, CGPoint start, CGPoint end,
                                 CGGradientDrawingOptions);

CGMutablePathRef CGPathCreateMutable();
CGPathRef CGPathCreateWithRect(CGRect, const CGAffineTransform*);
/// Corners that are too large for the rectangle are made to fit.
CGPathRef CGPathCreateWithRoundedRect(CGRect, CGFloat corner_width, CGFloat corner_height,
                                      const CGAffineTransform*);
CGPathRef CGPathCreateWithEllipseInRect(CGRect, const CGAffineTransform*);
void CGPathMoveToPoint(CGMutablePathRef, const CGAffineTransform*, CGFloat x, CGFloat y);
void CGPathAddLineToPoint(CGMutablePathRef, const CGAffineTransform*, CGFloat x, CGFloat y);
void CGPathAddCurveToPoint(CGMutablePathRef, const CGAffineTransform*, CGFloat x1, CGFloat y1, CGFloat x2,
                           CGFloat y2, CGFloat x, CGFloat y);
void CGPathAddRect(CGMutablePathRef, const CGAffineTransform*, CGRect);
void CGPathAddPath(CGMutablePathRef, const CGAffineTransform*, CGPathRef);
void CGPathCloseSubpath(CGMutablePathRef);
/// The box of all points, control points included; the null rectangle for an empty path.
CGRect CGPathGetBoundingBox(CGPathRef);
bool CGPathIsEmpty(CGPathRef);
CGPathRef CGPathRetain(CGPathRef);
void CGPathRelease(CGPathRef);
}
