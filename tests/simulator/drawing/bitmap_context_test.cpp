// Bitmap contexts: memory formats, transformations, state.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

/// A context over memory of the test's, in that format.
class BitmapContext : public Drawing {
  protected:
    CGContextRef context_over(size_t width, size_t height, CGBitmapInfo info, size_t padding = 0) {
        row_bytes = width * 4 + padding;
        memory.assign(row_bytes * height, 0);
        CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
        context = CGBitmapContextCreate(memory.data(), width, height, 8, row_bytes, rgb, info);
        CGColorSpaceRelease(rgb);
        return context;
    }
    /// The four bytes of the pixel, as they lie in memory; y counts from the top.
    std::vector<int> bytes_at(size_t x, size_t y) const {
        const uint8_t* pixel = memory.data() + y * row_bytes + x * 4;
        return {pixel[0], pixel[1], pixel[2], pixel[3]};
    }
    void fill(UIColor* color, CGRect rect) {
        CGContextSetFillColorWithColor(context, color->CGColor());
        CGContextFillRect(context, rect);
    }
    void TearDown() override { CGContextRelease(context); }

    using Bytes = std::vector<int>;
    CGContextRef context = nullptr;
    std::vector<uint8_t> memory;
    size_t row_bytes = 0;
};

constexpr CGBitmapInfo in_rgba = kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big;
constexpr CGBitmapInfo in_bgra = kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little;

TEST_F(BitmapContext, BytesLieInTheOrderAskedFor) {
    const UIColor* colour = color(1, 0.6, 0.2);
    const std::pair<CGBitmapInfo, Bytes> rows[] = {
        {in_rgba, {255, 153, 51, 255}},
        {kCGImageAlphaPremultipliedLast, {255, 153, 51, 255}},
        {in_bgra, {51, 153, 255, 255}},
        {kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Big, {255, 255, 153, 51}},
        {kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Little, {255, 51, 153, 255}},
    };
    for (const auto& [info, expected] : rows) {
        ASSERT_NE(context_over(1, 1, info), nullptr);
        fill(const_cast<UIColor*>(colour), {{0, 0}, {1, 1}});
        EXPECT_EQ(bytes_at(0, 0), expected) << info;
        CGContextRelease(std::exchange(context, nullptr));
    }
}

TEST_F(BitmapContext, ColoursAreMultipliedByAlpha) {
    context_over(1, 1, in_rgba);
    fill(color(1, 0.5, 0, 0.4), {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{102, 51, 0, 102}));
}

TEST_F(BitmapContext, ASkippedByteIsLeftAlone) {
    context_over(1, 1, kCGImageAlphaNoneSkipLast | kCGBitmapByteOrder32Big);
    memory[3] = 77;
    fill(color(1, 1, 1, 0.5), {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{128, 128, 128, 77}));
}

TEST_F(BitmapContext, TheOriginIsTheLowerLeftCorner) {
    context_over(4, 3, in_rgba);
    fill(UIColor::redColor(), {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 2), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 0, 0}));
}

TEST_F(BitmapContext, RowsMayBeLongerThanTheirPixels) {
    for (CGBitmapInfo info : {in_rgba, in_bgra}) {
        context_over(2, 2, info, 8);
        fill(UIColor::whiteColor(), {{1, 0}, {1, 1}});
        EXPECT_EQ(bytes_at(1, 1), (Bytes{255, 255, 255, 255}));
        EXPECT_EQ(memory[row_bytes + 8], 0) << "beyond the row's pixels";
        CGContextRelease(std::exchange(context, nullptr));
    }
}

TEST_F(BitmapContext, WhatTheCallerWritesIsDrawnOver) {
    for (CGBitmapInfo info : {in_rgba, in_bgra}) {
        context_over(1, 1, info);
        fill(UIColor::blackColor(), {{0, 0}, {1, 1}});
        memory = {0, 0, 0, 0};
        fill(color(0, 1, 0, 0.5), {{0, 0}, {1, 1}});
        EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 128, 0, 128}));
        CGContextRelease(std::exchange(context, nullptr));
    }
}

TEST_F(BitmapContext, AnswersItsOwnDescription) {
    context_over(5, 3, in_rgba, 4);
    EXPECT_EQ(CGBitmapContextGetData(context), memory.data());
    EXPECT_EQ(CGBitmapContextGetWidth(context), 5u);
    EXPECT_EQ(CGBitmapContextGetHeight(context), 3u);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(context), 24u);
    EXPECT_EQ(CGBitmapContextGetBitmapInfo(context), 0x4001u);
}

