// Controls: targets, actions, events and states.
#include "screen_test.h"

namespace test {
namespace {

class Controls : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        control = add<UIControl>({{100, 100}, {100, 50}});
        control->setTag(7);
        target = recording_target();
    }
    void TearDown() override {
        target = nullptr;
        Screen::TearDown();
    }
    /// Every touch event is recorded as a line of its own.
    void listen_to_everything() {
        static constexpr std::pair<UIControlEvents, const char*> events[] = {
            {UIControlEventTouchDown, "down"},
            {UIControlEventTouchDragInside, "dragInside"},
            {UIControlEventTouchDragOutside, "dragOutside"},
            {UIControlEventTouchDragEnter, "dragEnter"},
            {UIControlEventTouchDragExit, "dragExit"},
            {UIControlEventTouchUpInside, "upInside"},
            {UIControlEventTouchUpOutside, "upOutside"},
            {UIControlEventTouchCancel, "cancel"}};
        std::vector<OwnMethod> methods;
        for (const auto& [event, name] : events)
            methods.push_back(
                own_method(name, +[](id, SEL command) { heard().push_back(sel_getName(command)); }, "v@:"));
        listener = objc::adopt(objc::send<"new", NSObject*>(
            reinterpret_cast<id>(class_with("EventListener", "NSObject", methods))));
        for (const auto& [event, name] : events) control->addTarget(listener, sel(name), event);
    }

    UIControl* control = nullptr;
    objc::strong<NSObject> target, listener;
};

TEST_F(Controls, ActionsTakeNothingTheSenderOrTheSenderAndTheEvent) {
    for (const char* action : {"pressed", "pressedBy:", "pressedBy:event:"})
        control->addTarget(target, sel(action), UIControlEventTouchUpInside);
    tap(110, 110);
    EXPECT_EQ(just_heard(), (Heard{"pressed", "pressedBy 7", "pressedBy 7 with an event"}));
    control->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(just_heard(), (Heard{"pressed", "pressedBy 7", "pressedBy 7 without an event"}));
}

TEST_F(Controls, OnlyTheEventsAskedForAreTold) {
    control->addTarget(target, sel("pressed"), UIControlEventTouchDown | UIControlEventValueChanged);
    control->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(just_heard(), Heard{});
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(just_heard(), Heard{"pressed"});
}

TEST_F(Controls, ATargetThatIsGoneMakesNothingHappen) {
    // A responder that could act, if it were asked instead.
    Class made = class_with("PressedView", "UIView",
                            {own_method("pressed", [](id, SEL) { heard().push_back("asked"); }, "v@:")});
    auto view = objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame(root->bounds());
    root->addSubview(view);
    view->addSubview(control);
    control->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    target = nullptr;
    tap(110, 110);
    EXPECT_EQ(just_heard(), Heard{});
    EXPECT_EQ(control->allTargets()->count(), 0u);
}

TEST_F(Controls, ATargetIsNotRetained) {
    const auto before = target->send<"retainCount", NSUInteger>();
    control->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    EXPECT_EQ((target->send<"retainCount", NSUInteger>()), before);
}

TEST_F(Controls, WithoutATargetTheRespondersAreAsked) {
    Class made =
        class_with("AnsweringView", "UIView",
                   {own_method(
                       "chosenBy:",
                       [](id self, SEL, UIView*) {
                           heard().push_back("chosen " + std::to_string(static_cast<UIView*>(self)->tag()));
                       },
                       "v@:@")});
    auto view =
        objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({{0, 200}, {100, 100}});
    view->setTag(3);
    root->addSubview(view);
    view->addSubview(control);
    control->addTarget(nullptr, sel("chosenBy:"), UIControlEventTouchDown);
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(just_heard(), Heard{"chosen 3"});
    EXPECT_TRUE(control->allTargets()->containsObject(NSNull::null()));
}

TEST_F(Controls, TheSameTargetAndActionAreToldOncePerEvent) {
    control->addTarget(target, sel("pressed"), UIControlEventTouchDown);
    control->addTarget(target, sel("pressed"), UIControlEventTouchDown | UIControlEventTouchUpInside);
    tap(110, 110);
    EXPECT_EQ(just_heard(), (Heard{"pressed", "pressed"}));
    control->sendActionsForControlEvents(UIControlEventTouchDown | UIControlEventTouchUpInside);
    EXPECT_EQ(just_heard(), Heard{"pressed"});
}

