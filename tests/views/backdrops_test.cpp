// The coloured and the image backdrop, and what all three have in common, through their selectors.
#include "views/backdrops_test.h"

namespace test {
namespace {

// ---- Colour ----------------------------------------------------------------------------------------------

class ColouredBackdrop : public Backdrop {
  protected:
    static UIView* content(id backdrop) { return variable<UIView*>(backdrop, "colouredView"); }
    static Rgba shown(id backdrop) { return rgba(content(backdrop)->backgroundColor()); }
};

TEST_F(ColouredBackdrop, IsClearUntilItIsGivenAColour) {
    id backdrop = with_style("_UIBackdropColouredView");
    EXPECT_EQ(shown(backdrop).alpha, 0);
    objc::send<"setColor:">(backdrop, color(1, 0, 0, 0.5));
    EXPECT_EQ(shown(backdrop), (Rgba{1, 0, 0, 0.5}));
}

TEST_F(ColouredBackdrop, IsASystemBackdropWithOneContentViewInFront) {
    id backdrop = with_style("_UIBackdropColouredView");
    EXPECT_TRUE(static_cast<NSObject*>(backdrop)->isKindOfClass(objc_getClass("_UIBackdropView")));
    expect_content_set_up(backdrop, content(backdrop));
}

TEST_F(ColouredBackdrop, IsMadeWithItsColour) {
    id backdrop = made<"initWithStyle:color:">("_UIBackdropColouredView", NSInteger{2}, color(0, 1, 0));
    EXPECT_EQ(shown(backdrop), (Rgba{0, 1, 0, 1}));
    EXPECT_EQ(content(backdrop)->frame(), (CGRect{}));
}

TEST_F(ColouredBackdrop, ItsAlphaIsReplacedNotMultiplied) {
    id backdrop = with_style("_UIBackdropColouredView");
    objc::send<"setColor:">(backdrop, color(1, 0, 0, 0.8));
    objc::send<"setColorAlpha:">(backdrop, 0.3);
    EXPECT_EQ(shown(backdrop), (Rgba{1, 0, 0, 0.3}));
    objc::send<"setColorAlpha:">(backdrop, 0.5);
    objc::send<"setColorAlpha:">(backdrop, 0.5);
    EXPECT_EQ(shown(backdrop).alpha, 0.5);
}

TEST_F(ColouredBackdrop, NilShowsNoColour) {
    id backdrop = with_style("_UIBackdropColouredView");
    objc::send<"setColor:">(backdrop, id{});
    EXPECT_EQ(content(backdrop)->backgroundColor(), nullptr);
    objc::send<"setColorAlpha:">(backdrop, 0.5);
    EXPECT_EQ(content(backdrop)->backgroundColor(), nullptr) << "no colour has no alpha to replace";
}

// ---- Image -----------------------------------------------------------------------------------------------

class ImageBackdrop : public Backdrop {
  protected:
    static id showing(UIImage* image, double alpha) {
        return made<"initWithStyle:image:alpha:">("_UIBackdropImageView", NSInteger{2}, image, alpha);
    }
    static UIImageView* content(id backdrop) { return variable<UIImageView*>(backdrop, "imageView"); }
    static UIImage* shown(id backdrop) { return content(backdrop)->image(); }
    static double alpha_of(UIImage* image) {
        return rgba(objc::send<"averageColorWithAlphaForImage:", id>(class_named("HCCITool"), image)).alpha;
    }
    static UIImage* red() { return filled_image(color(1, 0, 0), 8, 6); }
};

TEST_F(ImageBackdrop, ShowsNoImageUntilItIsGivenOne) {
    id backdrop = with_style("_UIBackdropImageView");
    EXPECT_EQ(shown(backdrop), nullptr);
    objc::send<"setImageAlpha:">(backdrop, 0.5);
    EXPECT_EQ(shown(backdrop), nullptr);
    UIImage* image = red();
    objc::send<"setImage:">(backdrop, image);
    EXPECT_EQ(shown(backdrop), image);
    objc::send<"setImage:">(backdrop, id{});
    EXPECT_EQ(shown(backdrop), nullptr);
}

TEST_F(ImageBackdrop, IsASystemBackdropWithOneContentViewInFront) {
    id backdrop = with_style("_UIBackdropImageView");
    expect_content_set_up(backdrop, content(backdrop));
    EXPECT_EQ(content(backdrop)->contentMode(), UIViewContentModeScaleToFill);
    EXPECT_EQ(rgba(content(backdrop)->backgroundColor()).alpha, 0);
}

TEST_F(ImageBackdrop, FromTheThresholdOnTheImageIsUntouched) {
    UIImage* image = red();
    EXPECT_EQ(shown(showing(image, 1.0)), image);
    EXPECT_EQ(shown(showing(image, static_cast<double>(0.99f))), image);
    EXPECT_EQ(shown(showing(image, NAN)), image);
    EXPECT_EQ(shown(made<"initWithStyle:image:">("_UIBackdropImageView", NSInteger{2}, image)), image);
}

TEST_F(ImageBackdrop, BelowTheThresholdTheImageIsRedrawnOnce) {
    EXPECT_NEAR(alpha_of(shown(showing(red(), 0.98))), 0.98, 1 / 255.0);
    EXPECT_NEAR(alpha_of(shown(showing(red(), 0.99))), 0.99, 1 / 255.0)
        << "a double 0.99 is below the stored 0.99";
    UIImage* image = red();
    EXPECT_NE(shown(showing(image, 0.99)), image);
}

TEST_F(ImageBackdrop, AlphaBakesAgainOnEveryCall) {
    id backdrop = showing(red(), 1.0);
    objc::send<"setImageAlpha:">(backdrop, 0.5);
    objc::send<"setImageAlpha:">(backdrop, 0.5);
    EXPECT_NEAR(alpha_of(shown(backdrop)), 0.25, 2 / 255.0);
}

TEST_F(ImageBackdrop, AFreshImageMakesTheAlphaFresh) {
    id backdrop = showing(red(), 0.5);
    objc::send<"setImage:">(backdrop, red());
    objc::send<"setImageAlpha:">(backdrop, 0.5);
    EXPECT_NEAR(alpha_of(shown(backdrop)), 0.5, 1 / 255.0);
}

TEST_F(ImageBackdrop, BakingKeepsTheImagesSizeAndTakesTheScreensScale) {
    id backdrop = showing(red(), 0.5);
    EXPECT_EQ(shown(backdrop)->size(), (CGSize{8, 6}));
    EXPECT_EQ(shown(backdrop)->scale(), 2.0);
}

TEST_F(ImageBackdrop, BakingKeepsTheImageTheRightWayUp) {
    UIGraphicsBeginImageContextWithOptions({4, 4}, false, 1.0);
    color(1, 0, 0)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {4, 2}});  // the upper half
    UIImage* upper = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    UIImage* baked = shown(showing(upper, 0.5));
    UIGraphicsBeginImageContextWithOptions({4, 2}, false, 1.0);
    baked->drawInRect({{0, 0}, {4, 4}});  // the upper half alone is inside
    UIImage* top = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_NEAR(alpha_of(top), 0.5, 0.05) << "the edge between the halves is soft at the new scale";
}

