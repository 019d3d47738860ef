// Animations, on a clock that tests advance.
#include "platform/animation.h"

#include <cmath>

#include "screen_test.h"
#include "support/block.h"

namespace test {
namespace {

class Animations : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        view = add<UIView>({{0, 0}, {100, 100}});
        view->setBackgroundColor(color(1, 0, 0));
    }
    static void wait(double seconds) { ASSERT_EQ(sim_advance_clock(seconds), SIM_OK) << sim_last_error(); }
    CGPoint shown_position() { return view->layer()->presentationLayer()->position(); }
    double shown_opacity() { return view->layer()->presentationLayer()->opacity(); }
    CABasicAnimation* position_animation(CGPoint from, CGPoint to, double duration) {
        auto* animation = CABasicAnimation::animationWithKeyPath(text("position"));
        animation->setDuration(duration);
        animation->setFromValue(NSValue::valueWithCGPoint(from));
        animation->setToValue(NSValue::valueWithCGPoint(to));
        return animation;
    }

    UIView* view = nullptr;  // its middle is at (50, 50)
};

TEST_F(Animations, GoFromOneValueToAnotherAndLeaveTheLayerAsItIs) {
    view->layer()->addAnimation(position_animation({0, 0}, {100, 200}, 1), text("position"));
    EXPECT_EQ(shown_position(), (CGPoint{0, 0}));
    wait(0.25);
    EXPECT_EQ(shown_position(), (CGPoint{25, 50}));
    EXPECT_EQ(view->center(), (CGPoint{50, 50}));
    wait(0.75);
    EXPECT_EQ(shown_position(), (CGPoint{50, 50}));
    EXPECT_EQ(view->layer()->animationKeys(), nullptr);
}

TEST_F(Animations, AShakeGoesThereAndBackTwice) {
    auto* shake = position_animation({30, 50}, {70, 50}, 0.05);
    shake->setRepeatCount(2);
    shake->setAutoreverses(true);
    view->layer()->addAnimation(shake, text("position"));
    for (const double x : {50.0, 70.0, 50.0, 30.0, 50.0, 70.0, 50.0}) {
        wait(0.025);
        EXPECT_NEAR(shown_position().x, x, 1e-6);
    }
    EXPECT_EQ(view->layer()->animationForKey(text("position")), shake);
    wait(0.03);
    EXPECT_EQ(view->layer()->animationForKey(text("position")), nullptr);
    EXPECT_EQ(shown_position(), (CGPoint{50, 50}));
}

TEST_F(Animations, WithoutValuesGoBetweenWhatIsShownAndWhatTheLayerHas) {
    auto* fade = CABasicAnimation::animationWithKeyPath(text("opacity"));
    fade->setFromValue(NSNumber::numberWithFloat(0));
    view->layer()->addAnimation(fade, nullptr);
    wait(0.125);  // half of the usual quarter of a second
    EXPECT_NEAR(shown_opacity(), 0.5, 1e-6);
    auto* onwards = CABasicAnimation::animationWithKeyPath(text("opacity"));
    onwards->setToValue(NSNumber::numberWithFloat(0));
    onwards->setDuration(1);
    view->layer()->addAnimation(onwards, text("opacity"));
    EXPECT_NEAR(shown_opacity(), 0.5, 1e-6);
    wait(0.5);
    EXPECT_NEAR(shown_opacity(), 0.25, 1e-6);
}

TEST_F(Animations, AnotherOneOfTheSameKeyTakesItsPlace) {
    view->layer()->addAnimation(position_animation({0, 0}, {100, 0}, 1), text("a"));
    view->layer()->addAnimation(position_animation({0, 0}, {0, 100}, 1), text("a"));
    wait(0.5);
    EXPECT_EQ(shown_position(), (CGPoint{0, 50}));
    EXPECT_EQ(view->layer()->animationKeys()->count(), 1u);
    view->layer()->removeAnimationForKey(text("a"));
    EXPECT_EQ(shown_position(), (CGPoint{50, 50}));
}

TEST_F(Animations, BoundsAreAnimated) {
    auto* grow = CABasicAnimation::animationWithKeyPath(text("bounds"));
    grow->setFromValue(NSValue::valueWithCGRect({{0, 0}, {0, 0}}));
    grow->setDuration(1);
    view->layer()->addAnimation(grow, text("bounds"));
    wait(0.5);
    EXPECT_EQ(view->layer()->presentationLayer()->bounds().size, (CGSize{50, 50}));
}

TEST_F(Animations, ThatStayShowTheirLastValue) {
    auto* stay = position_animation({0, 0}, {100, 0}, 1);
    stay->setRemovedOnCompletion(false);
    stay->setFillMode(text("forwards"));
    view->layer()->addAnimation(stay, text("a"));
    wait(5);
    EXPECT_EQ(shown_position(), (CGPoint{100, 0}));
    view->layer()->removeAllAnimations();
    EXPECT_EQ(shown_position(), (CGPoint{50, 50}));
}

