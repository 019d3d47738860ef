// ImageIO: pictures of files, decoded no larger than they are needed.
#pragma once
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGImageSource;
using CGImageSourceRef = CGImageSource*;

extern "C" {
/// Owned by the caller; an object, as all of CoreFoundation's. NULL for a URL that no source is made of.
CGImageSourceRef CGImageSourceCreateWithURL(NSURL*, NSDictionary* options);
/// Owned by the caller; NULL where the picture cannot be decoded.
CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef, size_t index, NSDictionary* options);

/// Numbers: whether what is in the file is scaled down although it may hold a thumbnail; whether it is turned
/// upright; the longest side, in pixels.
extern NSString* const kCGImageSourceCreateThumbnailFromImageAlways;
extern NSString* const kCGImageSourceCreateThumbnailWithTransform;
extern NSString* const kCGImageSourceThumbnailMaxPixelSize;
}
