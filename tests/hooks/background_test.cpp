// The keyboard's background under each kind of theme.
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/themes.h"

namespace test {
namespace {

/// A one-pixel picture of opaque blue, as PNG in base 64.
UIImage* blue_image() { return filled_image(color(0, 0, 1), 12, 9); }

class Background : public testing::Test {
  protected:
    /// Starts with a theme of the type, whose colours are XML strings.
    void start(const char* type, const char* colours, const char* more = "") {
        phone.write(preference_file, property_list("<dict><key>_Enabled</key><true/><key>_Config</key>"
                                                   "<string>Made.plist</string></dict>"));
        phone.write(
            std::string(theme_folder) + "Made.plist",
            property_list(
                std::string("<dict><key>_BackgroundType</key><integer>") + type +
                "</integer><key>_GradientDirection</key><integer>4</integer><key>_Colors</key><array>" +
                colours + "</array>" + more + "</dict>"));
        phone.boot();
        before_load();
        phone.load();
    }
    virtual void before_load() {}

    static id styled(const char* class_name) {
        return made<"initWithFrame:style:">(class_name, CGRect{{0, 0}, {375, 216}}, NSInteger{2});
    }
    static UIKBBackdropView* backdrop() { return static_cast<UIKBBackdropView*>(styled("UIKBBackdropView")); }
    static UIKBVisualEffectView* effect() {
        return static_cast<UIKBVisualEffectView*>(styled("UIKBVisualEffectView"));
    }
    template <class T>
    static T* variable(id object, const char* name) {
        Ivar found = class_getInstanceVariable(object_getClass(object), name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<T**>(reinterpret_cast<char*>(object) + ivar_getOffset(found));
    }
    static std::string class_of(id object) { return object ? object_getClassName(object) : "nil"; }
    static void expect_installed(UIKBBackdropView* owner, UIView* themed) {
        ASSERT_NE(themed, nullptr);
        EXPECT_EQ(themed->superview(), owner->contentView());
        EXPECT_EQ(themed->autoresizingMask(), 18u);
    }
    static std::vector<Rgba> colours_of(UIView* gradient_backdrop) {
        auto* layer = variable<CAGradientLayer>(gradient_backdrop, "gradientLayer");
        std::vector<Rgba> colours;
        for (NSUInteger i = 0; i < layer->colors()->count(); ++i)
            colours.push_back(rgba(
                UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(layer->colors()->objectAtIndex(i)))));
        return colours;
    }
    static constexpr const char* half_red = "<string>#FF000080</string>";
    static constexpr const char* red_and_blue = "<string>#FF0000</string><string>#0000FF</string>";

    Phone phone;
};

// ---- Flat colour -----------------------------------------------------------------------------------------

TEST_F(Background, AFlatColourIsShownWithItsOwnAlpha) {
    start("1", half_red);
    auto* owner = backdrop();
    UIView* themed = owner->activeBackgroundView();
    EXPECT_EQ(class_of(themed), "_UIBackdropColouredView");
    expect_installed(owner, themed);
    EXPECT_EQ(rgba(variable<UIView>(themed, "colouredView")->backgroundColor()),
              (Rgba{1, 0, 0, 128 / 255.0}));
    EXPECT_EQ(rgba(owner->backgroundColor()).alpha, 0) << "the system's own background is cleared";
}

TEST_F(Background, TheVisualEffectViewDropsTheFlatColoursAlpha) {
    start("1", half_red);
    auto* view = effect();
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(view->activeBackgroundView(), nullptr) << "it gets no themed view";
    EXPECT_EQ(view->contentView()->subviews()->count(), effect()->contentView()->subviews()->count());
}

TEST_F(Background, AFlatColourWithoutColoursIsClear) {
    start("1", "");
    EXPECT_EQ(
        rgba(variable<UIView>(backdrop()->activeBackgroundView(), "colouredView")->backgroundColor()).alpha,
        0);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 0, 1})) << "clear with its alpha replaced";
}

// ---- Gradient --------------------------------------------------------------------------------------------

TEST_F(Background, AGradientHasTheThemesColoursAndDirection) {
    start("2", red_and_blue);
    auto* owner = backdrop();
    UIView* themed = owner->activeBackgroundView();
    EXPECT_EQ(class_of(themed), "_UIBackdropGradientView");
    expect_installed(owner, themed);
    EXPECT_EQ(colours_of(themed), (std::vector<Rgba>{{1, 0, 0, 1}, {0, 0, 1, 1}}));
    EXPECT_EQ(variable<CAGradientLayer>(themed, "gradientLayer")->startPoint(), (CGPoint{0, 0.5}));
}

