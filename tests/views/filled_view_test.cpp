// HCView: a view that its subviews fill, that fills its superview, and that may have a blur.
#include "views/observing.h"

namespace test {
namespace {

using Selectors = std::vector<std::string>;
using objc::strong;

class FilledView : public testing::Test {
  protected:
    void SetUp() override {
        phone.start(options());
        view = objc::adopt(objc::send<"init", UIView*>(allocated("HCView")));
        heard.clear();
    }
    void TearDown() override { view = nullptr; }
    virtual Phone::Options options() { return {}; }

    static strong<UIView> plain(CGRect frame = {}) { return UIView::alloc()->initWithFrame(frame); }
    UIView* blur() const { return objc::send<"backgroundBlur", UIView*>(view); }
    void enable_blur() const { objc::send<"enableBlur">(view); }
    void disable_blur() const { objc::send<"disableBlur">(view); }

    /// The constraints pin one view to the other, top, leading, trailing, bottom.
    static void expect_pins(const std::vector<id>& constraints, UIView* inner, UIView* outer) {
        constexpr NSLayoutAttribute order[] = {NSLayoutAttributeTop, NSLayoutAttributeLeading,
                                               NSLayoutAttributeTrailing, NSLayoutAttributeBottom};
        ASSERT_EQ(constraints.size(), 4u);
        for (size_t i = 0; i < 4; ++i) {
            auto* constraint = static_cast<NSLayoutConstraint*>(constraints[i]);
            EXPECT_EQ(constraint->firstItem(), inner);
            EXPECT_EQ(constraint->secondItem(), outer);
            EXPECT_EQ(constraint->firstAttribute(), order[i]);
            EXPECT_EQ(constraint->secondAttribute(), order[i]);
            EXPECT_EQ(constraint->relation(), NSLayoutRelationEqual);
            EXPECT_EQ(constraint->multiplier(), 1);
            EXPECT_EQ(constraint->constant(), 0);
            EXPECT_EQ(constraint->priority(), 1000);
            EXPECT_TRUE(constraint->isActive());
        }
        EXPECT_FALSE(inner->translatesAutoresizingMaskIntoConstraints());
    }

