// Gesture recognisers: what they recognise, who has to give way, and what views hear then.
#include "page_test.h"

namespace test {
namespace {

using objc::strong;

std::string number(double value) {
    std::string digits = std::to_string(value);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.ends_with('.')) digits.pop_back();
    return digits;
}

std::string state(UIGestureRecognizer* recogniser) {
    static constexpr const char* names[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
    return names[recogniser->state()];
}

class Gestures : public Pages {
  protected:
    void SetUp() override {
        Pages::SetUp();
        root = page("Page");
        view = touch_recording_view({{0, 0}, {200, 200}}, 1);
        root->view()->addSubview(view);
        present(root);
        target = object_of(
            "GestureTarget", "NSObject",
            {method("panned:", "v@:@",
                    [](id, SEL, id sender) {
                        auto* pan = static_cast<UIPanGestureRecognizer*>(sender);
                        const CGPoint way = pan->translationInView(pan->view());
                        heard().push_back("pan " + state(pan) + " " + number(way.x) + " " + number(way.y));
                    }),
             method("pinched:", "v@:@",
                    [](id, SEL, id sender) {
                        auto* pinch = static_cast<UIPinchGestureRecognizer*>(sender);
                        heard().push_back("pinch " + state(pinch) + " " + number(pinch->scale()));
                    }),
             method("recognised:", "v@:@", [](id, SEL, id sender) {
                 heard().push_back(std::string(object_getClassName(sender)) + " " +
                                   state(static_cast<UIGestureRecognizer*>(sender)));
             })});
    }
    template <class Recogniser>
    strong<Recogniser> add(const char* action) {
        auto made = objc::adopt(
            static_cast<Recogniser*>(Recogniser::alloc()->initWithTarget(target, sel(action)).leak()));
        view->addGestureRecognizer(made);
        return made;
    }
    static void touch_two(sim_touch_phase phase, double x1, double x2) {
        ASSERT_EQ(sim_touch_two(phase, x1, 100, x2, 100), SIM_OK) << sim_last_error();
    }
    strong<UIViewController> root;
    strong<UIView> view;
    strong<NSObject> target;
};

TEST_F(Gestures, APanTakesTheTouchOnceItHasGoneFar) {
    auto pan = add<UIPanGestureRecognizer>("panned:");
    touch(SIM_TOUCH_BEGAN, 50, 50);
    touch(SIM_TOUCH_MOVED, 55, 50);
    touch(SIM_TOUCH_MOVED, 62, 50);
    touch(SIM_TOUCH_MOVED, 82, 60);
    touch(SIM_TOUCH_ENDED, 82, 60);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 50 50", "moved 1 at 55 50", "pan began 0 0",
                                   "cancelled 1 at 62 50", "pan changed 20 10", "pan ended 20 10"}));
    EXPECT_EQ(pan->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Gestures, APansTranslationCanBeSet) {
    auto pan = add<UIPanGestureRecognizer>("panned:");
    touch(SIM_TOUCH_BEGAN, 50, 50);
    touch(SIM_TOUCH_MOVED, 70, 50);
    touch(SIM_TOUCH_MOVED, 90, 50);
    just_heard();
    pan->setTranslation({0, 0}, view);
    touch(SIM_TOUCH_MOVED, 95, 50);
    EXPECT_EQ(just_heard(), Heard{"pan changed 5 0"});
    touch(SIM_TOUCH_CANCELLED, 95, 50);
    EXPECT_EQ(just_heard(), Heard{"pan cancelled 5 0"});
}

