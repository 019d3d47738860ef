// The three backdrop classes, through their selectors.
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/phone.h"

namespace test {
namespace {

class Backdrop : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }

    static id with_style(const char* class_name) {
        return objc::send<"backdropWithStyle:", id>(class_named(class_name), NSInteger{2});
    }
    template <class T>
    static T* variable(id object, const char* name) {
        Ivar found = class_getInstanceVariable(object_getClass(object), name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<T**>(reinterpret_cast<char*>(object) + ivar_getOffset(found));
    }
    static void expect_content_set_up(id backdrop, UIView* content) {
        auto* view = static_cast<UIView*>(backdrop);
        EXPECT_EQ(content->autoresizingMask(), 18u);
        EXPECT_TRUE(content->layer()->shouldRasterize());
        EXPECT_EQ(content->layer()->rasterizationScale(), 2.0);
        EXPECT_TRUE(content->isOpaque());
        EXPECT_EQ(content->superview(), view);
        NSArray* subviews = view->subviews();
        EXPECT_EQ(subviews->objectAtIndex(subviews->count() - 1), content) << "it is in front";
        expect_no_animations(content->layer());
    }
    static void expect_no_animations(CALayer* layer) {
        NSDictionary* actions = layer->actions();
        EXPECT_EQ((actions->send<"count", NSUInteger>()), 7u);
        for (const char* key :
             {"onOrderIn", "onOrderOut", "sublayers", "contents", "bounds", "onLayout", "position"})
            EXPECT_EQ(actions->objectForKey(text(key)), NSNull::null()) << key;
    }
    static double alpha_of(UIImage* image) {
        return rgba(objc::send<"averageColorWithAlphaForImage:", id>(class_named("HCCITool"), image)).alpha;
    }
    static std::vector<Rgba> colours_of(CAGradientLayer* layer) {
        std::vector<Rgba> colours;
        for (NSUInteger i = 0; i < layer->colors()->count(); ++i)
            colours.push_back(rgba(
                UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(layer->colors()->objectAtIndex(i)))));
        return colours;
    }

    Phone phone;
};

// ---- Colour ----------------------------------------------------------------------------------------------

class ColouredBackdrop : public Backdrop {
  protected:
    static UIView* content(id backdrop) { return variable<UIView>(backdrop, "colouredView"); }
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
}

// ---- Image -----------------------------------------------------------------------------------------------

