// Touches: from points on the screen to the views that get them.
#include "screen_test.h"

namespace test {
namespace {

class Touches : public Screen {
  protected:
    UIView* add_recorder(CGRect frame, NSInteger tag, UIView* superview = nullptr) {
        auto view = touch_recording_view(frame, tag);
        (superview ? superview : root.get())->addSubview(view);
        return view;
    }
};

TEST_F(Touches, TheFrontmostViewAtThePointIsToldInItsOwnCoordinates) {
    add_recorder({{0, 0}, {200, 200}}, 1);
    add_recorder({{100, 100}, {100, 100}}, 2);
    press(110, 120);
    move(90, 100);
    lift(300, 300);
    EXPECT_EQ(just_heard(), (Heard{"began 2 at 10 20", "moved 2 at -10 0", "ended 2 at 200 200"}));
}

TEST_F(Touches, ACancelledTouchIsToldAsSuch) {
    add_recorder({{0, 0}, {200, 200}}, 1);
    press(10, 10);
    touch(SIM_TOUCH_CANCELLED, 11, 12);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 10 10", "cancelled 1 at 11 12"}));
}

TEST_F(Touches, ATapIsDownAndUp) {
    add_recorder({{0, 0}, {200, 200}}, 1);
    tap(5, 6);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 5 6", "ended 1 at 5 6"}));
}

TEST_F(Touches, HiddenInvisibleAndDisabledViewsLetTheTouchThrough) {
    add_recorder({{0, 0}, {100, 100}}, 1);
    UIView* front = add_recorder({{0, 0}, {100, 100}}, 2);
    auto received = [&] {
        tap(10, 10);
        return just_heard().at(0);
    };
    EXPECT_EQ(received(), "began 2 at 10 10");
    front->setHidden(true);
    EXPECT_EQ(received(), "began 1 at 10 10");
    front->setHidden(false);
    front->setAlpha(0.009);
    EXPECT_EQ(received(), "began 1 at 10 10");
    front->setAlpha(0.02);
    EXPECT_EQ(received(), "began 2 at 10 10");
    front->setUserInteractionEnabled(false);
    EXPECT_EQ(received(), "began 1 at 10 10");
}

TEST_F(Touches, PartsOutsideTheirSuperviewAreNotTouched) {
    add_recorder({{0, 0}, {300, 300}}, 1);
    UIView* small = add_recorder({{0, 0}, {50, 50}}, 2);
    add_recorder({{0, 0}, {100, 100}}, 3, small);
    tap(40, 40);
    EXPECT_EQ(just_heard().at(0), "began 3 at 40 40");
    tap(60, 60);
    EXPECT_EQ(just_heard().at(0), "began 1 at 60 60");
}

TEST_F(Touches, AViewThatDoesNotHandleTouchesPassesThemToItsSuperview) {
    UIView* outer = add_recorder({{20, 20}, {100, 100}}, 1);
    auto inner = UIView::alloc()->initWithFrame({{10, 10}, {20, 20}});
    outer->addSubview(inner);
    press(35, 35);
    lift(36, 36);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 15 15", "ended 1 at 16 16"}));
}

TEST_F(Touches, AMovedViewIsTouchedWhereItIsShown) {
    UIView* view = add_recorder({{0, 0}, {50, 50}}, 1);
    view->setTransform({2, 0, 0, 2, 100, 100});
    tap(85, 105);
    EXPECT_EQ(just_heard().at(0), "began 1 at 5 15");
}

TEST_F(Touches, ViewsAreLaidOutBeforeTheyAreTouched) {
    static UIView* placed;
    placed = add_recorder({{0, 0}, {10, 10}}, 1);
    Class made = class_with(
        "PlacingView", "UIView",
        {own_method("layoutSubviews", [](id, SEL) { placed->setFrame({{100, 100}, {10, 10}}); }, "v@:")});
    root->addSubview(
        objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({{0, 0}, {1, 1}}));
    tap(105, 105);
    EXPECT_EQ(just_heard().at(0), "began 1 at 5 5");
}

TEST_F(Touches, TheTouchSaysWhereItWasAndWhatItIsIn) {
    static UITouch* seen;
    static CGPoint now, before;
    static UIView* view;
    static UIWindow* window;
    Class made = class_with("TouchReadingView", "UIView",
                            {own_method(
                                 "touchesBegan:withEvent:", [](id, SEL, NSSet*, UIEvent*) {}, "v@:@@"),
                             own_method(
                                 "touchesMoved:withEvent:",
                                 [](id, SEL, NSSet* touches, UIEvent* event) {
                                     EXPECT_EQ(touches->count(), 1u);
                                     seen = static_cast<UITouch*>(touches->anyObject());
                                     EXPECT_TRUE(event->allTouches()->containsObject(seen));
                                     EXPECT_EQ(seen->phase(), UITouchPhaseMoved);
                                     EXPECT_EQ(seen->tapCount(), 1u);
                                     view = seen->view();
                                     window = seen->window();
                                     now = seen->locationInView(nullptr);
                                     before = seen->previousLocationInView(nullptr);
                                 },
                                 "v@:@@")});
    auto added =
        objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({{0, 0}, {100, 100}});
    root->addSubview(added);
    press(10, 10);
    move(20, 30);
    lift(20, 30);
    EXPECT_EQ(view, added.get());
    EXPECT_EQ(window, root->window());
    EXPECT_EQ(now, (CGPoint{20, 30}));
    EXPECT_EQ(before, (CGPoint{10, 10}));
}

TEST_F(Touches, PointsOffTheScreenAreRefused) {
    EXPECT_EQ(sim_tap(376, 10), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(),
                 "sim_tap: the point (376.000000, 10.000000) is not on the screen, which is 375.000000 x "
                 "667.000000 points");
    EXPECT_EQ(sim_tap(10, -1), SIM_MISUSE);
    EXPECT_EQ(sim_tap(NAN, 1), SIM_MISUSE);
    EXPECT_EQ(sim_tap(375, 667), SIM_OK) << sim_last_error();
}

TEST_F(Touches, TheFingerIsPutDownOnceAndLiftedOnce) {
    EXPECT_EQ(sim_touch(SIM_TOUCH_MOVED, 1, 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_touch: the finger is not down");
    press(1, 1);
    EXPECT_EQ(sim_touch(SIM_TOUCH_BEGAN, 1, 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_touch: the finger is down already");
    lift(1, 1);
    EXPECT_EQ(sim_touch(SIM_TOUCH_ENDED, 1, 1), SIM_MISUSE);
    EXPECT_EQ(sim_touch(4, 1, 1), SIM_MISUSE);
}

TEST(TouchesBefore, AnythingIsShownAreRefused) {
    EXPECT_EQ(sim_tap(1, 1), SIM_MISUSE);
    Phone phone;
    phone.boot();
    EXPECT_EQ(sim_tap(1, 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_tap: nothing is on the screen");
}

TEST_F(Touches, AreTakenBackWhenSomethingElseIsShown) {
    add_recorder({{0, 0}, {200, 200}}, 1);
    press(10, 10);
    just_heard();
    ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    EXPECT_EQ(just_heard(), (Heard{"cancelled 1 at 10 10"}));
    EXPECT_EQ(sim_touch(SIM_TOUCH_ENDED, 10, 10), SIM_MISUSE);
}

TEST_F(Touches, AnExceptionInAHandlerIsAnsweredAndTheFingerIsLifted) {
    Class made = class_with(
        "RaisingView", "UIView",
        {own_method(
            "touchesEnded:withEvent:",
            [](id, SEL, NSSet*, UIEvent*) { NSArray::class_send<"array", NSArray*>()->objectAtIndex(0); },
            "v@:@@")});
    root->addSubview(
        objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({{0, 0}, {100, 100}}));
    EXPECT_EQ(sim_tap(10, 10), SIM_RAISED);
    tap(200, 200);
}

}  // namespace
}  // namespace test
