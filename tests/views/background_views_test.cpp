// HCColourView, HCGradientView and HCImageView: backgrounds that show a blur where they are translucent.
#include "views/observing.h"

namespace test {
namespace {

using Selectors = std::vector<std::string>;
using objc::strong;

/// 0.99 as themes store it.
constexpr double threshold = static_cast<double>(0.99f);

class BackgroundView : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static bool has_blur(UIView* view) {
        id blur = objc::send<"backgroundBlur", id>(view);
        EXPECT_EQ(blur != nullptr, !subviews_of(view).empty() && subviews_of(view)[0] == blur);
        return blur != nullptr;
    }
    Phone phone;
};

// ---- Colour
// ------------------------------------------------------------------------------------------------------

class ColourView : public BackgroundView {
  protected:
    static strong<UIView> made(UIColor* color) {
        return objc::adopt(objc::send<"initWithColor:", UIView*>(allocated("HCColourView"), color));
    }
    static void set(UIView* view, UIColor* color) { objc::send<"setColor:">(view, color); }
};

TEST_F(ColourView, TheColourIsItsBackgroundWithItsAlpha) {
    auto view = made(color(1, 0, 0, 0.5));
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{1, 0, 0, 0.5}));
    EXPECT_EQ(view->alpha(), 1);
    EXPECT_STREQ(class_getName(class_getSuperclass(object_getClass(view))), "HCView");
}

TEST_F(ColourView, ABlurIsShownBelowTheThresholdOnly) {
    for (double alpha : {0.0, 0.5, 0.98, 0.99}) EXPECT_TRUE(has_blur(made(color(1, 0, 0, alpha)))) << alpha;
    for (double alpha : {threshold, 0.995, 1.0, 1.5, double{NAN}})
        EXPECT_FALSE(has_blur(made(color(1, 0, 0, alpha)))) << alpha;
}

TEST_F(ColourView, AColourThatTellsNoAlphaIsOpaque) {
    stand_in("UIColor", "getWhite:alpha:", [](id, SEL, CGFloat*, CGFloat*) { return 0; });
    EXPECT_FALSE(has_blur(made(color(1, 0, 0, 0.5))));
}

TEST_F(ColourView, GreyColoursTellTheirAlphaToo) {
    EXPECT_TRUE(has_blur(made(UIColor::colorWithWhite(0.3, 0.5))));
    EXPECT_FALSE(has_blur(made(UIColor::blackColor())));
}

TEST_F(ColourView, TheBlurFollowsTheLatestColour) {
    auto view = made(color(1, 0, 0, 0.5));
    set(view, color(0, 1, 0));
    EXPECT_FALSE(has_blur(view));
    set(view, color(0, 1, 0, 0.98));
    EXPECT_TRUE(has_blur(view));
    set(view, color(0, 0, 1, 0.2));
    EXPECT_TRUE(has_blur(view));
    EXPECT_EQ(subviews_of(view).size(), 1u);
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{0, 0, 1, 0.2}));
}

TEST_F(ColourView, NilIsIgnored) {
    auto view = made(color(1, 0, 0, 0.5));
    set(view, nullptr);
    EXPECT_TRUE(has_blur(view));
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{1, 0, 0, 0.5}));
    auto without = made(nullptr);
    ASSERT_NE(without, nullptr);
    EXPECT_FALSE(has_blur(without));
    EXPECT_EQ(without->backgroundColor(), nullptr);
}

TEST_F(ColourView, TheBlurIsSwitchedBeforeTheColourIsSet) {
    observe<"setColor:", void, id>("HCColourView");
    observe<"enableBlur">("HCColourView");
    observe<"disableBlur">("HCColourView");
    observe<"setBackgroundColor:", void, id>("HCColourView");
    auto view = made(color(1, 0, 0, 0.5));
    set(view, color(1, 0, 0));
    EXPECT_EQ(heard, (Selectors{"setColor:", "enableBlur", "setBackgroundColor:", "setColor:", "disableBlur",
                                "setBackgroundColor:"}));
}

// ---- Gradient
// ----------------------------------------------------------------------------------------------------

class GradientView : public BackgroundView {
  protected:
    static strong<UIView> made(NSArray* colors, NSInteger direction = 2) {
        return objc::adopt(
            objc::send<"initWithColors:direction:", UIView*>(allocated("HCGradientView"), colors, direction));
    }
    static void set(UIView* view, NSArray* colors) { objc::send<"setColors:">(view, colors); }
    static CAGradientLayer* layer(UIView* view) { return static_cast<CAGradientLayer*>(view->layer()); }
    static std::vector<Rgba> colours_of(UIView* view) {
        std::vector<Rgba> colours;
        for (id each : elements(layer(view)->colors()))
            colours.push_back(rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(each))));
        return colours;
    }
    static UIColor* clear_red() { return color(1, 0, 0, 0.5); }
    static UIColor* green() { return color(0, 1, 0); }
};

