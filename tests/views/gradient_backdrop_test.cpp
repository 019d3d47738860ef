// The gradient backdrop, through its selectors.
#include "views/backdrops_test.h"

namespace test {
namespace {

class GradientBackdrop : public Backdrop {
  protected:
    static std::vector<Rgba> colours_of(CAGradientLayer* layer) {
        std::vector<Rgba> colours;
        for (NSUInteger i = 0; i < layer->colors()->count(); ++i)
            colours.push_back(rgba(
                UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(layer->colors()->objectAtIndex(i)))));
        return colours;
    }
    static UIView* content(id backdrop) { return variable<UIView*>(backdrop, "gradientView"); }
    static CAGradientLayer* layer(id backdrop) {
        return variable<CAGradientLayer*>(backdrop, "gradientLayer");
    }
    static bool follows_layout(id backdrop) { return variable<bool>(backdrop, "layoutGradientLayer"); }
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

TEST_F(GradientBackdrop, TheStartIsSetBeforeTheEnd) {
    static std::vector<std::string> set;
    static IMP start, end;
    id backdrop = with_style("_UIBackdropGradientView");
    start = stand_in("CAGradientLayer", "setStartPoint:", [](id self, SEL selector, CGPoint point) {
        set.push_back("start");
        call(start, self, selector, point);
    });
    end = stand_in("CAGradientLayer", "setEndPoint:", [](id self, SEL selector, CGPoint point) {
        set.push_back("end");
        call(end, self, selector, point);
    });
    objc::send<"setDirection:">(backdrop, NSInteger{4});
    EXPECT_EQ(set, (std::vector<std::string>{"start", "end"}));
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

TEST_F(GradientBackdrop, ItTakesAsManyColoursAsThereAre) {
    id backdrop = with_style("_UIBackdropGradientView");
    std::vector<id> colours;
    std::vector<Rgba> expected;
    while (colours.size() < 40) {
        expected.push_back({0, 0, static_cast<double>(colours.size()) / 40, 1});
        colours.push_back(color(0, 0, expected.back().blue));
        if (colours.size() == 1) continue;
        objc::send<"setColors:">(backdrop, array(colours));
        EXPECT_EQ(colours_of(layer(backdrop)), expected);
    }
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

TEST_F(GradientBackdrop, NilColoursAreAnEmptyList) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0)}));
    objc::send<"setColors:">(backdrop, id{});
    EXPECT_EQ(layer(backdrop)->colors()->count(), 0u);
}

TEST_F(GradientBackdrop, ItsAlphaIsReplacedNotMultiplied) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0, 0.8), color(0, 0, 1)}));
    objc::send<"setColorsAlpha:">(backdrop, 0.3);
    EXPECT_EQ(colours_of(layer(backdrop)), (std::vector<Rgba>{{1, 0, 0, 0.3}, {0, 0, 1, 0.3}}));
}

TEST_F(GradientBackdrop, AnAlphaBeforeAnyColoursChangesNothing) {
    id backdrop = with_style("_UIBackdropGradientView");
    EXPECT_EQ(raised_by([&] { objc::send<"setColorsAlpha:">(backdrop, 0.3); }), "");
    EXPECT_EQ(layer(backdrop)->colors()->count(), 0u);
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0), color(0, 0, 1)}));
    EXPECT_EQ(colours_of(layer(backdrop)), (std::vector<Rgba>{{1, 0, 0, 1}, {0, 0, 1, 1}}));
}

TEST_F(GradientBackdrop, TheInitialiserSendsItsPublicOperations) {
    static std::vector<std::string> sent;
    stand_in("_UIBackdropGradientView", "setDirection:", [](id, SEL, NSInteger direction) {
        sent.push_back("direction " + std::to_string(direction));
    });
    stand_in("_UIBackdropGradientView", "setColors:", [](id, SEL, NSArray* colors) {
        sent.push_back("colours " + std::to_string(colors->count()));
    });
    made<"initWithStyle:colors:direction:">("_UIBackdropGradientView", NSInteger{2}, array({color(1, 0, 0)}),
                                            NSInteger{4});
    EXPECT_EQ(sent, (std::vector<std::string>{"direction 4", "colours 1"}));
    sent.clear();
    made<"initWithStyle:colors:direction:">("_UIBackdropGradientView", NSInteger{2}, id{}, NSInteger{5});
    EXPECT_EQ(sent, std::vector<std::string>{"direction 5"});
}