TEST_F(ImageBackdrop, BakingShowsTheWholeImage) {
    UIGraphicsBeginImageContextWithOptions({8, 8}, false, 1.0);
    color(1, 0, 0)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {4, 4}});
    UIImage* quarter = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_NEAR(alpha_of(shown(showing(quarter, 0.5))), 0.125, 0.02);
}

TEST_F(ImageBackdrop, TheInitialiserSendsItsPublicOperations) {
    static int images = 0, alphas = 0;
    stand_in("_UIBackdropImageView", "setImage:", [](id, SEL, id) { ++images; });
    stand_in("_UIBackdropImageView", "setImageAlpha:", [](id, SEL, double) { ++alphas; });
    showing(red(), 0.5);
    EXPECT_EQ(images, 1);
    EXPECT_EQ(alphas, 1);
    showing(red(), 1.0);
    EXPECT_EQ(images, 2);
    EXPECT_EQ(alphas, 1);
}

TEST_F(ImageBackdrop, WhatMakesOneWithLessSendsTheLongestInitialiserTheRest) {
    static std::vector<double> alphas;
    static id given = nullptr;
    stand_in("_UIBackdropImageView",
             "initWithStyle:image:alpha:", [](id self, SEL, NSInteger style, id image, double alpha) -> id {
                 EXPECT_EQ(style, 7);
                 given = image;
                 alphas.push_back(alpha);
                 return self;
             });
    UIImage* image = red();
    made<"initWithStyle:image:">("_UIBackdropImageView", NSInteger{7}, image);
    EXPECT_EQ(given, image);
    EXPECT_EQ(alphas, std::vector<double>{1.0});
    objc::send<"backdropWithStyle:", id>(class_named("_UIBackdropImageView"), NSInteger{7});
    EXPECT_EQ(given, nullptr);
    EXPECT_EQ(alphas, (std::vector<double>{1.0, 0.0}));
}

TEST_F(ImageBackdrop, AlphasOutOfRangeAreTakenAsTheNearestThatCounts) {
    for (const auto& [alpha, seen] :
         std::vector<std::pair<double, double>>{{-3, 0}, {7, 1}, {INFINITY, 1}, {-INFINITY, 0}, {NAN, 0}}) {
        id backdrop = showing(red(), 1.0);
        objc::send<"setImageAlpha:">(backdrop, alpha);
        EXPECT_EQ(alpha_of(shown(backdrop)), seen) << alpha;
    }
}

// ---- All three -------------------------------------------------------------------------------------------