TEST_F(Background, AGradientWithoutColoursReceivesExactlyOneColourClear) {
    static NSUInteger received = 99;
    static double alpha = 99;
    start("2", "");
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("_UIBackdropGradientView"), sel_registerName("setColors:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSArray* colors) {
                        received = colors->count();
                        alpha = rgba(colors->objectAtIndex(0)).alpha;
                        reinterpret_cast<void (*)(id, SEL, id)>(previous)(self, selector, colors);
                    }),
                    &previous);
    backdrop();
    EXPECT_EQ(received, 1u);
    EXPECT_EQ(alpha, 0);
}

TEST_F(Background, TheVisualEffectViewShowsTheGradientsAverage) {
    start("2", red_and_blue);
    auto* view = effect();
    const Rgba shown = rgba(view->backgroundColor());
    EXPECT_NEAR(shown.red, 0.5, 3 / 255.0);
    EXPECT_NEAR(shown.blue, 0.5, 3 / 255.0);
    EXPECT_EQ(shown.alpha, 1);
    EXPECT_EQ(view->activeBackgroundView(), nullptr);
}

// ---- No background ---------------------------------------------------------------------------------------

TEST_F(Background, AnyOtherTypeGetsAClearBackdrop) {
    start("0", red_and_blue);
    auto* owner = backdrop();
    UIView* themed = owner->activeBackgroundView();
    EXPECT_EQ(class_of(themed), "_UIBackdropColouredView");
    expect_installed(owner, themed);
    EXPECT_EQ(rgba(variable<UIView>(themed, "colouredView")->backgroundColor()).alpha, 0);
    EXPECT_EQ(themed->alpha(), 1.0);
    EXPECT_EQ(rgba(effect()->backgroundColor()).alpha, 0);
}

TEST_F(Background, AnUnknownTypeIsLikeNone) {
    start("77", red_and_blue);
    EXPECT_EQ(class_of(backdrop()->activeBackgroundView()), "_UIBackdropColouredView");
}

// ---- Image -----------------------------------------------------------------------------------------------

class ImageBackground : public Background {
  protected:
    void start_with_alpha(const char* alpha) {
        start("3", "", (std::string("<key>_ImageAlpha</key>") + alpha).c_str());
        auto* store = class_named("HCPreferences");
        id preferences = objc::send<"sharedInstance", id>(store);
        Ivar theme = class_getInstanceVariable(object_getClass(preferences), "configCache");
        id config = *reinterpret_cast<id*>(reinterpret_cast<char*>(preferences) + ivar_getOffset(theme));
        objc::send<"setImageData:">(config, blue_image());
        objc::send<"getImage", id>(preferences);  // the first answer is nothing
        image = objc::send<"getImage", UIImage*>(preferences);
        ASSERT_NE(image, nullptr);
    }
    UIKBInputBackdropView* input() {
        return static_cast<UIKBInputBackdropView*>(
            made<"initWithFrame:">("UIKBInputBackdropView", CGRect{{0, 0}, {375, 216}}));
    }
    static UIImage* shown_in(UIKBBackdropView* piece) {
        return variable<UIImageView>(piece->activeBackgroundView(), "imageView")->image();
    }
    UIImage* image = nullptr;
};

TEST_F(ImageBackground, ABackdropCarriesTheAverageColourOnly) {
    start_with_alpha("<real>0.5</real>");
    auto* owner = backdrop();
    EXPECT_EQ(owner->activeBackgroundView(), nullptr);
    EXPECT_EQ(rgba(owner->backgroundColor()), (Rgba{0, 0, 1, 0.5}));
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 1, 0.5}));
}

TEST_F(ImageBackground, EachPieceShowsTheImage) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    for (auto* piece :
         {view->inputBackdropFullView(), view->inputBackdropLeftView(), view->inputBackdropRightView()}) {
        ASSERT_NE(piece, nullptr);
        EXPECT_EQ(class_of(piece->activeBackgroundView()), "_UIBackdropImageView");
        expect_installed(piece, piece->activeBackgroundView());
        EXPECT_EQ(shown_in(piece), image);
        EXPECT_EQ(rgba(piece->backgroundColor()).alpha, 0);
    }
}

