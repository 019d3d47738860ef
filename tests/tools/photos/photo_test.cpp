// huecraft new --image: photos as they come from telephones and from printers.
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "command_run.h"
#include "photos/photo_samples.h"

namespace test {
namespace {

constexpr Rgb red{220, 40, 30}, green{40, 190, 60}, blue{30, 60, 210}, white{245, 245, 245};

void expect_near(const Rgb& found, const Rgb& expected, int tolerance = 14) {
    for (size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(found[i], expected[i], tolerance) << found[0] << " " << found[1] << " " << found[2];
}

class Photo : public Command {
  protected:
    /// The picture that the theme keeps.
    Sample kept(const std::string& photo, std::vector<std::string> more = {}) const {
        write("photo", photo);
        std::vector<std::string> arguments{"new", "T", "--force", "--image", "photo"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        return picture_in(read("T.plist"));
    }
    std::string refusal(const std::string& photo, std::vector<std::string> more = {}) const {
        write("photo", photo);
        std::vector<std::string> arguments{"new", "T", "--force", "--image", "photo"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 2) << run.out;
        EXPECT_EQ(lines(run.err), 1u) << run.err;
        EXPECT_FALSE(exists("T.plist"));
        return run.err;
    }

    /// A colour in each corner, in the keyboard's shape.
    static Sample corners(int width = 621, int height = 399) {
        return sample(width, height, [=](int x, int y) {
            return y < height / 2 ? x < width / 2 ? red : green : x < width / 2 ? blue : white;
        });
    }
    static void expect_corners(const Sample& picture) {
        const int right = picture.width * 3 / 4, low = picture.height * 3 / 4;
        expect_near(picture.at(picture.width / 4, picture.height / 4), red);
        expect_near(picture.at(right, picture.height / 4), green);
        expect_near(picture.at(picture.width / 4, low), blue);
        expect_near(picture.at(right, low), white);
    }
    /// As a camera held so would have stored it.
    static Sample stored_as(const Sample& shown, int orientation) {
        const bool swaps = orientation >= 5;
        const int width = swaps ? shown.height : shown.width, height = swaps ? shown.width : shown.height;
        return sample(width, height, [&](int x, int y) {
            switch (orientation) {
                case 2: return shown.at(width - 1 - x, y);
                case 3: return shown.at(width - 1 - x, height - 1 - y);
                case 4: return shown.at(x, height - 1 - y);
                case 5: return shown.at(y, x);
                case 6: return shown.at(height - 1 - y, x);
                case 7: return shown.at(height - 1 - y, width - 1 - x);
                case 8: return shown.at(y, width - 1 - x);
                default: return shown.at(x, y);
            }
        });
    }
};

TEST_F(Photo, EveryOrientationComesOutUpright) {
    for (int orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        const Sample picture = kept(jpeg_of(stored_as(corners(), orientation), {.orientation = orientation}));
        EXPECT_EQ(picture.width, 621);
        EXPECT_EQ(picture.height, 399);
        expect_corners(picture);
    }
}

TEST_F(Photo, EveryFormatIsRead) {
    expect_corners(kept(png_of(corners())));
    expect_corners(kept(webp_of(corners())));
    expect_corners(kept(heic_of(corners(620, 398))));
}

TEST_F(Photo, InksOfPrintingAreMixed) { expect_corners(kept(jpeg_of(corners(), {.inks = true}))); }

TEST_F(Photo, AWiderColourSpaceIsConverted) {
    const Rgb orange{200, 100, 50};
    const Sample plain = kept(jpeg_of(sample(621, 399, [=](int, int) { return orange; })));
    expect_near(plain.at(300, 200), orange, 3);
    const Sample wide =
        kept(jpeg_of(sample(621, 399, [=](int, int) { return orange; }), {.profile = wide_profile()}));
    expect_near(wide.at(300, 200), {215, 93, 34}, 6);
}

TEST_F(Photo, TwelveMegapixelsBecomeASmallThemeAndItIsSaid) {
    write("photo", jpeg_of(sample(4032, 3024, [](int x, int y) {
              return Rgb{(x / 9 + y / 5) % 256, (x * y / 700) % 256, (y / 7) % 256};
          })));
    const Outcome run = this->run({"new", "T", "--image", "photo"});
    EXPECT_EQ(run.status, 0) << run.err;
    const Sample picture = picture_in(read("T.plist"));
    EXPECT_EQ(picture.width, 1242);
    EXPECT_EQ(picture.height, 798);
    EXPECT_LT(read("T.plist").size(), 1'500'000u);
    for (const char* part : {"read JPEG, 4032 x 3024 pixels", "cropped to 4032 x 2591 at 0,",
                             "brought to 1242 x 798 pixels", "stored as JPEG, "})
        EXPECT_NE(run.out.find(part), run.out.npos) << part << "\n" << run.out;
}

TEST_F(Photo, AHundredMegapixelsTakeLittleTimeAndMemory) {
    write("photo", large_jpeg(12000, 9000));
    const Outcome run = this->run({"new", "T", "--image", "photo"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_LT(run.processor_seconds, 4);
    EXPECT_LT(run.peak_kilobytes, 400 << 10);
    EXPECT_EQ(picture_in(read("T.plist")).width, 1242);
}

TEST_F(Photo, TheCropKeepsWhatHasDetail) {
    // A grey wall with a chequered box in its lower part.
    const Sample picture = kept(jpeg_of(sample(800, 2000, [](int x, int y) {
        const bool box = x > 200 && x < 600 && y > 1500 && y < 1800;
        return !box ? Rgb{128, 128, 128} : (x / 20 + y / 20) % 2 ? red : white;
    })));
    EXPECT_EQ(picture.width, 800);
    int coloured = 0;
    for (const Rgb& pixel : picture.pixels) coloured += std::abs(pixel[0] - pixel[1]) > 60;
    EXPECT_GT(coloured, 0.9 * 400 * 300 / 2);
}

TEST_F(Photo, ThinPhotosKeepAPixel) {
    for (const auto& [width, height] : {std::pair{1, 260}, {260, 1}}) {
        const Sample picture = kept(png_of(sample(width, height, [](int, int) { return green; })));
        EXPECT_EQ(picture.height, 1);
        expect_near(picture.at(0, 0), green);
    }
}

TEST_F(Photo, ACropIsTakenAsItIsAsked) {
    const Sample picture = kept(png_of(corners(1242, 798)), {"--crop", "621,0,621,399"});
    EXPECT_EQ(picture.width, 621);
    expect_near(picture.at(10, 10), green);
    expect_near(picture.at(610, 390), green);
}

TEST_F(Photo, ACropBeyondThePhotoIsRefused) {
    EXPECT_EQ(refusal(png_of(corners()), {"--crop", "600,0,100,50"}),
              "huecraft: photo: found the crop 100 x 50 at 600,0, expected it inside 621 x 399 pixels\n");
    EXPECT_EQ(refusal(png_of(corners()), {"--crop", "1,2,3"}),
              "huecraft: --crop: \"1,2,3\" is not a region; expected four numbers: X,Y,W,H (see huecraft new "
              "--help)\n");
}

TEST_F(Photo, FitDecidesHowAnotherShapeComesToTheKeyboards) {
    const std::string square = png_of(corners(800, 800));
    const Sample stretched = kept(square, {"--fit", "stretch"});
    EXPECT_NEAR(static_cast<double>(stretched.width) / stretched.height, 1242.0 / 798, 0.01);
    expect_corners(stretched);
    const Sample inside = kept(square, {"--fit", "inside"});
    EXPECT_NEAR(static_cast<double>(inside.width) / inside.height, 1242.0 / 798, 0.01);
    expect_near(inside.at(inside.width * 2 / 5, inside.height / 20), red);
    expect_near(inside.at(inside.width * 3 / 5, inside.height * 19 / 20), white);
    // Beside it there is the mean of its edges.
    EXPECT_EQ(inside.at(2, 2), inside.at(inside.width - 3, inside.height - 3));
}

TEST_F(Photo, DimmedAndBlurred) {
    const Sample dimmed = kept(png_of(corners()), {"--dim", "0.5"});
    expect_near(dimmed.at(100, 100), {red[0] / 2, red[1] / 2, red[2] / 2}, 3);
    const Sample blurred = kept(png_of(corners()), {"--blur", "10"});
    expect_near(blurred.at(40, 40), red);
    const Rgb middle = blurred.at(310, 100);
    EXPECT_NEAR(middle[0], (red[0] + green[0]) / 2.0, 20);
}

TEST_F(Photo, ADamagedPhotoIsNamed) {
    const std::string whole = jpeg_of(corners());
    EXPECT_TRUE(refusal(whole.substr(0, whole.size() / 2))
                    .starts_with("huecraft: photo: it is a damaged JPEG picture: "));
    const std::string png = png_of(corners());
    EXPECT_TRUE(
        refusal(png.substr(0, png.size() / 2)).starts_with("huecraft: photo: it is a damaged PNG picture: "));
    const std::string webp = webp_of(corners());
    EXPECT_EQ(refusal(webp.substr(0, webp.size() / 2)), "huecraft: photo: it is a damaged WebP picture\n");
    const std::string heic = heic_of(corners(620, 398));
    EXPECT_TRUE(
        refusal(heic.substr(0, heic.size() / 2)).starts_with("huecraft: photo: it is not a HEIC picture"));
}

TEST_F(Photo, WithoutItsLibraryOnlyHeicIsRefused) {
    write("libheif.so.1", "no library");
    setenv("LD_LIBRARY_PATH", path(".").c_str(), 1);
    EXPECT_EQ(refusal(heic_of(corners(620, 398))),
              "huecraft: photo: it is a HEIC picture, and libheif, which reads those, is missing\n");
    expect_corners(kept(jpeg_of(corners())));
    unsetenv("LD_LIBRARY_PATH");
}

TEST_F(Photo, WhatIsSaidOfAPhotoNeedsOne) {
    for (const char* option : {"--dim", "--blur", "--alpha"})
        EXPECT_EQ(run({"new", "T", option, "0.5"}).err,
                  "huecraft: " + std::string(option) + ": goes with --image or --from-image\n");
    EXPECT_EQ(run({"new", "T", "--crop", "1,2,3,4"}).status, 2);
}

TEST_F(Photo, ColoursFromAPhotoLeaveLintNothingToSay) {
    const std::vector<Sample> photos{
        corners(),
        sample(700, 500, [](int x, int y) { return Rgb{255 * x / 700, 255 * y / 500, 128}; }),
        sample(700, 500,
               [](int x, int y) { return (x / 40 + y / 40) % 2 ? Rgb{0, 0, 0} : Rgb{255, 255, 255}; }),
        sample(700, 500, [](int, int) { return Rgb{128, 128, 128}; }),
    };
    for (size_t i = 0; i < photos.size(); ++i) {
        write("photo", jpeg_of(photos[i]));
        const Outcome made = run({"new", "T", "--force", "--from-image", "photo"});
        EXPECT_EQ(made.status, 0) << made.err;
        EXPECT_NE(made.out.find("took #"), made.out.npos) << made.out;
        EXPECT_EQ(made.out.find("hard to tell"), made.out.npos) << made.out;
        const Outcome linted = run({"lint", "T.plist"});
        EXPECT_EQ(linted.status, 0) << i << linted.out;
    }
}

}  // namespace
}  // namespace test
