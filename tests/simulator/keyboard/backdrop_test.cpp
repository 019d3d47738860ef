// Backdrops, with nothing replaced.
#include "objc/exception.h"
#include "platform/keyboard.h"
#include "support/phone.h"

namespace test {
namespace {

class Backdrop : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static NSInteger light_style() { return UIKBRenderConfig::backdropStyle(0, 100); }

    static UIKBInputBackdropView* input_backdrop(CGSize size) {
        return static_cast<UIKBInputBackdropView*>(
            UIKBInputBackdropView::alloc()->initWithFrame({{0, 0}, size}).autoreleased());
    }
    static void split(UIKBInputBackdropView* input) {
        input->layoutToSplit({{0, 0}, {40, 50}}, {{60, 0}, {40, 50}}, 0);
    }

    /// The colour that the view shows in its middle, over nothing.
    static Rgba shown(UIView* view) {
        view->layoutIfNeeded();
        const CGSize size = view->bounds().size;
        UIGraphicsBeginImageContextWithOptions(size, false, 1);
        view->drawViewHierarchyInRect({{0, 0}, size}, true);
        CGContextRef context = UIGraphicsGetCurrentContext();
        const auto* pixel = static_cast<const uint8_t*>(CGBitmapContextGetData(context)) +
                            CGBitmapContextGetBytesPerRow(context) * static_cast<size_t>(size.height / 2) +
                            static_cast<size_t>(size.width / 2) * 4;
        const Rgba color{pixel[2] / 255.0, pixel[1] / 255.0, pixel[0] / 255.0, pixel[3] / 255.0};
        UIGraphicsEndImageContext();
        return color;
    }
    static constexpr Rgba material{209 / 255.0, 213 / 255.0, 219 / 255.0, 1};
    static constexpr Rgba nothing{0, 0, 0, 0};

    Phone phone;
};

TEST_F(Backdrop, ALightKeyboardsBackdropIsGrey) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}, light_style());
    EXPECT_EQ(shown(backdrop), material);
}

TEST_F(Backdrop, StyleMinusTwoHasNoMaterial) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}, -2);
    EXPECT_EQ(shown(backdrop), nothing);
}

TEST_F(Backdrop, TheContentViewIsInFrontAndFollowsTheSize) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}, light_style());
    ASSERT_NE(backdrop->contentView(), nullptr);
    backdrop->setFrame({{0, 0}, {100, 50}});
    EXPECT_EQ(backdrop->contentView()->frame(), (CGRect{{0, 0}, {100, 50}}));
    backdrop->contentView()->setBackgroundColor(color(1, 0, 0));
    EXPECT_EQ(shown(backdrop), (Rgba{1, 0, 0, 1}));
}

TEST_F(Backdrop, AViewThatIsAddedToABackdropItselfRaises) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}, light_style());
    auto view = UIView::alloc()->initWithFrame({{0, 0}, {4, 2}});
    UIView* content = backdrop->contentView();
    const auto expect_refused = [](auto add) {
        id exception = objc::caught(add);
        ASSERT_NE(exception, nullptr);
        EXPECT_EQ(utf8(objc::send<"name", NSString*>(exception)), "NSInternalInconsistencyException");
        EXPECT_EQ(utf8(objc::send<"reason", NSString*>(exception)),
                  "a UIView was added to a UIKBBackdropView itself, instead of to its contentView");
    };
    expect_refused([&] { backdrop->addSubview(view); });
    expect_refused([&] { backdrop->insertSubview(view, 0); });
    expect_refused([&] { backdrop->insertSubviewAbove(view, content); });
    expect_refused([&] { backdrop->insertSubviewBelow(view, content); });
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_EQ(raised_by([&] { content->addSubview(view); }), "");
    EXPECT_EQ(view->superview(), content);
}

TEST_F(Backdrop, HasTheMaterialOfTheStyleThatItChangesTo) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}, -2);
    backdrop->transitionToStyle(light_style());
    EXPECT_EQ(shown(backdrop), material);
}

TEST_F(Backdrop, WhatTheSystemsClassesInheritIsInheritedHereToo) {
    const auto implementation = [](const char* name, const char* selector) {
        return class_getMethodImplementation(objc_getClass(name), sel_registerName(selector));
    };
    EXPECT_EQ(implementation("UIKBVisualEffectView", "initWithFrame:style:"),
              implementation("UIKBBackdropView", "initWithFrame:style:"));
    EXPECT_EQ(implementation("UIKBInputBackdropView", "layoutSubviews"),
              implementation("UIView", "layoutSubviews"));
    EXPECT_STREQ(class_getName(class_getSuperclass(objc_getClass("UIKBBackdropView"))), "UIVisualEffectView");
}

