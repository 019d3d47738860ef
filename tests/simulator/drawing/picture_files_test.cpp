// Picture files: PNG and JPEG in, PNG out.
#include <png.h>
#include <turbojpeg.h>

#include <cstring>
#include <memory>

#include "drawing_test.h"
#include "platform/imageio.h"

namespace test {
namespace {

using PictureFile = Drawing;

NSData* data_of(const Bytes& bytes) {
    return data({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

UIImage* decoded(const Bytes& bytes) { return UIImage::imageWithData(data_of(bytes)); }

Bytes encoded(UIImage* image) {
    NSData* png = UIImagePNGRepresentation(image);
    auto* bytes = static_cast<const uint8_t*>(png->bytes());
    return Bytes(bytes, bytes + png->length());
}

/// A PNG of one of libpng's formats.
Bytes png_file(uint32_t width, uint32_t height, uint32_t format, const void* pixels,
               const void* colormap = nullptr, uint32_t entries = 0) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = width;
    png.height = height;
    png.format = format;
    png.colormap_entries = entries;
    png_alloc_size_t size = 0;
    EXPECT_TRUE(png_image_write_to_memory(&png, nullptr, &size, 0, pixels, 0, colormap)) << png.message;
    Bytes file(size);
    EXPECT_TRUE(png_image_write_to_memory(&png, file.data(), &size, 0, pixels, 0, colormap)) << png.message;
    return file;
}

/// A value between 0 and the bound, another one each time.
size_t next_random(size_t bound) {
    static uint32_t state = 99;
    state = state * 1664525 + 1013904223;
    return (state >> 8) % bound;
}

/// A PNG that cannot be compressed.
Bytes noisy_png(uint32_t width, uint32_t height) {
    Bytes pixels(size_t{width} * height * 4);
    for (uint8_t& byte : pixels) byte = static_cast<uint8_t>(next_random(256));
    return png_file(width, height, PNG_FORMAT_RGBA, pixels.data());
}

/// A JPEG that is red in its left half and blue in its right one.
Bytes jpeg_file(int width, int height, int format = TJPF_RGB, int sampling = TJSAMP_444) {
    const int components = tjPixelSize[format];
    Bytes pixels(static_cast<size_t>(width * height * components));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            uint8_t* pixel = &pixels[static_cast<size_t>((y * width + x) * components)];
            pixel[0] = x < width / 2 ? 255 : 0;
            if (components > 1) pixel[2] = x < width / 2 ? 0 : 255;
        }
    const std::unique_ptr<void, int (*)(tjhandle)> jpeg(tjInitCompress(), &tjDestroy);
    unsigned char* file = nullptr;
    unsigned long size = 0;
    EXPECT_EQ(tjCompress2(jpeg.get(), pixels.data(), width, 0, height, format, &file, &size, sampling, 95, 0),
              0)
        << tjGetErrorStr2(jpeg.get());
    Bytes result(file, file + size);
    tjFree(file);
    return result;
}

/// The JPEG with an EXIF segment that holds that orientation.
Bytes turned(Bytes jpeg, uint8_t orientation, bool little) {
    Bytes segment = {0xff, 0xe1, 0, 34, 'E', 'x', 'i', 'f', 0, 0};
    const Bytes tiff_little = {'I', 'I', 42, 0, 8, 0,           0, 0, 1, 0, 0x12, 1, 3,
                               0,   1,   0,  0, 0, orientation, 0, 0, 0, 0, 0,    0, 0};
    const Bytes tiff_big = {'M', 'M', 0, 42, 0, 0, 0,           8, 0, 1, 1, 0x12, 0,
                            3,   0,   0, 0,  1, 0, orientation, 0, 0, 0, 0, 0,    0};
    const Bytes& tiff = little ? tiff_little : tiff_big;
    segment.insert(segment.end(), tiff.begin(), tiff.end());
    jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
    return jpeg;
}

TEST_F(PictureFile, APngComesBackPixelForPixel) {
    UIImage* image = drawn({3, 2}, 1, [](CGContextRef context) {
        color(1, 0, 0, 0.2)->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        color(0.2, 0.6, 1)->setFill();
        CGContextFillRect(context, {{1, 1}, {2, 1}});
    });
    const Picture before(image), after(decoded(encoded(image)));
    ASSERT_EQ(after.width(), 3u);
    ASSERT_EQ(after.height(), 2u);
    for (size_t y = 0; y < 2; ++y)
        for (size_t x = 0; x < 3; ++x) EXPECT_EQ(after.at(x, y), before.at(x, y));
}

TEST_F(PictureFile, EncodingIsTheSameEveryTime) {
    UIImage* image = filled_image(color(0.3, 0.5, 0.7, 0.9), 50, 40);
    EXPECT_EQ(encoded(image), encoded(filled_image(color(0.3, 0.5, 0.7, 0.9), 50, 40)));
}

TEST_F(PictureFile, APngHoldsColoursThatAreNotMultiplied) {
    const Bytes file = encoded(filled_image(color(1, 0.6, 0, 0.4), 1, 1));
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_memory(&png, file.data(), file.size()));
    EXPECT_EQ(png.format & (PNG_FORMAT_FLAG_ALPHA | PNG_FORMAT_FLAG_COLOR), PNG_FORMAT_RGBA);
    png.format = PNG_FORMAT_RGBA;
    uint8_t pixel[4];
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, pixel, 0, nullptr));
    EXPECT_EQ((Bytes{pixel, pixel + 4}), (Bytes{255, 153, 0, 102}));
}

