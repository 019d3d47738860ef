// Backdrops: what lies behind them is seen blurred, within their bounds and nowhere else.
#include <cmath>

#include "drawing_test.h"
#include "platform/keyboard.h"

namespace test {
namespace {

using objc::strong;

constexpr NSInteger light = 0, dark = 1, blur = 2, without_material = -2;

/// A page, black on the left and white on the right, with a backdrop put into a pane of it.
class BackdropLayer : public Drawing {
  protected:
    static constexpr size_t side = 200, edge = 100;

    void SetUp() override {
        Drawing::SetUp();
        page = view_with({{0, 0}, {side, side}}, UIColor::blackColor());
        page->addSubview(view_with({{edge, 0}, {side - edge, side}}, UIColor::whiteColor()));
        page->addSubview(pane = view_with({{0, 50}, {side, 100}}));
    }

    /// A view that is such a layer, with a wash of white.
    strong<UIView> add_backdrop() {
        auto* view = static_cast<UIView*>(made<"initWithFrame:">("_UIBackdropEffectView", pane->bounds()));
        view->layer()->send<"setBlurRadius:">(20.0);
        view->setBackgroundColor(UIColor::colorWithWhite(1, 0.3));
        pane->addSubview(view);
        return strong<UIView>(view);
    }
    strong<_UIBackdropView> add_backdrop_of_style(NSInteger style) {
        auto backdrop = _UIBackdropView::alloc()->initWithStyle(style);
        pane->addSubview(backdrop);
        return backdrop;
    }

    /// Whether the page's edge is as sharp as it was there.
    static bool is_sharp(const Picture& picture, size_t y) {
        return picture.at(edge - 1, y) == black && picture.at(edge, y) == white;
    }
    static int step(const Picture& picture, size_t y) {
        return picture.at(edge, y).red - picture.at(edge - 1, y).red;
    }

