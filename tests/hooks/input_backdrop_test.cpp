// The pieces of the input backdrop: the theme's image behind them, and what takes it away.
#include <array>

#include "hooks/background_test.h"

namespace test {
namespace {

class ImageBackground : public Background {
  protected:
    void start_with_alpha(const char* alpha) {
        start("3", "", std::string("<key>_ImageAlpha</key>") + alpha);
        objc::send<"setImageData:">(active_theme(), filled_image(color(0, 0, 1), 12, 9));
        id store = objc::send<"sharedInstance", id>(class_named("HCPreferences"));
        objc::send<"getImage", id>(store);  // the first answer is nothing
        image = objc::send<"getImage", UIImage*>(store);
        ASSERT_NE(image, nullptr);
    }
    static UIImage* shown_in(UIKBBackdropView* piece) {
        return variable<UIImageView*>(piece->activeBackgroundView(), "imageView")->image();
    }
    UIImage* image = nullptr;
};

TEST_F(ImageBackground, ABackdropCarriesTheAverageColourOnly) {
    start_with_alpha("<real>0.5</real>");
    auto* owner = backdrop();
    expect_no_themed_view(owner);
    EXPECT_EQ(rgba(owner->backgroundColor()), (Rgba{0, 0, 1, 0.5}));
    auto* view = effect();
    expect_no_themed_view(view);
    EXPECT_EQ(rgba(view->backgroundColor()), (Rgba{0, 0, 1, 0.5}));
}

TEST_F(ImageBackground, AnImagesAverageIsWorkedOutOnceAndAnotherImagesAnew) {
    static int asked = 0;
    start_with_alpha("<real>0.5</real>");
    stand_in(
        "HCCITool", "averageColorForImage:",
        [](id, SEL, id) -> id { return ++asked == 1 ? color(0, 1, 0, 1) : color(1, 0, 0, 1); },
        Side::on_class);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rgba(backdrop()->backgroundColor()), (Rgba{0, 1, 0, 0.5}));
        EXPECT_EQ(rgba(effect()->backgroundColor()), (Rgba{0, 1, 0, 0.5}));
    }
    EXPECT_EQ(asked, 1);

    objc::send<"setImageAlpha:">(active_theme(), 0.25);
    EXPECT_EQ(rgba(backdrop()->backgroundColor()), (Rgba{0, 1, 0, 0.25}));
    stand_in("HCPreferences", "getImage", [](id, SEL) -> id { return filled_image(color(1, 0, 0), 2, 2); });
    EXPECT_EQ(rgba(backdrop()->backgroundColor()), (Rgba{1, 0, 0, 0.25}));
    EXPECT_EQ(asked, 2);
}

TEST_F(ImageBackground, EachPieceShowsTheImage) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    for (auto* piece :
         {view->inputBackdropFullView(), view->inputBackdropLeftView(), view->inputBackdropRightView()}) {
        ASSERT_NE(piece, nullptr);
        EXPECT_EQ(class_of(expect_installed(piece)), "_UIBackdropImageView");
        EXPECT_EQ(shown_in(piece), image);
        EXPECT_EQ(rgba(piece->backgroundColor()).alpha, 0);
    }
}

TEST_F(ImageBackground, PiecesThatTheSystemHasNotMadeStayNil) {
    start_with_alpha("<real>1.0</real>");
    auto* view = unsplit_input();
    EXPECT_EQ(raised_by([&] {
                  EXPECT_EQ(view->inputBackdropLeftView(), nullptr);
                  EXPECT_EQ(view->inputBackdropRightView(), nullptr);
              }),
              "");
}

TEST_F(ImageBackground, FetchingAPieceTwiceAddsOneImageOnly) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    auto* piece = view->inputBackdropLeftView();
    EXPECT_EQ(piece->contentView()->subviews()->count(), 1u);
    UIView* themed = piece->activeBackgroundView();
    EXPECT_EQ(view->inputBackdropLeftView()->activeBackgroundView(), themed);
    EXPECT_EQ(piece->contentView()->subviews()->count(), 1u);
}

