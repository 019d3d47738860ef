// Images scaled, tinted, filled and averaged: HCCITool.
#include <cmath>

#include "support/runtime.h"

namespace test {
namespace {

class ImageTools : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        tool = class_named("HCCITool");
    }

    objc::strong<UIImage> scaled(CGSize size, UIImage* image) {
        return objc::send<"newScale:forImage:", objc::strong<UIImage>>(tool, size, image);
    }
    objc::strong<UIImage> tinted(UIColor* color, UIImage* image) {
        return objc::send<"newColor:forImage:", objc::strong<UIImage>>(tool, color, image);
    }
    Rgba average(UIImage* image) { return rgba(objc::send<"averageColorForImage:", id>(tool, image)); }
    Rgba average_with_alpha(UIImage* image) {
        return rgba(objc::send<"averageColorWithAlphaForImage:", id>(tool, image));
    }

    /// An image whose left half is `left` and whose right half is `right`.
    static UIImage* halves(UIColor* left, UIColor* right, double width, double height) {
        UIGraphicsBeginImageContextWithOptions({width, height}, false, 1.0);
        CGContextRef context = UIGraphicsGetCurrentContext();
        left->setFill();
        CGContextFillRect(context, {{0, 0}, {width / 2, height}});
        right->setFill();
        CGContextFillRect(context, {{width / 2, 0}, {width / 2, height}});
        UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return image;
    }

    /// Premultiplied red, green, blue and alpha bytes of the pixel at (x, y) from the top left.
    static std::vector<int> pixel(UIImage* image, int x, int y) {
        const auto byte = [](double component) { return static_cast<int>(std::lround(component * 255)); };
        const Rgba seen = pixel_of(image, x, y);
        return {byte(seen.red), byte(seen.green), byte(seen.blue), byte(seen.alpha)};
    }
    using Pixel = std::vector<int>;

    Phone phone;
    id tool = nullptr;
};

TEST_F(ImageTools, ScalingTakesTheScreensScale) {
    auto image = scaled({30, 20}, filled_image(color(1, 0, 0), 6, 4));
    EXPECT_EQ(image->size(), (CGSize{30, 20}));
    EXPECT_EQ(image->scale(), 2.0);
    EXPECT_EQ(pixel(image, 59, 39), (Pixel{255, 0, 0, 255}));
}

TEST_F(ImageTools, ScalingStretchesWithoutRegardForTheAspectRatio) {
    auto image = scaled({40, 10}, halves(color(1, 0, 0), color(0, 0, 1), 4, 4));
    EXPECT_EQ(pixel(image, 10, 10), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixel(image, 70, 10), (Pixel{0, 0, 255, 255}));
}

TEST_F(ImageTools, ScalingNilGivesATransparentImageOfTheSize) {
    auto image = scaled({3, 2}, nullptr);
    EXPECT_EQ(image->size(), (CGSize{3, 2}));
    EXPECT_EQ(pixel(image, 1, 1), (Pixel{0, 0, 0, 0}));
}

TEST_F(ImageTools, ScalingToNothingGivesNoImage) {
    EXPECT_EQ(scaled({0, 0}, filled_image(color(1, 0, 0), 2, 2)).get(), nullptr);
    EXPECT_EQ(scaled({-4, 10}, filled_image(color(1, 0, 0), 2, 2)).get(), nullptr);
}

TEST_F(ImageTools, TheCallerOwnsWhatTheNewOperationsMake) {
    UIImage* source = filled_image(color(1, 0, 0), 2, 2);
    objc::strong<UIImage> scaled_image, tinted_image;
    {
        objc::AutoreleasePool pool;
        scaled_image = scaled({2, 2}, source);
        tinted_image = tinted(color(0, 1, 0), source);
    }
    EXPECT_EQ((scaled_image->send<"retainCount", NSUInteger>()), 1u);
    EXPECT_EQ((tinted_image->send<"retainCount", NSUInteger>()), 1u);
}