TEST_F(GradientView, ItsOwnLayerIsAGradient) {
    auto view = made(nullptr);
    EXPECT_STREQ(object_getClassName(view->layer()), "CAGradientLayer");
    EXPECT_EQ((objc::send<"layerClass", Class>(class_named("HCGradientView"))),
              objc_getClass("CAGradientLayer"));
    EXPECT_STREQ(class_getName(class_getSuperclass(object_getClass(view))), "HCView");
}

TEST_F(GradientView, ItsColoursAreEvenlySpacedInOrder) {
    auto view = made(array({clear_red(), green()}));
    EXPECT_EQ(colours_of(view), (std::vector<Rgba>{{1, 0, 0, 0.5}, {0, 1, 0, 1}}));
    EXPECT_EQ(layer(view)->locations(), nullptr);
}

TEST_F(GradientView, OneTranslucentColourShowsTheBlur) {
    EXPECT_TRUE(has_blur(made(array({clear_red(), green()}))));
    EXPECT_TRUE(has_blur(made(array({green(), clear_red()}))));
    EXPECT_FALSE(has_blur(made(array({green(), green()}))));
    EXPECT_FALSE(has_blur(made(array({green(), color(1, 0, 0, threshold)}))));
    EXPECT_TRUE(has_blur(made(array({green(), color(1, 0, 0, 0.98)}))));
    EXPECT_FALSE(has_blur(made(array({color(1, 0, 0, NAN)}))));
}

TEST_F(GradientView, TheBlurFollowsTheLatestColours) {
    auto view = made(array({clear_red(), green()}));
    set(view, array({green(), green()}));
    EXPECT_FALSE(has_blur(view));
    set(view, array({clear_red()}));
    EXPECT_TRUE(has_blur(view));
    set(view, array({}));
    EXPECT_FALSE(has_blur(view));
}

TEST_F(GradientView, OneColourIsListedTwice) {
    EXPECT_EQ(colours_of(made(array({clear_red()}))), (std::vector<Rgba>{{1, 0, 0, 0.5}, {1, 0, 0, 0.5}}));
}

TEST_F(GradientView, AnEmptyListStaysEmpty) {
    auto view = made(array({}));
    ASSERT_NE(layer(view)->colors(), nullptr);
    EXPECT_EQ(layer(view)->colors()->count(), 0u);
}

TEST_F(GradientView, NilColoursAreAnEmptyList) {
    auto view = made(array({clear_red()}));
    set(view, nullptr);
    EXPECT_FALSE(has_blur(view));
    EXPECT_EQ(layer(view)->colors()->count(), 0u);
}

TEST_F(GradientView, WithoutColoursNoneAreSet) {
    auto view = made(nullptr, 4);
    EXPECT_EQ(layer(view)->colors(), nullptr);
    EXPECT_EQ(layer(view)->startPoint(), (CGPoint{0, 0.5}));
    EXPECT_FALSE(has_blur(view));
}

TEST_F(GradientView, AfterTheFirstTranslucentColourNoneIsAskedForItsAlpha) {
    observe<"getWhite:alpha:", int, CGFloat*, CGFloat*>("UIColor");
    auto view = made(array({green(), clear_red(), green(), clear_red()}));
    EXPECT_EQ(heard.size(), 2u);
    EXPECT_EQ(colours_of(view).size(), 4u) << "but all are shown";
}

TEST_F(GradientView, EachDirectionHasItsPoints) {
    const struct {
        NSInteger direction;
        CGPoint start, end;
    } table[] = {{1, {0.5, 1}, {0.5, 0}}, {2, {0.5, 0}, {0.5, 1}},  {3, {1, 0.5}, {0, 0.5}},
                 {4, {0, 0.5}, {1, 0.5}}, {5, {1, 1}, {0, 0}},      {6, {0, 1}, {1, 0}},
                 {7, {1, 0}, {0, 1}},     {8, {0, 0}, {1, 1}},      {0, {0.5, 0}, {0.5, 1}},
                 {9, {0.5, 0}, {0.5, 1}}, {-1, {0.5, 0}, {0.5, 1}}, {INTPTR_MIN, {0.5, 0}, {0.5, 1}}};
    auto view = made(nullptr);
    for (const auto& row : table) {
        objc::send<"setDirection:">(view, NSInteger{5});
        objc::send<"setDirection:">(view, row.direction);
        EXPECT_EQ(layer(view)->startPoint(), row.start) << row.direction;
        EXPECT_EQ(layer(view)->endPoint(), row.end) << row.direction;
    }
}

