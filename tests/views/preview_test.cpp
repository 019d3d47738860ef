// HCPreview: a still picture of a themed keyboard, made of four pictures and one backdrop.
#include "support/configuration.h"
#include "views/observing.h"

namespace test {
namespace {

using Selectors = std::vector<std::string>;
using objc::strong;

constexpr const char* bundle = "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboard";

class Preview : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        write_pictures();
        preview = shared();
        heard.clear();
    }

    /// Four pictures of 8 x 4 pixels, each filled along one edge: the background all over, the text in its
    /// left half, highlights in its right half, key caps in its upper half.
    void write_pictures() const {
        write_picture("Background.png", {{0, 0}, {8, 4}});
        write_picture("Text.png", {{0, 0}, {4, 4}});
        write_picture("Highlight.png", {{4, 0}, {4, 4}});
        write_picture("KeyCaps.png", {{0, 0}, {8, 2}});
    }
    void write_picture(const std::string& name, CGRect filled) const {
        UIGraphicsBeginImageContextWithOptions({8, 4}, false, 1.0);
        color(0, 0, 1)->setFill();
        CGContextFillRect(UIGraphicsGetCurrentContext(), filled);
        NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
        UIGraphicsEndImageContext();
        phone.write(bundle + name, {static_cast<const char*>(png->bytes()), png->length()});
    }

    static id shared() { return objc::send<"sharedInstance", id>(class_named("HCPreview")); }
    UIView* view_for(const Configuration& theme) const {
        return objc::send<"viewForConfig:", UIView*>(preview, theme.object);
    }
    Configuration theme(const std::string& xml) const {
        return Configuration::from_xml(phone,
                                       "<key>_TextColor</key><string>#00FF00</string>"
                                       "<key>_HighlightColor</key><string>#FF0000</string>" +
                                           xml);
    }
    Configuration of_type(int type, const std::string& more = "") const {
        return theme("<key>_BackgroundType</key><integer>" + std::to_string(type) + "</integer>" + more);
    }
    static std::string colours(const std::string& list) {
        return "<key>_Colors</key><array>" + list + "</array>";
    }
    Configuration with_image(UIImage* image, double alpha) const {
        Configuration made = of_type(3);
        objc::send<"setImageData:">(made.object, image);
        objc::send<"setImageAlpha:">(made.object, alpha);
        return made;
    }

    UIView* cached(const char* key) const {
        return static_cast<UIView*>(
            variable<NSDictionary>(preview, "cachedBackdrops")->objectForKey(text(key)));
    }
    UIImageView* picture_view(const char* name) const { return variable<UIImageView>(preview, name); }
    UIImage* loaded(const char* name) const { return variable<UIImage>(preview, name); }
    UIImage* shown(const char* name) const { return picture_view(name)->image(); }
    /// The colour of the pixel at that place of the 8 x 4, colours not multiplied by alpha.
    static Rgba pixel(UIImage* image, CGFloat x, CGFloat y) {
        UIGraphicsBeginImageContextWithOptions({1, 1}, false, 1.0);
        image->drawInRect({{-x, -y}, {8, 4}});
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()));
        const double alpha = bytes[3];
        const Rgba found{alpha ? bytes[2] / alpha : 0, alpha ? bytes[1] / alpha : 0,
                         alpha ? bytes[0] / alpha : 0, alpha / 255};
        UIGraphicsEndImageContext();
        return found;
    }
    static constexpr Rgba red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1}, nothing{0, 0, 0, 0};

    Phone phone;
    id preview = nullptr;
};

// ---- Making it
// ---------------------------------------------------------------------------------------------------

TEST_F(Preview, ThereIsOneForTheWholeProcess) {
    EXPECT_NE(preview, nullptr);
    EXPECT_EQ(shared(), preview);
    EXPECT_STREQ(object_getClassName(preview), "HCPreview");
}