TEST_F(Animations, TellTheirDelegateOfBeginningAndEnd) {
    Class made = class_with(
        "AnimationDelegate", "NSObject",
        {own_method(
             "animationDidStart:", [](id, SEL, id) { heard().push_back("started"); }, "v@:@"),
         own_method(
             "animationDidStop:finished:",
             [](id, SEL, id, int finished) { heard().push_back(finished & 0xff ? "finished" : "stopped"); },
             "v@:@B")});
    auto delegate = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    auto* animation = position_animation({0, 0}, {100, 0}, 1);
    animation->setDelegate(delegate);
    view->layer()->addAnimation(animation, text("a"));
    wait(0.5);
    EXPECT_EQ(just_heard(), Heard{"started"});
    wait(0.5);
    EXPECT_EQ(just_heard(), Heard{"finished"});
    view->layer()->addAnimation(animation, text("a"));
    view->layer()->removeAllAnimations();
    wait(0);
    EXPECT_EQ(just_heard(), (Heard{"started", "stopped"}));
}

TEST_F(Animations, TimingFunctionsBendTheWay) {
    auto at_half = [&](const char* name) {
        auto* animation = position_animation({0, 0}, {100, 0}, 1);
        if (name) animation->setTimingFunction(CAMediaTimingFunction::functionWithName(text(name)));
        view->layer()->addAnimation(animation, text("a"));
        wait(0.25);
        const double x = shown_position().x;
        wait(1);
        return x;
    };
    EXPECT_NEAR(at_half(nullptr), 25, 1e-6);
    EXPECT_NEAR(at_half("linear"), 25, 1e-6);
    EXPECT_LT(at_half("easeIn"), 15);
    EXPECT_GT(at_half("easeOut"), 35);
    EXPECT_NEAR(at_half("easeInEaseOut"), 12.9, 0.1);
}

TEST_F(Animations, PicturesShowThemAsTheyAre) {
    root->setFrame({{0, 0}, {200, 100}});
    view->layer()->addAnimation(position_animation({50, 50}, {150, 50}, 1), text("a"));
    auto picture = [&] {
        EXPECT_EQ(sim_take_picture_of(root.get(), phone.host("/p.png").c_str(), 1), SIM_OK)
            << sim_last_error();
        return phone.read("/p.png");
    };
    const std::string at_start = picture();
    wait(0.5);
    const std::string halfway = picture();
    EXPECT_TRUE(at_start != halfway);
    wait(1);
    EXPECT_TRUE(picture() == at_start);
    view->setCenter({100, 50});
    EXPECT_TRUE(picture() == halfway);
}

// ---- Views ----

TEST_F(Animations, WhatABlockChangesIsShownBitByBit) {
    std::vector<bool> ends;
    Block changes([&](int) { view->setFrame({{100, 0}, {100, 200}}), view->setAlpha(0); });
    Block end([&](int finished) { ends.push_back(finished & 0xff); });
    UIView::animate(1, 0, UIViewAnimationOptionCurveLinear, changes, end);
    EXPECT_EQ(view->frame(), (CGRect{{100, 0}, {100, 200}})) << "the view has it at once";
    wait(0.5);
    EXPECT_EQ(shown_position(), (CGPoint{100, 75}));
    EXPECT_EQ(view->layer()->presentationLayer()->bounds().size, (CGSize{100, 150}));
    EXPECT_NEAR(shown_opacity(), 0.5, 1e-6);
    EXPECT_EQ(ends, std::vector<bool>{});
    wait(0.5);
    EXPECT_EQ(ends, std::vector<bool>{true});
    EXPECT_EQ(shown_position(), (CGPoint{150, 100}));
}

TEST_F(Animations, ADelayShowsWhatWasBefore) {
    Block changes([&](int) { view->setCenter({150, 50}); });
    UIView::animate(1, 0.5, UIViewAnimationOptionCurveLinear, changes, nullptr);
    wait(0.4);
    EXPECT_EQ(shown_position(), (CGPoint{50, 50}));
    wait(0.6);
    EXPECT_NEAR(shown_position().x, 100, 1e-6);
}

TEST_F(Animations, ASpringSwingsBeyondItsEndAndComesToRestThere) {
    Block changes([&](int) { view->setCenter({150, 50}); });
    bool ended = false;
    Block end([&](int) { ended = true; });
    UIView::animate(0.5, 0.5, 0.6, 0, UIViewAnimationOptionCurveLinear, changes, end);
    double furthest = 0, last = 50;
    bool has_turned = false;
    wait(0.5);
    for (int i = 0; i < 49; ++i) {
        wait(0.01);
        const double x = shown_position().x;
        has_turned = has_turned || x < last;
        furthest = std::max(furthest, x);
        last = x;
    }
    EXPECT_TRUE(has_turned);
    // The first swing of a spring with the ratio 0.6 overshoots by exp(-pi * 0.6 / 0.8).
    EXPECT_NEAR(furthest, 150 + 100 * std::exp(-M_PI * 0.75), 0.5);
    EXPECT_NEAR(last, 150, 0.5);
    EXPECT_FALSE(ended);
    wait(0.02);
    EXPECT_TRUE(ended);
    EXPECT_EQ(shown_position(), (CGPoint{150, 50}));
}

