// The keyboard's background under each kind of theme.
#include "hooks/background_test.h"

#include <map>

namespace test {
namespace {

// ---- Flat colour -----------------------------------------------------------------------------------------

TEST_F(Background, AFlatColourIsShownWithItsOwnAlpha) {
    start("1", half_red);
    auto* owner = backdrop();
    UIView* themed = expect_installed(owner);
    EXPECT_EQ(class_of(themed), "_UIBackdropColouredView");
    EXPECT_EQ(colour_in(themed), (Rgba{1, 0, 0, 128 / 255.0}));
    EXPECT_EQ(rgba(owner->backgroundColor()).alpha, 0) << "the system's own background is cleared";
}

TEST_F(Background, TheVisualEffectViewDropsTheFlatColoursAlpha) {
    start("1", half_red);
    auto* view = effect();
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{1, 0, 0, 1}));
    expect_no_themed_view(view);
}

TEST_F(Background, AFlatColourWithoutColoursIsClear) {
    start("1", "");
    EXPECT_EQ(colour_in(backdrop()->activeBackgroundView()).alpha, 0);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 0, 1})) << "clear with its alpha replaced";
}

TEST_F(Background, AFlatColourIsTheFirstOfSeveral) {
    start("1", red_and_blue);
    EXPECT_EQ(colour_in(backdrop()->activeBackgroundView()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{1, 0, 0, 1}));
}

// ---- Gradient --------------------------------------------------------------------------------------------

class GradientBackground : public Background {
  protected:
    void start_with_direction(int direction) {
        start("2", red_and_blue,
              "<key>_GradientDirection</key><integer>" + std::to_string(direction) + "</integer>");
    }
    /// What `setDirection:` is sent when a backdrop is made, first by the themed view's own initialiser.
    static std::vector<NSInteger> passed_directions() {
        static std::vector<NSInteger> passed;
        passed.clear();
        stand_in("_UIBackdropGradientView",
                 "setDirection:", [](id, SEL, NSInteger direction) { passed.push_back(direction); });
        backdrop();
        return passed;
    }
};

TEST_F(GradientBackground, HasTheThemesColoursAndDirection) {
    start_with_direction(4);
    auto* owner = backdrop();
    UIView* themed = expect_installed(owner);
    EXPECT_EQ(class_of(themed), "_UIBackdropGradientView");
    auto* layer = variable<CAGradientLayer*>(themed, "gradientLayer");
    std::vector<Rgba> colours;
    for (NSUInteger i = 0; i < layer->colors()->count(); ++i)
        colours.push_back(
            rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(layer->colors()->objectAtIndex(i)))));
    EXPECT_EQ(colours, (std::vector<Rgba>{{1, 0, 0, 1}, {0, 0, 1, 1}}));
    EXPECT_EQ(layer->startPoint(), (CGPoint{0, 0.5}));
}

TEST_F(GradientBackground, ADirectionBeyondTheKnownOnesIsPassedOnUntouched) {
    start_with_direction(9);
    EXPECT_EQ(passed_directions(), (std::vector<NSInteger>{2, 9}));
}

TEST_F(GradientBackground, ANegativeDirectionIsPassedOnUntouched) {
    start_with_direction(-1);
    EXPECT_EQ(passed_directions(), (std::vector<NSInteger>{2, -1}));
}

TEST_F(GradientBackground, WithoutColoursReceivesExactlyOneColourClear) {
    static std::vector<double> alphas;
    start("2", "");
    stand_in("_UIBackdropGradientView", "setColors:", [](id, SEL, NSArray* colors) {
        for (NSUInteger i = 0; i < colors->count(); ++i)
            alphas.push_back(rgba(colors->objectAtIndex(i)).alpha);
    });
    backdrop();
    EXPECT_EQ(alphas, std::vector<double>{0.0});
}

TEST_F(GradientBackground, IsShownByItsAverageInTheVisualEffectView) {
    start("2", red_and_blue);
    auto* view = effect();
    const Rgba shown = rgba(view->backgroundColor());
    EXPECT_NEAR(shown.red, 0.5, 3 / 255.0);
    EXPECT_NEAR(shown.blue, 0.5, 3 / 255.0);
    EXPECT_EQ(shown.alpha, 1);
    expect_no_themed_view(view);
}

TEST_F(GradientBackground, ItsAverageIsShownOpaque) {
    start("2", red_and_blue);
    stand_in(
        "HCCITool", "averageColorForImage:", [](id, SEL, id) -> id { return color(1, 0, 0, 0.5); },
        Side::on_class);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{1, 0, 0, 1}));
}