TEST_F(BitmapContext, BringsItsOwnMemoryWhenGivenNone) {
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    context = CGBitmapContextCreate(nullptr, 2, 2, 8, 0, rgb, in_rgba);
    CGColorSpaceRelease(rgb);
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});
    auto* data = static_cast<uint8_t*>(CGBitmapContextGetData(context));
    EXPECT_EQ((Bytes{data[12], data[13], data[14], data[15]}), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, WhatCannotBeDrawnIntoIsRefused) {
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    uint8_t pixel[4] = {};
    EXPECT_EQ(CGBitmapContextCreate(pixel, 0, 1, 8, 4, rgb, in_rgba), nullptr);
    EXPECT_EQ(CGBitmapContextCreate(pixel, 1, 0, 8, 4, rgb, in_rgba), nullptr);
    EXPECT_EQ(CGBitmapContextCreate(pixel, 2, 1, 8, 4, rgb, in_rgba), nullptr) << "the row is too short";
    EXPECT_EQ(CGBitmapContextCreate(pixel, 1, 1, 16, 8, rgb, in_rgba), nullptr);
    EXPECT_EQ(CGBitmapContextCreate(pixel, 1, 1, 8, 4, nullptr, in_rgba), nullptr);
    EXPECT_EQ(CGBitmapContextCreate(pixel, 1, 1, 8, 4, rgb, kCGImageAlphaLast), nullptr) << "not multiplied";
    EXPECT_EQ(CGBitmapContextCreate(nullptr, SIZE_MAX, SIZE_MAX, 8, 0, rgb, in_rgba), nullptr);
    EXPECT_EQ(CGBitmapContextCreate(nullptr, 100000, 100000, 8, 400000, rgb, in_rgba), nullptr);
    CGColorSpaceRelease(rgb);
}

