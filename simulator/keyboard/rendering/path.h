// Shapes of keys, as paths that release themselves.
#pragma once
#include <utility>

#include "platform/uikit.h"

namespace sim {

class Path {
  public:
    /// Takes over the reference.
    explicit Path(CGPathRef path) : path_(path) {}
    Path(Path&& other) noexcept : path_(std::exchange(other.path_, nullptr)) {}
    Path& operator=(Path&& other) noexcept {
        std::swap(path_, other.path_);
        return *this;
    }
    ~Path() { CGPathRelease(path_); }

    operator CGPathRef() const { return path_; }

    static Path rounded(CGRect rect, CGFloat corner_radius) {
        return Path(CGPathCreateWithRoundedRect(rect, corner_radius, corner_radius, nullptr));
    }

    /// The same shape, squeezed by the insets.
    Path inset(UIEdgeInsets insets) const {
        const CGRect box = CGPathGetBoundingBox(path_);
        const CGFloat across = (box.size.width - insets.left - insets.right) / box.size.width;
        const CGFloat down = (box.size.height - insets.top - insets.bottom) / box.size.height;
        const CGAffineTransform squeeze{across,
                                        0,
                                        0,
                                        down,
                                        box.origin.x * (1 - across) + insets.left,
                                        box.origin.y * (1 - down) + insets.top};
        CGMutablePathRef squeezed = CGPathCreateMutable();
        CGPathAddPath(squeezed, &squeeze, path_);
        return Path(squeezed);
    }

  private:
    CGPathRef path_;
};

}  // namespace sim