TEST_F(GradientView, ColoursComeBeforeTheDirection) {
    observe<"setColors:", void, id>("HCGradientView");
    observe<"setDirection:", void, NSInteger>("HCGradientView");
    observe<"enableBlur">("HCGradientView");
    observe<"setStartPoint:", void, CGPoint>("CAGradientLayer");
    observe<"setEndPoint:", void, CGPoint>("CAGradientLayer");
    auto view = made(array({clear_red()}));
    EXPECT_EQ(heard,
              (Selectors{"setColors:", "enableBlur", "setDirection:", "setStartPoint:", "setEndPoint:"}));
    heard.clear();
    auto without = made(nullptr);
    EXPECT_EQ(heard, (Selectors{"setDirection:", "setStartPoint:", "setEndPoint:"}));
}

// ---- Image
// -------------------------------------------------------------------------------------------------------

class ImageView : public BackgroundView {
  protected:
    static strong<UIView> made(UIImage* image, double alpha = 1.0) {
        return objc::adopt(
            objc::send<"initWithImage:alpha:", UIView*>(allocated("HCImageView"), image, alpha));
    }
    static UIImageView* content(UIView* view) { return objc::send<"imageView", UIImageView*>(view); }
    static UIImage* shown(UIView* view) { return content(view)->image(); }
    static double old_alpha(UIView* view) { return objc::send<"oldAlpha", double>(view); }
    static void set_alpha(UIView* view, double alpha) { objc::send<"setImageAlpha:">(view, alpha); }
    static UIImage* red() { return filled_image(color(1, 0, 0), 8, 6); }
};

TEST_F(ImageView, ShowsTheImageStretchedOverItself) {
    UIImage* image = red();
    auto view = made(image);
    EXPECT_EQ(shown(view), image);
    EXPECT_EQ(subviews_of(view), (std::vector<id>{content(view)}));
    EXPECT_EQ(content(view)->contentMode(), UIViewContentModeScaleToFill);
    EXPECT_EQ(rgba(content(view)->backgroundColor()).alpha, 0);
    EXPECT_TRUE(content(view)->layer()->shouldRasterize());
    view->setFrame({{0, 0}, {80, 60}});
    view->layoutIfNeeded();
    EXPECT_EQ(content(view)->frame(), (CGRect{{0, 0}, {80, 60}}));
    EXPECT_STREQ(class_getName(class_getSuperclass(object_getClass(view))), "HCView");
}

TEST_F(ImageView, TheInitialAlphaIsTheViewsAndNothingElses) {
    UIImage* image = red();
    auto view = made(image, 0.5);
    EXPECT_EQ(view->alpha(), 0.5);
    EXPECT_FALSE(has_blur(view));
    EXPECT_EQ(shown(view), image);
    EXPECT_EQ(old_alpha(view), 1.0);
}

TEST_F(ImageView, IsMadeInOrder) {
    observe<"addSubview:", void, id>("HCImageView");
    observe<"setImage:", void, id>("HCImageView");
    observe<"setAlpha:", void, double>("HCImageView");
    observe<"setImageAlpha:", void, double>("HCImageView");
    observe<"enableBlur">("HCImageView");
    observe<"disableBlur">("HCImageView");
    auto view = made(red(), 0.5);
    EXPECT_EQ(heard, (Selectors{"addSubview:", "setImage:", "setAlpha:"}));
}

TEST_F(ImageView, FullAlphaRightAfterItWasMadeDoesNothing) {
    UIImage* image = red();
    auto view = made(image, 0.5);
    observe<"disableBlur">("HCImageView");
    set_alpha(view, 1.0);
    EXPECT_EQ(shown(view), image);
    EXPECT_EQ(heard, Selectors{});
    EXPECT_EQ(view->alpha(), 0.5);
}

TEST_F(ImageView, AnAlphaIsBakedIntoTheImage) {
    auto view = made(red());
    set_alpha(view, 0.5);
    EXPECT_NEAR(average_alpha(shown(view)), 0.5, 1 / 255.0);
    EXPECT_EQ(shown(view)->size(), (CGSize{8, 6}));
    EXPECT_EQ(shown(view)->scale(), 2.0);
    EXPECT_EQ(old_alpha(view), 0.5);
    EXPECT_EQ(view->alpha(), 1.0);
}

