// Photographs on their way behind a keyboard: upright, of a size to work with, cropped, dimmed, blurred.
#include "pane/drawing/photo.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <turbojpeg.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <vector>

#include "kept_files.h"

namespace test {
namespace {

class Photo : public testing::Test {
  protected:
    void SetUp() override { phone.start({.screen_width = 414, .screen_height = 736, .screen_scale = 3}); }

    static CGSize size_of(UIImage* image) {
        EXPECT_EQ(image->scale(), 1);
        return image->size();
    }
    /// Red at the left, blue at the right.
    static UIImage* red_and_blue(double width, double height) {
        UIGraphicsBeginImageContextWithOptions({width, height}, true, 1);
        CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextSetRGBFillColor(context, 1, 0, 0, 1);
        CGContextFillRect(context, {{0, 0}, {width / 2, height}});
        CGContextSetRGBFillColor(context, 0, 0, 1, 1);
        CGContextFillRect(context, {{width / 2, 0}, {width / 2, height}});
        UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return image;
    }
    /// The pixel at that part of the image.
    static Rgba pixel(UIImage* image, double across, double down) {
        return pixel_of(image, across * image->size().width, down * image->size().height);
    }

    Phone phone;
};

TEST_F(Photo, TheKeyboardsPixelsAreAtMostTheLargestPhones) {
    EXPECT_EQ(pane::keyboard_pixels().width, 1242);
    EXPECT_LE(pane::keyboard_pixels().height, 798);
    EXPECT_GT(pane::keyboard_pixels().height, 700);
}

TEST_F(Photo, Of48MegapixelsIsMadeSmall) {
    const CGSize size = size_of(pane::workable(filled_image(color(1, 0, 0), 8000, 6000)));
    EXPECT_EQ(size.width, 2484);
    EXPECT_EQ(size.height, 1863);
}

TEST_F(Photo, OfOnePixelStaysAndFillsTheKeyboard) {
    UIImage* one = pane::workable(filled_image(color(0, 1, 0), 1, 1));
    EXPECT_EQ(size_of(one), (CGSize{1, 1}));
    UIImage* filled = pane::cropped(one, {{0, 0}, {1, 0.64}}, {1242, 798});
    EXPECT_EQ(size_of(filled), (CGSize{1242, 798}));
    EXPECT_EQ(pixel(filled, 0.5, 0.5), (Rgba{0, 1, 0, 1}));
    EXPECT_EQ(size_of(pane::blurred(one)), (CGSize{1, 1}));
}

/// Writes a photo of 48 megapixels, in a process of its own: this one never holds it.
void write_large_photo(const std::filesystem::path& file) {
    if (const pid_t child = fork(); child != 0) {
        int status = -1;
        waitpid(child, &status, 0);
        ASSERT_EQ(status, 0);
        return;
    }
    constexpr int width = 8000, height = 6000;
    const std::vector<uint8_t> grey(size_t{width} * height, 128);
    unsigned char* jpeg = nullptr;
    unsigned long size = 0;
    const bool made = tjCompress2(tjInitCompress(), grey.data(), width, 0, height, TJPF_GRAY, &jpeg, &size,
                                  TJSAMP_GRAY, 80, 0) == 0;
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(jpeg), static_cast<std::streamsize>(size));
    out.close();
    _exit(made && out ? 0 : 1);
}

TEST_F(Photo, AFileOf48MegapixelsIsNeverDecodedWhole) {
    const auto most_memory = [] {
        rusage used{};
        getrusage(RUSAGE_SELF, &used);
        return used.ru_maxrss;
    };
    write_large_photo(phone.host("/large.jpg"));
    const long before = most_memory();
    UIImage* photo = pane::workable(NSURL::fileURLWithPath(text("/large.jpg")));
    ASSERT_NE(photo, nullptr);
    EXPECT_EQ(size_of(photo), (CGSize{2484, 1863}));
    constexpr long whole = 8000 * 6000 / 1024 * 4, parts = 2;
    EXPECT_LT(most_memory() - before, whole / parts) << "kilobytes";
}

TEST_F(Photo, AFileThatIsNoPhotoIsNone) {
    phone.write("/broken.jpg", "no photo");
    EXPECT_EQ(pane::workable(NSURL::fileURLWithPath(text("/broken.jpg"))), nullptr);
    EXPECT_EQ(pane::workable(NSURL::fileURLWithPath(text("/gone.jpg"))), nullptr);
}

TEST_F(Photo, ThatIsMissingIsNone) {
    EXPECT_EQ(pane::workable(static_cast<UIImage*>(nullptr)), nullptr);
    EXPECT_EQ(pane::workable(static_cast<NSURL*>(nullptr)), nullptr);
}

TEST_F(Photo, ThatIsLongAndThinKeepsItsShape) {
    EXPECT_EQ(size_of(pane::workable(filled_image(color(1, 0, 0), 20000, 4))), (CGSize{2484, 1}));
}

TEST_F(Photo, IsTurnedUpright) {
    constexpr UIImageOrientation right = 3;
    UIImage* lying = UIImage::imageWithCGImage(red_and_blue(40, 20)->CGImage(), 1, right);
    UIImage* upright = pane::workable(lying);
    EXPECT_EQ(size_of(upright), (CGSize{20, 40}));
    EXPECT_EQ(upright->imageOrientation(), UIImageOrientationUp);
    EXPECT_EQ(pixel(upright, 0.5, 0.1), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(pixel(upright, 0.5, 0.9), (Rgba{0, 0, 1, 1}));
}

TEST_F(Photo, APartOfItIsCutOut) {
    UIImage* right = pane::cropped(red_and_blue(400, 200), {{200, 0}, {200, 100}}, {100, 50});
    EXPECT_EQ(size_of(right), (CGSize{100, 50}));
    EXPECT_EQ(pixel(right, 0.2, 0.5), (Rgba{0, 0, 1, 1}));
}

TEST_F(Photo, IsEnlargedInTheHighestQuality) {
    constexpr CGSize pixels{60, 30};
    UIImage* small = red_and_blue(4, 2);
    const auto enlarged = [&](CGInterpolationQuality quality) {
        UIGraphicsBeginImageContextWithOptions(pixels, false, 1);
        CGContextSetInterpolationQuality(UIGraphicsGetCurrentContext(), quality);
        small->drawInRect({{0, 0}, pixels});
        UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return image;
    };
    UIImage* seen = pane::cropped(small, {{0, 0}, small->size()}, pixels);
    UIImage* highest = enlarged(kCGInterpolationHigh);
    UIImage* usual = enlarged(kCGInterpolationDefault);
    int others = 0;
    for (int x = 0; x < 60; ++x) {
        const double across = (x + 0.5) / 60;
        EXPECT_EQ(pixel(seen, across, 0.5), pixel(highest, across, 0.5)) << x;
        others += pixel(usual, across, 0.5) == pixel(highest, across, 0.5) ? 0 : 1;
    }
    EXPECT_GT(others, 0) << "the usual quality is another";
}

TEST_F(Photo, DimmedIsDarker) {
    const Rgba dim = pixel(pane::dimmed(red_and_blue(40, 20)), 0.1, 0.5);
    EXPECT_NEAR(dim.red, 1 - pane::dimming, 0.01);
    EXPECT_EQ(dim.alpha, 1);
}

TEST_F(Photo, BlurredHasNoEdges) {
    UIImage* soft = pane::blurred(red_and_blue(400, 200));
    EXPECT_EQ(size_of(soft), (CGSize{400, 200}));
    const Rgba middle = pixel(soft, 0.5, 0.5), left = pixel(soft, 0.02, 0.5);
    EXPECT_NEAR(middle.red, 0.5, 0.1);
    EXPECT_NEAR(middle.blue, 0.5, 0.1);
    EXPECT_NEAR(left.red, 1, 0.02);
    EXPECT_EQ(left.alpha, 1);
}

// Three times the mean of nine pixels across and of nine down; beyond the edges the last one goes on.
TEST_F(Photo, BlurredIsTheMeanOfWhatIsAround) {
    constexpr int side = 60;
    std::vector<double> expected(size_t{side} * side);
    const auto at = [](int x, int y) {
        return static_cast<size_t>(std::clamp(y, 0, side - 1) * side + std::clamp(x, 0, side - 1));
    };
    UIGraphicsBeginImageContextWithOptions({side, side}, true, 1);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetRGBFillColor(context, 0, 0.4, 0.8, 1);
    CGContextFillRect(context, {{0, 0}, {side, side}});
    CGContextSetRGBFillColor(context, 1, 0.4, 0.8, 1);
    for (const CGRect& red : {CGRect{{0, 0}, {20, 30}}, CGRect{{57, 50}, {3, 10}}}) {
        CGContextFillRect(context, red);
        for (int y = 0; y < static_cast<int>(red.size.height); ++y)
            for (int x = 0; x < static_cast<int>(red.size.width); ++x)
                expected[at(static_cast<int>(red.origin.x) + x, static_cast<int>(red.origin.y) + y)] = 1;
    }
    UIImage* soft = pane::blurred(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    for (int pass = 0; pass < 6; ++pass) {
        const auto before = expected;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                double sum = 0;
                for (int i = -4; i <= 4; ++i) sum += before[pass % 2 ? at(x, y + i) : at(x + i, y)];
                expected[at(x, y)] = sum / 9;
            }
    }
    for (int y = 0; y < side && !HasFailure(); y += 3)
        for (int x = 0; x < side && !HasFailure(); ++x) {
            const Rgba seen = pixel(soft, (x + 0.5) / side, (y + 0.5) / side);
            constexpr double truncated = 6.0 / 255;  // each of six passes leaves out a fraction
            EXPECT_NEAR(seen.red, expected[at(x, y)], truncated) << x << ", " << y;
            EXPECT_NEAR(seen.green, 0.4, truncated) << x << ", " << y;
            EXPECT_NEAR(seen.blue, 0.8, truncated) << x << ", " << y;
            EXPECT_EQ(seen.alpha, 1) << x << ", " << y;
        }
}

}  // namespace
}  // namespace test