    Phone phone;
    strong<UIView> view;
};

TEST_F(FilledView, InitIsInitWithAnEmptyFrame) {
    observe<"initWithFrame:", id, CGRect>("HCView");
    auto made = objc::adopt(objc::send<"init", UIView*>(allocated("HCView")));
    EXPECT_EQ(heard, (Selectors{"initWithFrame:"}));
    EXPECT_EQ(made->frame(), (CGRect{}));
}

TEST_F(FilledView, IsMadeOpaqueAsynchronousAndClippingInThatOrder) {
    observe<"setOpaque:", void, int>("HCView");
    observe<"setClipsToBounds:", void, int>("HCView");
    observe<"setDrawsAsynchronously:", void, int>("CALayer");
    observe<"setMasksToBounds:", void, int>("CALayer");
    auto made =
        objc::adopt(objc::send<"initWithFrame:", UIView*>(allocated("HCView"), CGRect{{1, 2}, {3, 4}}));
    EXPECT_EQ(heard, (Selectors{"setOpaque:", "setDrawsAsynchronously:", "setClipsToBounds:",
                                "setMasksToBounds:", "setMasksToBounds:"}))
        << "clipping is masking, once more";
    EXPECT_EQ(made->frame(), (CGRect{{1, 2}, {3, 4}}));
    EXPECT_TRUE(made->isOpaque());
    EXPECT_TRUE(made->layer()->drawsAsynchronously());
    EXPECT_TRUE(made->clipsToBounds());
    EXPECT_TRUE(made->layer()->masksToBounds());
    EXPECT_EQ((objc::send<"backgroundBlur", id>(made)), nullptr);
}

TEST_F(FilledView, AViewThatCannotBeMadeGivesNothing) {
    MSHookMessageEx(
        UIView::class_object(), sel_registerName("initWithFrame:"),
        reinterpret_cast<IMP>(+[](id self, SEL, CGRect) -> id { return objc_release(self), nullptr; }),
        nullptr);
    EXPECT_EQ((objc::send<"init", id>(allocated("HCView"))), nullptr);
    EXPECT_EQ((objc::send<"initWithColor:", id>(allocated("HCColourView"), color(1, 0, 0))), nullptr);
    EXPECT_EQ(
        (objc::send<"initWithColors:direction:", id>(allocated("HCGradientView"), array({}), NSInteger{1})),
        nullptr);
    EXPECT_EQ((objc::send<"initWithImage:alpha:", id>(allocated("HCImageView"), id{}, 0.5)), nullptr);
}

TEST_F(FilledView, ASubviewIsPinnedToItsEdges) {
    auto child = plain({{3, 3}, {5, 5}});
    view->addSubview(child);
    expect_pins(elements(view->constraints()), child, view);
    view->setFrame({{0, 0}, {80, 60}});
    view->layoutIfNeeded();
    EXPECT_EQ(child->frame(), (CGRect{{0, 0}, {80, 60}}));
    view->setFrame({{0, 0}, {20, 10}});
    view->layoutIfNeeded();
    EXPECT_EQ(child->frame(), (CGRect{{0, 0}, {20, 10}}));
    EXPECT_EQ(sim_layout_report_count(), 0u);
}

TEST_F(FilledView, ASubviewIsAsynchronousOpaqueAndRasterised) {
    auto child = plain();
    child->setOpaque(false);
    view->addSubview(child);
    EXPECT_TRUE(child->layer()->drawsAsynchronously());
    EXPECT_TRUE(child->isOpaque());
    EXPECT_TRUE(child->layer()->shouldRasterize());
    EXPECT_EQ(child->layer()->rasterizationScale(), 2.0);
}

class FilledViewOnADenserScreen : public FilledView {
  protected:
    Phone::Options options() override { return {.screen_scale = 3}; }
};

TEST_F(FilledViewOnADenserScreen, ASubviewIsRasterisedAtThatScale) {
    auto child = plain();
    view->addSubview(child);
    EXPECT_EQ(child->layer()->rasterizationScale(), 3.0);
}

TEST_F(FilledView, AnAddedSubviewIsSetUpInOrder) {
    auto child = plain();
    observe<"didAddSubview:", void, id>("UIView");
    observe<"setTranslatesAutoresizingMaskIntoConstraints:", void, int>("UIView");
    observe<"setActive:", void, int>("NSLayoutConstraint");
    observe<"setDrawsAsynchronously:", void, int>("CALayer");
    observe<"setOpaque:", void, int>("UIView");
    observe<"setShouldRasterize:", void, int>("CALayer");
    observe<"setRasterizationScale:", void, CGFloat>("CALayer");
    view->addSubview(child);
    EXPECT_EQ(heard,
              (Selectors{"didAddSubview:", "setTranslatesAutoresizingMaskIntoConstraints:", "setActive:",
                         "setActive:", "setActive:", "setActive:", "setDrawsAsynchronously:", "setOpaque:",
                         "setShouldRasterize:", "setRasterizationScale:"}));
}

TEST_F(FilledView, EverySubviewIsSetUpHoweverItIsAdded) {
    auto first = plain(), below = plain(), above = plain(), at_index = plain();
    view->addSubview(first);
    view->insertSubviewBelow(below, first);
    view->insertSubviewAbove(above, first);
    view->insertSubview(at_index, 1);
    EXPECT_EQ(view->constraints()->count(), 16u);
    EXPECT_EQ(subviews_of(view), (std::vector<id>{below, at_index, first, above}));
}

TEST_F(FilledView, ASubclassOfTheSystemsBackdropIsRasterisedAndThatItselfIsNot) {
    auto plain_backdrop =
        objc::adopt(objc::send<"initWithStyle:", UIView*>(allocated("_UIBackdropView"), NSInteger{2}));
    auto* subclass =
        objc::send<"backdropWithStyle:", UIView*>(class_named("_UIBackdropColouredView"), NSInteger{2});
    view->addSubview(plain_backdrop);
    view->addSubview(subclass);
    EXPECT_FALSE(plain_backdrop->layer()->shouldRasterize());
    EXPECT_EQ(plain_backdrop->layer()->rasterizationScale(), 1.0);
    EXPECT_TRUE(plain_backdrop->layer()->drawsAsynchronously());
    EXPECT_TRUE(plain_backdrop->isOpaque());
    EXPECT_TRUE(subclass->layer()->shouldRasterize());
    EXPECT_EQ(subclass->layer()->rasterizationScale(), 2.0);
}

TEST_F(FilledView, ABlurLiesBelowAllOtherSubviews) {
    static NSInteger style = 0;
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("_UIBackdropView"), sel_registerName("initWithStyle:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSInteger wanted) -> id {
                        style = wanted;
                        return call<id>(previous, self, selector, wanted);
                    }),
                    &previous);
    auto child = plain();
    view->addSubview(child);
    enable_blur();
    ASSERT_NE(blur(), nullptr);
    EXPECT_STREQ(object_getClassName(blur()), "_UIBackdropView");
    EXPECT_EQ(style, 2);
    EXPECT_EQ(subviews_of(view), (std::vector<id>{blur(), child}));
    EXPECT_FALSE(blur()->layer()->shouldRasterize()) << "it would freeze";
    view->setFrame({{0, 0}, {80, 60}});
    view->layoutIfNeeded();
    EXPECT_EQ(blur()->frame(), (CGRect{{0, 0}, {80, 60}}));
    EXPECT_EQ(sim_layout_report_count(), 0u);
}