TEST_F(Backdrop, AVisualEffectViewIsABackdropView) {
    auto view = UIKBVisualEffectView::alloc()->initWithFrame({{0, 0}, {40, 20}}, light_style());
    EXPECT_TRUE(view->isKindOfClass(UIKBBackdropView::class_object()));
    EXPECT_EQ(shown(view), material);
}

TEST_F(Backdrop, AnInputBackdropHasItsFullPieceOnly) {
    auto* input = input_backdrop({40, 20});
    EXPECT_FALSE(input->inputBackdropFullView()->isHidden());
    EXPECT_EQ(input->inputBackdropLeftView(), nullptr);
    EXPECT_EQ(input->inputBackdropRightView(), nullptr);
    EXPECT_EQ(shown(input), material);
}

TEST_F(Backdrop, TheInputBackdropsFullPieceFollowsItsSize) {
    auto* input = input_backdrop({40, 20});
    input->setFrame({{0, 0}, {100, 50}});
    EXPECT_EQ(input->inputBackdropFullView()->frame(), (CGRect{{0, 0}, {100, 50}}));
}

TEST_F(Backdrop, TheFullPieceIsWhereItIsPut) {
    auto* input = input_backdrop({100, 50});
    input->layoutToFull({{0, 10}, {100, 40}});
    EXPECT_EQ(input->inputBackdropFullView()->frame(), (CGRect{{0, 10}, {100, 40}}));
}

TEST_F(Backdrop, ASplitInputBackdropShowsItsLeftAndRightPiecesApart) {
    auto* input = input_backdrop({100, 50});
    split(input);
    EXPECT_TRUE(input->inputBackdropFullView()->isHidden());
    EXPECT_FALSE(input->inputBackdropLeftView()->isHidden());
    EXPECT_FALSE(input->inputBackdropRightView()->isHidden());
    EXPECT_EQ(input->inputBackdropLeftView()->frame(), (CGRect{{0, 0}, {40, 50}}));
    EXPECT_EQ(input->inputBackdropRightView()->frame(), (CGRect{{60, 0}, {40, 50}}));
    EXPECT_EQ(shown(input), nothing) << "between the pieces";
}

TEST_F(Backdrop, AnInputBackdropThatIsNoLongerSplitIsWholeAgain) {
    auto* input = input_backdrop({100, 50});
    split(input);
    input->layoutToFull({{0, 0}, {100, 50}});
    EXPECT_FALSE(input->inputBackdropFullView()->isHidden());
    EXPECT_TRUE(input->inputBackdropLeftView()->isHidden());
    EXPECT_TRUE(input->inputBackdropRightView()->isHidden());
    EXPECT_EQ(shown(input), material);
}

TEST_F(Backdrop, EveryPieceChangesToTheInputBackdropsStyle) {
    auto* input = input_backdrop({100, 50});
    split(input);
    input->send<"transitionToStyle:isSplit:">(NSInteger{-2}, true);
    EXPECT_EQ((input->send<"style", NSInteger>()), -2);
    for (auto* piece :
         {input->inputBackdropFullView(), input->inputBackdropLeftView(), input->inputBackdropRightView()})
        EXPECT_EQ(shown(piece), nothing);
}

TEST_F(Backdrop, ASystemBackdropFillsTheViewThatItIsPutInto) {
    auto backdrop = _UIBackdropView::alloc()->initWithStyle(2);
    auto host = UIView::alloc()->initWithFrame({{0, 0}, {40, 20}});
    host->addSubview(backdrop);
    EXPECT_EQ(backdrop->frame(), (CGRect{{0, 0}, {40, 20}}));
    host->setFrame({{0, 0}, {100, 50}});
    EXPECT_EQ(backdrop->frame(), (CGRect{{0, 0}, {100, 50}}));
}

TEST_F(Backdrop, ASystemBackdropDrawsTheMaterialOfItsStyle) {
    auto host = UIView::alloc()->initWithFrame({{0, 0}, {40, 20}});
    host->addSubview(_UIBackdropView::alloc()->initWithStyle(-2));
    EXPECT_EQ(shown(host), nothing);
    host->addSubview(_UIBackdropView::alloc()->initWithStyle(2));
    EXPECT_NE(shown(host), nothing);
    EXPECT_LT(shown(host).alpha, 0.5) << "what it blurs is seen through it";
}

}  // namespace
}  // namespace test