TEST_F(ImageBackground, FetchingAPieceTwiceAddsOneImageOnly) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    auto* piece = view->inputBackdropLeftView();
    const auto subviews = piece->contentView()->subviews()->count();
    UIView* themed = piece->activeBackgroundView();
    EXPECT_EQ(view->inputBackdropLeftView()->activeBackgroundView(), themed);
    EXPECT_EQ(piece->contentView()->subviews()->count(), subviews);
}

TEST_F(ImageBackground, APieceThatHeldAColourShowsTheImageInstead) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    auto* piece = view->inputBackdropLeftView();
    auto* coloured =
        objc::send<"backdropWithStyle:", UIView*>(class_named("_UIBackdropColouredView"), NSInteger{2});
    piece->activeBackgroundView()->removeFromSuperview();
    piece->setActiveBackgroundView(coloured);
    piece->contentView()->addSubview(coloured);
    view->inputBackdropLeftView();
    EXPECT_EQ(class_of(piece->activeBackgroundView()), "_UIBackdropImageView");
    EXPECT_EQ(coloured->superview(), nullptr);
}

class ImageAlpha : public ImageBackground {
  protected:
    /// The alphas that `setImageAlpha:` is sent when a piece is made, after the one of its own initialiser.
    std::vector<double> alphas_of_piece(const char* alpha) {
        start_with_alpha(alpha);
        MSHookMessageEx(objc_getClass("_UIBackdropImageView"), sel_registerName("setImageAlpha:"),
                        reinterpret_cast<IMP>(+[](id, SEL, double value) { seen.push_back(value); }),
                        nullptr);
        input()->inputBackdropFullView();
        seen.erase(seen.begin());  // backdropWithStyle: has alpha 0.0 and no image
        return seen;
    }
    static inline std::vector<double> seen;
};

TEST_F(ImageAlpha, AnOpaqueImageIsUntouched) {
    EXPECT_EQ(alphas_of_piece("<real>1.0</real>"), std::vector<double>{});
}
TEST_F(ImageAlpha, AStored99IsUntouched) {
    EXPECT_EQ(alphas_of_piece("<real>0.99</real>"), std::vector<double>{});
}
TEST_F(ImageAlpha, AStored98IsBakedInOnce) {
    EXPECT_EQ(alphas_of_piece("<real>0.98</real>"), std::vector<double>{static_cast<double>(0.98f)});
}
TEST_F(ImageAlpha, OneThatIsNoNumberLeavesTheImageUntouched) {
    EXPECT_EQ(alphas_of_piece("<real>nan</real>"), std::vector<double>{});
}
TEST_F(ImageAlpha, ANegativeOneIsPassedOnAsItIs) {
    EXPECT_EQ(alphas_of_piece("<real>-0.5</real>"), std::vector<double>{-0.5});
}
TEST_F(ImageAlpha, OneBeyondOneLeavesTheImageUntouched) {
    EXPECT_EQ(alphas_of_piece("<real>7</real>"), std::vector<double>{});
}

TEST_F(Background, OtherTypesLeaveThePiecesUntouched) {
    start("2", red_and_blue);
    auto* view = static_cast<UIKBInputBackdropView*>(
        made<"initWithFrame:">("UIKBInputBackdropView", CGRect{{0, 0}, {375, 216}}));
    auto* piece = view->inputBackdropFullView();
    ASSERT_NE(piece, nullptr);
    EXPECT_EQ(class_of(piece->activeBackgroundView()), "_UIBackdropGradientView")
        << "made with the piece itself";
}

TEST_F(Background, AnImageThemeWithoutAnImageShowsNone) {
    start("3", "");
    EXPECT_EQ(rgba(backdrop()->backgroundColor()), (Rgba{0, 0, 0, 1})) << "the average of nothing";
    auto* view = static_cast<UIKBInputBackdropView*>(
        made<"initWithFrame:">("UIKBInputBackdropView", CGRect{{0, 0}, {375, 216}}));
    auto* piece = view->inputBackdropFullView();
    EXPECT_EQ(class_of(piece->activeBackgroundView()), "_UIBackdropImageView");
    EXPECT_EQ(variable<UIImageView>(piece->activeBackgroundView(), "imageView")->image(), nullptr);
}

// ---- Stripping -------------------------------------------------------------------------------------------

