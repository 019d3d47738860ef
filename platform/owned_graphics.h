// CoreGraphics objects that are owned, and image contexts, as types.
#pragma once
#include <utility>

#include "platform/uikit.h"

namespace cg {

inline void release(CGColorSpaceRef space) { CGColorSpaceRelease(space); }
inline void release(CGColorRef colour) { CGColorRelease(colour); }
inline void release(CGContextRef context) { CGContextRelease(context); }

/// What a function with "Create" or "Copy" in its name handed over; released with the scope.
template <class Ref>
class owned {
  public:
    explicit owned(Ref object) : object_(object) {}
    owned(owned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    owned& operator=(owned&&) = delete;
    ~owned() { release(object_); }

    Ref get() const { return object_; }
    operator Ref() const { return object_; }

  private:
    Ref object_;
};

/// UIKit's current image context for as long as the scope lasts. A scale of 0 is the screen's.
class ImageContext {
  public:
    explicit ImageContext(CGSize size, CGFloat scale = 0.0, bool opaque = false) {
        UIGraphicsBeginImageContextWithOptions(size, opaque, scale);
    }
    ImageContext(const ImageContext&) = delete;
    ImageContext& operator=(const ImageContext&) = delete;
    ~ImageContext() { UIGraphicsEndImageContext(); }

    operator CGContextRef() const { return UIGraphicsGetCurrentContext(); }
    /// What has been drawn so far.
    UIImage* image() const { return UIGraphicsGetImageFromCurrentImageContext(); }
};

}  // namespace cg
