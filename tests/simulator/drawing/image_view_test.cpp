// Image views, and what the screen and the device say of themselves.
#include "drawing_test.h"

namespace test {
namespace {

using ImageView = Drawing;
using Machine = Drawing;
using objc::strong;

strong<UIImageView> view_of(UIImage* image) {
    return objc::adopt(static_cast<UIImageView*>(UIImageView::alloc()->initWithImage(image).leak()));
}

/// Two by one: opaque black, then half opaque black.
UIImage* halved_shape() {
    return drawn({2, 1}, 1, [](CGContextRef context) {
        CGContextFillRect(context, {{0, 0}, {1, 1}});
        UIColor::colorWithWhite(0, 0.4)->setFill();
        CGContextFillRect(context, {{1, 0}, {1, 1}});
    });
}

UIImage* as_template(UIImage* image) {
    return image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

TEST_F(ImageView, IsAsLargeAsItsImage) {
    EXPECT_EQ(view_of(filled_image(color(1, 0, 0), 6, 4))->bounds().size, (CGSize{6, 4}));
    EXPECT_EQ(view_of(nullptr)->bounds().size, (CGSize{0, 0}));
}

TEST_F(ImageView, ShowsItsImage) {
    auto view = view_of(filled_image(color(1, 0, 0), 2, 2));
    EXPECT_EQ(photographed(view).at(1, 1), red);
    view->setImage(filled_image(color(0, 1, 0), 1, 1));
    EXPECT_EQ(view->bounds().size, (CGSize{2, 2})) << "another image does not change its size";
    EXPECT_EQ(photographed(view).at(1, 1), green);
    view->setImage(nullptr);
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_EQ(photographed(view).at(1, 1), transparent);
}

TEST_F(ImageView, AnswersTheImageItWasGiven) {
    UIImage* image = as_template(halved_shape());
    EXPECT_EQ(view_of(image)->image(), image);
}

TEST_F(ImageView, ATemplateIsShownInTheTintColour) {
    auto view = view_of(as_template(halved_shape()));
    view->setTintColor(UIColor::redColor());
    EXPECT_EQ(photographed(view).at(0, 0), red);
    EXPECT_TRUE(near(photographed(view).at(1, 0), {102, 0, 0, 102}));
}

TEST_F(ImageView, ATemplateFollowsAnInheritedTint) {
    auto root = view_with({{0, 0}, {2, 1}}), other = view_with({{0, 0}, {2, 1}});
    auto view = view_of(as_template(halved_shape()));
    root->addSubview(view);
    EXPECT_EQ(photographed(root).at(0, 0), (Pixel{0, 122, 255, 255}));
    root->setTintColor(UIColor::greenColor());
    EXPECT_EQ(photographed(root).at(0, 0), green);
    other->setTintColor(UIColor::redColor());
    other->addSubview(view);
    EXPECT_EQ(photographed(other).at(0, 0), red);
}

TEST_F(ImageView, OtherImagesKeepTheirColours) {
    auto view = view_of(filled_image(color(0, 0, 1), 1, 1));
    view->setTintColor(UIColor::redColor());
    EXPECT_EQ(photographed(view).at(0, 0), blue);
    view->setImage(
        filled_image(color(0, 0, 1), 1, 1)->imageWithRenderingMode(UIImageRenderingModeAlwaysOriginal));
    EXPECT_EQ(photographed(view).at(0, 0), blue);
}

TEST_F(ImageView, StretchesFitsOrCentres) {
    auto view = view_of(filled_image(color(1, 0, 0), 2, 1));
    view->setFrame({{0, 0}, {8, 8}});
    EXPECT_EQ(photographed(view).at(0, 0), red);
    view->setContentMode(UIViewContentModeScaleAspectFit);
    EXPECT_EQ(photographed(view).at(0, 0), transparent);
    EXPECT_EQ(photographed(view).at(0, 3), red);
    view->setContentMode(UIViewContentModeCenter);
    EXPECT_EQ(photographed(view).at(2, 3), transparent);
    EXPECT_EQ(photographed(view, 2).at(7, 7), red);
}

TEST_F(ImageView, TheImagesScaleCountsInTheCentre) {
    auto view =
        view_of(drawn({2, 2}, 2, [](CGContextRef context) { CGContextFillRect(context, {{0, 0}, {2, 2}}); }));
    EXPECT_EQ(view->bounds().size, (CGSize{2, 2}));
    view->setFrame({{0, 0}, {4, 4}});
    view->setContentMode(UIViewContentModeCenter);
    EXPECT_EQ(photographed(view).at(1, 1), black);
    EXPECT_EQ(photographed(view).at(0, 0), transparent);
}

TEST_F(ImageView, ATurnedImageIsShownUpright) {
    UIImage* marked =
        drawn({2, 1}, 1, [](CGContextRef context) { CGContextFillRect(context, {{0, 0}, {1, 1}}); });
    constexpr UIImageOrientation right = 3;
    auto view = view_of(UIImage::imageWithCGImage(marked->CGImage(), 1, right));
    EXPECT_EQ(view->bounds().size, (CGSize{1, 2}));
    EXPECT_EQ(photographed(view).at(0, 0), black);
    EXPECT_EQ(photographed(view).at(0, 1), transparent);
}

TEST_F(ImageView, AModeTheModelLacksStops) {
    EXPECT_DEATH(view_of(nullptr)->setContentMode(5), "not modelled: UIView setContentMode:");
}

TEST_F(Machine, IsAnIphone8WithIos12UnlessToldOtherwise) {
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(UIScreen::mainScreen()->scale(), 2);
    EXPECT_EQ(utf8(UIDevice::currentDevice()->systemVersion()), "12.4");
    EXPECT_EQ(UIScreen::mainScreen(), UIScreen::mainScreen());
    EXPECT_EQ(UIDevice::currentDevice(), UIDevice::currentDevice());
}

TEST(AnotherMachine, IsAsItWasBooted) {
    Phone phone;
    phone.boot({.system_version = "10.2", .screen_width = 320, .screen_height = 568, .screen_scale = 3});
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), (CGRect{{0, 0}, {320, 568}}));
    EXPECT_EQ((UIScreen::mainScreen()->send<"nativeBounds", CGRect>()), (CGRect{{0, 0}, {960, 1704}}));
    EXPECT_EQ(UIScreen::mainScreen()->scale(), 3);
    EXPECT_EQ(utf8(UIDevice::currentDevice()->systemVersion()), "10.2");
    EXPECT_EQ(view_with({})->contentScaleFactor(), 3);
}

}  // namespace
}  // namespace test
