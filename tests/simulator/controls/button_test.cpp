// Buttons: titles, colours and images per state, and where they stand.
#include "screen_test.h"

namespace test {
namespace {

class Buttons : public Screen {
  protected:
    UIButton* add_button(UIButtonType type, CGRect frame) {
        UIButton* button = UIButton::buttonWithType(type);
        button->setFrame(frame);
        root->addSubview(button);
        return button;
    }
    static Rgba title_colour(UIButton* button) { return rgba(button->titleLabel()->textColor()); }
};

TEST_F(Buttons, TitlesAndColoursOfAStateFallBackToTheNormalOnes) {
    UIButton* button = add_button(UIButtonTypeCustom, {{10, 10}, {100, 40}});
    EXPECT_EQ(button->currentTitle(), nullptr);
    EXPECT_EQ(rgba(button->currentTitleColor()), (Rgba{1, 1, 1, 1}));
    button->setTitle(text("X"), UIControlStateNormal);
    button->setTitleColor(color(1, 0, 0), UIControlStateNormal);
    button->setTitleColor(color(1, 0, 0, 0.5), UIControlStateHighlighted);
    EXPECT_EQ(utf8(button->titleLabel()->text()), "X");
    EXPECT_EQ(title_colour(button), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(utf8(button->titleForState(UIControlStateHighlighted)), "X");
    press(20, 20);
    EXPECT_EQ(title_colour(button), (Rgba{1, 0, 0, 0.5}));
    EXPECT_EQ(button->titleLabel()->alpha(), 1);
    lift(20, 20);
    EXPECT_EQ(title_colour(button), (Rgba{1, 0, 0, 1}));
    button->setTitle(text("off"), UIControlStateDisabled);
    button->setEnabled(false);
    EXPECT_EQ(utf8(button->currentTitle()), "off");
    EXPECT_EQ(utf8(button->titleLabel()->text()), "off");
}

TEST_F(Buttons, ATitleTakenAwayIsNotShown) {
    UIButton* button = add_button(UIButtonTypeCustom, {{10, 10}, {100, 40}});
    button->setTitle(text("X"), UIControlStateNormal);
    button->setTitle(nullptr, UIControlStateNormal);
    EXPECT_EQ(button->currentTitle(), nullptr);
    EXPECT_EQ(button->titleLabel()->text(), nullptr);
}

TEST_F(Buttons, ACustomTitleIsOfEighteenPointsAndASystemOneOfFifteen) {
    EXPECT_EQ(UIButton::buttonWithType(UIButtonTypeCustom)->titleLabel()->font()->pointSize(), 18);
    EXPECT_EQ(UIButton::buttonWithType(UIButtonTypeSystem)->titleLabel()->font()->pointSize(), 15);
    EXPECT_EQ(utf8(UIButton::buttonWithType(UIButtonTypeCustom)->titleLabel()->font()->fontName()),
              ".SFUIText");
}

TEST_F(Buttons, ASystemTitleHasTheTintColourAndFadesWhilePressed) {
    UIButton* button = add_button(UIButtonTypeSystem, {{10, 10}, {100, 40}});
    button->setTitle(text("Done"), UIControlStateNormal);
    button->setTintColor(color(0, 1, 0));
    EXPECT_EQ(title_colour(button), (Rgba{0, 1, 0, 1}));
    press(20, 20);
    EXPECT_NEAR(button->titleLabel()->alpha(), 0.2, 1e-6);
    lift(20, 20);
    EXPECT_EQ(button->titleLabel()->alpha(), 1);
}

TEST_F(Buttons, ASystemImageIsATemplateAndACustomOneIsAsItIs) {
    UIImage* image = filled_image(color(1, 0, 0), 20, 20);
    UIButton* system = add_button(UIButtonTypeSystem, {{0, 0}, {30, 40}});
    system->setImage(image, UIControlStateNormal);
    EXPECT_EQ(system->currentImage(), image);
    EXPECT_EQ(system->imageView()->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    UIButton* custom = add_button(UIButtonTypeCustom, {{0, 0}, {30, 40}});
    custom->setImage(image, UIControlStateNormal);
    EXPECT_EQ(custom->imageView()->image(), image);
}

TEST_F(Buttons, APressedImageIsDarkenedUnlessThereIsAnotherOrNoneIsWanted) {
    UIButton* button = add_button(UIButtonTypeCustom, {{0, 0}, {30, 40}});
    button->setImage(filled_image(color(1, 0, 0), 20, 20), UIControlStateNormal);
    auto is_dark = [&] {
        button->setHighlighted(true);
        const bool dark = button->imageView()->layer()->contentsMultiplyColor();
        button->setHighlighted(false);
        EXPECT_FALSE(button->imageView()->layer()->contentsMultiplyColor());
        return dark;
    };
    EXPECT_TRUE(is_dark());
    button->setAdjustsImageWhenHighlighted(false);
    EXPECT_FALSE(is_dark());
    button->setAdjustsImageWhenHighlighted(true);
    button->setImage(filled_image(color(0, 1, 0), 20, 20), UIControlStateHighlighted);
    EXPECT_FALSE(is_dark());
}

TEST_F(Buttons, TheImageStandsLeftOfTheTitleAndBothInTheMiddle) {
    UIButton* button = add_button(UIButtonTypeCustom, {{0, 0}, {200, 40}});
    button->setImage(filled_image(color(1, 0, 0), 20, 10), UIControlStateNormal);
    button->setTitle(text("title"), UIControlStateNormal);
    button->layoutIfNeeded();
    const CGRect image = button->imageView()->frame(), title = button->titleLabel()->frame();
    EXPECT_EQ(image.size, (CGSize{20, 10}));
    EXPECT_EQ(image.origin.y, 15);
    EXPECT_EQ(title.origin.x, image.origin.x + 20);
    EXPECT_NEAR(image.origin.x, 200 - title.origin.x - title.size.width, 0.51);
    EXPECT_NEAR(title.origin.y + title.size.height / 2, 20, 0.51);
}

TEST_F(Buttons, AnImageThatIsTooLargeIsMadeToFit) {
    UIButton* button = add_button(UIButtonTypeCustom, {{0, 0}, {30, 40}});
    button->setImage(filled_image(color(1, 0, 0), 100, 20), UIControlStateNormal);
    button->layoutIfNeeded();
    EXPECT_EQ(button->imageView()->frame(), (CGRect{{0, 10}, {30, 20}}));
    button->setContentEdgeInsets({5, 5, 25, 5});
    button->layoutIfNeeded();
    EXPECT_EQ(button->imageView()->frame(), (CGRect{{5, 5}, {20, 10}}));
}

TEST_F(Buttons, ABackgroundImageFillsTheButtonBehindTheTitle) {
    UIButton* button = add_button(UIButtonTypeCustom, {{0, 0}, {100, 40}});
    button->setTitle(text("X"), UIControlStateNormal);
    UIImage* image = filled_image(color(0, 0, 1), 2, 2);
    button->setBackgroundImage(image, UIControlStateNormal);
    button->layoutIfNeeded();
    auto* background = static_cast<UIImageView*>(button->subviews()->objectAtIndex(0));
    EXPECT_EQ(background->image(), image);
    EXPECT_EQ(background->frame(), button->bounds());
}

TEST_F(Buttons, FitTheirContent) {
    UIButton* button = add_button(UIButtonTypeSystem, {{0, 0}, {100, 40}});
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{0, 0}));
    button->setTitle(text("I"), UIControlStateNormal);
    const CGSize title = button->titleLabel()->sizeThatFits({});
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{30, title.height + 12}));
    button->setTitle(nullptr, UIControlStateNormal);
    button->setImage(filled_image(color(1, 0, 0), 22, 21), UIControlStateNormal);
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{22, 21}));
}

TEST_F(Buttons, FitTheirContentAndTheInsetsAroundIt) {
    UIButton* button = add_button(UIButtonTypeSystem, {{0, 0}, {100, 40}});
    button->setContentEdgeInsets({1, 2, 4, 8});
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{10, 5}));
    button->setTitle(text("I"), UIControlStateNormal);
    const CGSize title = button->titleLabel()->sizeThatFits({});
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{40, title.height + 5}));
    button->setTitle(nullptr, UIControlStateNormal);
    button->setImage(filled_image(color(1, 0, 0), 22, 21), UIControlStateNormal);
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{32, 26}));
}

TEST_F(Buttons, ATouchOnTheTitleIsTheButtons) {
    UIButton* button = add_button(UIButtonTypeCustom, {{100, 100}, {100, 40}});
    button->setTitle(text("press"), UIControlStateNormal);
    auto target = recording_target();
    button->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    tap(150, 120);
    EXPECT_EQ(just_heard(), Heard{"pressed"});
}

}  // namespace
}  // namespace test
