// HCPreview: a still picture of a themed keyboard, put together and taken apart.
#include "views/preview.h"

#include <algorithm>
#include <array>

namespace test {
namespace {

using objc::strong;

// ---- A preview
// ---------------------------------------------------------------------------------------------------

TEST_F(Preview, AThemeAsksForTheKeyboardsSizeByMessage) {
    MSHookMessageEx(object_getClass(class_named("HCPreview")), sel_registerName("keyboardPortraitSize"),
                    reinterpret_cast<IMP>(+[](id, SEL) { return CGSize{30, 20}; }), nullptr);
    const Configuration made = with_image(filled_image(color(1, 0, 0), 4, 3), 1.0);
    made.image_cache();
    EXPECT_EQ(made.image_cache()->size(), (CGSize{30, 60}));
}

TEST_F(Preview, TheContainerHasNoSizeAndFollowsItsSuperview) {
    UIView* container = view_for(of_type(0));
    EXPECT_STREQ(object_getClassName(container), "UIView");
    EXPECT_EQ(container->frame(), (CGRect{}));
    EXPECT_EQ(container->autoresizingMask(), 18u);
    EXPECT_FALSE(container->clipsToBounds());
}

TEST_F(Preview, WithoutKeyCapsFourViewsAreStacked) {
    EXPECT_EQ(subviews_of(view_for(of_type(2))),
              (std::vector<id>{picture_view("keyboardBackground"), cached("GradientView"),
                               picture_view("keyboardHighlight"), picture_view("keyboardText")}));
}

TEST_F(Preview, WithKeyCapsFiveViewsAreStacked) {
    EXPECT_EQ(subviews_of(view_for(of_type(2, "<key>_VisibleKeycaps</key><true/>"))),
              (std::vector<id>{picture_view("keyboardBackground"), cached("GradientView"),
                               picture_view("keycapsImageView"), picture_view("keyboardHighlight"),
                               picture_view("keyboardText")}));
}

TEST_F(Preview, TextAndHighlightsHaveTheThemesColours) {
    view_for(of_type(0));
    EXPECT_EQ(pixel(shown("keyboardText"), 0, 0), green);
    EXPECT_EQ(pixel(shown("keyboardText"), 4, 0), nothing);
    EXPECT_EQ(pixel(shown("keyboardHighlight"), 4, 0), red);
    EXPECT_EQ(pixel(shown("keyboardHighlight"), 0, 0), nothing);
    EXPECT_EQ(shown("keyboardBackground"), loaded("backgroundImage"));
}

TEST_F(Preview, WithoutTheirColoursTextAndHighlightsAreClear) {
    view_for(Configuration::from_xml(phone, "<key>_BackgroundType</key><integer>0</integer>"));
    EXPECT_EQ(pixel(shown("keyboardText"), 0, 0), nothing);
    EXPECT_EQ(pixel(shown("keyboardHighlight"), 4, 0), nothing);
    view_for(of_type(0));
    EXPECT_EQ(pixel(shown("keyboardText"), 0, 0), green) << "the shape is not lost";
}

TEST_F(Preview, WithoutAThemeItIsClear) {
    UIView* container = view_for(Configuration{});
    EXPECT_EQ(subviews_of(container),
              (std::vector<id>{picture_view("keyboardBackground"), cached("ColouredView"),
                               picture_view("keyboardHighlight"), picture_view("keyboardText")}));
    EXPECT_EQ(pixel(shown("keyboardText"), 0, 0), nothing);
    EXPECT_EQ(pixel(shown("keyboardHighlight"), 4, 0), nothing);
}

TEST_F(Preview, TintsAreNotTintedAgain) {
    view_for(theme("<key>_BackgroundType</key><integer>0</integer>"));
    view_for(Configuration::from_xml(phone, "<key>_TextColor</key><string>#FF000080</string>"));
    EXPECT_NEAR(pixel(shown("keyboardText"), 0, 0).alpha, 128 / 255.0, 1 / 255.0);
    view_for(Configuration::from_xml(phone, "<key>_TextColor</key><string>#FF000080</string>"));
    EXPECT_NEAR(pixel(shown("keyboardText"), 0, 0).alpha, 128 / 255.0, 1 / 255.0);
}

TEST_F(Preview, AFlatBackgroundIsTheFirstColour) {
    UIView* container = view_for(of_type(1, colours("<string>#FF000080</string><string>#00FF00</string>")));
    EXPECT_EQ(subviews_of(container)[1], cached("ColouredView"));
    auto* content = variable<UIView*>(cached("ColouredView"), "colouredView");
    EXPECT_EQ(rgba(content->backgroundColor()), (Rgba{1, 0, 0, 128 / 255.0}));
}

TEST_F(Preview, AFlatBackgroundWithoutColoursIsClear) {
    for (const char* list : {"", "<integer>1</integer>"}) {
        UIView* container = view_for(of_type(1, colours(list)));
        EXPECT_EQ(subviews_of(container)[1], cached("ColouredView"));
        auto* content = variable<UIView*>(cached("ColouredView"), "colouredView");
        EXPECT_EQ(rgba(content->backgroundColor()).alpha, 0);
    }
}

TEST_F(Preview, AGradientHasTheThemesDirectionAndColours) {
    view_for(of_type(2, colours("<string>#FF0000</string><string>#00FF00</string>") +
                            "<key>_GradientDirection</key><integer>4</integer>"));
    auto* layer = variable<CAGradientLayer*>(cached("GradientView"), "gradientLayer");
    EXPECT_EQ(layer->startPoint(), (CGPoint{0, 0.5}));
    EXPECT_EQ(layer->endPoint(), (CGPoint{1, 0.5}));
    EXPECT_EQ(layer->colors()->count(), 2u);
}

TEST_F(Preview, AGradientWithoutColoursIsTwiceClear) {
    view_for(of_type(2, colours("")));
    auto* layer = variable<CAGradientLayer*>(cached("GradientView"), "gradientLayer");
    ASSERT_EQ(layer->colors()->count(), 2u);
    for (id each : elements(layer->colors()))
        EXPECT_EQ(rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(each))).alpha, 0);
    EXPECT_EQ(layer->startPoint(), (CGPoint{0.5, 0})) << "a missing direction is top to bottom";
}