TEST_F(BitmapContext, RestoringBringsBackWhatWasSaved) {
    context_over(4, 1, in_rgba);
    CGContextSetFillColorWithColor(context, UIColor::redColor()->CGColor());
    CGContextSaveGState(context);
    CGContextSetFillColorWithColor(context, UIColor::greenColor()->CGColor());
    CGContextSetAlpha(context, 0.5);
    CGContextTranslateCTM(context, 1, 0);
    CGContextClipToRect(context, {{0, 0}, {1, 1}});
    CGContextRestoreGState(context);
    CGContextFillRect(context, {{0, 0}, {4, 1}});
    for (size_t x : {0, 1, 2, 3}) EXPECT_EQ(bytes_at(x, 0), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, RestoringTooOftenIsHarmless) {
    context_over(1, 1, in_rgba);
    CGContextSaveGState(context);
    for (int i = 0; i < 3; ++i) CGContextRestoreGState(context);
    fill(UIColor::redColor(), {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, TransformationsApplyToWhatFollowsThem) {
    context_over(8, 8, in_rgba);
    CGContextTranslateCTM(context, 2, 4);
    CGContextScaleCTM(context, 2, 3);
    EXPECT_EQ(CGContextGetCTM(context), (CGAffineTransform{2, 0, 0, 3, 2, 4}));
    fill(UIColor::redColor(), {{1, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(4, 3), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(bytes_at(5, 1), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(bytes_at(3, 2), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(bytes_at(4, 0), (Bytes{0, 0, 0, 0}));
}

TEST_F(BitmapContext, TurningIsCounterClockwise) {
    context_over(4, 4, in_rgba);
    CGContextTranslateCTM(context, 2, 2);
    CGContextRotateCTM(context, M_PI / 2);
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});  // the upper right quarter becomes the upper left one
    EXPECT_EQ(bytes_at(0, 0), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(bytes_at(3, 0), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(bytes_at(0, 3), (Bytes{0, 0, 0, 0}));
}

TEST_F(BitmapContext, AFlatTransformationDrawsNothingUntilItIsRestored) {
    context_over(2, 2, in_rgba);
    CGContextSaveGState(context);
    CGContextScaleCTM(context, 0, 1);
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});
    CGContextDrawImage(context, {{0, 0}, {2, 2}}, filled_image(color(1, 0, 0), 2, 2)->CGImage());
    CGContextStrokeRect(context, {{0, 0}, {2, 2}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 0, 0}));
    CGContextRestoreGState(context);
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, WhatIsNotANumberDrawsNothing) {
    context_over(2, 2, in_rgba);
    fill(UIColor::redColor(), {{NAN, 0}, {2, 2}});
    fill(UIColor::redColor(), {{0, 0}, {2, NAN}});
    CGContextSaveGState(context);
    CGContextScaleCTM(context, NAN, 1);
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});
    CGContextRestoreGState(context);
    CGContextDrawImage(context, {{0, NAN}, {2, 2}}, filled_image(color(1, 0, 0), 2, 2)->CGImage());
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 0, 0}));
    fill(UIColor::redColor(), {{0, 0}, {2, 2}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, EndlessRectanglesFillEverything) {
    context_over(3, 3, in_rgba);
    fill(UIColor::redColor(), {{-1e12, -1e12}, {2e12, 2e12}});
    for (size_t i : {0, 1, 2}) EXPECT_EQ(bytes_at(i, i), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, WhatLiesFarAwayIsNotSeen) {
    context_over(3, 3, in_rgba);
    for (CGFloat distance : {0x1p23, 0x1p24, 0x1p25, 0x1p31, 0x1p32}) {
        fill(UIColor::redColor(), {{distance, 0}, {3, 3}});
        fill(UIColor::redColor(), {{0, -distance}, {3, 3}});
    }
    for (size_t i : {0, 1, 2}) EXPECT_EQ(bytes_at(i, i), (Bytes{0, 0, 0, 0}));
}

TEST_F(BitmapContext, ANegativeSizeReachesTheOtherWay) {
    context_over(3, 1, in_rgba);
    fill(UIColor::redColor(), {{2, 1}, {-1, -1}});
    EXPECT_EQ(bytes_at(1, 0), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(bytes_at(2, 0), (Bytes{0, 0, 0, 0}));
}

TEST_F(BitmapContext, ClearingTakesAwayWhatWasDrawn) {
    context_over(2, 1, in_rgba);
    fill(UIColor::redColor(), {{0, 0}, {2, 1}});
    CGContextClearRect(context, {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(bytes_at(1, 0), (Bytes{255, 0, 0, 255}));
}

TEST_F(BitmapContext, APictureOfItDoesNotChangeAfterwards) {
    context_over(1, 1, in_rgba);
    fill(UIColor::redColor(), {{0, 0}, {1, 1}});
    CGImageRef image = CGBitmapContextCreateImage(context);
    fill(UIColor::greenColor(), {{0, 0}, {1, 1}});
    EXPECT_EQ(Picture(image).at(0, 0), red);
    CGImageRelease(image);
}

TEST_F(BitmapContext, ALayerIsCompositedAsOne) {
    context_over(3, 1, in_rgba);
    CGContextSetAlpha(context, 0.5);
    CGContextBeginTransparencyLayer(context, nullptr);
    fill(UIColor::blueColor(), {{0, 0}, {2, 1}});
    fill(UIColor::redColor(), {{1, 0}, {2, 1}});
    CGContextEndTransparencyLayer(context);
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 128, 128}));
    EXPECT_EQ(bytes_at(1, 0), (Bytes{128, 0, 0, 128}));
    EXPECT_EQ(bytes_at(2, 0), (Bytes{128, 0, 0, 128}));
}

TEST_F(BitmapContext, UnevenNestingOfLayersAndStatesIsHarmless) {
    context_over(1, 1, in_rgba);
    CGContextEndTransparencyLayer(context);
    CGContextBeginTransparencyLayer(context, nullptr);
    CGContextSaveGState(context);
    fill(UIColor::redColor(), {{0, 0}, {1, 1}});
    CGContextEndTransparencyLayer(context);
    CGContextRestoreGState(context);
    CGContextEndTransparencyLayer(context);
    EXPECT_EQ(bytes_at(0, 0), (Bytes{255, 0, 0, 255}));
    CGContextBeginTransparencyLayer(context, nullptr);  // never ended
}

TEST_F(BitmapContext, ANullContextIsHarmless) {
    CGContextSaveGState(nullptr);
    CGContextTranslateCTM(nullptr, 1, 1);
    CGContextClipToMask(nullptr, {{0, 0}, {1, 1}}, nullptr);
    CGContextFillRect(nullptr, {{0, 0}, {1, 1}});
    CGContextDrawImage(nullptr, {{0, 0}, {1, 1}}, nullptr);
    CGContextAddArc(nullptr, 0, 0, 1, 0, 1, 0);
    CGContextFillPath(nullptr);
    CGContextRestoreGState(nullptr);
    CGContextRelease(nullptr);
    EXPECT_EQ(CGBitmapContextGetData(nullptr), nullptr);
    EXPECT_EQ(CGBitmapContextCreateImage(nullptr), nullptr);
    context_over(1, 1, in_rgba);
    CGContextDrawImage(context, {{0, 0}, {1, 1}}, nullptr);
    CGContextClipToMask(context, {{0, 0}, {1, 1}}, nullptr);
    CGContextSetFillColorWithColor(context, nullptr);
    CGContextFillRect(context, {{0, 0}, {1, 1}});
    EXPECT_EQ(bytes_at(0, 0), (Bytes{0, 0, 0, 255})) << "black is what a context begins with";
}

}  // namespace
}  // namespace test