TEST_F(Animations, ADampingOfOneDoesNotSwingAndAVelocityHastens) {
    auto at_a_tenth = [&](double damping, double velocity) {
        view->setCenter({50, 50});
        Block changes([&](int) { view->setCenter({150, 50}); });
        UIView::animate(1, 0, damping, velocity, 0, changes, nullptr);
        wait(0.1);
        const double early = shown_position().x;
        wait(0.5);
        EXPECT_LE(shown_position().x, 150);
        wait(1);
        return early;
    };
    EXPECT_LT(at_a_tenth(1, 0), at_a_tenth(1, 3));
}

TEST_F(Animations, AnInterruptedOneDidNotFinish) {
    std::vector<bool> ends;
    Block there([&](int) { view->setCenter({150, 50}); }), back([&](int) { view->setCenter({50, 50}); });
    Block end([&](int finished) { ends.push_back(finished & 0xff); });
    UIView::animate(1, 0, UIViewAnimationOptionCurveLinear, there, end);
    wait(0.5);
    UIView::animate(1, 0, UIViewAnimationOptionCurveLinear, back, end);
    EXPECT_NEAR(shown_position().x, 100, 1e-6) << "it goes on from where it is shown";
    wait(0.5);
    EXPECT_EQ(ends, std::vector<bool>{false});
    EXPECT_NEAR(shown_position().x, 75, 1e-6);
    wait(0.5);
    EXPECT_EQ(ends, (std::vector<bool>{false, true}));
}

TEST_F(Animations, WithoutDurationOrChangesTheEndIsToldWhenTheClockGoesOn) {
    int ends = 0;
    Block changes([&](int) { view->setCenter({150, 50}); }), none([](int) {});
    Block end([&](int finished) { ends += finished & 0xff; });
    UIView::animate(0, 0, 0, changes, end);
    UIView::animate(1, 0, 0, none, end);
    EXPECT_EQ(shown_position(), (CGPoint{150, 50}));
    EXPECT_EQ(ends, 0);
    wait(0);
    EXPECT_EQ(ends, 2);
}

TEST_F(Animations, EndsAreToldInOrderEachAtItsTime) {
    Block first([&](int) { view->setCenter({150, 50}); }), second([&](int) { view->setAlpha(0); });
    Block second_end([&](int) { heard().push_back("second"); });
    Block first_end([&](int) {
        heard().push_back("first");
        UIView::animate(1, 0, 0, second, second_end);
    });
    UIView::animate(1, 0, 0, first, first_end);
    wait(1.5);
    EXPECT_EQ(just_heard(), Heard{"first"});
    EXPECT_NEAR(shown_opacity(), 0.5, 1e-3) << "it began when the first one ended";
    wait(0.5);
    EXPECT_EQ(just_heard(), Heard{"second"});
}

TEST_F(Animations, AViewThatGoesEndsItsAnimations) {
    bool finished = true;
    Block end([&](int value) { finished = value & 0xff; });
    {
        objc::AutoreleasePool pool;
        UIView* leaving = add<UIView>({{0, 0}, {10, 10}});
        Block changes([&](int) { leaving->setCenter({150, 50}); });
        UIView::animate(1, 0, 0, changes, end);
        leaving->removeFromSuperview();
    }
    wait(0);
    EXPECT_FALSE(finished);
}

TEST_F(Animations, NothingIsAnimatedWithoutABlockOrWhenThatIsSwitchedOff) {
    view->setCenter({150, 50});
    EXPECT_EQ(view->layer()->animationKeys(), nullptr);
    UIView::class_send<"setAnimationsEnabled:">(false);
    Block changes([&](int) { view->setCenter({50, 50}); });
    UIView::animate(1, 0, 0, changes, nullptr);
    UIView::class_send<"setAnimationsEnabled:">(true);
    EXPECT_EQ(view->layer()->animationKeys(), nullptr);
    Block inner([&](int) { view->setAlpha(0.5); });
    Block outer([&](int) {
        UIView::class_send<"performWithoutAnimation:">(static_cast<id>(inner));
        view->setCenter({150, 50});
    });
    UIView::animate(1, 0, 0, outer, nullptr);
    EXPECT_EQ(view->layer()->animationKeys()->count(), 1u);
}

TEST_F(Animations, TimeGoesForwards) {
    EXPECT_EQ(sim_advance_clock(-1), SIM_MISUSE);
    EXPECT_EQ(sim_advance_clock(NAN), SIM_MISUSE);
    EXPECT_EQ(sim_advance_clock(1e10), SIM_MISUSE);
}

TEST_F(Animations, ACircleOfEndsWithoutTimeIsRefused) {
    static Block* again;
    Block none([](int) {});
    Block circle([&](int) { UIView::animate(0, 0, 0, none, *again); });
    again = &circle;
    UIView::animate(0, 0, 0, none, circle);
    EXPECT_EQ(sim_advance_clock(1), SIM_FAILED);
    EXPECT_STREQ(sim_last_error(), "sim_advance_clock: animations end and begin again without time passing");
    Block nothing([](int) {});
    again = &nothing;
    wait(1);
}

}  // namespace
}  // namespace test