TEST_F(Preview, HasAStyleTwoBackdropOfEachKind) {
    EXPECT_EQ((variable<NSDictionary>(preview, "cachedBackdrops")->send<"count", NSUInteger>()), 3u);
    EXPECT_STREQ(object_getClassName(cached("ImageView")), "_UIBackdropImageView");
    EXPECT_STREQ(object_getClassName(cached("GradientView")), "_UIBackdropGradientView");
    EXPECT_STREQ(object_getClassName(cached("ColouredView")), "_UIBackdropColouredView");
    for (const char* key : {"ImageView", "GradientView", "ColouredView"})
        EXPECT_EQ((cached(key)->send<"style", NSInteger>()), 2) << key;
}

TEST_F(Preview, EachPictureHasAViewAsLargeAsTheKeyboard) {
    const struct {
        const char *view, *image;
    } rows[] = {{"keyboardBackground", "backgroundImage"},
                {"keyboardText", "textImage"},
                {"keyboardHighlight", "highlightImage"}};
    for (const auto& row : rows) EXPECT_EQ(shown(row.view), loaded(row.image)) << row.view;
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"}) {
        EXPECT_EQ(picture_view(name)->frame(), (CGRect{{0, 0}, {375, 216}})) << name;
        EXPECT_EQ(picture_view(name)->contentMode(), UIViewContentModeScaleToFill) << name;
        EXPECT_EQ(rgba(picture_view(name)->backgroundColor()).alpha, 0) << name;
    }
    EXPECT_EQ(pixel(loaded("textImage"), 0, 0), blue);
    EXPECT_EQ(pixel(loaded("textImage"), 4, 0), nothing);
    EXPECT_EQ(pixel(loaded("highlightImage"), 4, 0), blue);
    EXPECT_EQ(pixel(loaded("highlightImage"), 0, 0), nothing);
    EXPECT_EQ(pixel(loaded("backgroundImage"), 7, 3), blue);
    EXPECT_EQ(pixel(loaded("keycapsImage"), 0, 0), blue);
    EXPECT_EQ(pixel(loaded("keycapsImage"), 0, 3), nothing);
}

TEST_F(Preview, KeyCapsAreDarkenedOnce) {
    const Rgba cap = pixel(shown("keycapsImageView"), 0, 0);
    EXPECT_NEAR(cap.alpha, 0.5, 1 / 255.0);
    for (double component : {cap.red, cap.green, cap.blue}) EXPECT_NEAR(component, 1 / 3.0, 2 / 255.0);
    EXPECT_EQ(pixel(shown("keycapsImageView"), 0, 3), nothing) << "their shape stays";
    strong<UIImage> dark = shown("keycapsImageView");
    view_for(of_type(0, "<key>_VisibleKeycaps</key><true/>"));
    objc::send<"cleanup">(preview);
    EXPECT_EQ(shown("keycapsImageView"), dark);
}

TEST_F(Preview, IsMadeInOrder) {
    static std::vector<std::string> made;
    made.clear();
    static IMP image = nullptr, backdrop = nullptr;
    MSHookMessageEx(object_getClass(class_named("UIImage")), sel_registerName("imageWithContentsOfFile:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSString* path) -> id {
                        made.push_back(utf8(path));
                        return reinterpret_cast<id (*)(id, SEL, id)>(image)(self, selector, path);
                    }),
                    &image);
    MSHookMessageEx(objc_getClass("_UIBackdropView"), sel_registerName("initWithStyle:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSInteger style) -> id {
                        made.emplace_back(object_getClassName(self));
                        return reinterpret_cast<id (*)(id, SEL, NSInteger)>(backdrop)(self, selector, style);
                    }),
                    &backdrop);
    static IMP size = nullptr, frame = nullptr;
    MSHookMessageEx(object_getClass(class_named("HCPreview")), sel_registerName("keyboardPortraitSize"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) -> CGSize {
                        made.emplace_back("keyboardPortraitSize");
                        return reinterpret_cast<CGSize (*)(id, SEL)>(size)(self, selector);
                    }),
                    &size);
    MSHookMessageEx(objc_getClass("UIImageView"), sel_registerName("initWithFrame:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, CGRect wanted) -> id {
                        if (wanted.size.width) made.emplace_back("picture view");
                        return reinterpret_cast<id (*)(id, SEL, CGRect)>(frame)(self, selector, wanted);
                    }),
                    &frame);
    auto other = objc::adopt(objc::send<"init", NSObject*>(allocated("HCPreview")));
    const std::string path = bundle;
    EXPECT_EQ(made, (Selectors{"_UIBackdropImageView", "_UIBackdropGradientView", "_UIBackdropColouredView",
                               path + "Background.png", path + "Text.png", path + "Highlight.png",
                               path + "KeyCaps.png", "keyboardPortraitSize", "picture view", "picture view",
                               "picture view", "picture view"}));
}