TEST_F(ImageTools, TintingKeepsTheShapeAndReplacesTheColour) {
    auto image = tinted(color(0, 1, 0), halves(color(1, 0, 0), UIColor::clearColor(), 8, 4));
    EXPECT_EQ(pixel(image, 1, 1), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(pixel(image, 6, 1), (Pixel{0, 0, 0, 0}));
}

TEST_F(ImageTools, TintingKeepsTheImageTheRightWayUp) {
    UIGraphicsBeginImageContextWithOptions({2, 4}, false, 1.0);
    color(1, 0, 0)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {2, 1}});  // the top row
    UIImage* top = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    auto image = tinted(color(0, 0, 1), top);
    EXPECT_EQ(pixel(image, 0, 0), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(pixel(image, 0, 3), (Pixel{0, 0, 0, 0}));
}

TEST_F(ImageTools, TintingKeepsTheImagesOwnScale) {
    auto source = scaled({5, 5}, filled_image(color(1, 0, 0), 5, 5));
    auto image = tinted(color(0, 1, 0), source);
    EXPECT_EQ(image->size(), (CGSize{5, 5}));
    EXPECT_EQ(image->scale(), 2.0);
}

TEST_F(ImageTools, TintingMultipliesTheColoursAlphaWithTheShapes) {
    auto image = tinted(color(1, 1, 1, 0.5), filled_image(color(1, 0, 0), 2, 2));
    EXPECT_NEAR(pixel(image, 0, 0)[3], 128, 1);
}

TEST_F(ImageTools, TintingNilGivesNoImage) { EXPECT_EQ(tinted(color(1, 0, 0), nullptr).get(), nullptr); }

TEST_F(ImageTools, AFilledImageHasOnePixelToAPoint) {
    auto* image = objc::send<"imageFromColor:withSize:", UIImage*>(tool, color(1, 0, 0, 0.5), CGSize{7, 3});
    EXPECT_EQ(image->size(), (CGSize{7, 3}));
    EXPECT_EQ(image->scale(), 1.0);
    EXPECT_NEAR(pixel(image, 6, 2)[0], 128, 1);
    EXPECT_NEAR(pixel(image, 6, 2)[3], 128, 1);
}

TEST_F(ImageTools, AFilledImageIsNotTheCallersToRelease) {
    objc::strong<UIImage> image;
    {
        objc::AutoreleasePool pool;
        image = objc::send<"imageFromColor:withSize:", UIImage*>(tool, color(1, 0, 0), CGSize{2, 2});
    }
    EXPECT_EQ((image->send<"retainCount", NSUInteger>()), 1u);
}

TEST_F(ImageTools, TheAverageIsDrawnIntoOnePixelByCopyingAtMediumQuality) {
    static int drawn = 0;
    stand_in("UIImage",
             "drawInRect:blendMode:alpha:", [](id, SEL, CGRect rect, CGBlendMode mode, CGFloat alpha) {
                 ++drawn;
                 EXPECT_EQ(rect, (CGRect{{0, 0}, {1, 1}}));
                 EXPECT_EQ(mode, 17);
                 EXPECT_EQ(alpha, 1.0);
                 CGContextRef context = UIGraphicsGetCurrentContext();
                 EXPECT_EQ(CGBitmapContextGetWidth(context), 1u);
                 EXPECT_EQ(CGBitmapContextGetHeight(context), 1u);
                 EXPECT_EQ(CGContextGetInterpolationQuality(context), 4);
             });
    average(filled_image(color(1, 0, 0), 4, 4));
    EXPECT_EQ(drawn, 1);
}

TEST_F(ImageTools, TheAverageOfAFlatImageIsItsColour) {
    EXPECT_EQ(average(filled_image(color(1, 0, 0), 30, 20)), (Rgba{1, 0, 0, 1}));
}

TEST_F(ImageTools, TheAverageOfTwoHalvesLiesBetweenThem) {
    const Rgba mean = average(halves(color(1, 0, 0), color(0, 0, 1), 300, 200));
    EXPECT_NEAR(mean.red, 0.5, 2 / 255.0);
    EXPECT_NEAR(mean.blue, 0.5, 2 / 255.0);
    EXPECT_EQ(mean.green, 0);
    EXPECT_EQ(mean.alpha, 1);
}

