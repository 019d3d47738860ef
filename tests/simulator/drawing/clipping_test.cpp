// Clipping: rectangles, paths and masks.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using Clipping = Drawing;

void flip(CGContextRef context, CGFloat height) {
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, 1, -1);
}

void fill(UIColor* color, CGRect rect) {
    color->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), rect);
}

/// Opaque in the top left quarter, half opaque in the top right one.
UIImage* quartered_shape() {
    return drawn({4, 4}, 1, [](CGContextRef) {
        fill(UIColor::blackColor(), {{0, 0}, {2, 2}});
        fill(UIColor::colorWithWhite(0, 0.5), {{2, 0}, {2, 2}});
    });
}

TEST_F(Clipping, ARectangleLimitsWhatIsDrawn) {
    const Picture picture(drawn({4, 1}, 1, [](CGContextRef context) {
        CGContextClipToRect(context, {{1, 0}, {2, 1}});
        fill(UIColor::redColor(), {{0, 0}, {4, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_EQ(picture.at(1, 0), red);
    EXPECT_EQ(picture.at(2, 0), red);
    EXPECT_EQ(picture.at(3, 0), transparent);
}

TEST_F(Clipping, ClipsIntersect) {
    const Picture picture(drawn({4, 1}, 1, [](CGContextRef context) {
        CGContextClipToRect(context, {{0, 0}, {2, 1}});
        CGContextClipToRect(context, {{1, 0}, {2, 1}});
        EXPECT_EQ(CGContextGetClipBoundingBox(context), (CGRect{{1, 0}, {1, 1}}));
        fill(UIColor::redColor(), {{0, 0}, {4, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_EQ(picture.at(1, 0), red);
    EXPECT_EQ(picture.at(2, 0), transparent);
}

TEST_F(Clipping, AMaskShowsWhereItsImageIsOpaque) {
    const Picture picture(drawn({4, 4}, 1, [](CGContextRef context) {
        flip(context, 4);
        CGContextClipToMask(context, {{0, 0}, {4, 4}}, quartered_shape()->CGImage());
        fill(color(1, 0, 0), {{0, 0}, {4, 4}});
    }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_TRUE(near(picture.at(2, 0), {128, 0, 0, 128}));
    EXPECT_EQ(picture.at(0, 2), transparent);
    EXPECT_EQ(picture.at(3, 3), transparent);
}

TEST_F(Clipping, AMaskIsUpsideDownWithoutFlipping) {
    const Picture picture(drawn({4, 4}, 1, [](CGContextRef context) {
        CGContextClipToMask(context, {{0, 0}, {4, 4}}, quartered_shape()->CGImage());
        fill(color(1, 0, 0), {{0, 0}, {4, 4}});
    }));
    EXPECT_EQ(picture.at(0, 3), red);
    EXPECT_EQ(picture.at(0, 0), transparent);
}

TEST_F(Clipping, AMaskFollowsTheScaleOfTheContext) {
    const Picture picture(drawn({4, 4}, 3, [](CGContextRef context) {
        flip(context, 4);
        CGContextClipToMask(context, {{0, 0}, {4, 4}}, quartered_shape()->CGImage());
        fill(color(1, 0, 0), {{0, 0}, {4, 4}});
    }));
    EXPECT_EQ(picture.at(2, 2), red);
    EXPECT_EQ(picture.at(2, 9), transparent);
}

TEST_F(Clipping, NothingIsDrawnBesideTheMask) {
    const Picture picture(drawn({6, 4}, 1, [](CGContextRef context) {
        CGContextClipToMask(context, {{1, 0}, {4, 4}}, filled_image(UIColor::blackColor(), 4, 4)->CGImage());
        fill(color(1, 0, 0), {{0, 0}, {6, 4}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_EQ(picture.at(1, 0), red);
    EXPECT_EQ(picture.at(4, 3), red);
    EXPECT_EQ(picture.at(5, 3), transparent);
}

TEST_F(Clipping, MasksMultiply) {
    const Picture picture(drawn({1, 1}, 1, [](CGContextRef context) {
        UIImage* half = filled_image(UIColor::colorWithWhite(0, 0.5), 1, 1);
        CGContextClipToMask(context, {{0, 0}, {1, 1}}, half->CGImage());
        CGContextClipToMask(context, {{0, 0}, {1, 1}}, half->CGImage());
        fill(color(1, 1, 1), {{0, 0}, {1, 1}});
    }));
    EXPECT_TRUE(near(picture.at(0, 0), {64, 64, 64, 64}));
}

TEST_F(Clipping, AMaskMixesAColourIntoWhatIsThere) {
    for (bool in_layer : {false, true})
        for (double alpha : {1.0, 0.5}) {
            const Picture picture(drawn({4, 1}, 1, [&](CGContextRef context) {
                fill(color(0, 0, 1), {{0, 0}, {4, 1}});
                CGContextClipToRect(context, {{1, 0}, {3, 1}});
                if (in_layer) CGContextBeginTransparencyLayer(context, nullptr);
                fill(color(0, 1, 0), {{0, 0}, {4, 1}});
                // The right half of the row, to three quarters.
                UIImage* right = drawn({4, 1}, 1, [](CGContextRef) {
                    fill(UIColor::colorWithWhite(0, 0.75), {{2, 0}, {2, 1}});
                });
                CGContextClipToMask(context, {{0, 0}, {4, 1}}, right->CGImage());
                fill(color(1, 0, 0, alpha), {{0, 0}, {3, 1}});
                if (in_layer) CGContextEndTransparencyLayer(context);
            }));
            const auto share = static_cast<uint8_t>(std::lround(255 * 0.75 * alpha));
            const auto rest = static_cast<uint8_t>(255 - share);
            EXPECT_EQ(picture.at(0, 0), blue);
            EXPECT_EQ(picture.at(1, 0), green);
            EXPECT_TRUE(near(picture.at(2, 0), {share, rest, 0, 255}));
            EXPECT_EQ(picture.at(3, 0), green);
        }
}

TEST_F(Clipping, AMaskEndsWithItsState) {
    const Picture picture(drawn({4, 4}, 1, [](CGContextRef context) {
        CGContextSaveGState(context);
        CGContextClipToMask(context, {{0, 0}, {4, 4}}, quartered_shape()->CGImage());
        CGContextRestoreGState(context);
        fill(color(1, 0, 0), {{0, 0}, {4, 4}});
    }));
    EXPECT_EQ(picture.at(3, 3), red);
}

TEST_F(Clipping, AMaskHoldsForEveryBlendMode) {
    const Picture picture(drawn({2, 1}, 1, [](CGContextRef context) {
        fill(UIColor::greenColor(), {{0, 0}, {2, 1}});
        UIImage* left = drawn({2, 1}, 1, [](CGContextRef) { fill(UIColor::blackColor(), {{0, 0}, {1, 1}}); });
        CGContextClipToMask(context, {{0, 0}, {2, 1}}, left->CGImage());
        CGContextSetBlendMode(context, kCGBlendModeCopy);
        fill(color(1, 0, 0, 0.2), {{0, 0}, {2, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), (Pixel{51, 0, 0, 51}));
    EXPECT_EQ(picture.at(1, 0), green);
}

TEST_F(Clipping, AnOpaqueColouredImageMasksNothing) {
    UIImage* opaque =
        drawn({2, 1}, 1, [](CGContextRef) { fill(UIColor::blackColor(), {{0, 0}, {1, 1}}); }, true);
    const Picture picture(drawn({2, 1}, 1, [&](CGContextRef context) {
        CGContextClipToMask(context, {{0, 0}, {2, 1}}, opaque->CGImage());
        fill(color(1, 0, 0), {{0, 0}, {2, 1}});
    }));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(1, 0), red);
}

TEST_F(Clipping, ImagesAreMaskedAsFillsAre) {
    const Picture picture(drawn({4, 4}, 1, [](CGContextRef context) {
        flip(context, 4);
        CGContextClipToMask(context, {{0, 0}, {4, 4}}, quartered_shape()->CGImage());
        CGContextDrawImage(context, {{0, 0}, {4, 4}}, filled_image(color(0, 0, 1), 4, 4)->CGImage());
    }));
    EXPECT_EQ(picture.at(0, 0), blue);
    EXPECT_EQ(picture.at(0, 3), transparent);
}

TEST_F(Clipping, APathLimitsWhatIsDrawn) {
    const Picture picture(drawn({10, 10}, 1, [](CGContextRef context) {
        CGContextAddEllipseInRect(context, {{0, 0}, {10, 10}});
        CGContextClip(context);
        fill(color(1, 0, 0), {{0, 0}, {10, 10}});
    }));
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_EQ(picture.at(5, 5), red);
}

}  // namespace
}  // namespace test