TEST_F(Preview, GoesInOrder) {
    strong<NSObject> other;
    {
        objc::AutoreleasePool pool;
        other = objc::adopt(objc::send<"init", NSObject*>(allocated("HCPreview")));
    }
    // For good: objects also go while the process ends.
    static auto& parts = *new std::vector<std::pair<id, std::string>>;
    static auto& gone = *new Selectors;
    for (const char* name :
         {"cachedBackdrops", "backgroundImage", "textImage", "highlightImage", "keycapsImage",
          "keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        parts.emplace_back(variable<objc_object>(other, name), name);
    static IMP dealloc = nullptr;
    MSHookMessageEx(objc_getClass("NSObject"), sel_registerName("dealloc"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        for (const auto& [part, name] : parts)
                            if (part == self) gone.push_back(name);
                        reinterpret_cast<void (*)(id, SEL)>(dealloc)(self, selector);
                    }),
                    &dealloc);
    objc::AutoreleasePool pool;
    other = nullptr;
    EXPECT_EQ(gone, (Selectors{"keycapsImageView", "keyboardHighlight", "keyboardText", "keyboardBackground",
                               "keycapsImage", "highlightImage", "backgroundImage", "textImage",
                               "cachedBackdrops"}));
}

TEST_F(Preview, TheKeyboardsSizesAreTheSystems) {
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{375, 216}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{667, 162}));
    static std::vector<NSInteger> orientations;
    MSHookMessageEx(object_getClass(class_named("UIKeyboardImpl")),
                    sel_registerName("keyboardSizeForInterfaceOrientation:"),
                    reinterpret_cast<IMP>(+[](id, SEL, NSInteger orientation) -> CGSize {
                        orientations.push_back(orientation);
                        return {10, 20};
                    }),
                    nullptr);
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{10, 20}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{10, 20}));
    EXPECT_EQ(orientations, (std::vector<NSInteger>{1, 4}));
}

// ---- A preview
// ---------------------------------------------------------------------------------------------------

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
    auto* content = variable<UIView>(cached("ColouredView"), "colouredView");
    EXPECT_EQ(rgba(content->backgroundColor()), (Rgba{1, 0, 0, 128 / 255.0}));
}

TEST_F(Preview, AFlatBackgroundWithoutColoursIsClear) {
    for (const char* list : {"", "<integer>1</integer>"}) {
        UIView* container = view_for(of_type(1, colours(list)));
        EXPECT_EQ(subviews_of(container)[1], cached("ColouredView"));
        auto* content = variable<UIView>(cached("ColouredView"), "colouredView");
        EXPECT_EQ(rgba(content->backgroundColor()).alpha, 0);
    }
}