class Stripping : public ImageBackground {
  protected:
    void SetUp() override {
        start_with_alpha("<real>1.0</real>");
        parent = objc::adopt(objc::send<"new", UIView*>(class_named("UIView")));
        view = input();
        parent->addSubview(view);
    }
    static id sibling_that_answers() {
        static Class type = [] {
            Class made = objc_allocateClassPair(objc_getClass("UIView"), "HCSiblingView", 0);
            class_addMethod(made, sel_registerName("initForUCB:"),
                            reinterpret_cast<IMP>(+[](id self, SEL, int) { return self; }), "@20@0:8B16");
            objc_registerClassPair(made);
            return made;
        }();
        return objc_autorelease(objc::send<"new", id>(reinterpret_cast<id>(type)));
    }
    objc::strong<UIView> parent;
    UIKBInputBackdropView* view = nullptr;
};

TEST_F(Stripping, ASiblingThatAnswersStripsEveryPiece) {
    std::vector<UIKBBackdropView*> pieces{view->inputBackdropFullView(), view->inputBackdropLeftView(),
                                          view->inputBackdropRightView()};
    parent->addSubview(static_cast<UIView*>(sibling_that_answers()));
    view->layoutSubviews();
    for (auto* piece : pieces) EXPECT_EQ(piece->activeBackgroundView(), nullptr);
}

TEST_F(Stripping, WithoutSuchASiblingNothingIsStripped) {
    auto* piece = view->inputBackdropFullView();
    parent->addSubview(objc::adopt(objc::send<"new", UIView*>(class_named("UIView"))));
    view->layoutSubviews();
    EXPECT_NE(piece->activeBackgroundView(), nullptr);
}

TEST_F(Stripping, EachMatchingSiblingFetchesAndStripsEachPieceOnce) {
    static std::vector<id> stripped;
    MSHookMessageEx(objc_getClass("UIKBInputBackdropView"), sel_registerName("removeKBBackdropEffects:"),
                    reinterpret_cast<IMP>(+[](id, SEL, id piece) { stripped.push_back(piece); }), nullptr);
    std::vector<id> pieces{view->inputBackdropFullView(), view->inputBackdropLeftView(),
                           view->inputBackdropRightView()};
    parent->addSubview(static_cast<UIView*>(sibling_that_answers()));
    parent->addSubview(static_cast<UIView*>(sibling_that_answers()));
    view->layoutSubviews();
    std::vector<id> twice = pieces;
    twice.insert(twice.end(), pieces.begin(), pieces.end());
    EXPECT_EQ(stripped, twice);
}

TEST_F(Stripping, APlainViewIsLeftAlone) {
    auto plain = objc::adopt(objc::send<"new", UIView*>(class_named("UIView")));
    objc::send<"removeKBBackdropEffects:">(view, plain.get());
    objc::send<"removeKBBackdropEffects:">(view, id{});
}

TEST_F(Stripping, ABackdropWithoutAThemedViewIsLeftAlone) {
    auto* piece = view->inputBackdropFullView();
    objc::send<"removeKBBackdropEffects:">(view, piece);
    EXPECT_EQ(piece->activeBackgroundView(), nullptr);
    objc::send<"removeKBBackdropEffects:">(view, piece);
    EXPECT_EQ(piece->activeBackgroundView(), nullptr);
}

// ---- What the system answers -----------------------------------------------------------------------------

TEST_F(Background, ABackdropThatCannotBeMadeIsNil) {
    struct Arranged {
        static id none(id self, SEL, CGRect, NSInteger) { return objc_release(self), nullptr; }
    };
    arrange_theme(phone);
    phone.boot();
    for (const char* name : {"UIKBBackdropView", "UIKBVisualEffectView"})
        MSHookMessageEx(objc_getClass(name), sel_registerName("initWithFrame:style:"),
                        reinterpret_cast<IMP>(&Arranged::none), nullptr);
    phone.load();
    EXPECT_EQ(styled("UIKBBackdropView"), nullptr);
    EXPECT_EQ(styled("UIKBVisualEffectView"), nullptr);
}

TEST_F(Background, APieceThatTheSystemDoesNotHaveStaysNil) {
    arrange_theme(phone);
    phone.boot();
    MSHookMessageEx(objc_getClass("UIKBInputBackdropView"), sel_registerName("inputBackdropLeftView"),
                    reinterpret_cast<IMP>(+[](id, SEL) -> id { return nullptr; }), nullptr);
    phone.load();
    id view = made("UIKBInputBackdropView");
    EXPECT_EQ((objc::send<"inputBackdropLeftView", id>(view)), nullptr);
}

}  // namespace
}  // namespace test
