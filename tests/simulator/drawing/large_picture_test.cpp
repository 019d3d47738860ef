// Pictures of 12,000 by 9,000 pixels: how much memory they take, and that it is given back.
#include <turbojpeg.h>

#include <fstream>
#include <memory>

#include "drawing_test.h"

namespace test {
namespace {

constexpr size_t width = 12000, height = 9000, decoded_bytes = width * height * 4;

/// A figure of this process that the kernel has in kilobytes, in bytes.
size_t memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string key; status >> key;) {
        size_t kilobytes = 0;
        if (key == name + ":" && status >> kilobytes) return kilobytes * 1024;
    }
    ADD_FAILURE() << "the kernel does not say " << name;
    return 0;
}

size_t memory_in_use() { return memory("VmRSS"); }

/// The most that was in use since the peak was last forgotten.
size_t peak() { return memory("VmHWM"); }
void forget_peak() { std::ofstream("/proc/self/clear_refs") << 5; }

/// White above and black below.
Bytes large_jpeg() {
    const std::unique_ptr<void, int (*)(tjhandle)> jpeg(tjInitCompress(), &tjDestroy);
    Bytes grey(width * height);
    std::fill_n(grey.begin(), width * height / 2, 255);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    EXPECT_EQ(tjCompress2(jpeg.get(), grey.data(), width, width, height, TJPF_GRAY, &bytes, &size,
                          TJSAMP_GRAY, 50, 0),
              0);
    const Bytes file(bytes, bytes + size);
    tjFree(bytes);
    return file;
}

class LargePicture : public Drawing {
  protected:
    /// The picture in a file, brought to 120 by 90 points as a theme's picture is; what it was made of is let
    /// go.
    objc::strong<UIImage> scaled(const Bytes& file) {
        const objc::AutoreleasePool pool;
        UIImage* image =
            UIImage::imageWithData(data({reinterpret_cast<const char*>(file.data()), file.size()}));
        EXPECT_EQ(image->size(), (CGSize{width, height}));
        return drawn({120, 90}, 0, [&](CGContextRef) { image->drawInRect({{0, 0}, {120, 90}}); });
    }

    void expect_bounded_memory(const Bytes& file, const Pixel& above, const Pixel& below) {
        constexpr size_t some = 32 << 20;
        const size_t before = memory_in_use();
        forget_peak();
        const objc::strong<UIImage> image = scaled(file);
        EXPECT_LT(peak(), before + decoded_bytes + 2 * file.size() + some) << "the pixels once, and the file";
        EXPECT_LT(memory_in_use(), before + some) << "the large picture is gone";
        const Picture picture(image);
        EXPECT_EQ(picture.width(), 240u);
        EXPECT_EQ(picture.at(120, 88), above);
        EXPECT_EQ(picture.at(120, 91), below);
    }
};

TEST_F(LargePicture, APngIsInMemoryOnceAndOnlyUntilItIsScaled) {
    expect_bounded_memory(one_bit_png(width, height), black, white);
}

TEST_F(LargePicture, AJpegIsInMemoryOnceAndOnlyUntilItIsScaled) {
    expect_bounded_memory(large_jpeg(), white, black);
}

TEST_F(LargePicture, OnePixelIsScaledUp) {
    UIImage* image = drawn({1, 1}, 1, [](CGContextRef context) {
        CGContextSetRGBFillColor(context, 1, 0, 0, 1);
        CGContextFillRect(context, {{0, 0}, {1, 1}});
    });
    const Picture picture(
        drawn({375, 260}, 0, [&](CGContextRef) { image->drawInRect({{0, 0}, {375, 260}}); }));
    EXPECT_EQ(picture.width(), 750u);
    for (size_t x : {0u, 400u, 749u}) EXPECT_EQ(picture.at(x, 519), red);
}

}  // namespace
}  // namespace test