TEST_F(ImageBackground, AnImageThatIsShownIsNotRefreshed) {
    start_with_alpha("<real>1.0</real>");
    auto* view = input();
    view->inputBackdropFullView();
    stand_in("HCPreferences", "getImage", [](id, SEL) -> id { return filled_image(color(1, 0, 0), 2, 2); });
    EXPECT_EQ(shown_in(view->inputBackdropFullView()), image);
    EXPECT_EQ(shown_in(input()->inputBackdropFullView())->size(), (CGSize{2, 2})) << "a piece made later";
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

TEST_F(ImageBackground, APieceThatHoldsAKindOfImageBackdropKeepsIt) {
    start_with_alpha("<real>1.0</real>");
    objc_registerClassPair(
        objc_allocateClassPair(objc_getClass("_UIBackdropImageView"), "HCKindOfImageView", 0));
    auto* view = input();
    auto* piece = view->inputBackdropFullView();
    auto* kind = objc::send<"backdropWithStyle:", UIView*>(class_named("HCKindOfImageView"), NSInteger{2});
    EXPECT_EQ(class_of(kind), "HCKindOfImageView");
    piece->setActiveBackgroundView(kind);
    EXPECT_EQ(view->inputBackdropFullView()->activeBackgroundView(), kind);
}

TEST_F(Background, AnImageThemeWithoutAnImageShowsNoneInThePieces) {
    start("3", "");
    auto* piece = input()->inputBackdropFullView();
    EXPECT_EQ(class_of(piece->activeBackgroundView()), "_UIBackdropImageView");
    EXPECT_EQ(variable<UIImageView*>(piece->activeBackgroundView(), "imageView")->image(), nullptr);
}

TEST_F(Background, OtherTypesLeaveThePiecesUntouched) {
    start("2", red_and_blue);
    for (NSUInteger type : {0u, 1u, 2u, 4u}) {
        set_type(type);
        auto* view = input();
        const auto pieces = [view] {
            return std::array{view->inputBackdropFullView(), view->inputBackdropLeftView(),
                              view->inputBackdropRightView()};
        };
        for (auto* piece : pieces()) {
            ASSERT_NE(piece, nullptr);
            UIView* themed = piece->activeBackgroundView();  // made with the piece itself
            piece->setBackgroundColor(color(1, 0, 0));
            pieces();
            EXPECT_EQ(class_of(themed), type == 2 ? "_UIBackdropGradientView" : "_UIBackdropColouredView");
            EXPECT_EQ(piece->activeBackgroundView(), themed) << type;
            EXPECT_EQ(piece->contentView()->subviews()->count(), 1u) << type;
            EXPECT_EQ(rgba(piece->backgroundColor()), (Rgba{1, 0, 0, 1})) << type;
        }
    }
}

class ImageBackgroundWithoutLeftPiece : public ImageBackground {
    void before_load() override {
        stand_in("UIKBInputBackdropView", "inputBackdropLeftView", [](id, SEL) -> id { return nullptr; });
    }
};

TEST_F(ImageBackgroundWithoutLeftPiece, ThePieceStaysNil) {
    start_with_alpha("<real>1.0</real>");
    UIKBBackdropView* piece = nullptr;
    EXPECT_EQ(raised_by([&] { piece = input()->inputBackdropLeftView(); }), "");
    EXPECT_EQ(piece, nullptr);
}

// ---- The image's alpha -----------------------------------------------------------------------------------

class ImageAlpha : public ImageBackground {
  protected:
    /// The alphas that `setImageAlpha:` is sent when a piece is made, after the one of its own initialiser.
    std::vector<double> alphas_of_piece(const char* alpha) {
        static std::vector<double> seen;
        start_with_alpha(alpha);
        stand_in("_UIBackdropImageView",
                 "setImageAlpha:", [](id, SEL, double value) { seen.push_back(value); });
        unsplit_input()->inputBackdropFullView();
        if (seen.empty()) {
            ADD_FAILURE() << "backdropWithStyle: sends its own alpha";
            return {};
        }
        EXPECT_EQ(seen.front(), 0.0);
        return {seen.begin() + 1, seen.end()};
    }
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
TEST_F(ImageAlpha, ATranslucentOneIsInTheImageThatIsShown) {
    start_with_alpha("<real>0.5</real>");
    UIImage* shown = shown_in(input()->inputBackdropFullView());
    EXPECT_NE(shown, image);
    id average = objc::send<"averageColorWithAlphaForImage:", id>(class_named("HCCITool"), shown);
    EXPECT_NEAR(rgba(average).alpha, 0.5, 1 / 255.0);
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

// ---- Stripping -------------------------------------------------------------------------------------------

class Stripping : public ImageBackground {
  protected:
    void SetUp() override {
        start_with_alpha("<real>1.0</real>");
        parent = objc::adopt(objc::send<"new", UIView*>(class_named("UIView")));
        view = input();
        parent->addSubview(view);
    }
    static void answer_init_for_ucb(Class type) {
        class_addMethod(type, sel_registerName("initForUCB:"),
                        reinterpret_cast<IMP>(+[](id self, SEL, int) { return self; }), "@20@0:8B16");
    }
    static UIView* sibling_that_answers() {
        static Class type = [] {
            Class made = objc_allocateClassPair(objc_getClass("UIView"), "HCSiblingView", 0);
            answer_init_for_ucb(made);
            objc_registerClassPair(made);
            return made;
        }();
        return objc::send<"new", objc::strong<UIView>>(reinterpret_cast<id>(type)).autoreleased();
    }
    std::vector<UIKBBackdropView*> pieces() {
        return {view->inputBackdropFullView(), view->inputBackdropLeftView(), view->inputBackdropRightView()};
    }
    /// Lays out, and expects the pieces to be without the views that they had.
    void expect_layout_strips_every_piece() {
        std::vector<objc::strong<UIView>> themed;
        for (auto* piece : pieces()) themed.emplace_back(piece->activeBackgroundView());
        const auto owners = pieces();
        view->layoutSubviews();
        for (const auto& each : themed) {
            ASSERT_NE(each.get(), nullptr);
            EXPECT_EQ(each->superview(), nullptr);
        }
        for (auto* piece : owners) EXPECT_EQ(piece->activeBackgroundView(), nullptr);
    }
    objc::strong<UIView> parent;
    UIKBInputBackdropView* view = nullptr;
};

TEST_F(Stripping, ASiblingThatAnswersStripsEveryPiece) {
    parent->addSubview(sibling_that_answers());
    expect_layout_strips_every_piece();
}

TEST_F(Stripping, TheReceiverItselfMayAnswer) {
    answer_init_for_ucb(objc_getClass("UIKBInputBackdropView"));
    expect_layout_strips_every_piece();
}

TEST_F(Stripping, WithoutSuchASiblingNothingIsStripped) {
    parent->addSubview(objc::adopt(objc::send<"new", UIView*>(class_named("UIView"))));
    const auto owners = pieces();
    view->layoutSubviews();
    for (auto* piece : owners) expect_installed(piece);
}

TEST_F(Stripping, WithoutASuperviewNothingIsStripped) {
    answer_init_for_ucb(objc_getClass("UIKBInputBackdropView"));
    const auto owners = pieces();
    view->removeFromSuperview();
    view->layoutSubviews();
    for (auto* piece : owners) expect_installed(piece);
}

class StrippingAfterTheSystem : public Stripping {
  protected:
    void before_load() override {
        stand_in("UIKBInputBackdropView", "layoutSubviews", [](id self, SEL) {
            auto* piece = static_cast<UIKBInputBackdropView*>(self)->inputBackdropFullView();
            laid_out.push_back(class_of(piece->activeBackgroundView()));
        });
    }
    static inline std::vector<std::string> laid_out;
};

TEST_F(StrippingAfterTheSystem, ThePiecesAreLaidOutOnceAndWithTheirImages) {
    parent->addSubview(sibling_that_answers());
    expect_layout_strips_every_piece();
    EXPECT_EQ(laid_out, std::vector<std::string>{"_UIBackdropImageView"});
}

TEST_F(Stripping, EachMatchingSiblingFetchesAndStripsEachPieceOnce) {
    static std::vector<std::string> fetched;
    static std::vector<id> stripped;
    static IMP full, left, right;
    const auto owners = pieces();
    full = stand_in("UIKBInputBackdropView", "inputBackdropFullView", [](id self, SEL selector) -> id {
        fetched.push_back("full");
        return call<id>(full, self, selector);
    });
    left = stand_in("UIKBInputBackdropView", "inputBackdropLeftView", [](id self, SEL selector) -> id {
        fetched.push_back("left");
        return call<id>(left, self, selector);
    });
    right = stand_in("UIKBInputBackdropView", "inputBackdropRightView", [](id self, SEL selector) -> id {
        fetched.push_back("right");
        return call<id>(right, self, selector);
    });
    stand_in("UIKBInputBackdropView",
             "removeKBBackdropEffects:", [](id, SEL, id piece) { stripped.push_back(piece); });
    parent->addSubview(sibling_that_answers());
    parent->addSubview(sibling_that_answers());
    view->layoutSubviews();
    EXPECT_EQ(fetched, (std::vector<std::string>{"full", "left", "right", "full", "left", "right"}));
    EXPECT_EQ(stripped, (std::vector<id>{owners[0], owners[1], owners[2], owners[0], owners[1], owners[2]}));
}

TEST_F(Stripping, APieceThatTheSystemDoesNotHaveIsSkipped) {
    static std::vector<id> stripped;
    const auto owners = pieces();
    stand_in("UIKBInputBackdropView", "inputBackdropLeftView", [](id, SEL) -> id { return nullptr; });
    stand_in("UIKBInputBackdropView",
             "removeKBBackdropEffects:", [](id, SEL, id piece) { stripped.push_back(piece); });
    parent->addSubview(sibling_that_answers());
    view->layoutSubviews();
    EXPECT_EQ(stripped, (std::vector<id>{owners[0], owners[2]}));
}

TEST_F(Stripping, APlainViewIsLeftAlone) {
    auto plain = objc::adopt(objc::send<"new", UIView*>(class_named("UIView")));
    parent->addSubview(plain);
    EXPECT_EQ(raised_by([&] { view->removeKBBackdropEffects(plain); }), "");
    EXPECT_EQ(plain->superview(), parent.get());
    EXPECT_EQ(raised_by([&] { view->removeKBBackdropEffects(nullptr); }), "");
}

TEST_F(Stripping, ABackdropGivesItsThemedViewUpAndThenHasNoneToGive) {
    auto* piece = view->inputBackdropFullView();
    objc::strong<UIView> themed = piece->activeBackgroundView();
    view->removeKBBackdropEffects(piece);
    EXPECT_EQ(piece->activeBackgroundView(), nullptr);
    EXPECT_EQ(themed->superview(), nullptr);
    EXPECT_EQ(raised_by([&] { view->removeKBBackdropEffects(piece); }), "");
    EXPECT_EQ(piece->activeBackgroundView(), nullptr);
}

TEST_F(Stripping, AnyKindOfBackdropGivesItsThemedViewUp) {
    auto* kind = effect();
    kind->setActiveBackgroundView(static_cast<UIView*>(made("UIView")));
    view->removeKBBackdropEffects(kind);
    EXPECT_EQ(kind->activeBackgroundView(), nullptr);
}

}  // namespace
}  // namespace test
