// UIKit's images and the contexts they are made in.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using ImageContext = Drawing;
using Image = Drawing;

std::string png(double width, double height) {
    NSData* bytes = UIImagePNGRepresentation(filled_image(color(1, 0, 0), width, height));
    return {static_cast<const char*>(bytes->bytes()), bytes->length()};
}

TEST_F(ImageContext, HasAsManyPixelsAsItsScaleSays) {
    UIImage* image = drawn({5, 3}, 3, [](CGContextRef) {});
    EXPECT_EQ(CGImageGetWidth(image->CGImage()), 15u);
    EXPECT_EQ(CGImageGetHeight(image->CGImage()), 9u);
    EXPECT_EQ(image->size(), (CGSize{5, 3}));
    EXPECT_EQ(image->scale(), 3);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientationUp);
}

TEST_F(ImageContext, ScaleZeroIsTheScreens) {
    EXPECT_EQ(drawn({5, 3}, 0, [](CGContextRef) {})->scale(), 2);
    UIGraphicsBeginImageContext({5, 3});
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->scale(), 1);
    UIGraphicsEndImageContext();
}

TEST_F(ImageContext, ALargeContextBeginsEmptyWhateverWasInItsMemory) {
    constexpr CGSize size{1000, 1000};
    for (int i = 0; i < 4; ++i) {
        const objc::AutoreleasePool pool;
        drawn(size, 1, [&](CGContextRef context) {
            UIColor::redColor()->setFill();
            CGContextFillRect(context, {{0, 0}, size});
        });
    }
    for (bool opaque : {false, true}) {
        const objc::AutoreleasePool pool;
        const Picture picture(drawn(size, 1, [](CGContextRef) {}, opaque));
        for (size_t y = 0; y < 1000; ++y)
            for (size_t x = 0; x < 1000; ++x)
                ASSERT_EQ(picture.at(x, y), opaque ? black : transparent) << x << " " << y;
    }
}

TEST_F(ImageContext, PartsOfPixelsAreRoundedUp) {
    UIImage* image = drawn({1.1, 2.5}, 2, [](CGContextRef) {});
    EXPECT_EQ(CGImageGetWidth(image->CGImage()), 3u);
    EXPECT_EQ(CGImageGetHeight(image->CGImage()), 5u);
    EXPECT_EQ(image->size(), (CGSize{1.5, 2.5}));
}

TEST_F(ImageContext, TheOriginIsTheUpperLeftCorner) {
    const Picture picture(drawn({2, 2}, 2, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(1, 1), red);
    EXPECT_EQ(picture.at(2, 0), transparent);
    EXPECT_EQ(picture.at(0, 2), transparent);
}

TEST_F(ImageContext, ItsTransformationIsFlippedAndScaled) {
    drawn({4, 6}, 2, [](CGContextRef context) {
        EXPECT_EQ(CGContextGetCTM(context), (CGAffineTransform{2, 0, 0, -2, 0, 12}));
    });
}

TEST_F(ImageContext, ItsBytesAreBlueGreenRedAlpha) {
    drawn({1, 1}, 1, [](CGContextRef context) {
        color(1, 0.6, 0.2, 0.4)->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        auto* bytes = static_cast<uint8_t*>(CGBitmapContextGetData(context));
        EXPECT_EQ((std::vector<int>{bytes[0], bytes[1], bytes[2], bytes[3]}),
                  (std::vector<int>{20, 61, 102, 102}));
        EXPECT_EQ(CGBitmapContextGetBitmapInfo(context), 0x2002u);
    });
}

TEST_F(ImageContext, AnOpaqueOneBeginsBlack) {
    UIImage* image = drawn({1, 1}, 1, [](CGContextRef) {}, true);
    EXPECT_EQ(Picture(image).at(0, 0), black);
    EXPECT_EQ(Picture(drawn({1, 1}, 1, [](CGContextRef) {})).at(0, 0), transparent);
}

TEST_F(ImageContext, NestedContextsComeBackInTurn) {
    UIGraphicsBeginImageContext({2, 2});
    CGContextRef outer = UIGraphicsGetCurrentContext();
    UIGraphicsBeginImageContext({3, 3});
    EXPECT_NE(UIGraphicsGetCurrentContext(), outer);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{3, 3}));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST_F(ImageContext, WhatHasNoSizeHasNoContextAndNoImage) {
    const CGSize sizes[] = {{0, 0},        {0, 5},     {-3, 5},    {NAN, 5},
                            {5, INFINITY}, {1e9, 1e9}, {40000, 1}, {20000, 20000}};
    UIGraphicsBeginImageContext({2, 2});
    CGContextRef outer = UIGraphicsGetCurrentContext();
    for (CGSize size : sizes) {
        UIGraphicsBeginImageContextWithOptions(size, false, 1);
        EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr) << size.width << " x " << size.height;
        EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
        CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {1, 1}});
        UIGraphicsEndImageContext();
        EXPECT_EQ(UIGraphicsGetCurrentContext(), outer) << "the outer context is unharmed";
    }
    UIGraphicsEndImageContext();
}

TEST_F(ImageContext, AStrangeScaleHasNoContext) {
    for (CGFloat scale : {-1.0, double{NAN}, double{INFINITY}}) {
        UIGraphicsBeginImageContextWithOptions({2, 2}, false, scale);
        EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
        UIGraphicsEndImageContext();
    }
}

TEST_F(ImageContext, EndingTooOftenIsHarmless) {
    UIGraphicsEndImageContext();
    UIGraphicsPopContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
}