TEST_F(GradientBackdrop, TheShorterInitialiserSendsTheLongerOneNoColours) {
    static std::vector<NSInteger> directions;
    stand_in("_UIBackdropGradientView", "initWithStyle:colors:direction:",
             [](id self, SEL, NSInteger style, id colors, NSInteger direction) -> id {
                 EXPECT_EQ(style, 7);
                 EXPECT_EQ(colors, nullptr);
                 directions.push_back(direction);
                 return self;
             });
    made<"initWithStyle:direction:">("_UIBackdropGradientView", NSInteger{7}, NSInteger{3});
    EXPECT_EQ(directions, std::vector<NSInteger>{3});
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

TEST_F(GradientBackdrop, TheLayerIsLaidOutBeforeAPictureIsDrawn) {
    static std::vector<std::string> sent;
    static IMP needs, lay_out, draw;
    id backdrop = with_style("_UIBackdropGradientView");
    layer(backdrop)->setFrame({{0, 0}, {40, 20}});  // or the new size asks for a layout, too
    needs = stand_in("CAGradientLayer", "setNeedsLayout", [](id self, SEL selector) {
        sent.push_back("setNeedsLayout");
        call(needs, self, selector);
    });
    lay_out = stand_in("CAGradientLayer", "layoutIfNeeded", [](id self, SEL selector) {
        EXPECT_EQ(static_cast<CALayer*>(self)->frame(), (CGRect{{0, 0}, {40, 20}}));
        sent.push_back("layoutIfNeeded");
        call(lay_out, self, selector);
    });
    draw = stand_in("CAGradientLayer", "renderInContext:", [](id self, SEL selector, CGContextRef context) {
        sent.push_back("renderInContext:");
        call(draw, self, selector, context);
    });
    objc::send<"imageFromGradientOfSize:", id>(backdrop, CGSize{40, 20});
    EXPECT_EQ(sent, (std::vector<std::string>{"setNeedsLayout", "layoutIfNeeded", "renderInContext:"}));
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

TEST_F(GradientBackdrop, ALayoutPassWhileAPictureIsDrawnLeavesTheLayer) {
    static UIView* backdrop = nullptr;
    static IMP previous;
    static int drawn = 0;
    backdrop = static_cast<UIView*>(with_style("_UIBackdropGradientView"));
    backdrop->setFrame({{0, 0}, {320, 216}});
    backdrop->layoutIfNeeded();
    previous =
        stand_in("CAGradientLayer", "renderInContext:", [](id self, SEL selector, CGContextRef context) {
            ++drawn;
            EXPECT_FALSE(follows_layout(backdrop));
            backdrop->layoutSubviews();
            EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {40, 20}}));
            call(previous, self, selector, context);
        });
    objc::send<"imageFromGradientOfSize:", id>(backdrop, CGSize{40, 20});
    EXPECT_EQ(drawn, 1);
    EXPECT_TRUE(follows_layout(backdrop));
}

TEST_F(GradientBackdrop, TheSystemsLayoutRunsFirst) {
    static IMP previous;
    static std::vector<CGRect> frames;
    auto* backdrop = static_cast<UIView*>(with_style("_UIBackdropGradientView"));
    backdrop->setFrame({{0, 0}, {320, 216}});
    backdrop->layoutIfNeeded();
    previous = stand_in("_UIBackdropView", "layoutSubviews", [](id self, SEL selector) {
        frames.push_back(layer(self)->frame());
        call(previous, self, selector);
    });
    layer(backdrop)->setFrame({{0, 0}, {1, 1}});
    backdrop->layoutSubviews();
    EXPECT_EQ(frames, (std::vector<CGRect>{{{0, 0}, {1, 1}}}));
    EXPECT_EQ(layer(backdrop)->frame(), (CGRect{{0, 0}, {320, 216}}));
}

TEST_F(GradientBackdrop, TheLayerIsReleasedBeforeTheView) {
    static std::vector<std::string> gone;
    static id layer_gone, view_gone;
    static IMP dealloc;
    {
        objc::AutoreleasePool pool;
        id backdrop = with_style("_UIBackdropGradientView");
        layer_gone = layer(backdrop);
        view_gone = content(backdrop);
        // Nobody but the backdrop holds them any more.
        layer(backdrop)->removeFromSuperlayer();
        content(backdrop)->removeFromSuperview();
        dealloc = stand_in("NSObject", "dealloc", [](id self, SEL selector) {
            if (self == layer_gone) gone.push_back("gradientLayer");
            if (self == view_gone) gone.push_back("gradientView");
            call(dealloc, self, selector);
        });
    }
    EXPECT_EQ(gone, (std::vector<std::string>{"gradientLayer", "gradientView"}));
    layer_gone = view_gone = nullptr;  // other objects may come to lie there
}

TEST_F(GradientBackdrop, APictureIsOpaqueExactlyWhenTheLayerIs) {
    id backdrop = with_style("_UIBackdropGradientView");
    objc::send<"setColors:">(backdrop, array({color(1, 0, 0, 0.5)}));
    auto alpha_of_picture = [&] {
        return CGImageGetAlphaInfo(
            objc::send<"imageFromGradientOfSize:", UIImage*>(backdrop, CGSize{4, 4})->CGImage());
    };
    auto has_alpha = [](CGImageAlphaInfo info) {
        return info != kCGImageAlphaNone && info != kCGImageAlphaNoneSkipFirst &&
               info != kCGImageAlphaNoneSkipLast;
    };
    layer(backdrop)->setOpaque(false);
    EXPECT_TRUE(has_alpha(alpha_of_picture()));
    layer(backdrop)->setOpaque(true);
    EXPECT_FALSE(has_alpha(alpha_of_picture()));
}

}  // namespace
}  // namespace test