TEST_F(Preview, AnyOtherTypeIsAClearColourOnAVisibleBackdrop) {
    for (int type : {0, 4, 5, -1}) {
        cached("ColouredView")->setAlpha(0.2);
        objc::send<"setColor:">(cached("ColouredView"), color(1, 0, 0));
        UIView* container = view_for(of_type(type, colours("<string>#FF0000</string>")));
        EXPECT_EQ(subviews_of(container)[1], cached("ColouredView")) << type;
        auto* content = variable<UIView*>(cached("ColouredView"), "colouredView");
        EXPECT_EQ(rgba(content->backgroundColor()).alpha, 0) << type;
        EXPECT_EQ(cached("ColouredView")->alpha(), 1.0) << type;
    }
}

TEST_F(Preview, AFlatBackgroundLeavesTheBackdropsAlpha) {
    cached("ColouredView")->setAlpha(0.25);
    view_for(of_type(1, colours("<string>#FF0000</string>")));
    EXPECT_EQ(cached("ColouredView")->alpha(), 0.25);
}

TEST_F(Preview, AnOpaqueImageIsShownUntouched) {
    observe<"setImageAlpha:", void, double>("_UIBackdropImageView");
    for (double alpha : {0.99, 1.0}) {  // 0.99 is stored in single precision
        UIView* container = view_for(with_image(filled_image(color(1, 0, 0), 8, 6), alpha));
        EXPECT_EQ(subviews_of(container)[1], cached("ImageView"));
        EXPECT_EQ(heard, Selectors{}) << alpha;
    }
    EXPECT_EQ(average(variable<UIImageView*>(cached("ImageView"), "imageView")->image()), red);
}

TEST_F(Preview, AnImageAlphaIsBakedInOnceInEveryPreview) {
    const Configuration theme = with_image(filled_image(color(1, 0, 0), 8, 6), 0.5);
    for (int times = 0; times < 3; ++times) {
        view_for(theme);
        UIImage* image = variable<UIImageView*>(cached("ImageView"), "imageView")->image();
        EXPECT_NEAR(average_alpha(image), 0.5, 1 / 255.0) << times;
    }
}

TEST_F(Preview, WithoutAnImageTheImageBackdropIsEmpty) {
    view_for(with_image(filled_image(color(1, 0, 0), 8, 6), 1.0));
    UIView* container = view_for(of_type(3));
    EXPECT_EQ(subviews_of(container)[1], cached("ImageView"));
    EXPECT_EQ(variable<UIImageView*>(cached("ImageView"), "imageView")->image(), nullptr);
}

