// Who typing goes to.
#include "screen_test.h"

namespace test {
namespace {

class FirstResponder : public Screen {
  protected:
    /// A view that can become it; with `clinging` it does not give it up.
    UIView* add_willing(NSInteger tag, bool clinging = false) {
        std::vector<OwnMethod> methods = {
            own_method("canBecomeFirstResponder", [](id, SEL) { return 1; }, "B@:")};
        if (clinging)
            methods.push_back(own_method("canResignFirstResponder", [](id, SEL) { return 0; }, "B@:"));
        Class made = class_with(clinging ? "ClingingView" : "WillingView", "UIView", methods);
        auto view = objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({});
        view->setTag(tag);
        root->addSubview(view);
        return view;
    }
};

TEST_F(FirstResponder, APlainViewCannotBecomeIt) {
    EXPECT_FALSE(root->becomeFirstResponder());
    EXPECT_FALSE(root->isFirstResponder());
}

TEST_F(FirstResponder, PassesFromOneToTheNext) {
    UIView *one = add_willing(1), *two = add_willing(2);
    EXPECT_TRUE(one->becomeFirstResponder());
    EXPECT_TRUE(one->isFirstResponder());
    EXPECT_TRUE(two->becomeFirstResponder());
    EXPECT_FALSE(one->isFirstResponder());
    EXPECT_TRUE(two->isFirstResponder());
    EXPECT_TRUE(two->resignFirstResponder());
    EXPECT_FALSE(two->isFirstResponder());
}

TEST_F(FirstResponder, StaysWithOneThatDoesNotResign) {
    UIView *clinging = add_willing(1, true), *other = add_willing(2);
    EXPECT_TRUE(clinging->becomeFirstResponder());
    EXPECT_FALSE(clinging->resignFirstResponder());
    EXPECT_FALSE(other->becomeFirstResponder());
    EXPECT_TRUE(clinging->isFirstResponder());
}

TEST_F(FirstResponder, IsInAWindow) {
    UIView* view = add_willing(1);
    const objc::strong<UIView> kept = view;
    view->becomeFirstResponder();
    view->removeFromSuperview();
    EXPECT_FALSE(view->isFirstResponder());
    EXPECT_FALSE(view->becomeFirstResponder());
    root->addSubview(view);
    EXPECT_FALSE(view->isFirstResponder());
    EXPECT_TRUE(view->becomeFirstResponder());
}

TEST_F(FirstResponder, MayGoAway) {
    UIView* first = add_willing(1);
    first->becomeFirstResponder();
    root->send<"removeFromSuperview">();
    EXPECT_FALSE(first->isFirstResponder());
}

TEST_F(FirstResponder, IsAskedFirstForAnActionWithoutATarget) {
    Class made = class_with("ActingView", "UIView",
                            {own_method(
                                 "canBecomeFirstResponder", [](id, SEL) { return 1; }, "B@:"),
                             own_method("act", [](id, SEL) { heard().push_back("acted"); }, "v@:")});
    auto view = objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame({});
    root->addSubview(view);
    auto* control = add<UIControl>({});
    control->addTarget(nullptr, sel("act"), UIControlEventTouchDown);
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(just_heard(), Heard{});
    view->becomeFirstResponder();
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(just_heard(), Heard{"acted"});
}

}  // namespace
}  // namespace test