TEST_F(PictureFile, AnOpaqueImageIsWrittenWithoutAlpha) {
    UIImage* opaque = drawn({1, 1}, 1, [](CGContextRef) {}, true);
    const Bytes file = encoded(opaque);
    EXPECT_EQ(file[25], 2) << "the colour type of the header: RGB";
    EXPECT_EQ(CGImageGetAlphaInfo(decoded(file)->CGImage()), kCGImageAlphaNoneSkipFirst);
}

TEST_F(PictureFile, NothingIsEncodedWhereThereIsNoBitmap) {
    EXPECT_EQ(UIImagePNGRepresentation(nullptr), nullptr);
    EXPECT_EQ(UIImagePNGRepresentation(UIImage::alloc()->send<"init", objc::strong<UIImage>>()), nullptr);
}

TEST_F(PictureFile, ColoursOfAPngAreMultipliedByAlpha) {
    const uint8_t pixel[] = {255, 128, 0, 128};
    EXPECT_EQ(Picture(decoded(png_file(1, 1, PNG_FORMAT_RGBA, pixel))).at(0, 0), (Pixel{128, 64, 0, 128}));
}

TEST_F(PictureFile, AGreyPngIsGrey) {
    const uint8_t pixels[] = {0, 128, 255};
    UIImage* image = decoded(png_file(3, 1, PNG_FORMAT_GRAY, pixels));
    EXPECT_EQ(CGColorSpaceGetModel(CGImageGetColorSpace(image->CGImage())), kCGColorSpaceModelMonochrome);
    EXPECT_EQ(Picture(image).at(1, 0), (Pixel{128, 128, 128, 255}));
}