TEST_F(Controls, TargetsAreTakenAwayByTargetActionAndEvent) {
    auto other = recording_target();
    auto reset = [&] {
        control->removeTarget(nullptr, nullptr, ~UIControlEvents{});
        control->addTarget(target, sel("pressed"), UIControlEventTouchDown | UIControlEventTouchUpInside);
        control->addTarget(other, sel("pressedBy:"), UIControlEventTouchDown);
    };
    auto down = [&] {
        control->sendActionsForControlEvents(UIControlEventTouchDown);
        return just_heard();
    };
    reset();
    EXPECT_EQ(down(), (Heard{"pressed", "pressedBy 7"}));
    control->removeTarget(target, sel("pressed"), UIControlEventTouchDown);
    EXPECT_EQ(down(), Heard{"pressedBy 7"});
    EXPECT_EQ(control->allControlEvents(), UIControlEventTouchDown | UIControlEventTouchUpInside);
    reset();
    control->removeTarget(target, nullptr, UIControlEventTouchDown);
    EXPECT_EQ(down(), Heard{"pressedBy 7"});
    reset();
    control->removeTarget(nullptr, sel("pressedBy:"), UIControlEventTouchDown);
    EXPECT_EQ(down(), Heard{"pressed"});
    reset();
    control->removeTarget(target, sel("pressedBy:"), UIControlEventTouchDown);
    EXPECT_EQ(down(), (Heard{"pressed", "pressedBy 7"}));
}

TEST_F(Controls, SayWhomTheyTellAndHow) {
    control->addTarget(target, sel("pressed"), UIControlEventTouchDown);
    control->addTarget(target, sel("pressedBy:"), UIControlEventTouchDown | UIControlEventTouchUpInside);
    NSArray* names = control->actionsForTarget(target, UIControlEventTouchDown);
    ASSERT_EQ(names->count(), 2u);
    EXPECT_EQ(utf8(names->objectAtIndex(0)), "pressed");
    EXPECT_EQ(utf8(names->objectAtIndex(1)), "pressedBy:");
    EXPECT_EQ(control->actionsForTarget(target, UIControlEventTouchUpInside)->count(), 1u);
    EXPECT_EQ(control->actionsForTarget(target, UIControlEventValueChanged), nullptr);
    EXPECT_EQ(control->allTargets()->count(), 1u);
    EXPECT_TRUE(control->allTargets()->containsObject(target));
}

TEST_F(Controls, AFingerThatStaysInsideIsDownThenUpInside) {
    listen_to_everything();
    press(110, 110);
    EXPECT_TRUE(control->isTracking() && control->isTouchInside() && control->isHighlighted());
    move(115, 110);
    lift(115, 110);
    EXPECT_EQ(just_heard(), (Heard{"down", "dragInside", "upInside"}));
    EXPECT_FALSE(control->isTracking() || control->isTouchInside() || control->isHighlighted());
}

TEST_F(Controls, AFingerLeavesAtSeventyPoints) {
    listen_to_everything();
    press(110, 110);
    move(110, 220);
    EXPECT_TRUE(control->isHighlighted());
    move(110, 221);
    EXPECT_FALSE(control->isHighlighted());
    move(110, 240);
    move(110, 140);
    EXPECT_TRUE(control->isHighlighted());
    move(10, 110);
    lift(10, 110);
    EXPECT_EQ(just_heard(), (Heard{"down", "dragInside", "dragExit", "dragOutside", "dragOutside",
                                   "dragEnter", "dragInside", "dragExit", "dragOutside", "upOutside"}));
}

TEST_F(Controls, ATouchTakenBackIsCancelled) {
    listen_to_everything();
    press(110, 110);
    touch(SIM_TOUCH_CANCELLED, 110, 110);
    EXPECT_EQ(just_heard(), (Heard{"down", "cancel"}));
    EXPECT_FALSE(control->isHighlighted());
}

TEST_F(Controls, ADisabledControlIgnoresTouches) {
    listen_to_everything();
    control->setEnabled(false);
    tap(110, 110);
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Controls, TheStateIsMadeOfItsParts) {
    EXPECT_EQ(control->state(), UIControlStateNormal);
    control->setHighlighted(true);
    EXPECT_EQ(control->state(), UIControlStateHighlighted);
    control->setSelected(true);
    EXPECT_EQ(control->state(), UIControlStateHighlighted | UIControlStateSelected);
    control->setEnabled(false);
    EXPECT_EQ(control->state(), 7u);
}

TEST_F(Controls, AnActionMayTakeTheControlAway) {
    static UIControl* leaving;
    leaving = control;
    Class made = class_with("Remover", "NSObject",
                            {own_method("remove", [](id, SEL) { leaving->removeFromSuperview(); }, "v@:")});
    auto remover = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    control->addTarget(remover, sel("remove"), UIControlEventTouchUpInside);
    control->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    tap(110, 110);
    EXPECT_EQ(just_heard(), Heard{"pressed"});
}

TEST_F(Controls, AnActionThatTheTargetLacksRaises) {
    control->addTarget(target, sel("noSuchAction"), UIControlEventTouchUpInside);
    EXPECT_EQ(sim_tap(110, 110), SIM_RAISED);
}

}  // namespace
}  // namespace test
