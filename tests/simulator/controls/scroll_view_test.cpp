// Scroll views: dragged by a finger, and what constraints make of them.
#include "platform/scrolling.h"
#include "screen_test.h"

namespace test {
namespace {

class ScrollViews : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        scroll_view = add<UIScrollView>({{0, 100}, {200, 200}});
        scroll_view->setContentSize({200, 500});
    }
    UIView* add_inside(const objc::strong<UIView>& view) {
        scroll_view->addSubview(view);
        return view.get();
    }
    UIScrollView* scroll_view = nullptr;
};

TEST_F(ScrollViews, FollowTheFingerAsFarAsThereIsSomethingToSee) {
    press(100, 250);
    move(100, 239);
    EXPECT_TRUE(scroll_view->isDragging());
    move(100, 139);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 100}));
    EXPECT_EQ(scroll_view->bounds().origin, (CGPoint{0, 100}));
    move(20, 110);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 129})) << "there is nothing to see at the side";
    lift(20, 110);
    EXPECT_FALSE(scroll_view->isDragging());
    press(100, 290);
    move(100, 270);
    move(100, 1);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 300}));
    move(100, 660);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 0}));
    lift(100, 660);
}

TEST_F(ScrollViews, InsetsAreMoreToSee) {
    scroll_view->setContentInset({10, 0, 20, 0});
    press(100, 250);
    move(100, 270);
    move(100, 400);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, -10}));
    move(100, 1);
    move(100, 0);
    lift(100, 0);
    press(100, 290);
    move(100, 270);
    move(100, 0);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 320}));
    lift(100, 0);
}

TEST_F(ScrollViews, TakeTheTouchFromWhatIsInsideAndTellItSo) {
    add_inside(touch_recording_view({{0, 0}, {200, 500}}, 1));
    press(100, 250);
    move(100, 245);
    move(100, 230);
    move(100, 200);
    lift(100, 200);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 100 150", "moved 1 at 100 145", "cancelled 1 at 100 130"}));
}

TEST_F(ScrollViews, LeaveTheTouchWithControlsButNotWithButtons) {
    auto slider =
        objc::adopt(static_cast<UISlider*>(UISlider::alloc()->initWithFrame({{0, 0}, {200, 31}}).leak()));
    scroll_view->addSubview(slider);
    press(15, 115);
    move(40, 170);
    move(60, 170);
    lift(60, 170);
    EXPECT_GT(slider->value(), 0);
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 0}));
    UIButton* button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setFrame({{0, 100}, {200, 50}});
    scroll_view->addSubview(button);
    auto target = recording_target();
    button->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    button->addTarget(target, sel("pressedBy:"), UIControlEventTouchCancel);
    press(100, 220);
    move(100, 200);
    move(100, 190);
    lift(100, 190);
    EXPECT_EQ(just_heard(), Heard{"pressedBy 0"});
    EXPECT_EQ(scroll_view->contentOffset(), (CGPoint{0, 10}));
}

TEST_F(ScrollViews, DoNotScrollWhenSwitchedOffOrWhenAllIsToBeSeen) {
    add_inside(touch_recording_view({{0, 0}, {200, 500}}, 1));
    auto last_heard = [&] {
        press(100, 250);
        move(100, 150);
        lift(100, 150);
        return just_heard().back();
    };
    scroll_view->setScrollEnabled(false);
    EXPECT_EQ(last_heard(), "ended 1 at 100 50");
    scroll_view->setScrollEnabled(true);
    scroll_view->setContentSize({200, 200});
    EXPECT_EQ(last_heard(), "ended 1 at 100 50");
}

TEST_F(ScrollViews, ClipAndAreTouchedWhereTheyHaveScrolledTo) {
    EXPECT_TRUE(scroll_view->clipsToBounds());
    add_inside(touch_recording_view({{0, 300}, {200, 100}}, 1));
    scroll_view->setContentOffset({0, 250});
    tap(50, 160);
    EXPECT_EQ(just_heard(), (Heard{"began 1 at 50 10", "ended 1 at 50 10"}));
}

TEST_F(ScrollViews, TellTheirDelegate) {
    auto note = +[](id, SEL message, id) { heard().push_back(sel_getName(message)); };
    Class made = class_with("ScrollDelegate", "NSObject",
                            {own_method("scrollViewDidScroll:", note, "v@:@"),
                             own_method("scrollViewWillBeginDragging:", note, "v@:@"),
                             own_method(
                                 "scrollViewDidEndDragging:willDecelerate:",
                                 [](id, SEL, id, int) { heard().push_back("end"); }, "v@:@B")});
    auto delegate = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    scroll_view->setDelegate(delegate);
    press(100, 250);
    move(100, 230);
    move(100, 200);
    lift(100, 200);
    EXPECT_EQ(just_heard(), (Heard{"scrollViewWillBeginDragging:", "scrollViewDidScroll:", "end"}));
}

TEST_F(ScrollViews, ConstraintEdgesAreTheContentsAndCentresTheFrames) {
    auto inside = UIView::alloc()->init();
    inside->setTranslatesAutoresizingMaskIntoConstraints(false);
    scroll_view->addSubview(inside);
    inside->topAnchor()->constraintEqualToAnchor(scroll_view->topAnchor())->setActive(true);
    inside->bottomAnchor()->constraintEqualToAnchor(scroll_view->bottomAnchor())->setActive(true);
    inside->leadingAnchor()->constraintEqualToAnchor(scroll_view->leadingAnchor())->setActive(true);
    inside->trailingAnchor()->constraintEqualToAnchor(scroll_view->trailingAnchor())->setActive(true);
    inside->centerXAnchor()->constraintEqualToAnchor(scroll_view->centerXAnchor())->setActive(true);
    inside->heightAnchor()->constraintEqualToConstant(700)->setActive(true);
    root->layoutIfNeeded();
    EXPECT_EQ(inside->frame(), (CGRect{{0, 0}, {200, 700}}));
    EXPECT_FALSE(inside->hasAmbiguousLayout());
}

}  // namespace
}  // namespace test