TEST_F(PictureFile, AGreyPngWithoutAlphaMasksByItsWhite) {
    const uint8_t pixels[] = {0, 128, 255};
    UIImage* mask = decoded(png_file(3, 1, PNG_FORMAT_GRAY, pixels));
    const Picture picture(drawn({3, 1}, 1, [&](CGContextRef context) {
        CGContextClipToMask(context, {{0, 0}, {3, 1}}, mask->CGImage());
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {3, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_TRUE(near(picture.at(1, 0), {128, 0, 0, 128}));
    EXPECT_EQ(picture.at(2, 0), red);
}

TEST_F(PictureFile, AnIndexedPngIsDecoded) {
    const uint8_t indices[] = {1, 0}, colours[] = {255, 0, 0, 0, 0, 255};
    UIImage* image = decoded(png_file(2, 1, PNG_FORMAT_RGB_COLORMAP, indices, colours, 2));
    EXPECT_EQ(Picture(image).at(0, 0), blue);
    EXPECT_EQ(Picture(image).at(1, 0), red);
}

TEST_F(PictureFile, ADeepPngIsDecodedInEightBits) {
    const uint16_t linear[] = {65535, 0, 0, 65535};
    UIImage* image = decoded(png_file(1, 1, PNG_FORMAT_LINEAR_RGB_ALPHA, linear));
    EXPECT_EQ(Picture(image).at(0, 0), red);
    EXPECT_EQ(CGImageGetBitsPerComponent(image->CGImage()), 8u);
}

TEST_F(PictureFile, DataThatIsNotAPictureIsNil) {
    EXPECT_EQ(UIImage::imageWithData(nullptr), nullptr);
    EXPECT_EQ(decoded({}), nullptr);
    EXPECT_EQ(UIImage::imageWithData(data("not a picture at all")), nullptr);
    EXPECT_EQ(UIImage::imageWithData(data("\x89PNG\r\n\x1a\n")), nullptr);
    EXPECT_EQ(decoded({0xff, 0xd8, 0xff, 0xe0}), nullptr);
}

TEST_F(PictureFile, AFileThatEndsEarlyIsNil) {
    for (const Bytes& whole : {noisy_png(40, 30), jpeg_file(64, 48)}) {
        ASSERT_NE(decoded(whole), nullptr);
        for (size_t percent : {10, 30, 50, 80, 95}) {
            Bytes part(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(whole.size() * percent / 100));
            EXPECT_EQ(decoded(part), nullptr) << percent << "% of " << whole.size();
        }
    }
}

TEST_F(PictureFile, ADamagedFileNeverCrashes) {
    for (const Bytes& whole : {noisy_png(12, 10), turned(jpeg_file(32, 24), 6, true)}) {
        for (int round = 0; round < 400; ++round) {
            Bytes file = whole;
            for (size_t changes = 1 + next_random(6); changes > 0; --changes)
                file[next_random(file.size())] = static_cast<uint8_t>(next_random(256));
            if (UIImage* image = decoded(file)) {
                EXPECT_GT(image->size().width, 0);
                EXPECT_GT(image->size().height, 0);
            }
        }
    }
}

TEST_F(PictureFile, APictureThatIsTooLargeIsRefused) {
    constexpr uint32_t longest = 32767;
    EXPECT_EQ(decoded(one_bit_png(longest, 1))->size(), (CGSize{longest, 1}));
    EXPECT_EQ(decoded(one_bit_png(longest + 1, 1)), nullptr);
    EXPECT_EQ(decoded(one_bit_png(12000, 12000)), nullptr) << "more than 128 megapixels";
}

TEST_F(PictureFile, AJpegForPrintingIsNil) { EXPECT_EQ(decoded(jpeg_file(16, 16, TJPF_CMYK)), nullptr); }

TEST_F(PictureFile, AJpegIsDecodedOpaque) {
    UIImage* image = decoded(jpeg_file(64, 16));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->size(), (CGSize{64, 16}));
    EXPECT_EQ(CGImageGetAlphaInfo(image->CGImage()), kCGImageAlphaNoneSkipFirst);
    EXPECT_TRUE(near(Picture(image).at(5, 5), red, 6));
    EXPECT_TRUE(near(Picture(image).at(60, 5), blue, 6));
}

TEST_F(PictureFile, AGreyJpegIsGrey) {
    UIImage* image = decoded(jpeg_file(16, 16, TJPF_GRAY, TJSAMP_GRAY));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(CGColorSpaceGetModel(CGImageGetColorSpace(image->CGImage())), kCGColorSpaceModelMonochrome);
    EXPECT_TRUE(near(Picture(image).at(2, 2), white, 6));
}

TEST_F(PictureFile, APhotographIsTurnedAsItsCameraSays) {
    // Where the red half of the picture is to be seen, by EXIF's numbers.
    const struct {
        uint8_t orientation;
        double x, y;
    } rows[] = {{1, 0.1, 0.5}, {2, 0.9, 0.5}, {3, 0.9, 0.5}, {4, 0.1, 0.5},
                {5, 0.5, 0.1}, {6, 0.5, 0.1}, {7, 0.5, 0.9}, {8, 0.5, 0.9}};
    for (bool little : {true, false})
        for (const auto& row : rows) {
            UIImage* image = decoded(turned(jpeg_file(64, 32), row.orientation, little));
            ASSERT_NE(image, nullptr) << int{row.orientation};
            const CGSize size = row.orientation < 5 ? CGSize{64, 32} : CGSize{32, 64};
            EXPECT_EQ(image->size(), size) << int{row.orientation};
            const Picture picture(drawn(size, 1, [&](CGContextRef) { image->drawAtPoint({0, 0}); }));
            EXPECT_TRUE(near(
                picture.at(static_cast<size_t>(row.x * size.width), static_cast<size_t>(row.y * size.height)),
                red, 6))
                << int{row.orientation};
        }
}

/// Of a file on the phone, as large as that at most; nil for none.
UIImage* thumbnail(NSString* path, NSInteger longest) {
    const auto source = objc::adopt(
        reinterpret_cast<NSObject*>(CGImageSourceCreateWithURL(NSURL::fileURLWithPath(path), nullptr)));
    const id keys[] = {kCGImageSourceCreateThumbnailFromImageAlways,
                       kCGImageSourceCreateThumbnailWithTransform, kCGImageSourceThumbnailMaxPixelSize};
    NSNumber* yes = NSNumber::numberWithBool(true);
    const id values[] = {yes, yes, NSNumber::numberWithInteger(longest)};
    CGImageRef image =
        CGImageSourceCreateThumbnailAtIndex(reinterpret_cast<CGImageSourceRef>(source.get()), 0,
                                            NSDictionary::dictionaryWithObjects(values, keys, 3));
    UIImage* thumbnail = image ? UIImage::imageWithCGImage(image) : nullptr;
    CGImageRelease(image);
    return thumbnail;
}

TEST_F(PictureFile, AThumbnailIsUprightAndNoLargerThanWanted) {
    const Bytes file = turned(jpeg_file(640, 320), 6, true);
    phone.write("/turned.jpg", {reinterpret_cast<const char*>(file.data()), file.size()});
    for (const auto& [wanted, size] :
         {std::pair{100, CGSize{50, 100}}, {160, CGSize{80, 160}}, {5000, CGSize{320, 640}}}) {
        UIImage* small = thumbnail(text("/turned.jpg"), wanted);
        ASSERT_NE(small, nullptr) << wanted;
        EXPECT_EQ(small->size(), size) << wanted;
        const Picture picture(drawn(size, 1, [&](CGContextRef) { small->drawAtPoint({0, 0}); }));
        EXPECT_TRUE(near(picture.at(20, 10), red, 6)) << wanted;
        EXPECT_TRUE(near(picture.at(20, static_cast<size_t>(size.height) - 10), blue, 6)) << wanted;
    }
}

TEST_F(PictureFile, WhatIsNoPictureHasNoThumbnail) {
    phone.write("/broken.jpg", "\xff\xd8 and no further");
    EXPECT_EQ(thumbnail(text("/broken.jpg"), 100), nullptr);
    EXPECT_EQ(thumbnail(text("/missing.jpg"), 100), nullptr);
}

TEST_F(PictureFile, MirroredPhotographsAreMirrored) {
    // A mark in the upper left corner of the bitmap.
    UIImage* marked = drawn({4, 2}, 1, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {1, 1}});
    });
    // By UIKit's numbers: up, down, left, right, then the same mirrored.
    const CGPoint corners[] = {{0, 0}, {3, 1}, {0, 3}, {1, 0}, {3, 0}, {0, 1}, {0, 0}, {1, 3}};
    for (NSInteger orientation = 0; orientation < 8; ++orientation) {
        UIImage* image = UIImage::imageWithCGImage(marked->CGImage(), 1, orientation);
        const Picture picture(drawn(image->size(), 1, [&](CGContextRef) { image->drawAtPoint({0, 0}); }));
        const CGPoint corner = corners[orientation];
        EXPECT_EQ(picture.at(static_cast<size_t>(corner.x), static_cast<size_t>(corner.y)), red)
            << orientation;
    }
}

}  // namespace
}  // namespace test