TEST_F(ImageTools, TheAverageIsDividedInSinglePrecision) {
    const Rgba mean = average(filled_image(color(51 / 255.0, 0, 0), 2, 2));
    EXPECT_EQ(mean.red, static_cast<double>(51 / 255.0f));
}

TEST_F(ImageTools, TheAverageOfATransparentImageIsDarkenedAndOpaque) {
    const Rgba mean = average(filled_image(color(1, 0, 0, 0.5), 4, 4));
    EXPECT_NEAR(mean.red, 0.5, 2 / 255.0);
    EXPECT_EQ(mean.alpha, 1);
}

TEST_F(ImageTools, TheAverageOfNilIsOpaqueBlack) { EXPECT_EQ(average(nullptr), (Rgba{0, 0, 0, 1})); }

TEST_F(ImageTools, TheAverageWithAlphaOfAnOpaqueImageIsItsColour) {
    const Rgba mean = average_with_alpha(filled_image(color(1, 0.2, 0), 4, 4));
    EXPECT_NEAR(mean.red, 1, 1e-12);
    EXPECT_NEAR(mean.green, 0.2, 1 / 255.0);
    EXPECT_EQ(mean.alpha, 1);
}

TEST_F(ImageTools, TheAverageWithAlphaIsDarkenedByAlphaTwice) {
    const Rgba mean = average_with_alpha(filled_image(color(1, 0, 0, 0.5), 4, 4));
    EXPECT_NEAR(mean.alpha, 0.5, 1 / 255.0);
    EXPECT_NEAR(mean.red, mean.alpha * mean.alpha, 1e-9)
        << "premultiplied by alpha, and multiplied once more";
}

TEST_F(ImageTools, TheAverageWithAlphaHasEachComponentInItsPlace) {
    const Rgba mean = average_with_alpha(filled_image(color(51 / 255.0, 102 / 255.0, 204 / 255.0), 4, 4));
    EXPECT_NEAR(mean.red, 51 / 255.0, 1e-9);
    EXPECT_NEAR(mean.green, 102 / 255.0, 1e-9);
    EXPECT_NEAR(mean.blue, 204 / 255.0, 1e-9);
}

TEST_F(ImageTools, TheAverageWithAlphaOfTwoHalvesLiesBetweenThem) {
    const Rgba mean = average_with_alpha(halves(color(1, 0, 0), color(0, 0, 1), 300, 200));
    EXPECT_NEAR(mean.red, 0.5, 2 / 255.0);
    EXPECT_NEAR(mean.blue, 0.5, 2 / 255.0);
    EXPECT_EQ(mean.alpha, 1);
}

TEST_F(ImageTools, TheFaintestAverageWithAlphaIsDarkenedTwiceAsWell) {
    const Rgba mean = average_with_alpha(filled_image(color(1, 1, 1, 1 / 255.0), 4, 4));
    EXPECT_NEAR(mean.alpha, 1 / 255.0, 1e-9);
    EXPECT_NEAR(mean.red, mean.alpha * mean.alpha, 1e-9);
    EXPECT_NEAR(mean.green, mean.alpha * mean.alpha, 1e-9);
    EXPECT_NEAR(mean.blue, mean.alpha * mean.alpha, 1e-9);
}

TEST_F(ImageTools, TheAverageWithAlphaOfAFullyTransparentImageHasNoAlpha) {
    EXPECT_EQ(average_with_alpha(filled_image(UIColor::clearColor(), 4, 4)), (Rgba{0, 0, 0, 0}));
}

TEST_F(ImageTools, TheAverageWithAlphaOfNilIsTransparentBlack) {
    EXPECT_EQ(average_with_alpha(nullptr), (Rgba{0, 0, 0, 0}));
}

TEST_F(ImageTools, AveragesLeaveNoContextBehind) {
    average(filled_image(color(1, 0, 0), 4, 4));
    scaled({2, 2}, nullptr);
    tinted(color(1, 0, 0), nullptr);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

}  // namespace
}  // namespace test
