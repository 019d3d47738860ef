// Sliders: the value, and the knob that changes it.
#include "screen_test.h"

namespace test {
namespace {

class Sliders : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        slider = add<UISlider>({{100, 100}, {131, 31}});  // the knob's middle goes 100 points
        slider->setTag(4);
        target = recording_target();
        slider->addTarget(target, sel("pressedBy:"), UIControlEventValueChanged);
    }
    void TearDown() override {
        target = nullptr;
        Screen::TearDown();
    }
    UISlider* slider = nullptr;
    objc::strong<NSObject> target;
};

TEST_F(Sliders, GoFromZeroToOne) {
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(slider->minimumValue(), 0);
    EXPECT_EQ(slider->maximumValue(), 1);
    slider->setValue(2);
    EXPECT_EQ(slider->value(), 1);
    slider->setValue(-1);
    EXPECT_EQ(slider->value(), 0);
    slider->setValue(0.1f, true);
    EXPECT_EQ(slider->value(), 0.1f) << "a single-precision value";
}

TEST_F(Sliders, AChangedRangeKeepsTheValueInside) {
    slider->setValue(0.5f);
    slider->setMinimumValue(0.75f);
    EXPECT_EQ(slider->value(), 0.75f);
    slider->setMinimumValue(3);
    EXPECT_EQ(slider->maximumValue(), 3);
    slider->setMaximumValue(-1);
    EXPECT_EQ(slider->minimumValue(), -1);
    EXPECT_EQ(slider->value(), -1);
}

TEST_F(Sliders, SettingTheValueTellsNobody) {
    slider->setValue(0.5f);
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Sliders, TheKnobIsDraggedFromWhereItIsHeld) {
    slider->setValue(0.5f);
    press(170, 115);  // 4.5 right of the middle
    EXPECT_EQ(just_heard(), Heard{});
    move(195, 300);
    EXPECT_FLOAT_EQ(slider->value(), 0.75f);
    EXPECT_EQ(just_heard(), Heard{"pressedBy 4"});
    move(195, 115);
    EXPECT_EQ(just_heard(), Heard{}) << "nothing has changed";
    move(350, 115);
    EXPECT_EQ(slider->value(), 1);
    move(1, 115);
    EXPECT_EQ(slider->value(), 0);
    lift(1, 115);
    EXPECT_EQ(just_heard(), (Heard{"pressedBy 4", "pressedBy 4"}));
}

TEST_F(Sliders, ATapOnTheTrackOrTheKnobChangesNothing) {
    slider->setValue(0.5f);
    tap(220, 115);
    tap(166, 115);
    press(220, 115);
    move(120, 115);
    lift(120, 115);
    EXPECT_EQ(slider->value(), 0.5f);
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Sliders, OneThatIsNotContinuousTellsOnceAtTheEnd) {
    slider->setContinuous(false);
    press(115, 115);
    move(150, 115);
    move(160, 115);
    EXPECT_EQ(just_heard(), Heard{});
    lift(160, 115);
    EXPECT_EQ(just_heard(), Heard{"pressedBy 4"});
    tap(160, 115);
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Sliders, AKnobThatReachesOutOfALowSliderIsTakenHoldOf) {
    auto* low = add<UISlider>({{100, 200}, {131, 20}});
    low->setValue(0.5f);
    press(165, 197);
    move(175, 197);
    lift(175, 197);
    EXPECT_GT(low->value(), 0.5f);
}

TEST_F(Sliders, TheKnobGoesFromEdgeToEdge) {
    const CGRect bounds = slider->bounds(), track = slider->trackRectForBounds(bounds);
    EXPECT_EQ(track, (CGRect{{2, 14.5}, {127, 2}}));
    EXPECT_EQ(slider->thumbRectForBounds(bounds, track, 0), (CGRect{{0, 0}, {31, 31}}));
    EXPECT_EQ(slider->thumbRectForBounds(bounds, track, 1), (CGRect{{100, 0}, {31, 31}}));
    EXPECT_EQ(slider->intrinsicContentSize(), (CGSize{-1, 31}));
}

TEST_F(Sliders, KeepTheirTrackColours) {
    EXPECT_EQ(slider->minimumTrackTintColor(), nullptr);
    slider->setMinimumTrackTintColor(color(1, 0, 0));
    slider->setMaximumTrackTintColor(UIColor::clearColor());
    EXPECT_EQ(rgba(slider->minimumTrackTintColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(rgba(slider->maximumTrackTintColor()).alpha, 0);
}

}  // namespace
}  // namespace test
