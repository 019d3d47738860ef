// When constraints are solved, and in what order views hear of it.
#include "layout_test.h"
#include "support/runtime.h"

namespace test {
namespace {

/// What happened, as the views' classes record it: "bounds 2", "layout 1", with the view's tag.
std::vector<std::string> heard;

class LayoutPass : public ConstraintLayout {
  protected:
    void SetUp() override {
        ConstraintLayout::SetUp();
        static IMP layout = nullptr, bounds = nullptr, content = nullptr;
        layout = stand_in("UIView", "layoutSubviews", [](UIView* self, SEL selector) {
            hear("layout", self);
            call(layout, self, selector);
        });
        bounds = stand_in("UIView", "setBounds:", [](UIView* self, SEL selector, CGRect to) {
            hear("bounds", self);
            call(bounds, self, selector, to);
        });
        content = stand_in("UIView", "intrinsicContentSize", [](UIView* self, SEL selector) {
            ++solved;
            return call<CGSize>(content, self, selector);
        });
        root->setTag(1);
        heard.clear();
        solved = 0;
    }
    static void hear(const char* what, UIView* view) {
        if (view->tag()) heard.push_back(what + (" " + std::to_string(view->tag())));
    }
    UIView* tagged(UIView* superview, NSInteger tag) {
        UIView* made = free_view_in(superview);
        made->setTag(tag);
        return made;
    }
    using Heard = std::vector<std::string>;

    /// How often a plain view was asked for its size: once for each solution that it has a part in.
    static inline int solved = 0;
};

TEST_F(LayoutPass, PlacesComeBeforeLayoutFromTheTopDown) {
    UIView *outer = tagged(root, 2), *inner = tagged(outer, 3);
    pin(outer, root, 10);
    pin(inner, outer, 10);
    root->layoutIfNeeded();
    EXPECT_EQ(heard, (Heard{"bounds 2", "layout 1", "bounds 3", "layout 2", "layout 3"}));
}

TEST_F(LayoutPass, NothingIsSolvedWhenNothingChanged) {
    UIView* inner = tagged(root, 2);
    pin(inner, root);
    root->layoutIfNeeded();
    EXPECT_EQ(solved, 1);
    root->layoutIfNeeded();
    root->setNeedsLayout();
    root->layoutIfNeeded();
    EXPECT_EQ(solved, 1);
    EXPECT_EQ(heard, (Heard{"bounds 2", "layout 1", "layout 2", "layout 1"}));
}

TEST_F(LayoutPass, EachChangeIsSolvedOnce) {
    UIView* inner = tagged(root, 2);
    pin(inner, root);
    NSLayoutConstraint* optional = inner->heightAnchor()->constraintEqualToConstant(5);
    optional->setPriority(10);
    root->layoutIfNeeded();
    const auto solutions_after = [&](auto change) {
        solved = 0;
        change();
        root->layoutIfNeeded();
        root->layoutIfNeeded();
        return solved;
    };
    EXPECT_EQ(solutions_after([&] { optional->setActive(true); }), 1);
    EXPECT_EQ(solutions_after([&] { optional->setConstant(6); }), 1);
    EXPECT_EQ(solutions_after([&] { optional->setConstant(6); }), 0) << "no change";
    EXPECT_EQ(solutions_after([&] { optional->setPriority(20); }), 1);
    EXPECT_EQ(solutions_after([&] { optional->setActive(false); }), 1);
    EXPECT_EQ(solutions_after([&] { root->setFrame({{0, 0}, {50, 50}}); }), 1);
    EXPECT_EQ(solutions_after([&] { inner->invalidateIntrinsicContentSize(); }), 1);
    EXPECT_EQ(solutions_after([&] { inner->setContentHuggingPriority(1, 0); }), 1);
    EXPECT_EQ(solutions_after([&] { root->setBackgroundColor(UIColor::redColor()); }), 0);
    EXPECT_EQ(solutions_after([&] { inner->removeFromSuperview(); }), 0) << "no constraint is left";
}

TEST_F(LayoutPass, OnlyTheSuperviewsOfViewsThatMoveAreLaidOut) {
    UIView *left = tagged(root, 2), *right = tagged(root, 3), *inner = tagged(right, 4);
    fix(left, root, {{0, 0}, {10, 10}});
    fix(right, root, {{50, 0}, {50, 50}});
    fix(inner, right, {{0, 0}, {10, 10}});
    root->layoutIfNeeded();
    heard.clear();
    static_cast<NSLayoutConstraint*>(inner->constraints()->objectAtIndex(0))->setConstant(20);
    root->layoutIfNeeded();
    EXPECT_EQ(heard, (Heard{"bounds 4", "layout 3", "layout 4"}));
}

TEST_F(LayoutPass, AFrameOfOnesOwnLastsUntilTheSuperviewIsLaidOut) {
    UIView* inner = tagged(root, 2);
    fix(inner, root, {{0, 0}, {10, 10}});
    root->layoutIfNeeded();
    inner->setFrame({{5, 5}, {20, 20}});
    root->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{5, 5}, {20, 20}}));
    root->setNeedsLayout();
    root->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{0, 0}, {10, 10}}));
}