TEST_F(Backdrop, WithoutASystemBackdropThereIsNeitherViewNorContentView) {
    static IMP previous;
    static int views = 0;
    stand_in("_UIBackdropView",
             "initWithStyle:", [](id self, SEL, NSInteger) -> id { return objc_release(self), nullptr; });
    previous = stand_in("UIView", "initWithFrame:", [](id self, SEL selector, CGRect frame) -> id {
        ++views;
        return call<id>(previous, self, selector, frame);
    });
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"})
        EXPECT_EQ(with_style(name), nullptr) << name;
    EXPECT_EQ(views, 0);
}

TEST_F(Backdrop, TheContentViewLiesOverWhatTheSystemsBackdropMade) {
    static IMP previous;
    previous =
        stand_in("_UIBackdropView", "initWithStyle:", [](id self, SEL selector, NSInteger style) -> id {
            id made = call<id>(previous, self, selector, style);
            static_cast<UIView*>(made)->addSubview(UIView::alloc()->init());
            return made;
        });
    for (const auto& [name, content] : {std::pair("_UIBackdropColouredView", "colouredView"),
                                        std::pair("_UIBackdropImageView", "imageView"),
                                        std::pair("_UIBackdropGradientView", "gradientView")}) {
        id backdrop = with_style(name);
        EXPECT_EQ(static_cast<UIView*>(backdrop)->subviews()->count(), 3u) << name << ": with its effect";
        expect_content_set_up(backdrop, variable<UIView*>(backdrop, content));
    }
}

class BackdropOnADenserScreen : public Backdrop {
  protected:
    void SetUp() override { phone.start({.screen_scale = 3}); }
};

TEST_F(BackdropOnADenserScreen, TheContentViewIsRasterisedAtThatScale) {
    for (const auto& [name, content] : {std::pair("_UIBackdropColouredView", "colouredView"),
                                        std::pair("_UIBackdropImageView", "imageView"),
                                        std::pair("_UIBackdropGradientView", "gradientView")})
        EXPECT_EQ(variable<UIView*>(with_style(name), content)->layer()->rasterizationScale(), 3.0) << name;
}

TEST_F(BackdropOnADenserScreen, BakedImagesAndPicturesHaveThatScale) {
    id image = made<"initWithStyle:image:alpha:">("_UIBackdropImageView", NSInteger{2},
                                                  filled_image(color(1, 0, 0), 8, 6), 0.5);
    EXPECT_EQ(variable<UIImageView*>(image, "imageView")->image()->scale(), 3.0);
    auto* picture =
        objc::send<"imageFromGradientOfSize:", UIImage*>(with_style("_UIBackdropGradientView"), CGSize{4, 2});
    EXPECT_EQ(picture->scale(), 3.0);
    EXPECT_EQ(picture->size(), (CGSize{4, 2}));
}

TEST_F(Backdrop, TheStyleIsPassedOn) {
    static std::vector<NSInteger> styles;
    static IMP previous;
    previous =
        stand_in("_UIBackdropView", "initWithStyle:", [](id self, SEL selector, NSInteger style) -> id {
            styles.push_back(style);
            return call<id>(previous, self, selector, style);
        });
    NSInteger style = 2060;
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"})
        objc::send<"backdropWithStyle:", id>(class_named(name), style++);
    EXPECT_EQ(styles, (std::vector<NSInteger>{2060, 2061, 2062}));
}

TEST_F(Backdrop, TheContentViewBeginsWithAnEmptyFrame) {
    static std::vector<CGRect> frames;
    static IMP plain, image;
    plain = stand_in("UIView", "initWithFrame:", [](id self, SEL selector, CGRect frame) -> id {
        if (std::string(object_getClassName(self)) == "UIView") frames.push_back(frame);
        return call<id>(plain, self, selector, frame);
    });
    image = stand_in("UIImageView", "initWithFrame:", [](id self, SEL selector, CGRect frame) -> id {
        frames.push_back(frame);
        return call<id>(image, self, selector, frame);
    });
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"})
        with_style(name);
    EXPECT_EQ(frames, std::vector<CGRect>(3, CGRect{}));
}

TEST_F(Backdrop, TheContentViewGoesWithTheBackdrop) {
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"}) {
        const char* content_name = std::string(name) == "_UIBackdropColouredView" ? "colouredView"
                                   : std::string(name) == "_UIBackdropImageView"  ? "imageView"
                                                                                  : "gradientView";
        objc::strong<UIView> content;
        {
            objc::AutoreleasePool pool;
            content = variable<UIView*>(with_style(name), content_name);
        }
        EXPECT_EQ((content->send<"retainCount", NSUInteger>()), 1u) << name;
    }
}

TEST(BackdropWithoutASystemBackdrop, OnlyTheThreeClassesAreMissing) {
    Phone phone;
    phone.start({.left_out = {"_UIBackdropView"}});
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"})
        EXPECT_EQ(objc_getClass(name), nullptr) << name;
    for (const char* name : {"HCCITool", "HuecraftConfig", "HCPreferences"})
        EXPECT_NE(objc_getClass(name), nullptr);
}

}  // namespace

void prepare_phones() { prepare_phones_that_may_lack({"UIKeyboardImpl", "_UIBackdropView"}); }

}  // namespace test