class ImageBackdrop : public Backdrop {
  protected:
    static id showing(UIImage* image, double alpha) {
        return made<"initWithStyle:image:alpha:">("_UIBackdropImageView", NSInteger{2}, image, alpha);
    }
    static UIImageView* content(id backdrop) { return variable<UIImageView>(backdrop, "imageView"); }
    static UIImage* shown(id backdrop) { return content(backdrop)->image(); }
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

TEST_F(ImageBackdrop, TheInitialiserSendsItsPublicOperations) {
    static int images = 0, alphas = 0;
    MSHookMessageEx(objc_getClass("_UIBackdropImageView"), sel_registerName("setImage:"),
                    reinterpret_cast<IMP>(+[](id, SEL, id) { ++images; }), nullptr);
    MSHookMessageEx(objc_getClass("_UIBackdropImageView"), sel_registerName("setImageAlpha:"),
                    reinterpret_cast<IMP>(+[](id, SEL, double) { ++alphas; }), nullptr);
    showing(red(), 0.5);
    EXPECT_EQ(images, 1);
    EXPECT_EQ(alphas, 1);
    showing(red(), 1.0);
    EXPECT_EQ(images, 2);
    EXPECT_EQ(alphas, 1);
}

// ---- Gradient --------------------------------------------------------------------------------------------

class GradientBackdrop : public Backdrop {
  protected:
    static UIView* content(id backdrop) { return variable<UIView>(backdrop, "gradientView"); }
    static CAGradientLayer* layer(id backdrop) {
        return variable<CAGradientLayer>(backdrop, "gradientLayer");
    }
    static bool follows_layout(id backdrop) {
        Ivar found = class_getInstanceVariable(object_getClass(backdrop), "layoutGradientLayer");
        return *(reinterpret_cast<bool*>(backdrop) + ivar_getOffset(found));
    }
};

TEST_F(GradientBackdrop, RunsTopToBottomWithoutColoursAtFirst) {
    id backdrop = with_style("_UIBackdropGradientView");
    EXPECT_EQ(layer(backdrop)->startPoint(), (CGPoint{0.5, 0}));
    EXPECT_EQ(layer(backdrop)->endPoint(), (CGPoint{0.5, 1}));
    EXPECT_EQ(layer(backdrop)->colors(), nullptr);
    EXPECT_TRUE(follows_layout(backdrop));
}

TEST_F(GradientBackdrop, IsASystemBackdropWithOneContentViewInFront) {
    id backdrop = with_style("_UIBackdropGradientView");
    expect_content_set_up(backdrop, content(backdrop));
    expect_no_animations(layer(backdrop));
    EXPECT_EQ(layer(backdrop)->superlayer(), content(backdrop)->layer());
    EXPECT_EQ(rgba(content(backdrop)->backgroundColor()).alpha, 0);
}

TEST_F(GradientBackdrop, EachDirectionHasItsPoints) {
    const struct {
        NSInteger direction;
        CGPoint start, end;
    } table[] = {{1, {0.5, 1}, {0.5, 0}}, {2, {0.5, 0}, {0.5, 1}}, {3, {1, 0.5}, {0, 0.5}},
                 {4, {0, 0.5}, {1, 0.5}}, {5, {1, 1}, {0, 0}},     {6, {0, 1}, {1, 0}},
                 {7, {1, 0}, {0, 1}},     {8, {0, 0}, {1, 1}}};
    id backdrop = with_style("_UIBackdropGradientView");
    for (const auto& row : table) {
        objc::send<"setDirection:">(backdrop, row.direction);
        EXPECT_EQ(layer(backdrop)->startPoint(), row.start) << row.direction;
        EXPECT_EQ(layer(backdrop)->endPoint(), row.end) << row.direction;
    }
}

TEST_F(GradientBackdrop, UnknownDirectionsRunTopToBottom) {
    id backdrop = with_style("_UIBackdropGradientView");
    for (NSInteger direction : {NSInteger{0}, NSInteger{9}, NSInteger{-1}, INTPTR_MAX, INTPTR_MIN}) {
        objc::send<"setDirection:">(backdrop, NSInteger{5});
        objc::send<"setDirection:">(backdrop, direction);
        EXPECT_EQ(layer(backdrop)->startPoint(), (CGPoint{0.5, 0})) << direction;
        EXPECT_EQ(layer(backdrop)->endPoint(), (CGPoint{0.5, 1})) << direction;
    }
}

TEST_F(GradientBackdrop, ItsColoursAreEvenlySpacedInOrder) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0), color(0, 1, 0, 0.5), color(0, 0, 1)}));
    EXPECT_EQ(colours_of(layer(backdrop)), (std::vector<Rgba>{{1, 0, 0, 1}, {0, 1, 0, 0.5}, {0, 0, 1, 1}}));
    EXPECT_EQ(layer(backdrop)->locations(), nullptr);
}

TEST_F(GradientBackdrop, OneColourIsListedTwice) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0)}));
    EXPECT_EQ(colours_of(layer(backdrop)), (std::vector<Rgba>{{1, 0, 0, 1}, {1, 0, 0, 1}}));
}

TEST_F(GradientBackdrop, AnEmptyListStaysEmpty) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({}));
    ASSERT_NE(layer(backdrop)->colors(), nullptr);
    EXPECT_EQ(layer(backdrop)->colors()->count(), 0u);
}

TEST_F(ImageBackdrop, AlphasOutOfRangeAreTakenAsTheNearestThatCounts) {
    for (const auto& [alpha, seen] :
         std::vector<std::pair<double, double>>{{-3, 0}, {7, 1}, {INFINITY, 1}, {-INFINITY, 0}, {NAN, 0}}) {
        id backdrop = showing(red(), 1.0);
        objc::send<"setImageAlpha:">(backdrop, alpha);
        EXPECT_EQ(alpha_of(shown(backdrop)), seen) << alpha;
    }
}

