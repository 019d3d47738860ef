// Blend modes: one pixel drawn onto another.
#include "drawing_test.h"

namespace test {
namespace {

using BlendMode = Drawing;

/// What a fill of `above` onto `below` leaves.
Pixel blended(UIColor* below, UIColor* above, CGBlendMode mode) {
    return Picture(drawn({1, 1}, 1,
                         [&](CGContextRef context) {
                             if (below) {
                                 below->setFill();
                                 CGContextFillRect(context, {{0, 0}, {1, 1}});
                             }
                             CGContextSetBlendMode(context, mode);
                             above->setFill();
                             CGContextFillRect(context, {{0, 0}, {1, 1}});
                         }))
        .at(0, 0);
}

TEST_F(BlendMode, NormalLaysOneOverTheOther) {
    EXPECT_TRUE(near(blended(color(1, 0, 0), color(0, 0, 1, 0.4), kCGBlendModeNormal), {153, 0, 102, 255}));
}

TEST_F(BlendMode, MultiplyDarkens) {
    EXPECT_TRUE(
        near(blended(color(1, 0.5, 0.2), color(0.5, 0.5, 1), kCGBlendModeMultiply), {128, 64, 51, 255}));
}

TEST_F(BlendMode, ScreenLightens) {
    EXPECT_TRUE(
        near(blended(color(0.5, 0, 0.2), color(0.5, 0.4, 0), kCGBlendModeScreen), {191, 102, 51, 255}));
}

TEST_F(BlendMode, DarkenAndLightenChoose) {
    EXPECT_TRUE(near(blended(color(1, 0.2, 0.4), color(0.6, 0.8, 0), kCGBlendModeDarken), {153, 51, 0, 255}));
    EXPECT_TRUE(
        near(blended(color(1, 0.2, 0.4), color(0.6, 0.8, 0), kCGBlendModeLighten), {255, 204, 102, 255}));
}

TEST_F(BlendMode, DifferenceSubtracts) {
    EXPECT_TRUE(
        near(blended(color(1, 0.2, 0.4), color(0.6, 0.8, 0.4), kCGBlendModeDifference), {102, 153, 0, 255}));
}

TEST_F(BlendMode, CopyReplaces) {
    EXPECT_EQ(blended(color(1, 0, 0), color(0, 0, 1, 0.2), kCGBlendModeCopy), (Pixel{0, 0, 51, 51}));
}

TEST_F(BlendMode, ClearTakesAway) {
    EXPECT_EQ(blended(color(1, 0, 0), color(0, 0, 1), kCGBlendModeClear), transparent);
}

TEST_F(BlendMode, CompositingModesWeighByTheOthersAlpha) {
    UIColor* below = color(1, 0, 0, 0.4);
    UIColor* above = color(0, 0, 1);
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeSourceIn), {0, 0, 102, 102}));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeSourceOut), {0, 0, 153, 153}));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeSourceAtop), {0, 0, 102, 102}));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeDestinationOver), {102, 0, 153, 255}));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeDestinationIn), {102, 0, 0, 102}));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeDestinationOut), transparent));
    EXPECT_TRUE(near(blended(below, above, kCGBlendModeXOR), {0, 0, 153, 153}));
}

TEST_F(BlendMode, PlusLighterAdds) {
    EXPECT_EQ(blended(color(0.6, 0.2, 0), color(0.6, 0.2, 0.2), kCGBlendModePlusLighter),
              (Pixel{255, 102, 51, 255}));
}

TEST_F(BlendMode, PlusDarkerAddsWhatIsTakenFromWhite) {
    EXPECT_EQ(blended(color(0.6, 1, 0.2), color(0.6, 0.8, 0.4), kCGBlendModePlusDarker),
              (Pixel{51, 204, 0, 255}));
    EXPECT_TRUE(near(blended(color(0.8, 0.8, 0.8), color(0, 0, 0, 0.2), kCGBlendModePlusDarker),
                     {153, 153, 153, 255}));
    EXPECT_TRUE(near(blended(nullptr, color(0, 0, 0, 0.2), kCGBlendModePlusDarker), {0, 0, 0, 51}));
}

TEST_F(BlendMode, PlusDarkerKeepsToClipMaskAndLayer) {
    const Picture picture(drawn({3, 1}, 1, [](CGContextRef context) {
        UIColor::whiteColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {3, 1}});
        CGContextClipToRect(context, {{1, 0}, {2, 1}});
        UIImage* left =
            drawn({3, 1}, 1, [](CGContextRef inner) { CGContextFillRect(inner, {{0, 0}, {2, 1}}); });
        CGContextClipToMask(context, {{0, 0}, {3, 1}}, left->CGImage());
        CGContextSetBlendMode(context, kCGBlendModePlusDarker);
        CGContextBeginTransparencyLayer(context, nullptr);
        color(0.4, 0.4, 0.4)->setFill();
        CGContextFillRect(context, {{0, 0}, {3, 1}});
        CGContextEndTransparencyLayer(context);
    }));
    EXPECT_EQ(picture.at(0, 0), white);
    EXPECT_EQ(picture.at(1, 0), (Pixel{102, 102, 102, 255}));
    EXPECT_EQ(picture.at(2, 0), white);
}

TEST_F(BlendMode, NoModeReachesBeyondTheShape) {
    for (CGBlendMode mode = kCGBlendModeNormal; mode <= kCGBlendModePlusLighter; ++mode) {
        const Picture picture(drawn({2, 1}, 1, [&](CGContextRef context) {
            UIColor::redColor()->setFill();
            CGContextFillRect(context, {{0, 0}, {2, 1}});
            CGContextSetBlendMode(context, mode);
            filled_image(color(0, 0, 1, 0.5), 1, 1)->drawInRect({{1, 0}, {1, 1}}, mode, 1);
            color(0, 0, 1, 0.5)->setFill();
            CGContextFillRect(context, {{1, 0}, {1, 1}});
        }));
        EXPECT_EQ(picture.at(0, 0), red) << "mode " << mode;
    }
}

TEST_F(BlendMode, ANumberThatIsNoModeStops) {
    EXPECT_DEATH(blended(color(1, 0, 0), color(0, 1, 0), 99),
                 "not modelled: CGContextSetBlendMode: blend mode 99");
}

}  // namespace
}  // namespace test
