// Filters: their values, and what the monochrome one does to a layer.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using Filter = Drawing;
using namespace objc::literals;

CAFilter* monochrome(UIColor* color, float bias, float amount) {
    CAFilter* filter = CAFilter::filterWithName("colorMonochrome"_ns);
    filter->setValue(reinterpret_cast<id>(color->CGColor()), "inputColor"_ns);
    filter->setValue(NSNumber::numberWithFloat(bias), "inputBias"_ns);
    filter->setValue(NSNumber::numberWithFloat(amount), "inputAmount"_ns);
    return filter;
}

/// What the filter makes of a layer in that colour.
Pixel filtered(UIColor* background, CAFilter* filter) {
    auto view = view_with({{0, 0}, {1, 1}}, background);
    view->layer()->setFilters(array({filter}));
    return photographed(view).at(0, 0);
}

TEST_F(Filter, KeepsItsValuesByKey) {
    CAFilter* filter = monochrome(UIColor::redColor(), 0.5f, 1);
    EXPECT_EQ(utf8(filter->name()), "colorMonochrome");
    EXPECT_EQ(utf8(filter->type()), "colorMonochrome");
    EXPECT_EQ(filter->valueForKey("inputColor"_ns), reinterpret_cast<id>(UIColor::redColor()->CGColor()));
    EXPECT_EQ((objc::send<"floatValue", float>(filter->valueForKey("inputBias"_ns))), 0.5f);
    EXPECT_EQ(filter->valueForKey("noSuchKey"_ns), nullptr);
    filter->setValue(nullptr, "inputColor"_ns);
    EXPECT_EQ(filter->valueForKey("inputColor"_ns), nullptr);
}

TEST_F(Filter, ABiasOfOnePutsBlackAndWhiteInTheColour) {
    CAFilter* filter = monochrome(color(0.2, 0.4, 1), 1, 1);
    EXPECT_TRUE(near(filtered(UIColor::blackColor(), filter), {51, 102, 255, 255}));
    EXPECT_TRUE(near(filtered(UIColor::whiteColor(), filter), {51, 102, 255, 255}));
}

TEST_F(Filter, HalfABiasDarkensBlack) {
    CAFilter* filter = monochrome(color(1, 0.4, 0), 0.5f, 1);
    EXPECT_TRUE(near(filtered(UIColor::blackColor(), filter), {128, 51, 0, 255}));
    EXPECT_TRUE(near(filtered(UIColor::whiteColor(), filter), {255, 102, 0, 255}));
}

TEST_F(Filter, TheAmountMixesWithWhatWasThere) {
    EXPECT_TRUE(near(filtered(color(0, 1, 0), monochrome(color(1, 0, 0), 1, 0)), green));
    EXPECT_TRUE(near(filtered(UIColor::blackColor(), monochrome(color(1, 0, 0), 1, 0.6f)), {153, 0, 0, 255}));
}

TEST_F(Filter, AlphaIsKept) {
    EXPECT_TRUE(
        near(filtered(UIColor::colorWithWhite(0, 0.4), monochrome(color(1, 0, 0), 1, 1)), {102, 0, 0, 102}));
    EXPECT_EQ(filtered(UIColor::clearColor(), monochrome(color(1, 0, 0), 1, 1)), transparent);
}

TEST_F(Filter, GreyInputColoursCountAsRgb) {
    EXPECT_TRUE(near(filtered(UIColor::blackColor(), monochrome(UIColor::colorWithWhite(0.6, 1), 1, 1)),
                     {153, 153, 153, 255}));
}

TEST_F(Filter, WithoutValuesItMakesGrey) {
    EXPECT_TRUE(
        near(filtered(color(1, 0, 0), CAFilter::filterWithName("colorMonochrome"_ns)), {54, 54, 54, 255}));
    EXPECT_TRUE(near(filtered(UIColor::blackColor(), monochrome(nullptr, 1, 1)), white));
}

TEST_F(Filter, AppliesToSublayersToo) {
    auto root = view_with({{0, 0}, {2, 1}}), child = view_with({{1, 0}, {1, 1}}, UIColor::blackColor());
    root->addSubview(child);
    root->layer()->setFilters(array({monochrome(color(1, 0, 0), 1, 1)}));
    EXPECT_EQ(photographed(root).at(0, 0), transparent);
    EXPECT_EQ(photographed(root).at(1, 0), red);
}

TEST_F(Filter, TextAndImagesBelowItTakeTheColour) {
    auto root = view_with({{0, 0}, {60, 20}});
    auto label =
        objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({{0, 0}, {40, 20}}).leak()));
    label->setText(text("MMM"));
    root->addSubview(label);
    auto image = UIImageView::alloc()->initWithImage(drawn({20, 20}, 1, [](CGContextRef context) {
        CGContextSetRGBFillColor(context, 0, 0, 0, 1);
        CGContextFillRect(context, {{0, 0}, {20, 20}});
    }));
    image->setFrame({{40, 0}, {20, 20}});
    root->addSubview(image);
    root->layer()->setFilters(array({monochrome(UIColor::greenColor(), 1, 1)}));
    const Picture picture = photographed(root);
    EXPECT_EQ(picture.at(50, 10), green);
    int of_text = 0;
    for (size_t y = 0; y < 20; ++y) {
        for (size_t x = 0; x < 40; ++x) {
            const Pixel pixel = picture.at(x, y);
            of_text += pixel.alpha > 200;
            EXPECT_EQ(pixel, (Pixel{0, pixel.alpha, 0, pixel.alpha}));
        }
    }
    EXPECT_GT(of_text, 20);
}

TEST_F(Filter, ValuesThatAreNoNumbersCountAsNothing) {
    const float nan = std::nanf("");
    EXPECT_EQ(filtered(UIColor::blackColor(), monochrome(color(1, 0, 0), nan, 1)), black);
    EXPECT_EQ(filtered(UIColor::blueColor(), monochrome(color(1, 0, 0), 1, nan)), blue);
    EXPECT_EQ(filtered(UIColor::blackColor(), monochrome(color(std::nan(""), 1, -5), 1, 1)), green);
    EXPECT_EQ(filtered(UIColor::blueColor(), monochrome(color(1, 0, 0), -INFINITY, INFINITY)), black);
}

TEST_F(Filter, FiltersFollowEachOther) {
    auto view = view_with({{0, 0}, {1, 1}}, UIColor::blackColor());
    view->layer()->setFilters(array({monochrome(color(1, 1, 1), 1, 1), monochrome(color(0, 1, 0), 0, 1)}));
    EXPECT_EQ(photographed(view).at(0, 0), green);
}

}  // namespace
}  // namespace test