TEST_F(FilledView, EnablingTheBlurAgainOnlyMovesItBack) {
    enable_blur();
    UIView* first = blur();
    auto child = plain();
    view->insertSubview(child, 0);
    EXPECT_EQ(subviews_of(view), (std::vector<id>{child, first}));
    enable_blur();
    EXPECT_EQ(blur(), first);
    EXPECT_EQ(subviews_of(view), (std::vector<id>{first, child}));
    EXPECT_EQ(view->constraints()->count(), 8u);
}

TEST_F(FilledView, DisablingTheBlurTakesItAway) {
    objc::weak<UIView> watched;
    {
        objc::AutoreleasePool pool;
        enable_blur();
        watched = blur();
        disable_blur();
        EXPECT_EQ(blur(), nullptr);
        EXPECT_EQ(subviews_of(view).size(), 0u);
        EXPECT_EQ(view->constraints()->count(), 0u);
    }
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(FilledView, DisablingNoBlurDoesNothing) {
    auto child = plain();
    view->addSubview(child);
    disable_blur();
    disable_blur();
    EXPECT_EQ(subviews_of(view), (std::vector<id>{child}));
}

TEST_F(FilledView, AfterItWasDisabledANewBlurIsMade) {
    enable_blur();
    strong<UIView> first = blur();
    disable_blur();
    enable_blur();
    EXPECT_NE(blur(), nullptr);
    EXPECT_NE(blur(), first);
}

TEST_F(FilledView, TheBlurCanBeSetFromOutside) {
    auto mine =
        objc::adopt(objc::send<"initWithStyle:", UIView*>(allocated("_UIBackdropView"), NSInteger{2}));
    objc::send<"setBackgroundBlur:">(view, mine.get());
    EXPECT_EQ(blur(), mine);
    EXPECT_EQ(mine->superview(), nullptr) << "a plain accessor";
    enable_blur();
    EXPECT_EQ(subviews_of(view), (std::vector<id>{mine}));
    EXPECT_EQ(variable<UIView*>(view, "_backgroundBlur"), mine);
}

TEST_F(FilledView, FillsItsSuperview) {
    auto outer = plain({{0, 0}, {80, 60}});
    outer->addSubview(view);
    expect_pins(elements(outer->constraints()), view, outer);
    outer->layoutIfNeeded();
    EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {80, 60}}));
    EXPECT_EQ(sim_layout_report_count(), 0u);
}

TEST_F(FilledView, MovingIsToldToTheSuperclassFirst) {
    auto outer = plain();
    observe<"didMoveToSuperview">("UIView");
    observe<"setTranslatesAutoresizingMaskIntoConstraints:", void, int>("UIView");
    observe<"setActive:", void, int>("NSLayoutConstraint");
    outer->addSubview(view);
    EXPECT_EQ(heard, (Selectors{"didMoveToSuperview", "setTranslatesAutoresizingMaskIntoConstraints:",
                                "setActive:", "setActive:", "setActive:", "setActive:"}));
    heard.clear();
    view->removeFromSuperview();
    EXPECT_EQ(heard, (Selectors{"didMoveToSuperview"})) << "there is nothing to fill";
}

TEST_F(FilledView, FillsTheNextSuperviewToo) {
    auto first = plain({{0, 0}, {80, 60}}), second = plain({{0, 0}, {20, 10}});
    first->addSubview(view);
    second->addSubview(view);
    expect_pins(elements(second->constraints()), view, second);
    second->layoutIfNeeded();
    EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {20, 10}}));
}

TEST_F(FilledView, InsideAnotherItIsPinnedByBothWithoutConflict) {
    auto inner = objc::adopt(objc::send<"init", UIView*>(allocated("HCView")));
    auto innermost = plain();
    inner->addSubview(innermost);
    view->addSubview(inner);
    EXPECT_EQ(view->constraints()->count(), 8u);
    view->setFrame({{0, 0}, {80, 60}});
    view->layoutIfNeeded();
    EXPECT_EQ(innermost->frame(), (CGRect{{0, 0}, {80, 60}}));
    EXPECT_EQ(sim_layout_report_count(), 0u);
}

TEST_F(FilledView, NothingIsAddedOrPinned) {
    view->addSubview(nullptr);
    EXPECT_EQ(view->constraints()->count(), 0u);
}

}  // namespace
}  // namespace test