TEST_F(LayoutPass, AViewLaidOutAloneIsPlacedWithItsTree) {
    UIView *outer = tagged(root, 2), *inner = tagged(outer, 3);
    pin(outer, root, 10);
    pin(inner, outer, 10);
    inner->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{10, 10}, {160, 60}}));
}

TEST_F(LayoutPass, AConstraintChangedDuringLayoutHasItsEffectBelow) {
    static NSLayoutConstraint* width = nullptr;
    UIView *outer = tagged(root, 2), *inner = tagged(outer, 3);
    pin(outer, root);
    fix(inner, outer, {{0, 0}, {10, 10}});
    width = static_cast<NSLayoutConstraint*>(inner->constraints()->objectAtIndex(0));
    static IMP previous = nullptr;
    previous = stand_in("UIView", "layoutSubviews", [](UIView* self, SEL selector) {
        if (self->tag() == 1) width->setConstant(33);
        call(previous, self, selector);
    });
    root->layoutIfNeeded();
    EXPECT_EQ(inner->frame().size.width, 33);
}

TEST_F(LayoutPass, WithoutConstraintsFramesStay) {
    UIView* inner = free_view_in(root);
    inner->setFrame({{5, 5}, {20, 20}});
    root->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{5, 5}, {20, 20}}));
    auto other = view();
    active(other->widthAnchor()->constraintEqualToConstant(10));
    root->setNeedsLayout();
    root->addSubview(view());
    root->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{5, 5}, {20, 20}})) << "another tree's constraints are no matter";
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(LayoutPass, AViewThatWaitsForConstraintsIsNotAutoresized) {
    UIView* inner = free_view_in(root);
    inner->setAutoresizingMask(18);
    inner->setFrame({{0, 0}, {20, 20}});
    root->setFrame({{0, 0}, {400, 400}});
    EXPECT_EQ(inner->frame(), (CGRect{{0, 0}, {20, 20}}));
}

TEST_F(LayoutPass, AViewThatLaysItselfOutWhileItGoesIsHarmless) {
    static int gone = 0;
    Class dying = objc_allocateClassPair(UIView::class_object(), "ViewThatLaysOutInDealloc", 0);
    class_addMethod(dying, sel_registerName("dealloc"), reinterpret_cast<IMP>(+[](UIView* self, SEL) {
                        self->layoutIfNeeded();
                        ++gone;
                        objc::send_super<"dealloc">(self, object_getClass(self));
                    }),
                    "v@:");
    objc_registerClassPair(dying);
    {
        objc::AutoreleasePool pool;
        auto made = objc::send<"alloc", UIView*>(reinterpret_cast<id>(dying))->initWithFrame({});
        active(made->widthAnchor()->constraintEqualToConstant(10));
        made->setNeedsLayout();
    }
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(LayoutPass, ATreeOnItsOwnGoesOnWithItsOwnConstraints) {
    UIView *outer = tagged(root, 2), *inner = tagged(outer, 3);
    pin(outer, root, 10);
    pin(inner, outer, 10);
    root->layoutIfNeeded();
    objc::strong<UIView> kept = outer;
    outer->removeFromSuperview();
    outer->setFrame({{0, 0}, {50, 50}});
    outer->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), (CGRect{{10, 10}, {30, 30}}));
}

}  // namespace
}  // namespace test