TEST_F(Gestures, APanWantsAsManyFingersAsItSays) {
    auto pan = add<UIPanGestureRecognizer>("panned:");
    const auto begins = [&](int fingers) {
        just_heard();
        const auto move = [&](sim_touch_phase phase, double to) {
            if (fingers == 1)
                touch(phase, to, 100);
            else
                touch_two(phase, to, to + 30);
        };
        move(SIM_TOUCH_BEGAN, 50);
        move(SIM_TOUCH_MOVED, 80);
        move(SIM_TOUCH_ENDED, 80);
        const Heard all = just_heard();
        return std::count(all.begin(), all.end(), "pan began 0 0") == 1;
    };
    EXPECT_TRUE(begins(1));
    EXPECT_TRUE(begins(2));
    pan->setMinimumNumberOfTouches(2);
    EXPECT_FALSE(begins(1));
    EXPECT_TRUE(begins(2));
    pan->setMinimumNumberOfTouches(1);
    pan->setMaximumNumberOfTouches(1);
    EXPECT_TRUE(begins(1));
    EXPECT_FALSE(begins(2));
}

TEST_F(Gestures, TwoFingersPinch) {
    add<UIPinchGestureRecognizer>("pinched:");
    touch_two(SIM_TOUCH_BEGAN, 80, 120);
    touch_two(SIM_TOUCH_MOVED, 70, 130);
    touch_two(SIM_TOUCH_MOVED, 60, 140);
    touch_two(SIM_TOUCH_ENDED, 60, 140);
    EXPECT_EQ(just_heard(), (Heard{"pinch began 1.5", "pinch changed 2", "pinch ended 2"}));
    touch(SIM_TOUCH_BEGAN, 100, 100);
    touch(SIM_TOUCH_MOVED, 150, 100);
    touch(SIM_TOUCH_ENDED, 150, 100);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 100 100", "moved 1 at 150 100", "ended 1 at 150 100"}));
}

TEST_F(Gestures, ATapIsLiftedWhereItLanded) {
    add<UITapGestureRecognizer>("recognised:");
    ASSERT_EQ(sim_tap(50, 50), SIM_OK);
    EXPECT_EQ(just_heard(),
              (Heard{"began 1 at 50 50", "UITapGestureRecognizer ended", "cancelled 1 at 50 50"}));
    touch(SIM_TOUCH_BEGAN, 50, 50);
    touch(SIM_TOUCH_MOVED, 120, 50);
    touch(SIM_TOUCH_ENDED, 120, 50);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 50 50", "moved 1 at 120 50", "ended 1 at 120 50"}));
}

TEST_F(Gestures, TwoTapsMakeADoubleTapWithoutAPause) {
    auto tap = add<UITapGestureRecognizer>("recognised:");
    tap->setNumberOfTapsRequired(2);
    tap->setCancelsTouchesInView(false);
    auto recognised = [] {
        const Heard all = just_heard();
        return std::count(all.begin(), all.end(), "UITapGestureRecognizer ended");
    };
    ASSERT_EQ(sim_tap(50, 50), SIM_OK);
    ASSERT_EQ(sim_advance_clock(1), SIM_OK);
    ASSERT_EQ(sim_tap(50, 50), SIM_OK);
    EXPECT_EQ(recognised(), 0);
    ASSERT_EQ(sim_advance_clock(0.1), SIM_OK);
    ASSERT_EQ(sim_tap(50, 50), SIM_OK);
    EXPECT_EQ(recognised(), 1);
}

TEST_F(Gestures, ALongPressBeginsWhileTheFingerLiesStill) {
    add<UILongPressGestureRecognizer>("recognised:");
    touch(SIM_TOUCH_BEGAN, 50, 50);
    ASSERT_EQ(sim_advance_clock(0.4), SIM_OK);
    EXPECT_EQ(just_heard(), Heard{"began 1 at 50 50"});
    ASSERT_EQ(sim_advance_clock(0.2), SIM_OK);
    EXPECT_EQ(just_heard(), (Heard{"UILongPressGestureRecognizer began", "cancelled 1 at 50 50"}));
    touch(SIM_TOUCH_ENDED, 50, 50);
    EXPECT_EQ(just_heard(), Heard{"UILongPressGestureRecognizer ended"});
}