TEST_F(Preview, TheThemeIsReadInOrder) {
    for (const auto& [theme, own] :
         {std::pair(with_image(filled_image(color(1, 0, 0), 8, 6), 0.5),
                    Selectors{"getImage", "getImageAlpha"}),
          std::pair(of_type(2), Selectors{"getGradientDirection"}), std::pair(of_type(1), Selectors{})}) {
        static bool observed = false;
        if (!std::exchange(observed, true)) {
            observe<"getColors", id>("HuecraftConfig");
            observe<"getBackgroundType", NSUInteger>("HuecraftConfig");
            observe<"getImage", id>("HuecraftConfig");
            observe<"getImageAlpha", double>("HuecraftConfig");
            observe<"getGradientDirection", NSUInteger>("HuecraftConfig");
            observe<"getVisibleKeycaps", int>("HuecraftConfig");
            observe<"getHighlightColor", id>("HuecraftConfig");
            observe<"getTextColor", id>("HuecraftConfig");
        }
        heard.clear();
        view_for(theme);
        Selectors expected{"getColors", "getBackgroundType"};
        expected.insert(expected.end(), own.begin(), own.end());
        for (const char* last : {"getVisibleKeycaps", "getHighlightColor", "getTextColor"})
            expected.emplace_back(last);
        EXPECT_EQ(heard, expected);
    }
}

TEST_F(Preview, IsBuiltInOrder) {
    const Configuration theme = of_type(2, "<key>_VisibleKeycaps</key><true/>");
    observe<"cleanup">("HCPreview");
    observe<"insertSubview:atIndex:", void, id, NSInteger>("UIView");
    observe<"setDirection:", void, NSInteger>("_UIBackdropGradientView");
    observe<"setColors:", void, id>("_UIBackdropGradientView");
    observe<"newColor:forImage:", id, id, id>(object_getClass(class_named("HCCITool")));
    view_for(theme);
    EXPECT_EQ(heard, (Selectors{"cleanup", "insertSubview:atIndex:", "setDirection:", "setColors:",
                                "insertSubview:atIndex:", "insertSubview:atIndex:", "newColor:forImage:",
                                "insertSubview:atIndex:", "newColor:forImage:", "insertSubview:atIndex:"}));
}

TEST_F(Preview, TheViewsArePlacedByFixedNumbers) {
    static std::vector<std::pair<id, NSInteger>> placed;
    static IMP previous = nullptr;
    MSHookMessageEx(UIView::class_object(), sel_registerName("insertSubview:atIndex:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id view, NSInteger index) {
                        placed.emplace_back(view, index);
                        call(previous, self, selector, view, index);
                    }),
                    &previous);
    using Placed = std::vector<std::pair<id, NSInteger>>;
    Placed expected{{picture_view("keyboardBackground"), 0},
                    {cached("GradientView"), 1},
                    {picture_view("keyboardHighlight"), 3},
                    {picture_view("keyboardText"), 4}};
    view_for(of_type(2));
    EXPECT_EQ(placed, expected);
    expected.insert(expected.begin() + 2, {picture_view("keycapsImageView"), 2});
    placed.clear();
    view_for(of_type(2, "<key>_VisibleKeycaps</key><true/>"));
    EXPECT_EQ(placed, expected);
}

TEST_F(Preview, TheBackdropKeepsItsFrame) {
    static id backdrops[3];
    static int framed = 0;
    static IMP previous = nullptr;
    std::ranges::copy(std::array{cached("ColouredView"), cached("GradientView"), cached("ImageView")},
                      backdrops);
    const Configuration themes[] = {of_type(0), of_type(1), of_type(2),
                                    with_image(filled_image(color(1, 0, 0), 8, 6), 0.5)};
    // The system's backdrop takes its superview's frame by itself.
    MSHookMessageEx(objc_getClass("_UIBackdropView"), sel_registerName("didMoveToSuperview"),
                    reinterpret_cast<IMP>(+[](id, SEL) {}), nullptr);
    MSHookMessageEx(UIView::class_object(), sel_registerName("setFrame:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, CGRect frame) {
                        framed += std::ranges::count(backdrops, self);
                        call(previous, self, selector, frame);
                    }),
                    &previous);
    for (const Configuration& theme : themes) {
        UIView* container = view_for(theme);
        EXPECT_EQ(static_cast<UIView*>(subviews_of(container)[1])->frame(), (CGRect{}));
    }
    EXPECT_EQ(framed, 0);
}

TEST_F(Preview, TheViewsGoToTheNextContainer) {
    strong<UIView> first = view_for(of_type(2)), second = view_for(of_type(2));
    EXPECT_NE(first, second);
    EXPECT_EQ(subviews_of(first).size(), 0u);
    EXPECT_EQ(subviews_of(second).size(), 4u);
    strong<UIView> third = view_for(of_type(1));
    EXPECT_EQ(subviews_of(second).size(), 0u);
    EXPECT_EQ(cached("GradientView")->superview(), nullptr);
}

