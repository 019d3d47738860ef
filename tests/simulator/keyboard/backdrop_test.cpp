// Backdrops, with nothing replaced.
#include "platform/keyboard.h"
#include "support/phone.h"

namespace test {
namespace {

class Backdrop : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static NSInteger light_style() { return UIKBRenderConfig::backdropStyle(0, 100); }

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

TEST_F(Backdrop, AVisualEffectViewIsABackdropView) {
    auto view = UIKBVisualEffectView::alloc()->initWithFrame({{0, 0}, {40, 20}}, light_style());
    EXPECT_TRUE(view->isKindOfClass(UIKBBackdropView::class_object()));
    EXPECT_EQ(shown(view), material);
}

TEST_F(Backdrop, AnInputBackdropShowsItsFullPieceOnly) {
    auto* input = static_cast<UIKBInputBackdropView*>(
        UIKBInputBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}).autoreleased());
    EXPECT_FALSE(input->inputBackdropFullView()->isHidden());
    EXPECT_TRUE(input->inputBackdropLeftView()->isHidden());
    EXPECT_TRUE(input->inputBackdropRightView()->isHidden());
    EXPECT_EQ(shown(input), material);
}

TEST_F(Backdrop, TheInputBackdropsPiecesFollowItsSize) {
    auto* input = static_cast<UIKBInputBackdropView*>(
        UIKBInputBackdropView::alloc()->initWithFrame({{0, 0}, {40, 20}}).autoreleased());
    input->setFrame({{0, 0}, {100, 50}});
    input->layoutIfNeeded();
    EXPECT_EQ(input->inputBackdropFullView()->frame(), (CGRect{{0, 0}, {100, 50}}));
    EXPECT_EQ(input->inputBackdropLeftView()->frame(), (CGRect{{0, 0}, {50, 50}}));
    EXPECT_EQ(input->inputBackdropRightView()->frame(), (CGRect{{50, 0}, {50, 50}}));
}

TEST_F(Backdrop, ASplitInputBackdropShowsItsLeftAndRightPiecesApart) {
    auto* input = static_cast<UIKBInputBackdropView*>(
        UIKBInputBackdropView::alloc()->initWithFrame({{0, 0}, {100, 50}}).autoreleased());
    input->setSplit(true);
    input->layoutIfNeeded();
    EXPECT_TRUE(input->isSplit());
    EXPECT_TRUE(input->inputBackdropFullView()->isHidden());
    EXPECT_FALSE(input->inputBackdropLeftView()->isHidden());
    EXPECT_FALSE(input->inputBackdropRightView()->isHidden());
    EXPECT_EQ(input->inputBackdropLeftView()->frame(), (CGRect{{0, 0}, {40, 50}}));
    EXPECT_EQ(input->inputBackdropRightView()->frame(), (CGRect{{60, 0}, {40, 50}}));
    EXPECT_EQ(shown(input), nothing) << "between the pieces";
}

TEST_F(Backdrop, AnInputBackdropThatIsNoLongerSplitIsWholeAgain) {
    auto* input = static_cast<UIKBInputBackdropView*>(
        UIKBInputBackdropView::alloc()->initWithFrame({{0, 0}, {100, 50}}).autoreleased());
    input->setSplit(true);
    input->layoutIfNeeded();
    input->setSplit(false);
    input->layoutIfNeeded();
    EXPECT_FALSE(input->inputBackdropFullView()->isHidden());
    EXPECT_TRUE(input->inputBackdropLeftView()->isHidden());
    EXPECT_EQ(shown(input), material);
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
