// Images drawn into contexts: which way up, how they are scaled, what they are mixed with.
#include <cmath>
#include <cstring>

#include "drawing_test.h"

namespace test {
namespace {

using ImageDrawing = Drawing;

/// Two by two: red, green; blue, white from the top.
UIImage* four_colors() {
    return drawn({2, 2}, 1, [](CGContextRef context) {
        const std::pair<UIColor*, CGPoint> squares[] = {{UIColor::redColor(), {0, 0}},
                                                        {UIColor::greenColor(), {1, 0}},
                                                        {UIColor::blueColor(), {0, 1}},
                                                        {UIColor::whiteColor(), {1, 1}}};
        for (auto [color, origin] : squares) {
            color->setFill();
            CGContextFillRect(context, {origin, {1, 1}});
        }
    });
}

/// A picture with another value in every pixel.
UIImage* noise(size_t width, size_t height, bool with_alpha) {
    std::vector<uint8_t> bytes(width * height * 4);
    uint32_t state = 12345;
    for (size_t i = 0; i < bytes.size(); i += 4) {
        state = state * 1664525 + 1013904223;
        const unsigned alpha = with_alpha ? state >> 24 : 255;
        for (size_t c = 0; c < 3; ++c)
            bytes[i + c] = static_cast<uint8_t>((state >> (8 * c) & 255) * alpha / 255);
        bytes[i + 3] = static_cast<uint8_t>(alpha);
    }
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(bytes.data(), width, height, 8, width * 4, rgb,
                                                 kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
    CGImageRef image = CGBitmapContextCreateImage(context);
    UIImage* result = UIImage::imageWithCGImage(image);
    CGImageRelease(image);
    CGContextRelease(context);
    CGColorSpaceRelease(rgb);
    return result;
}

struct Mean {
    double red = 0, green = 0, blue = 0, alpha = 0;
};
Mean mean_of(UIImage* image, size_t x, size_t y, size_t width, size_t height) {
    const Picture picture(image);
    Mean mean;
    for (size_t row = y; row < y + height; ++row)
        for (size_t column = x; column < x + width; ++column) {
            const Pixel pixel = picture.at(column, row);
            mean.red += pixel.red, mean.green += pixel.green, mean.blue += pixel.blue,
                mean.alpha += pixel.alpha;
        }
    const double count = static_cast<double>(width * height);
    return {mean.red / count, mean.green / count, mean.blue / count, mean.alpha / count};
}

void expect_near(const Pixel& pixel, const Mean& mean) {
    EXPECT_NEAR(pixel.red, mean.red, 1);
    EXPECT_NEAR(pixel.green, mean.green, 1);
    EXPECT_NEAR(pixel.blue, mean.blue, 1);
    EXPECT_NEAR(pixel.alpha, mean.alpha, 1);
}

Picture shrunk(UIImage* image, CGSize size, CGInterpolationQuality quality = kCGInterpolationDefault) {
    return Picture(drawn(size, 1, [&](CGContextRef context) {
        CGContextSetInterpolationQuality(context, quality);
        image->drawInRect({{0, 0}, size});
    }));
}

TEST_F(ImageDrawing, AnImageIsUprightInAnImageContext) {
    const Picture picture(
        drawn({2, 2}, 1, [](CGContextRef) { four_colors()->drawInRect({{0, 0}, {2, 2}}); }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(1, 0), green);
    EXPECT_EQ(picture.at(0, 1), blue);
}

TEST_F(ImageDrawing, ACoreImageIsUpsideDownInAnImageContext) {
    const Picture picture(drawn({2, 2}, 1, [](CGContextRef context) {
        CGContextDrawImage(context, {{0, 0}, {2, 2}}, four_colors()->CGImage());
    }));
    EXPECT_EQ(picture.at(0, 0), blue);
    EXPECT_EQ(picture.at(0, 1), red);
}

TEST_F(ImageDrawing, FlippingTheContextPutsACoreImageUpright) {
    const Picture picture(drawn({2, 2}, 2, [](CGContextRef context) {
        CGContextScaleCTM(context, 1, -1);
        CGContextTranslateCTM(context, 0, -2);
        CGContextDrawImage(context, {{0, 0}, {2, 2}}, four_colors()->CGImage());
    }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(3, 0), green);
    EXPECT_EQ(picture.at(0, 3), blue);
}

TEST_F(ImageDrawing, AnImageIsPlacedInPoints) {
    const Picture picture(drawn({4, 4}, 2, [](CGContextRef) { four_colors()->drawAtPoint({1, 2}); }));
    EXPECT_EQ(picture.at(2, 4), red);
    EXPECT_EQ(picture.at(5, 4), green);
    EXPECT_EQ(picture.at(2, 7), blue);
    EXPECT_EQ(picture.at(1, 4), transparent);
    EXPECT_EQ(picture.at(6, 4), transparent);
}

TEST_F(ImageDrawing, OnePixelOfAPhotographIsItsMean) {
    UIImage* photograph = noise(3000, 2000, false);
    expect_near(shrunk(photograph, {1, 1}).at(0, 0), mean_of(photograph, 0, 0, 3000, 2000));
}

TEST_F(ImageDrawing, OnePixelIsTheMeanWhateverTheQualityThatAverages) {
    UIImage* image = noise(301, 97, true);
    const Mean mean = mean_of(image, 0, 0, 301, 97);
    for (CGInterpolationQuality quality :
         {kCGInterpolationDefault, kCGInterpolationMedium, kCGInterpolationHigh})
        expect_near(shrunk(image, {1, 1}, quality).at(0, 0), mean);
}

TEST_F(ImageDrawing, EachPixelOfASmallerPictureIsTheMeanOfItsArea) {
    UIImage* image = noise(60, 40, true);
    const Picture small = shrunk(image, {3, 4});
    for (size_t y = 0; y < 4; ++y)
        for (size_t x = 0; x < 3; ++x) expect_near(small.at(x, y), mean_of(image, x * 20, y * 10, 20, 10));
}

TEST_F(ImageDrawing, APictureOfHalfTheSizeIsTheMeanOfFourPixelsToNearest) {
    UIImage* image = noise(62, 40, true);
    const Picture small = shrunk(image, {31, 20});
    for (size_t y = 0; y < 20; ++y)
        for (size_t x = 0; x < 31; ++x) {
            const Mean mean = mean_of(image, 2 * x, 2 * y, 2, 2);
            const Pixel pixel = small.at(x, y);
            EXPECT_EQ(pixel.red, std::floor(mean.red + 0.5));
            EXPECT_EQ(pixel.green, std::floor(mean.green + 0.5));
            EXPECT_EQ(pixel.blue, std::floor(mean.blue + 0.5));
            EXPECT_EQ(pixel.alpha, std::floor(mean.alpha + 0.5));
        }
}

TEST_F(ImageDrawing, PixelsCoveredInPartCountInPart) {
    // Three columns in two: the middle one counts half for each.
    UIImage* image = drawn({3, 1}, 1, [](CGContextRef context) {
        UIColor::whiteColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        UIColor::blackColor()->setFill();
        CGContextFillRect(context, {{1, 0}, {2, 1}});
    });
    const Picture picture = shrunk(image, {2, 1});
    EXPECT_TRUE(near(picture.at(0, 0), {170, 170, 170, 255}));
    EXPECT_EQ(picture.at(1, 0), black);
}

TEST_F(ImageDrawing, AFlatPictureStaysExactlyFlat) {
    UIImage* image = filled_image(color(0.2, 0.6, 0.4, 0.6), 997, 613);
    const Pixel pixel = Picture(image).at(0, 0);
    for (CGSize size : {CGSize{1, 1}, CGSize{13, 7}, CGSize{500, 300}}) {
        const Picture small = shrunk(image, size);
        EXPECT_EQ(small.at(0, 0), pixel);
        EXPECT_EQ(small.at(small.width() - 1, small.height() - 1), pixel);
    }
}

TEST_F(ImageDrawing, ASmallerFlippedPictureIsAveragedToo) {
    UIImage* image = noise(200, 200, false);
    uint8_t pixel[4] = {};
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(pixel, 1, 1, 8, 4, rgb,
                                                 kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
    CGContextDrawImage(context, {{0, 0}, {1, 1}}, image->CGImage());
    expect_near({pixel[0], pixel[1], pixel[2], pixel[3]}, mean_of(image, 0, 0, 200, 200));
    CGContextRelease(context);
    CGColorSpaceRelease(rgb);
}

TEST_F(ImageDrawing, WithoutInterpolationAPixelIsTakenFromThePicture) {
    UIImage* stripes = drawn({100, 1}, 1, [](CGContextRef context) {
        for (int x = 0; x < 100; ++x) {
            (x % 2 ? UIColor::whiteColor() : UIColor::blackColor())->setFill();
            CGContextFillRect(context, {{static_cast<CGFloat>(x), 0}, {1, 1}});
        }
    });
    const Pixel taken = shrunk(stripes, {1, 1}, kCGInterpolationNone).at(0, 0);
    EXPECT_TRUE(taken == black || taken == white);
    EXPECT_TRUE(near(shrunk(stripes, {1, 1}).at(0, 0), {128, 128, 128, 255}));
}

TEST_F(ImageDrawing, WithoutInterpolationAGrownPictureHasHardEdges) {
    const Picture picture(drawn({8, 8}, 1, [](CGContextRef context) {
        CGContextSetInterpolationQuality(context, kCGInterpolationNone);
        four_colors()->drawInRect({{0, 0}, {8, 8}});
    }));
    EXPECT_EQ(picture.at(3, 3), red);
    EXPECT_EQ(picture.at(4, 3), green);
}

TEST_F(ImageDrawing, AGrownPictureIsBlendedInsideAndFullAtItsEdges) {
    const Picture picture(
        drawn({8, 8}, 1, [](CGContextRef) { four_colors()->drawInRect({{0, 0}, {8, 8}}); }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(7, 0), green);
    const Pixel middle = picture.at(4, 0);
    EXPECT_GT(middle.red, 0);
    EXPECT_GT(middle.green, 0);
}

TEST_F(ImageDrawing, TheSameSizeIsDrawnPixelForPixel) {
    UIImage* image = noise(37, 21, true);
    const Picture original(image),
        copy(drawn({37, 21}, 1, [&](CGContextRef) { image->drawAtPoint({0, 0}); }));
    for (size_t y = 0; y < 21; ++y)
        for (size_t x = 0; x < 37; ++x) ASSERT_EQ(copy.at(x, y), original.at(x, y));
}

TEST_F(ImageDrawing, CopyingReplacesWhatWasThere) {
    const Picture picture(drawn({2, 1}, 1, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {2, 1}});
        filled_image(color(0, 0, 1, 0.2), 1, 1)->drawInRect({{0, 0}, {1, 1}}, kCGBlendModeCopy, 1);
    }));
    EXPECT_EQ(picture.at(0, 0), (Pixel{0, 0, 51, 51}));
    EXPECT_EQ(picture.at(1, 0), red);
}

TEST_F(ImageDrawing, CopyingAFadedPictureReplacesToo) {
    const Picture picture(drawn({1, 1}, 1, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        filled_image(color(0, 0, 1), 1, 1)->drawInRect({{0, 0}, {1, 1}}, kCGBlendModeCopy, 0.4);
    }));
    EXPECT_EQ(picture.at(0, 0), (Pixel{0, 0, 102, 102}));
}

TEST_F(ImageDrawing, AlphaFadesAPicture) {
    const Picture picture(drawn({1, 1}, 1, [](CGContextRef) {
        filled_image(color(1, 1, 1), 1, 1)->drawInRect({{0, 0}, {1, 1}}, kCGBlendModeNormal, 0.6);
    }));
    EXPECT_EQ(picture.at(0, 0), (Pixel{153, 153, 153, 153}));
}

TEST_F(ImageDrawing, MultiplyingOntoNothingLeavesTheFadedPicture) {
    const Picture picture(drawn({2, 2}, 1, [](CGContextRef context) {
        CGContextScaleCTM(context, 1, -1);
        CGContextTranslateCTM(context, 0, -2);
        CGContextSetBlendMode(context, kCGBlendModeMultiply);
        CGContextSetAlpha(context, 0.5);
        CGContextDrawImage(context, {{0, 0}, {2, 2}}, four_colors()->CGImage());
    }));
    EXPECT_TRUE(near(picture.at(0, 0), {128, 0, 0, 128}));
    EXPECT_TRUE(near(picture.at(1, 1), {128, 128, 128, 128}));
}

TEST_F(ImageDrawing, AnEmptyRectangleShowsNothing) {
    const Picture picture(drawn({2, 2}, 1, [](CGContextRef) {
        four_colors()->drawInRect({{0, 0}, {0, 2}});
        four_colors()->drawInRect({{0, 0}, {0, 0}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
}

TEST_F(ImageDrawing, AnImageIsLeftAsItWasByWhatIsDrawnLater) {
    UIImage* first = nullptr;
    drawn({1, 1}, 1, [&](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        first = UIGraphicsGetImageFromCurrentImageContext();
        UIColor::greenColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
    });
    EXPECT_EQ(Picture(first).at(0, 0), red);
}

}  // namespace
}  // namespace test
