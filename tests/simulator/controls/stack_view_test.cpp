// Stack views: rows and columns of views.
#include "platform/scrolling.h"
#include "screen_test.h"

namespace test {
namespace {

class StackViews : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        stack = add<UIStackView>({{0, 0}, {300, 200}});
    }
    /// A view of that size by constraints.
    static objc::strong<UIView> sized(CGFloat width, CGFloat height) {
        auto view = UIView::alloc()->init();
        view->setTranslatesAutoresizingMaskIntoConstraints(false);
        if (width >= 0) view->widthAnchor()->constraintEqualToConstant(width)->setActive(true);
        if (height >= 0) view->heightAnchor()->constraintEqualToConstant(height)->setActive(true);
        return view;
    }
    UIView* arrange(CGFloat width, CGFloat height) {
        auto view = sized(width, height);
        stack->addArrangedSubview(view);
        return view.get();
    }
    UIStackView* stack = nullptr;
};

TEST_F(StackViews, AColumnWithEqualSpacingFillsTheHeight) {
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setDistribution(UIStackViewDistributionEqualSpacing);
    stack->setAlignment(UIStackViewAlignmentCenter);
    stack->setSpacing(15);
    UIView *one = arrange(100, 20), *two = arrange(50, 40), *three = arrange(200, 60);
    root->layoutIfNeeded();
    EXPECT_EQ(one->frame(), (CGRect{{100, 0}, {100, 20}}));
    EXPECT_EQ(two->frame(), (CGRect{{125, 60}, {50, 40}}));
    EXPECT_EQ(three->frame(), (CGRect{{50, 140}, {200, 60}}));
    EXPECT_FALSE(two->hasAmbiguousLayout());
    EXPECT_EQ(stack->arrangedSubviews()->count(), 3u);
}

TEST_F(StackViews, MarginsCountWhenTheyAreAskedFor) {
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setDistribution(UIStackViewDistributionEqualSpacing);
    stack->setAlignment(UIStackViewAlignmentCenter);
    stack->setLayoutMargins({25, 0, 5, 0});
    UIView *one = arrange(100, 20), *two = arrange(100, 20);
    root->layoutIfNeeded();
    EXPECT_EQ(one->frame().origin.y, 0);
    stack->setLayoutMarginsRelativeArrangement(true);
    root->layoutIfNeeded();
    EXPECT_EQ(one->frame().origin.y, 25);
    EXPECT_EQ(two->frame().origin.y, 175);
}

TEST_F(StackViews, AFreeColumnIsAsHighAsItsViewsAndTheLeastSpacing) {
    auto* scroll_view = add<UIScrollView>({{0, 0}, {280, 300}});
    stack->removeFromSuperview();
    auto column = objc::adopt(static_cast<UIStackView*>(UIStackView::alloc()->init().leak()));
    stack = column;
    stack->setTranslatesAutoresizingMaskIntoConstraints(false);
    scroll_view->addSubview(stack);
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setDistribution(UIStackViewDistributionEqualSpacing);
    stack->setAlignment(UIStackViewAlignmentCenter);
    stack->setSpacing(15);
    stack->setLayoutMargins({25, 0, 0, 0});
    stack->setLayoutMarginsRelativeArrangement(true);
    UIView* swatch = arrange(120, 55);
    UIView* field = arrange(250, 40);
    UIView* slider = nullptr;
    for (int i = 0; i < 4; ++i) slider = arrange(250, 20);
    stack->topAnchor()->constraintEqualToAnchor(scroll_view->topAnchor())->setActive(true);
    stack->leadingAnchor()->constraintEqualToAnchor(scroll_view->leadingAnchor())->setActive(true);
    stack->trailingAnchor()->constraintEqualToAnchor(scroll_view->trailingAnchor())->setActive(true);
    stack->bottomAnchor()->constraintEqualToAnchor(scroll_view->bottomAnchor())->setActive(true);
    stack->centerXAnchor()->constraintEqualToAnchor(scroll_view->centerXAnchor())->setActive(true);
    root->layoutIfNeeded();
    EXPECT_EQ(stack->frame(), (CGRect{{0, 0}, {280, 275}}));
    EXPECT_EQ(swatch->frame(), (CGRect{{80, 25}, {120, 55}}));
    EXPECT_EQ(field->frame(), (CGRect{{15, 95}, {250, 40}}));
    EXPECT_EQ(slider->frame(), (CGRect{{15, 255}, {250, 20}}));
}

TEST_F(StackViews, ARowFillsItsLengthAndItsHeight) {
    stack->setSpacing(10);
    UIView *fixed = arrange(100, -1), *rest = arrange(-1, -1);
    root->layoutIfNeeded();
    EXPECT_EQ(fixed->frame(), (CGRect{{0, 0}, {100, 200}}));
    EXPECT_EQ(rest->frame(), (CGRect{{110, 0}, {190, 200}}));
}

TEST_F(StackViews, ARowMayShareItsLengthEqually) {
    stack->setDistribution(UIStackViewDistributionFillEqually);
    UIView *one = arrange(-1, -1), *two = arrange(-1, -1), *three = arrange(-1, -1);
    root->layoutIfNeeded();
    for (UIView* view : {one, two, three}) EXPECT_EQ(view->frame().size, (CGSize{100, 200}));
    EXPECT_EQ(three->frame().origin.x, 200);
}

TEST_F(StackViews, AlignmentsPutViewsAtTheSides) {
    UIView* view = arrange(300, 50);
    for (const auto& [alignment, y] : {std::pair{UIStackViewAlignmentLeading, 0.0},
                                       {UIStackViewAlignmentCenter, 75.0},
                                       {UIStackViewAlignmentTrailing, 150.0}}) {
        stack->setAlignment(alignment);
        root->layoutIfNeeded();
        EXPECT_EQ(view->frame().origin.y, y) << alignment;
    }
}

TEST_F(StackViews, AViewTakenAwayLeavesNoGap) {
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setAlignment(UIStackViewAlignmentLeading);
    UIView *one = arrange(100, 50), *two = arrange(100, -1);
    root->layoutIfNeeded();
    EXPECT_EQ(two->frame().origin.y, 50);
    one->removeFromSuperview();
    EXPECT_EQ(stack->arrangedSubviews()->count(), 1u);
    root->layoutIfNeeded();
    EXPECT_EQ(two->frame(), (CGRect{{0, 0}, {100, 200}}));
    auto first = sized(100, 30);
    stack->insertArrangedSubview(first, 0);
    root->layoutIfNeeded();
    EXPECT_EQ(two->frame().origin.y, 30);
    stack->removeArrangedSubview(first);
    EXPECT_EQ(first->superview(), stack) << "it stays a subview";
    root->layoutIfNeeded();
    EXPECT_EQ(two->frame().origin.y, 0);
}

}  // namespace
}  // namespace test