TEST_F(GradientBackground, ItsAverageIsTakenAtTheSizeOfThePortraitKeyboard) {
    static std::vector<NSInteger> orientations;
    static std::vector<CGSize> sizes;
    start("2", red_and_blue);
    stand_in(
        "UIKeyboardImpl", "keyboardSizeForInterfaceOrientation:",
        [](id, SEL, NSInteger orientation) -> CGSize {
            orientations.push_back(orientation);
            return {375, 216};
        },
        Side::on_class);
    stand_in("_UIBackdropGradientView", "imageFromGradientOfSize:", [](id, SEL, CGSize size) -> id {
        sizes.push_back(size);
        return nullptr;
    });
    effect();
    EXPECT_EQ(orientations, std::vector<NSInteger>{1});
    EXPECT_EQ(sizes, (std::vector<CGSize>{{375, 216}}));
}

class EffectWithoutActiveView : public GradientBackground {
    void before_load() override {
        class_addMethod(objc_getClass("UIKBVisualEffectView"), sel_registerName("activeBackgroundView"),
                        reinterpret_cast<IMP>(+[](id, SEL) -> id { return nullptr; }), "@@:");
    }
};

TEST_F(EffectWithoutActiveView, ShowsTheAverageOfNoImage) {
    start("2", red_and_blue);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 0, 1}));
}

TEST_F(Background, ABackdropAsksForTheColoursAndThenForTheTypeOnceEach) {
    static std::vector<std::string> asked;
    start("0", red_and_blue);
    stand_in("HCPreferences", "getColors", [](id, SEL) -> id {
        asked.push_back("colours");
        return nullptr;
    });
    stand_in("HCPreferences", "getBackgroundType", [](id, SEL) -> NSUInteger {
        asked.push_back("type");
        return 1;
    });
    backdrop();
    EXPECT_EQ(asked, (std::vector<std::string>{"colours", "type"}));
}

// ---- Small views -----------------------------------------------------------------------------------------

TEST_F(Background, AKeysOwnBackdropShowsTheWholeTheme) {
    start("2", red_and_blue);
    auto key = UIKBTree::alloc()->initWithType(8);
    key->setName(text("Latin-Small-Letter-G"));
    auto view = UIKBBlurredKeyView::alloc()->initWithFrame({{0, 0}, {31, 42}}, nullptr, key);
    auto* backdrop = variable<UIKBBackdropView*>(view, "_backdropView");
    EXPECT_EQ(class_of(backdrop->activeBackgroundView()), "_UIBackdropGradientView");
    EXPECT_EQ(backdrop->activeBackgroundView()->bounds().size, (CGSize{31, 42}));
}

// ---- No background ---------------------------------------------------------------------------------------

TEST_F(Background, AnyOtherTypeGetsAClearBackdrop) {
    start("0", red_and_blue);
    auto* owner = backdrop();
    UIView* themed = expect_installed(owner);
    EXPECT_EQ(class_of(themed), "_UIBackdropColouredView");
    EXPECT_EQ(colour_in(themed).alpha, 0);
    auto* view = effect();
    EXPECT_EQ(rgba(view->backgroundColor()).alpha, 0);
    expect_no_themed_view(view);
}

TEST_F(Background, AnUnknownTypeIsLikeNone) {
    start("77", red_and_blue);
    EXPECT_EQ(class_of(backdrop()->activeBackgroundView()), "_UIBackdropColouredView");
}

TEST_F(Background, TheClearBackdropIsGivenTheClearColourAndFullAlpha) {
    static std::vector<double> alphas, colour_alphas;
    start("0", red_and_blue);
    stand_in("_UIBackdropColouredView",
             "setColor:", [](id, SEL, id colour) { colour_alphas.push_back(rgba(colour).alpha); });
    stand_in("_UIBackdropColouredView", "setAlpha:", [](id, SEL, double alpha) { alphas.push_back(alpha); });
    backdrop();
    EXPECT_EQ(colour_alphas, std::vector<double>{0.0});
    EXPECT_EQ(alphas, std::vector<double>{1.0});
}

// ---- Image -----------------------------------------------------------------------------------------------

TEST_F(Background, AnImageThemeWithoutAnImageIsTheAverageOfNothing) {
    start("3", "");
    EXPECT_EQ(rgba(backdrop()->backgroundColor()), (Rgba{0, 0, 0, 1}));
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 0, 1}));
}

class BackdropThatHasAView : public Background {
    void before_load() override {
        watch_initialising<[](UIKBBackdropView* made, CGRect, NSInteger) {
            made->setActiveBackgroundView(UIView::alloc()->init());
        }>("UIKBBackdropView");
    }
};