TEST_F(ImageView, TheSameAlphaTwiceIsBakedOnce) {
    auto view = made(red());
    set_alpha(view, 0.5);
    strong<UIImage> baked = shown(view);
    set_alpha(view, 0.5);
    EXPECT_EQ(shown(view), baked);
}

TEST_F(ImageView, TheSameAlphaIsExactlyTheSame) {
    auto view = made(red());
    set_alpha(view, 0.5);
    strong<UIImage> baked = shown(view);
    set_alpha(view, 0.5000001);
    EXPECT_NE(shown(view), baked);
    set_alpha(view, NAN);
    baked = shown(view);
    set_alpha(view, NAN);
    EXPECT_NE(shown(view), baked) << "no number equals itself";
}

TEST_F(ImageView, TheBlurIsSwitchedBeforeTheImageIsBaked) {
    auto view = made(red());
    observe<"enableBlur">("HCImageView");
    observe<"disableBlur">("HCImageView");
    observe<"setImage:", void, id>("UIImageView");
    set_alpha(view, 0.5);
    set_alpha(view, 1.0);
    EXPECT_EQ(heard, (Selectors{"enableBlur", "setImage:", "disableBlur", "setImage:"}));
}

TEST_F(ImageView, AlphasCompound) {
    auto view = made(red());
    set_alpha(view, 0.5);
    set_alpha(view, 0.8);
    EXPECT_NEAR(average_alpha(shown(view)), 0.4, 2 / 255.0);
    EXPECT_EQ(old_alpha(view), 0.8);
}

TEST_F(ImageView, AFreshImageHasNoAlphaBakedIn) {
    auto view = made(red());
    set_alpha(view, 0.5);
    UIImage* fresh = red();
    objc::send<"setImage:">(view, fresh);
    EXPECT_EQ(shown(view), fresh);
    set_alpha(view, 0.5);
    EXPECT_EQ(shown(view), fresh) << "the last alpha was the same, whatever the image has";
    set_alpha(view, 0.6);
    EXPECT_NEAR(average_alpha(shown(view)), 0.6, 1 / 255.0);
}

TEST_F(ImageView, TheBlurFollowsTheLatestImageAlpha) {
    auto view = made(red());
    for (double alpha : {0.98, 0.99, 0.0}) {
        set_alpha(view, alpha);
        EXPECT_TRUE(has_blur(view)) << alpha;
        EXPECT_EQ(subviews_of(view).size(), 2u);
    }
    for (double alpha : {threshold, 1.0, double{NAN}}) {
        set_alpha(view, 0.5);
        set_alpha(view, alpha);
        EXPECT_FALSE(has_blur(view)) << alpha;
    }
    EXPECT_TRUE(std::isnan(old_alpha(view)));
}

TEST_F(ImageView, NilIsIgnored) {
    UIImage* image = red();
    auto view = made(image);
    objc::send<"setImage:">(view, id{});
    EXPECT_EQ(shown(view), image);
}

TEST_F(ImageView, WithoutAnImageTheAlphaIsKeptAndTheBlurShown) {
    auto view = made(nullptr);
    EXPECT_EQ(shown(view), nullptr);
    set_alpha(view, 0.5);
    EXPECT_EQ(shown(view), nullptr);
    EXPECT_EQ(old_alpha(view), 0.5);
    EXPECT_TRUE(has_blur(view));
}

TEST_F(ImageView, BakingKeepsTheImageTheRightWayUp) {
    UIGraphicsBeginImageContextWithOptions({4, 4}, false, 2.0);
    color(1, 0, 0)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {4, 2}});  // the upper half
    UIImage* upper = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    auto view = made(upper);
    set_alpha(view, 0.5);
    UIGraphicsBeginImageContextWithOptions({4, 2}, false, 2.0);
    shown(view)->drawInRect({{0, 0}, {4, 4}});  // the upper half alone is inside
    UIImage* top = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_NEAR(average_alpha(top), 0.5, 2 / 255.0);
}

TEST_F(ImageView, ItsVariablesHavePlainAccessors) {
    auto view = made(red());
    objc::send<"setOldAlpha:">(view, 0.25);
    EXPECT_EQ(old_alpha(view), 0.25);
    auto other = UIImageView::alloc()->initWithImage(red());
    objc::send<"setImageView:">(view, other.get());
    EXPECT_EQ(content(view), other);
    EXPECT_EQ(other->superview(), nullptr);
    EXPECT_EQ(variable<UIImageView*>(view, "_imageView"), other);
}

}  // namespace
}  // namespace test
