#include "drawing_test.h"

#include <png.h>

#include <cstdlib>

namespace test {

testing::AssertionResult near(const Pixel& actual, const Pixel& expected, int tolerance) {
    const int distance =
        std::max({std::abs(actual.red - expected.red), std::abs(actual.green - expected.green),
                  std::abs(actual.blue - expected.blue), std::abs(actual.alpha - expected.alpha)});
    if (distance <= tolerance) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(actual) << " is not within " << tolerance
                                       << " of " << testing::PrintToString(expected);
}

Bytes one_bit_png(uint32_t width, uint32_t height) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp writer, png_bytep bytes, size_t count) {
            auto* out = static_cast<Bytes*>(png_get_io_ptr(writer));
            out->insert(out->end(), bytes, bytes + count);
        },
        nullptr);
    png_set_compression_level(png, 1);
    png_set_IHDR(png, info, width, height, 1, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    const Bytes above(width / 8 + 1, 0), below(width / 8 + 1, 0xff);
    for (uint32_t y = 0; y < height; ++y) png_write_row(png, (y < height / 2 ? above : below).data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

Picture::Picture(CGImageRef image)
    : width_(CGImageGetWidth(image)),
      height_(CGImageGetHeight(image)),
      bytes_(width_ * height_ * 4) {
    if (bytes_.empty()) return;
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(bytes_.data(), width_, height_, 8, width_ * 4, rgb,
                                                 kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
    CGContextDrawImage(context, {{0, 0}, {static_cast<CGFloat>(width_), static_cast<CGFloat>(height_)}},
                       image);
    CGContextRelease(context);
    CGColorSpaceRelease(rgb);
}

Pixel Picture::at(size_t x, size_t y) const {
    if (x >= width_ || y >= height_) {
        ADD_FAILURE() << "no pixel " << x << ", " << y << " in a picture of " << width_ << " x " << height_;
        return {-1, -1, -1, -1};
    }
    const uint8_t* pixel = bytes_.data() + (y * width_ + x) * 4;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

UIImage* drawn(CGSize size, CGFloat scale, const std::function<void(CGContextRef)>& draw, bool opaque) {
    UIGraphicsBeginImageContextWithOptions(size, opaque, scale);
    draw(UIGraphicsGetCurrentContext());
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

Picture photographed(UIView* view, CGFloat scale) {
    const CGSize size = view->bounds().size;
    return Picture(
        drawn(size, scale, [&](CGContextRef) { view->drawViewHierarchyInRect({{0, 0}, size}, true); }));
}

objc::strong<UIView> view_with(CGRect frame, UIColor* background) {
    auto view = UIView::alloc()->initWithFrame(frame);
    if (background) view->setBackgroundColor(background);
    return view;
}

CGColorSpaceModel model_of(UIColor* color) {
    return CGColorSpaceGetModel(CGColorGetColorSpace(color->CGColor()));
}

}  // namespace test