TEST_F(Gestures, TheFirstThatIsRecognisedExcludesTheOthers) {
    add<UIPanGestureRecognizer>("panned:");
    auto press = add<UILongPressGestureRecognizer>("recognised:");
    press->setMinimumPressDuration(0.1);
    touch(SIM_TOUCH_BEGAN, 50, 50);
    ASSERT_EQ(sim_advance_clock(0.2), SIM_OK);
    just_heard();
    touch(SIM_TOUCH_MOVED, 90, 50);
    touch(SIM_TOUCH_ENDED, 90, 50);
    EXPECT_EQ(just_heard(),
              (Heard{"UILongPressGestureRecognizer changed", "UILongPressGestureRecognizer ended"}));
}

TEST_F(Gestures, ADelegateMayForbidOrAllow) {
    auto pan = add<UIPanGestureRecognizer>("panned:");
    static bool allowed;
    allowed = false;
    auto delegate = object_of(
        "GestureDelegate", "NSObject",
        {method("gestureRecognizerShouldBegin:", "B@:@", [](id, SEL, id) -> int { return allowed; })});
    pan->setDelegate(delegate);
    auto drag = [] {
        touch(SIM_TOUCH_BEGAN, 50, 50);
        touch(SIM_TOUCH_MOVED, 90, 50);
        touch(SIM_TOUCH_ENDED, 90, 50);
        return just_heard();
    };
    EXPECT_EQ(drag(), (Heard{"began 1 at 50 50", "moved 1 at 90 50", "ended 1 at 90 50"}));
    allowed = true;
    EXPECT_EQ(drag(), (Heard{"began 1 at 50 50", "pan began 0 0", "cancelled 1 at 90 50", "pan ended 0 0"}));
    pan->setEnabled(false);
    EXPECT_EQ(drag(), (Heard{"began 1 at 50 50", "moved 1 at 90 50", "ended 1 at 90 50"}));
}

TEST_F(Gestures, AScrollViewThatIsDraggedLeavesNothingToThem) {
    auto scroll = UIScrollView::make<"initWithFrame:">(CGRect{{0, 300}, {200, 200}});
    scroll->setContentSize({200, 1000});
    auto inside = touch_recording_view({{0, 0}, {200, 1000}}, 2);
    scroll->addSubview(inside);
    root->view()->addSubview(scroll);
    auto press = objc::adopt(static_cast<UILongPressGestureRecognizer*>(
        UILongPressGestureRecognizer::alloc()->initWithTarget(target, sel("recognised:")).leak()));
    press->setAllowableMovement(1000);
    inside->addGestureRecognizer(press);
    touch(SIM_TOUCH_BEGAN, 50, 450);
    touch(SIM_TOUCH_MOVED, 50, 420);
    ASSERT_EQ(sim_advance_clock(1), SIM_OK);
    touch(SIM_TOUCH_MOVED, 50, 380);
    touch(SIM_TOUCH_ENDED, 50, 380);
    EXPECT_EQ(scroll->contentOffset().y, 40);
    EXPECT_EQ(just_heard(), (Heard{"began 2 at 50 150", "cancelled 2 at 50 120"}));
}

TEST_F(Gestures, OneThatIsTakenAwayIsCancelled) {
    auto pan = add<UIPanGestureRecognizer>("panned:");
    touch(SIM_TOUCH_BEGAN, 50, 50);
    touch(SIM_TOUCH_MOVED, 90, 50);
    just_heard();
    view->removeGestureRecognizer(pan);
    EXPECT_EQ(just_heard(), Heard{"pan cancelled 0 0"});
    EXPECT_EQ(pan->view(), nullptr);
    EXPECT_EQ(view->gestureRecognizers(), nullptr);
}

TEST_F(Gestures, TwoFingersAreLiftedTogether) {
    touch_two(SIM_TOUCH_BEGAN, 80, 120);
    EXPECT_EQ(sim_touch(SIM_TOUCH_MOVED, 80, 100), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_touch: two fingers are down");
    touch_two(SIM_TOUCH_ENDED, 80, 120);
    EXPECT_EQ(sim_touch_two(7, 1, 1, 2, 2), SIM_MISUSE);
}

}  // namespace
}  // namespace test