TEST_F(ImageContext, APushedContextIsNoImageContext) {
    CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
    CGContextRef pushed = CGBitmapContextCreate(nullptr, 1, 1, 8, 0, rgb, kCGImageAlphaPremultipliedLast);
    CGColorSpaceRelease(rgb);
    UIGraphicsBeginImageContext({2, 2});
    UIGraphicsPushContext(pushed);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), pushed);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), pushed) << "only popping ends a pushed context";
    UIGraphicsPopContext();
    UIGraphicsPopContext();
    EXPECT_NE(UIGraphicsGetImageFromCurrentImageContext(), nullptr)
        << "popping does not end an image context";
    UIGraphicsEndImageContext();
    CGContextRelease(pushed);
}

TEST_F(Image, IsInPoints) {
    UIImage* image =
        UIImage::imageWithCGImage(filled_image(color(1, 0, 0), 6, 9)->CGImage(), 3, UIImageOrientationUp);
    EXPECT_EQ(image->size(), (CGSize{2, 3}));
    EXPECT_EQ(image->scale(), 3);
}

TEST_F(Image, OfANullBitmapIsNil) {
    EXPECT_EQ(UIImage::imageWithCGImage(nullptr), nullptr);
    EXPECT_EQ(UIImage::imageWithCGImage(nullptr, 2, UIImageOrientationUp), nullptr);
}

TEST_F(Image, AScaleThatIsNotPositiveCountsAsOne) {
    CGImageRef bitmap = filled_image(color(1, 0, 0), 6, 9)->CGImage();
    for (CGFloat scale : {0.0, -2.0, double{NAN}})
        EXPECT_EQ(UIImage::imageWithCGImage(bitmap, scale, UIImageOrientationUp)->scale(), 1);
}

TEST_F(Image, AnotherRenderingModeIsAnotherImageOfTheSameBitmap) {
    UIImage* image = drawn({2, 2}, 2, [](CGContextRef) {});
    EXPECT_EQ(image->renderingMode(), UIImageRenderingModeAutomatic);
    UIImage* shape = image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
    EXPECT_NE(shape, image);
    EXPECT_EQ(shape->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(shape->CGImage(), image->CGImage());
    EXPECT_EQ(shape->scale(), 2);
    EXPECT_EQ(image->renderingMode(), UIImageRenderingModeAutomatic);
    EXPECT_FALSE(shape->isEqual(image));
    EXPECT_TRUE(shape->isEqual(shape->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate)));
}

TEST_F(Image, AFileIsReadFromTheDevice) {
    phone.write("/Library/Pictures/a.png", png(4, 6));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/Library/Pictures/a.png"))->size(), (CGSize{4, 6}));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/Library/Pictures/a.png"))->scale(), 1);
}

TEST_F(Image, TheVariantOfTheScreensDensityIsPreferred) {
    phone.write("/p/a.png", png(4, 4));
    phone.write("/p/a@2x.png", png(10, 10));
    phone.write("/p/a@3x.png", png(30, 30));
    UIImage* image = UIImage::imageWithContentsOfFile(text("/p/a.png"));
    EXPECT_EQ(image->scale(), 2);
    EXPECT_EQ(image->size(), (CGSize{5, 5}));
}

TEST_F(Image, AVariantAloneIsFound) {
    phone.write("/p/a@2x.png", png(10, 10));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/p/a.png"))->size(), (CGSize{5, 5}));
}

TEST_F(Image, ANameThatSaysItsDensityIsTakenAsItIs) {
    phone.write("/p/a@3x.png", png(9, 9));
    UIImage* image = UIImage::imageWithContentsOfFile(text("/p/a@3x.png"));
    EXPECT_EQ(image->scale(), 3);
    EXPECT_EQ(image->size(), (CGSize{3, 3}));
}

TEST_F(Image, ANameIsThatOfAFileBesideTheExecutable) {
    phone.write("/Applications/MobileNotes.app/a@2x.png", png(10, 10));
    phone.write("/Applications/MobileNotes.app/b.jpg", png(4, 4));
    EXPECT_EQ(UIImage::imageNamed(text("a"))->size(), (CGSize{5, 5}));
    EXPECT_EQ(UIImage::imageNamed(text("a.png"))->size(), (CGSize{5, 5}));
    EXPECT_EQ(UIImage::imageNamed(text("b.jpg"))->size(), (CGSize{4, 4}));
    for (const char* name : {"b", "c", ""}) EXPECT_EQ(UIImage::imageNamed(text(name)), nullptr) << name;
    EXPECT_EQ(UIImage::imageNamed(nullptr), nullptr);
}

TEST_F(Image, AFileThatIsMissingAFolderOrNoPictureIsNil) {
    phone.make_folder("/p/folder.png");
    phone.write("/p/text.png", "text");
    phone.write("/p/empty.png", "");
    for (const char* path : {"/p/missing.png", "/p/folder.png", "/p/text.png", "/p/empty.png", "", "/", "a"})
        EXPECT_EQ(UIImage::imageWithContentsOfFile(text(path)), nullptr) << path;
    EXPECT_EQ(UIImage::imageWithContentsOfFile(nullptr), nullptr);
}

TEST_F(Image, WithoutAContextItIsDrawnNowhere) {
    UIImage* image = filled_image(color(1, 0, 0), 1, 1);
    image->drawInRect({{0, 0}, {1, 1}});
    image->drawAtPoint({0, 0});
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST(ImageOnADenserScreen, TheDensestVariantIsPreferred) {
    Phone phone;
    phone.boot({.screen_scale = 3});
    phone.write("/p/a@2x.png", png(10, 10));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/p/a.png"))->scale(), 2);
    phone.write("/p/a@3x.png", png(30, 30));
    EXPECT_EQ(UIImage::imageWithContentsOfFile(text("/p/a.png"))->scale(), 3);
    EXPECT_EQ(drawn({5, 3}, 0, [](CGContextRef) {})->scale(), 3);
}

}  // namespace
}  // namespace test
