// What the drawing tests share: a booted phone, and pixels to look at.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/uikit.h"
#include "support/phone.h"

namespace test {

/// The bytes of a pixel, colours multiplied by alpha.
struct Pixel {
    int red, green, blue, alpha;
    friend bool operator==(const Pixel&, const Pixel&) = default;
    friend void PrintTo(const Pixel& p, std::ostream* out) {
        *out << "(" << p.red << " " << p.green << " " << p.blue << " " << p.alpha << ")";
    }
};

inline constexpr Pixel transparent{0, 0, 0, 0}, black{0, 0, 0, 255}, white{255, 255, 255, 255},
    red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255};

/// Whether no component differs by more than `tolerance`.
testing::AssertionResult near(const Pixel& actual, const Pixel& expected, int tolerance = 1);

/// An image's pixels, the top row first.
class Picture {
  public:
    explicit Picture(CGImageRef);
    explicit Picture(UIImage* image) : Picture(image->CGImage()) {}

    size_t width() const { return width_; }
    size_t height() const { return height_; }
    Pixel at(size_t x, size_t y) const;

  private:
    size_t width_, height_;
    std::vector<uint8_t> bytes_;
};

/// What `draw` draws into an image context of that many points.
UIImage* drawn(CGSize size, CGFloat scale, const std::function<void(CGContextRef)>& draw,
               bool opaque = false);

using Bytes = std::vector<uint8_t>;

/// A PNG of one bit a pixel, black above and white below: small, however large the picture.
Bytes one_bit_png(uint32_t width, uint32_t height);

/// The view's tree as a picture.
Picture photographed(UIView* view, CGFloat scale = 1);

/// A view with that frame and, unless nil, that background.
objc::strong<UIView> view_with(CGRect frame, UIColor* background = nullptr);

/// A colour's space, as the platform numbers it.
CGColorSpaceModel model_of(UIColor* color);

class Drawing : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    Phone phone;
};

}  // namespace test