TEST_F(Preview, AfterTheFirstNoFileIsReadAndNoViewButTheContainerMade) {
    const Configuration themes[] = {of_type(0), of_type(1), of_type(2, "<key>_VisibleKeycaps</key><true/>"),
                                    with_image(filled_image(color(1, 0, 0), 8, 6), 0.5)};
    view_for(themes[0]);
    observe<"imageWithContentsOfFile:", id, id>(object_getClass(class_named("UIImage")));
    observe<"dataWithContentsOfFile:", id, id>(object_getClass(class_named("NSData")));
    observe<"initWithFrame:", id, CGRect>("UIView");
    for (const Configuration& theme : themes) {
        heard.clear();
        view_for(theme);
        EXPECT_EQ(heard, (Selectors{"initWithFrame:"}));
    }
}

// ---- Taking it apart
// ---------------------------------------------------------------------------------------------

TEST_F(Preview, CleaningUpEmptiesTheContainerAndUndoesTheTints) {
    strong<UIView> container = view_for(of_type(2, "<key>_VisibleKeycaps</key><true/>"));
    auto* layer = variable<CAGradientLayer*>(cached("GradientView"), "gradientLayer");
    const auto directed = layer->startPoint();
    objc::send<"cleanup">(preview);
    EXPECT_EQ(subviews_of(container).size(), 0u);
    EXPECT_EQ(shown("keyboardBackground"), loaded("backgroundImage"));
    EXPECT_EQ(shown("keyboardHighlight"), loaded("highlightImage"));
    EXPECT_EQ(shown("keyboardText"), loaded("textImage"));
    EXPECT_NE(shown("keycapsImageView"), loaded("keycapsImage")) << "they stay dark";
    EXPECT_EQ(layer->startPoint(), directed) << "the backdrops keep what they show";
    EXPECT_EQ(layer->colors()->count(), 2u);
}

TEST_F(Preview, CleansUpInOrder) {
    view_for(of_type(2, "<key>_VisibleKeycaps</key><true/>"));
    static id parts[5];
    static std::vector<int> order;
    const char* names[] = {"keyboardBackground", "keyboardHighlight", "keycapsImageView", "keyboardText"};
    parts[0] = cached("GradientView");
    for (int i = 0; i < 4; ++i) parts[i + 1] = picture_view(names[i]);
    static IMP removing = nullptr, setting = nullptr;
    MSHookMessageEx(UIView::class_object(), sel_registerName("removeFromSuperview"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        for (int i = 0; i < 5; ++i)
                            if (parts[i] == self) order.push_back(i);
                        call(removing, self, selector);
                    }),
                    &removing);
    MSHookMessageEx(UIImageView::class_object(), sel_registerName("setImage:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id image) {
                        for (int i = 0; i < 5; ++i)
                            if (parts[i] == self) order.push_back(10 + i);
                        call(setting, self, selector, image);
                    }),
                    &setting);
    objc::send<"cleanup">(preview);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 11, 2, 12, 3, 4, 14}));
}

TEST_F(Preview, EachBackdropIsTakenOutTheColouredOneFirst) {
    const char* names[] = {"ColouredView", "GradientView", "ImageView"};
    static id parts[3];
    static std::vector<int> order;
    auto container = UIView::alloc()->init();
    for (int i = 0; i < 3; ++i) {
        parts[i] = cached(names[i]);
        container->addSubview(cached(names[i]));
    }
    static IMP previous = nullptr;
    MSHookMessageEx(UIView::class_object(), sel_registerName("removeFromSuperview"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        for (int i = 0; i < 3; ++i)
                            if (parts[i] == self) order.push_back(i);
                        call(previous, self, selector);
                    }),
                    &previous);
    objc::send<"cleanup">(preview);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(subviews_of(container).size(), 0u);
}

TEST_F(Preview, CleaningUpTwiceIsHarmless) {
    view_for(of_type(2));
    objc::send<"cleanup">(preview);
    observe<"removeFromSuperview">("UIView");
    objc::send<"cleanup">(preview);
    EXPECT_EQ(heard, Selectors{}) << "nothing is anywhere";
    EXPECT_EQ(subviews_of(view_for(of_type(2))).size(), 4u);
}

TEST_F(Preview, ADroppedContainerLeavesTheViews) {
    {
        objc::AutoreleasePool pool;
        view_for(of_type(2));
    }
    EXPECT_EQ(picture_view("keyboardText")->superview(), nullptr);
    EXPECT_EQ(subviews_of(view_for(of_type(2))).size(), 4u);
}

}  // namespace
}  // namespace test
