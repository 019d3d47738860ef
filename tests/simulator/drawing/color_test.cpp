// Colours: their spaces, their components, and what they are equal to.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using Color = Drawing;

bool equal(UIColor* a, UIColor* b) { return a->isEqual(b); }

CGColorRef created(CGColorSpaceRef space, std::vector<CGFloat> components) {
    return CGColorCreate(space, components.data());
}

TEST_F(Color, GreysAreGreyAndTheOthersRgb) {
    for (const char* name :
         {"blackColor", "darkGrayColor", "grayColor", "lightGrayColor", "whiteColor", "clearColor"})
        EXPECT_EQ(model_of(static_cast<UIColor*>(
                      objc::send<"performSelector:", id>(class_named("UIColor"), sel_registerName(name)))),
                  kCGColorSpaceModelMonochrome)
            << name;
    for (const char* name : {"redColor", "greenColor", "blueColor", "cyanColor", "yellowColor",
                             "magentaColor", "orangeColor", "purpleColor", "brownColor"})
        EXPECT_EQ(model_of(static_cast<UIColor*>(
                      objc::send<"performSelector:", id>(class_named("UIColor"), sel_registerName(name)))),
                  kCGColorSpaceModelRGB)
            << name;
}

TEST_F(Color, NamedColoursHaveTheirComponents) {
    EXPECT_EQ(rgba(UIColor::darkGrayColor()), (Rgba{1 / 3.0, 1 / 3.0, 1 / 3.0, 1}));
    EXPECT_EQ(rgba(UIColor::clearColor()), (Rgba{0, 0, 0, 0}));
    EXPECT_EQ(rgba(UIColor::redColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(rgba(UIColor::greenColor()), (Rgba{0, 1, 0, 1}));
    EXPECT_EQ(rgba(UIColor::blueColor()), (Rgba{0, 0, 1, 1}));
}

TEST_F(Color, ANilSpaceHasNoModel) { EXPECT_EQ(CGColorSpaceGetModel(nullptr), -1); }

TEST_F(Color, ComponentsStayAsTheyWereGiven) {
    EXPECT_EQ(rgba(color(1.5, -0.25, 1 / 3.0, 0.4000000059604645)),
              (Rgba{1.5, -0.25, 1 / 3.0, 0.4000000059604645}));
}

TEST_F(Color, EqualityIsExact) {
    EXPECT_TRUE(equal(color(0.1, 0.2, 0.3), color(0.1, 0.2, 0.3)));
    EXPECT_FALSE(equal(color(0.1, 0.2, 0.3), color(0.1, 0.2, 0.3 + 1e-9)));
    EXPECT_FALSE(equal(color(0.1, 0.2, 0.3), color(0.1, 0.2, 0.3, 0.999)));
}

TEST_F(Color, EqualityKeepsSpacesApart) {
    EXPECT_FALSE(equal(UIColor::whiteColor(), color(1, 1, 1)));
    EXPECT_TRUE(equal(UIColor::whiteColor(), UIColor::colorWithWhite(1, 1)));
}

TEST_F(Color, EqualColoursHaveEqualHashes) {
    EXPECT_EQ((color(0.1, 0.2, 0.3)->send<"hash", NSUInteger>()),
              (color(0.1, 0.2, 0.3)->send<"hash", NSUInteger>()));
}

TEST_F(Color, AColourIsNeitherNilNorAString) {
    EXPECT_FALSE(UIColor::redColor()->isEqual(nullptr));
    EXPECT_FALSE(UIColor::redColor()->isEqual(text("red")));
}

TEST_F(Color, AnotherAlphaKeepsTheSpace) {
    UIColor* grey = UIColor::whiteColor()->colorWithAlphaComponent(0.25);
    EXPECT_EQ(model_of(grey), kCGColorSpaceModelMonochrome);
    EXPECT_EQ(rgba(grey), (Rgba{1, 1, 1, 0.25}));
    EXPECT_EQ(rgba(color(1, 0.5, 0, 0.8)->colorWithAlphaComponent(0.3)), (Rgba{1, 0.5, 0, 0.3}));
}

/// What filling with the colour leaves, at that alpha of the context.
Pixel filled(UIColor* color, CGFloat alpha = 1) {
    return Picture(drawn({1, 1}, 1,
                         [&](CGContextRef context) {
                             color->setFill();
                             CGContextSetAlpha(context, alpha);
                             CGContextFillRect(context, {{0, 0}, {1, 1}});
                         }))
        .at(0, 0);
}

TEST_F(Color, AlphasBeyondTheRangePaintAsItsNearestEndAndNanAsNothing) {
    struct Row {
        double alpha;
        Pixel painted;
    };
    for (const auto& [alpha, painted] :
         {Row{2, red}, Row{INFINITY, red}, Row{1e300, red}, Row{-1, transparent}, Row{-INFINITY, transparent},
          Row{std::nan(""), transparent}}) {
        EXPECT_EQ(filled(UIColor::redColor()->colorWithAlphaComponent(alpha)), painted) << alpha;
        EXPECT_EQ(filled(UIColor::redColor(), alpha), painted) << alpha;
        CGColorRef copy = CGColorCreateCopyWithAlpha(UIColor::redColor()->CGColor(), alpha);
        EXPECT_EQ(filled(UIColor::colorWithCGColor(copy)), painted) << alpha;
        CGColorRelease(copy);
    }
}

TEST_F(Color, ComponentsMayBeAskedForOneByOne) {
    CGFloat alpha = -1;
    EXPECT_TRUE(color(1, 0, 0, 0.5)->getRGB(nullptr, nullptr, nullptr, &alpha));
    EXPECT_EQ(alpha, 0.5);
    alpha = -1;
    EXPECT_TRUE(color(1, 0, 0, 0.75)->getWhite(nullptr, &alpha));
    EXPECT_EQ(alpha, 0.75);
}

TEST_F(Color, GreyAnswersItsWhiteExactly) {
    CGFloat white = -1, alpha = -1;
    EXPECT_TRUE(UIColor::colorWithWhite(1 / 3.0, 0.1)->getWhite(&white, &alpha));
    EXPECT_EQ(white, 1 / 3.0);
    EXPECT_EQ(alpha, 0.1);
}

TEST_F(Color, APatternHasNoRgbForm) {
    UIColor* pattern = UIColor::colorWithPatternImage(filled_image(color(1, 0, 0), 2, 2));
    CGFloat red = 7, green = 7, blue = 7, alpha = 7;
    EXPECT_FALSE(pattern->getRGB(&red, &green, &blue, &alpha));
    EXPECT_FALSE(pattern->getWhite(&red, &alpha));
    for (CGFloat component : {red, green, blue, alpha}) EXPECT_EQ(component, 7);
    EXPECT_EQ(model_of(pattern), kCGColorSpaceModelPattern);
}

TEST_F(Color, APatternEqualsOnlyItsOwnPicture) {
    UIImage* image = filled_image(color(1, 0, 0), 2, 2);
    UIColor* pattern = UIColor::colorWithPatternImage(image);
    EXPECT_TRUE(equal(pattern, UIColor::colorWithPatternImage(image)));
    EXPECT_FALSE(equal(pattern, UIColor::colorWithPatternImage(filled_image(color(1, 0, 0), 2, 2))));
    EXPECT_FALSE(equal(pattern, UIColor::blackColor()));
    EXPECT_EQ(CGColorGetAlpha(pattern->colorWithAlphaComponent(0.5)->CGColor()), 0.5);
}

TEST_F(Color, ACoreColourComesBackAsItWent) {
    CGColorRef core = UIColor::darkGrayColor()->CGColor();
    UIColor* color = UIColor::colorWithCGColor(core);
    EXPECT_EQ(color->CGColor(), core);
    EXPECT_TRUE(equal(color, UIColor::darkGrayColor()));
    EXPECT_EQ(UIColor::colorWithCGColor(nullptr), nullptr);
}

TEST_F(Color, NullIsHarmlessInCoreGraphics) {
    EXPECT_EQ(CGColorCreate(nullptr, nullptr), nullptr);
    EXPECT_EQ(created(nullptr, {1, 1}), nullptr);
    EXPECT_EQ(CGColorGetComponents(nullptr), nullptr);
    EXPECT_EQ(CGColorGetColorSpace(nullptr), nullptr);
    EXPECT_EQ(CGColorCreateCopyWithAlpha(nullptr, 1), nullptr);
    EXPECT_EQ(CGColorGetAlpha(nullptr), 0);
    EXPECT_EQ(CGColorRetain(nullptr), nullptr);
    CGColorRelease(nullptr);
    CGColorSpaceRelease(nullptr);
    EXPECT_FALSE(CGColorEqualToColor(nullptr, UIColor::redColor()->CGColor()));
    EXPECT_TRUE(CGColorEqualToColor(nullptr, nullptr));
}

TEST_F(Color, CoreComponentsCountAlpha) {
    CGColorSpaceRef grey = CGColorSpaceCreateDeviceGray(), rgb = CGColorSpaceCreateDeviceRGB();
    CGColorRef two = created(grey, {0.5, 0.25}), four = created(rgb, {0.1, 0.2, 0.3, 0.4});
    EXPECT_EQ(CGColorGetNumberOfComponents(two), 2u);
    EXPECT_EQ(CGColorGetNumberOfComponents(four), 4u);
    EXPECT_EQ(CGColorGetAlpha(two), 0.25);
    EXPECT_EQ(CGColorGetComponents(four)[2], 0.3);
    EXPECT_EQ(CGColorGetColorSpace(four), rgb);
    for (CGColorRef color : {two, four}) CGColorRelease(color);
    for (CGColorSpaceRef space : {grey, rgb}) CGColorSpaceRelease(space);
}

TEST_F(Color, CoreColoursStandInArrays) {
    auto core = reinterpret_cast<id>(UIColor::redColor()->CGColor());
    EXPECT_EQ(array({core, core})->objectAtIndex(1), core);
}

TEST_F(Color, WithoutAContextAColourIsSetNowhere) {
    UIColor::redColor()->setFill();
    UIColor::redColor()->setStroke();
    UIColor::redColor()->set();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

}  // namespace
}  // namespace test