TEST_F(BackdropThatHasAView, ShowsItUnderAnImageTheme) {
    start("3", "");
    EXPECT_EQ(class_of(expect_installed(backdrop())), "UIView") << "which the theme does not replace";
}

TEST_F(BackdropThatHasAView, GivesItUpWhereItIsAVisualEffectViewUnderAnImageTheme) {
    start("3", "");
    expect_no_themed_view(effect());
}

class EffectWithAColourOfItsOwn : public Background {
    void before_load() override {
        watch_initialising<[](UIKBBackdropView* made, CGRect, NSInteger) {
            made->setBackgroundColor(color(0, 1, 0, 1));
        }>("UIKBVisualEffectView");
    }
};

TEST_F(EffectWithAColourOfItsOwn, GetsTheThemesWhateverTheBackground) {
    start("0", half_red);
    EXPECT_EQ(rgba(effect()->backgroundColor()).alpha, 0);
    set_type(1);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{1, 0, 0, 1}));
    set_type(3);
    EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 0, 0, 1})) << "the average of no image";
}

// ---- All of them -----------------------------------------------------------------------------------------

TEST_F(Background, EveryThemedViewIsMadeWithStyle2) {
    static std::vector<NSInteger> styles;
    static std::map<id, IMP> previous;
    start("1", half_red);
    for (const char* name : {"_UIBackdropColouredView", "_UIBackdropGradientView", "_UIBackdropImageView"})
        previous[class_named(name)] = stand_in(
            name, "backdropWithStyle:",
            [](id self, SEL selector, NSInteger style) -> id {
                styles.push_back(style);
                return call<id>(previous[self], self, selector, style);
            },
            Side::on_class);
    for (NSUInteger type : {0u, 1u, 2u}) {
        set_type(type);
        backdrop();
    }
    auto* view = input();
    styles.resize(3);  // those of its own pieces are made like the last one
    set_type(3);
    view->inputBackdropFullView();
    view->inputBackdropLeftView();
    view->inputBackdropRightView();
    EXPECT_EQ(styles, std::vector<NSInteger>(6, 2));
}

// ---- What the system is asked for, and what it answers ----------------------------------------------------

class AskedBackdrop : public Background {
    void before_load() override {
        watch_initialising<[](UIKBBackdropView*, CGRect frame, NSInteger style) {
            asked_for.emplace_back(frame, style);
        }>("UIKBBackdropView");
    }

  protected:
    static inline std::vector<std::pair<CGRect, NSInteger>> asked_for;
};

TEST_F(AskedBackdrop, TheSystemIsAskedForTheSameFrameAndStyle) {
    start("1", half_red);
    for (const char* name : {"UIKBBackdropView", "UIKBVisualEffectView"}) {
        asked_for.clear();
        constexpr CGRect frame{{5, 6}, {70, 80}};
        auto* view = static_cast<UIView*>(made<"initWithFrame:style:">(name, frame, NSInteger{3901}));
        EXPECT_EQ(view->frame(), frame) << name;
        EXPECT_EQ(asked_for, (std::vector<std::pair<CGRect, NSInteger>>{{frame, 3901}})) << name;
    }
}

TEST_F(Background, ABackdropThatCannotBeMadeIsNil) {
    auto none = [](id self, SEL, CGRect, NSInteger) -> id { return objc_release(self), nullptr; };
    arrange_theme(phone);
    phone.boot();
    for (const char* name : {"UIKBBackdropView", "UIKBVisualEffectView"})
        stand_in(name, "initWithFrame:style:", none);
    phone.load();
    EXPECT_EQ(styled("UIKBBackdropView"), nullptr);
    EXPECT_EQ(styled("UIKBVisualEffectView"), nullptr);
}

class AnotherBackdrop : public Background {
  protected:
    void before_load() override {
        instead = backdrop();
        auto answer_it = [](id self, SEL, CGRect, NSInteger) -> id {
            objc_release(self);
            return objc_retain(instead);
        };
        for (const char* name : {"UIKBBackdropView", "UIKBVisualEffectView"})
            stand_in(name, "initWithFrame:style:", answer_it);
    }
    static inline UIKBBackdropView* instead = nullptr;
};

TEST_F(AnotherBackdrop, ThatTheSystemAnswersIsTheOneThatIsThemed) {
    start("1", half_red);
    EXPECT_EQ(backdrop(), instead);
    expect_installed(instead);
    EXPECT_EQ(effect(), instead);
    EXPECT_EQ(rgba(instead->backgroundColor()), (Rgba{1, 0, 0, 1}));
    expect_no_themed_view(instead);
}

}  // namespace
}  // namespace test