    strong<UIView> page, pane;
};

TEST_F(BackdropLayer, BlursWhatLiesBehindItWithinItsBounds) {
    add_backdrop();
    const Picture picture = photographed(page);
    EXPECT_TRUE(is_sharp(picture, 49)) << "above it";
    EXPECT_TRUE(is_sharp(picture, 150)) << "below it";
    EXPECT_LT(step(picture, 100), 8);
    EXPECT_GT(picture.at(edge - 10, 100).red, picture.at(edge - 30, 100).red) << "it falls off";
    EXPECT_GT(picture.at(edge + 30, 100).red, picture.at(edge + 10, 100).red);
}

TEST_F(BackdropLayer, BlursASpotInItsLastCornerOnAPageThatIsElseEven) {
    page = view_with({{0, 0}, {side, side}}, UIColor::blackColor());
    page->addSubview(view_with({{side - 1, 149}, {1, 1}}, UIColor::whiteColor()));
    page->addSubview(pane);
    auto backdrop = add_backdrop();
    const Pixel plain = photographed(page).at(0, 60), near_the_spot = photographed(page).at(side - 3, 147);
    EXPECT_GT(near_the_spot.red, plain.red);
}

TEST_F(BackdropLayer, OfALightBackdropIsLightAndTranslucent) {
    add_backdrop_of_style(light);
    const Picture picture = photographed(page);
    EXPECT_TRUE(near(picture.at(0, 100), {77, 77, 77, 255}, 2)) << "black behind a wash";
    EXPECT_EQ(picture.at(side - 1, 100), white)
        << "beyond its edges, what lies behind goes on as it is there";
    EXPECT_TRUE(near(picture.at(edge, 50), picture.at(edge, 100), 1)) << "what is above it is not seen in it";
}

TEST_F(BackdropLayer, ADarkOneDarkensAndABlurAloneDoesNeither) {
    auto backdrop = add_backdrop_of_style(dark);
    EXPECT_LT(photographed(page).at(side - 1, 100).red, 120);
    backdrop->removeFromSuperview();
    add_backdrop_of_style(blur);
    const Picture picture = photographed(page);
    EXPECT_EQ(picture.at(0, 100), black);
    EXPECT_EQ(picture.at(side - 1, 100), white);
    EXPECT_LT(step(picture, 100), 8);
}

TEST_F(BackdropLayer, WithoutMaterialNothingChanges) {
    add_backdrop_of_style(without_material);
    const Picture picture = photographed(page);
    EXPECT_TRUE(is_sharp(picture, 100));
    EXPECT_EQ(picture.at(0, 100), black);
}

TEST_F(BackdropLayer, WhatIsAboveItStaysSharp) {
    auto backdrop = add_backdrop();
    backdrop->addSubview(view_with({{0, 0}, {20, 20}}, UIColor::redColor()));
    page->addSubview(view_with({{0, 100}, {20, 20}}, UIColor::greenColor()));
    const Picture picture = photographed(page);
    EXPECT_EQ(picture.at(19, 69), red);
    EXPECT_TRUE(near(picture.at(20, 69), {77, 77, 77, 255}, 2));
    EXPECT_EQ(picture.at(19, 119), green);
}

TEST_F(BackdropLayer, IsSeenThroughATranslucentColour) {
    auto backdrop = add_backdrop();
    backdrop->addSubview(view_with({{0, 0}, {side, side}}, UIColor::colorWithRGB(1, 0, 0, 0.5)));
    const Picture picture = photographed(page);
    EXPECT_LT(step(picture, 100), 4);
    EXPECT_TRUE(near(picture.at(side - 1, 100), {255, 128, 128, 255}));
}

TEST_F(BackdropLayer, ItsOwnOpacityFadesTheBlur) {
    add_backdrop()->setAlpha(0.5);
    const Picture picture = photographed(page);
    const int step_left = step(picture, 100);
    EXPECT_GT(step_left, 118) << "half of the sharp edge";
    EXPECT_LT(step_left, 136);
    EXPECT_TRUE(near(picture.at(side - 1, 100), white));
    EXPECT_TRUE(near(picture.at(0, 100), {38, 38, 38, 255}, 2));
}

TEST_F(BackdropLayer, IsCutByMasksAndBoundsOfThoseAbove) {
    pane->setClipsToBounds(true);
    auto backdrop = add_backdrop();
    backdrop->setFrame({{0, -40}, {side, 200}});
    EXPECT_TRUE(is_sharp(photographed(page), 49));
    EXPECT_LT(step(photographed(page), 100), 8);
    auto mask = view_with({{0, 0}, {side, 100}}, UIColor::blackColor());
    backdrop->layer()->setMask(mask->layer());
    EXPECT_LT(step(photographed(page), 100), 8) << "inside the mask, which ends at 110";
    EXPECT_TRUE(is_sharp(photographed(page), 111));
}

TEST_F(BackdropLayer, ItsRoundedCornersAreLeftOut) {
    auto backdrop = add_backdrop();
    backdrop->setFrame({{90, 0}, {100, 100}});
    EXPECT_LT(step(photographed(page), 52), 20);
    backdrop->layer()->setCornerRadius(50);
    EXPECT_TRUE(is_sharp(photographed(page), 52)) << "the page's edge passes the corner";
    EXPECT_LT(step(photographed(page), 100), 20);
}

TEST_F(BackdropLayer, BlursAsFarOnEveryScreen) {
    add_backdrop();
    const Picture once = photographed(page), twice = photographed(page, 2);
    for (size_t x : {70u, 90u, 110u, 130u}) EXPECT_TRUE(near(twice.at(2 * x, 200), once.at(x, 100), 3)) << x;
}

TEST_F(BackdropLayer, NothingBehindItShowsOnlyItsColour) {
    auto backdrop = add_backdrop();
    const Picture picture = photographed(backdrop);
    EXPECT_TRUE(near(picture.at(100, 50), {77, 77, 77, 77}));
}

TEST_F(BackdropLayer, EmptyTurnedAndOutsideAreHarmless) {
    auto backdrop = add_backdrop();
    for (CGRect frame : {CGRect{}, CGRect{{500, 500}, {10, 10}}, CGRect{{std::nan(""), 0}, {10, 10}},
                         CGRect{{0, 0}, {1e300, 0}}}) {
        backdrop->setFrame(frame);
        EXPECT_TRUE(is_sharp(photographed(page), 100));
    }
    backdrop->setFrame({{-1e9, -1e9}, {2e9, 2e9}});
    EXPECT_LT(step(photographed(page), 20), 8) << "all of the page";
    backdrop->setFrame({{50, 0}, {100, 100}});
    backdrop->layer()->setAffineTransform({0.7071, 0.7071, -0.7071, 0.7071, 0, 0});
    const Picture picture = photographed(page);
    EXPECT_LT(step(picture, 100), 8);
    EXPECT_EQ(picture.at(55, 55), black) << "a corner that turned away";
}

}  // namespace
}  // namespace test