TEST_F(Preview, AGradientHasTheThemesDirectionAndColours) {
    view_for(of_type(2, colours("<string>#FF0000</string><string>#00FF00</string>") +
                            "<key>_GradientDirection</key><integer>4</integer>"));
    auto* layer = variable<CAGradientLayer>(cached("GradientView"), "gradientLayer");
    EXPECT_EQ(layer->startPoint(), (CGPoint{0, 0.5}));
    EXPECT_EQ(layer->endPoint(), (CGPoint{1, 0.5}));
    EXPECT_EQ(layer->colors()->count(), 2u);
}

TEST_F(Preview, AGradientWithoutColoursIsTwiceClear) {
    view_for(of_type(2, colours("")));
    auto* layer = variable<CAGradientLayer>(cached("GradientView"), "gradientLayer");
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
        auto* content = variable<UIView>(cached("ColouredView"), "colouredView");
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
    for (double alpha : {0.99, 1.0}) {  // 0.99 is stored in single precision
        observe<"setImageAlpha:", void, double>("_UIBackdropImageView");
        UIView* container = view_for(with_image(filled_image(color(1, 0, 0), 8, 6), alpha));
        EXPECT_EQ(subviews_of(container)[1], cached("ImageView"));
        EXPECT_EQ(heard, Selectors{}) << alpha;
    }
    EXPECT_EQ(average(variable<UIImageView>(cached("ImageView"), "imageView")->image()), red);
}

TEST_F(Preview, AnImageAlphaIsBakedInOnceInEveryPreview) {
    for (int times = 0; times < 3; ++times) {
        view_for(with_image(filled_image(color(1, 0, 0), 8, 6), 0.5));
        UIImage* image = variable<UIImageView>(cached("ImageView"), "imageView")->image();
        EXPECT_NEAR(average_alpha(image), 0.5, 1 / 255.0) << times;
    }
}

TEST_F(Preview, WithoutAnImageTheImageBackdropIsEmpty) {
    view_for(with_image(filled_image(color(1, 0, 0), 8, 6), 1.0));
    UIView* container = view_for(of_type(3));
    EXPECT_EQ(subviews_of(container)[1], cached("ImageView"));
    EXPECT_EQ(variable<UIImageView>(cached("ImageView"), "imageView")->image(), nullptr);
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
    auto* layer = variable<CAGradientLayer>(cached("GradientView"), "gradientLayer");
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
                        reinterpret_cast<void (*)(id, SEL)>(removing)(self, selector);
                    }),
                    &removing);
    MSHookMessageEx(UIImageView::class_object(), sel_registerName("setImage:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id image) {
                        for (int i = 0; i < 5; ++i)
                            if (parts[i] == self) order.push_back(10 + i);
                        reinterpret_cast<void (*)(id, SEL, id)>(setting)(self, selector, image);
                    }),
                    &setting);
    objc::send<"cleanup">(preview);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 11, 2, 12, 3, 4, 14}));
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

// ---- What may be missing
// -----------------------------------------------------------------------------------------

TEST(PreviewWithoutPictures, ShowsTheBackdropAlone) {
    Phone phone;
    phone.start();
    id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
    for (const char* name : {"backgroundImage", "textImage", "highlightImage", "keycapsImage"})
        EXPECT_EQ(variable<UIImage>(preview, name), nullptr) << name;
    auto* container = objc::send<"viewForConfig:", UIView*>(preview, Configuration::made_default().object);
    EXPECT_EQ(subviews_of(container).size(), 4u);
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        EXPECT_EQ(variable<UIImageView>(preview, name)->image(), nullptr) << name;
}

TEST(PreviewWithoutAKeyboard, HasPictureViewsWithoutSize) {
    Phone phone;
    phone.start({.left_out = {"UIKeyboardImpl"}});
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{}));
    id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        EXPECT_EQ(variable<UIImageView>(preview, name)->frame(), (CGRect{})) << name;
    auto* container = objc::send<"viewForConfig:", UIView*>(preview, Configuration::made_default().object);
    EXPECT_EQ(subviews_of(container).size(), 4u);
}

}  // namespace
}  // namespace test
