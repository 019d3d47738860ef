// Suggestions and dock buttons, with nothing replaced.
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/phone.h"

namespace test {
namespace {

IMP implementation(Class type, const char* selector) {
    return class_getMethodImplementation(type, sel_registerName(selector));
}

class PredictionCell : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        cell = static_cast<UIKeyboardPredictionCell*>(
            UIKeyboardPredictionCell::alloc()->initWithFrame({{0, 0}, {125, 42}}).autoreleased());
        Ivar variable = class_getInstanceVariable(UIKeyboardPredictionCell::class_object(), "m_activeView");
        ASSERT_NE(variable, nullptr);
        active_view = *reinterpret_cast<UIView**>(reinterpret_cast<char*>(cell) + ivar_getOffset(variable));
        ASSERT_NE(active_view, nullptr);
    }

    Phone phone;
    UIKeyboardPredictionCell* cell = nullptr;
    UIView* active_view = nullptr;
};

TEST_F(PredictionCell, IsWrittenInBlack) { EXPECT_EQ(rgba(cell->textColor()), (Rgba{0, 0, 0, 1})); }

TEST_F(PredictionCell, KeepsItsTextAndWhetherItIsActive) {
    cell->setText(text("hello"), nullptr, true, false);
    EXPECT_EQ(utf8(cell->label()->text()), "hello");
    EXPECT_TRUE(cell->active());
}

TEST_F(PredictionCell, InheritsItsLayout) {
    EXPECT_EQ(implementation(UIKeyboardPredictionCell::class_object(), "layoutSubviews"),
              implementation(UIView::class_object(), "layoutSubviews"));
}

TEST_F(PredictionCell, ShowsItsActiveViewOnlyWhileItIsActive) {
    EXPECT_TRUE(active_view->isHidden());
    cell->setActive(true);
    EXPECT_FALSE(active_view->isHidden());
    cell->setActive(false);
    EXPECT_TRUE(active_view->isHidden());
}

TEST_F(PredictionCell, ItsPartsFollowItsFrame) {
    cell->setActive(true);
    cell->setFrame({{0, 0}, {200, 52}});
    EXPECT_EQ(active_view->frame(), (CGRect{{5, 5}, {190, 42}}));
    EXPECT_EQ(static_cast<CALayer*>(active_view->layer()->sublayers()->objectAtIndex(0))->frame(),
              (CGRect{{0, 0}, {190, 42}}));
    EXPECT_EQ(cell->label()->frame(), (CGRect{{0, 0}, {200, 52}}));
}

TEST_F(PredictionCell, BecomingActivePaintsAnewAndAsksForNoLayout) {
    static int layouts = 0;
    IMP previous = nullptr;
    MSHookMessageEx(UIKeyboardPredictionCell::class_object(), sel_registerName("layoutSubviews"),
                    reinterpret_cast<IMP>(+[](id, SEL) { ++layouts; }), &previous);
    cell->layoutIfNeeded();
    EXPECT_EQ(layouts, 1);
    active_view->layer()->setSublayers(nullptr);
    cell->setActive(true);
    cell->layoutIfNeeded();
    EXPECT_EQ(layouts, 1);
    EXPECT_EQ(active_view->layer()->sublayers()->count(), 1u) << "its white layer is there again";
    EXPECT_EQ(active_view->layer()->backgroundColor(), nullptr);
}

TEST_F(PredictionCell, WritesInTheColourThatItsOwnGetterAnswers) {
    static UIColor* answered = nullptr;
    answered = color(0, 1, 0);
    IMP previous = nullptr;
    MSHookMessageEx(UIKeyboardPredictionCell::class_object(), sel_registerName("textColor"),
                    reinterpret_cast<IMP>(+[](id, SEL) -> id { return answered; }), &previous);
    cell->setText(text("hello"), nullptr, false, false);
    EXPECT_EQ(rgba(cell->label()->textColor()), (Rgba{0, 1, 0, 1}));
    NSArray* views = cell->subviews();
    EXPECT_EQ(views->objectAtIndex(views->count() - 1), cell->label()) << "the text is in front";
}

class DockItemButton : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        button = static_cast<UIKeyboardDockItemButton*>(
            UIKeyboardDockItemButton::alloc()->initWithFrame({{0, 0}, {60, 46}}).autoreleased());
    }
    Phone phone;
    UIKeyboardDockItemButton* button = nullptr;
};

TEST_F(DockItemButton, InheritsItsLayoutFromTheButton) {
    EXPECT_EQ(implementation(UIKeyboardDockItemButton::class_object(), "layoutSubviews"),
              implementation(UIButton::class_object(), "layoutSubviews"));
    EXPECT_NE(implementation(UIButton::class_object(), "layoutSubviews"),
              implementation(UIView::class_object(), "layoutSubviews"));
}

TEST_F(DockItemButton, TakesTheTintOfTheDock) {
    UIView* dock = UIView::alloc()->initWithFrame({{0, 0}, {375, 46}}).autoreleased();
    dock->setTintColor(color(0, 1, 0));
    dock->addSubview(button);
    EXPECT_EQ(rgba(button->tintColor()), (Rgba{0, 1, 0, 1}));
}

TEST_F(DockItemButton, DrawsItsImageInTheTintColour) {
    button->setImage(
        filled_image(color(1, 0, 0), 20, 20)->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate),
        UIControlStateNormal);
    button->setTintColor(color(0, 0, 1));
    button->layoutIfNeeded();
    UIGraphicsBeginImageContextWithOptions({60, 46}, false, 1);
    button->drawViewHierarchyInRect({{0, 0}, {60, 46}}, true);
    const auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()));
    const auto* middle = bytes + CGBitmapContextGetBytesPerRow(UIGraphicsGetCurrentContext()) * 23 + 30 * 4;
    EXPECT_EQ(std::vector<int>(middle, middle + 4), (std::vector<int>{255, 0, 0, 255})) << "blue comes first";
    UIGraphicsEndImageContext();
}

}  // namespace
}  // namespace test