TEST_F(GradientBackdrop, ItsAlphaIsReplacedNotMultiplied) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0, 0.8), color(0, 0, 1)}));
    objc::send<"setColorsAlpha:">(backdrop, 0.3);
    EXPECT_EQ(colours_of(layer(backdrop)), (std::vector<Rgba>{{1, 0, 0, 0.3}, {0, 0, 1, 0.3}}));
}

TEST_F(GradientBackdrop, IsMadeWithColoursAndDirection) {
    id backdrop = made<"initWithStyle:colors:direction:">(
        "_UIBackdropGradientView", NSInteger{2}, array({color(1, 0, 0), color(0, 0, 1)}), NSInteger{4});
    EXPECT_EQ(colours_of(layer(backdrop)).size(), 2u);
    EXPECT_EQ(layer(backdrop)->startPoint(), (CGPoint{0, 0.5}));
    id without = made<"initWithStyle:direction:">("_UIBackdropGradientView", NSInteger{2}, NSInteger{3});
    EXPECT_EQ(layer(without)->colors(), nullptr);
    EXPECT_EQ(layer(without)->startPoint(), (CGPoint{1, 0.5}));
}

TEST_F(GradientBackdrop, LayoutKeepsTheLayerOverTheView) {
    auto* backdrop = static_cast<UIView*>(with_style("_UIBackdropGradientView"));
    backdrop->setFrame({{0, 0}, {320, 216}});
    backdrop->layoutIfNeeded();
    EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {320, 216}}));
    backdrop->setFrame({{10, 10}, {200, 100}});
    backdrop->layoutIfNeeded();
    EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {200, 100}}));
}

TEST_F(GradientBackdrop, APictureHasTheAskedSizeAndShowsTheGradient) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0), color(0, 0, 1)}));
    auto* image = objc::send<"imageFromGradientOfSize:", UIImage*>(backdrop, CGSize{40, 20});
    EXPECT_EQ(image->size(), (CGSize{40, 20}));
    EXPECT_EQ(image->scale(), 2.0);
    const Rgba mean = rgba(objc::send<"averageColorForImage:", id>(class_named("HCCITool"), image));
    EXPECT_NEAR(mean.red, 0.5, 3 / 255.0);
    EXPECT_NEAR(mean.blue, 0.5, 3 / 255.0);
}

TEST_F(GradientBackdrop, APictureLeavesTheLayerForTheNextLayoutToPutBack) {
    auto* backdrop = static_cast<UIView*>(with_style("_UIBackdropGradientView"));
    backdrop->setFrame({{0, 0}, {320, 216}});
    backdrop->layoutIfNeeded();
    objc::send<"imageFromGradientOfSize:", id>(backdrop, CGSize{40, 20});
    EXPECT_TRUE(follows_layout(backdrop));
    EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {40, 20}}));
    backdrop->layoutSubviews();
    EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {320, 216}}));
}

// ---- All three -------------------------------------------------------------------------------------------

TEST_F(Backdrop, ASystemBackdropThatCannotBeMadeGivesNothing) {
    MSHookMessageEx(
        objc_getClass("_UIBackdropView"), sel_registerName("initWithStyle:"),
        reinterpret_cast<IMP>(+[](id self, SEL, NSInteger) -> id { return objc_release(self), nullptr; }),
        nullptr);
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"})
        EXPECT_EQ(with_style(name), nullptr) << name;
}

TEST_F(Backdrop, TheStyleIsPassedOn) {
    static NSInteger seen = 0;
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("_UIBackdropView"), sel_registerName("initWithStyle:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSInteger style) -> id {
                        seen = style;
                        return reinterpret_cast<id (*)(id, SEL, NSInteger)>(previous)(self, selector, style);
                    }),
                    &previous);
    objc::send<"backdropWithStyle:", id>(class_named("_UIBackdropColouredView"), NSInteger{2060});
    EXPECT_EQ(seen, 2060);
}

TEST_F(Backdrop, TheContentViewGoesWithTheBackdrop) {
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropImageView", "_UIBackdropGradientView"}) {
        const char* content_name = std::string(name) == "_UIBackdropColouredView" ? "colouredView"
                                   : std::string(name) == "_UIBackdropImageView"  ? "imageView"
                                                                                  : "gradientView";
        objc::strong<UIView> content;
        {
            objc::AutoreleasePool pool;
            content = variable<UIView>(with_style(name), content_name);
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
}  // namespace test
