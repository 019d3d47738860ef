// Suggestions and dock buttons, with nothing replaced.
#include "platform/keyboard.h"
#include "support/phone.h"

namespace test {
namespace {

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

TEST_F(PredictionCell, KeepsItsText) {
    cell->setText(text("hello"));
    EXPECT_EQ(utf8(cell->text()), "hello");
}

TEST_F(PredictionCell, ShowsItsActiveViewOnlyWhileItIsActive) {
    cell->layoutIfNeeded();
    EXPECT_TRUE(active_view->isHidden());
    cell->setActive(true);
    cell->layoutIfNeeded();
    EXPECT_FALSE(active_view->isHidden());
    EXPECT_EQ(active_view->frame(), (CGRect{{5, 5}, {115, 32}}));
}

TEST_F(PredictionCell, DrawsItsActiveStateWithALayerInTheActiveView) {
    cell->setActive(true);
    cell->layoutIfNeeded();
    ASSERT_EQ(active_view->layer()->sublayers()->count(), 1u);
    EXPECT_EQ(active_view->layer()->backgroundColor(), nullptr);
}

TEST_F(PredictionCell, WritesInTheColourThatItsOwnGetterAnswers) {
    cell->setText(text("hello"));
    cell->layoutIfNeeded();
    NSArray* views = cell->subviews();
    auto* label = as<UILabel>(views->objectAtIndex(views->count() - 1));
    ASSERT_NE(label, nullptr) << "the text is in front";
    EXPECT_EQ(rgba(label->textColor()), rgba(cell->textColor()));
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

TEST_F(DockItemButton, ShowsItsImageAsATemplate) {
    button->setImage(filled_image(color(1, 0, 0), 20, 20));
    EXPECT_EQ(button->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
}

TEST_F(DockItemButton, TakesTheTintOfTheDock) {
    UIView* dock = UIView::alloc()->initWithFrame({{0, 0}, {375, 46}}).autoreleased();
    dock->setTintColor(color(0, 1, 0));
    dock->addSubview(button);
    EXPECT_EQ(rgba(button->tintColor()), (Rgba{0, 1, 0, 1}));
}

TEST_F(DockItemButton, DrawsItsImageInTheTintColour) {
    button->setImage(filled_image(color(1, 0, 0), 20, 20));
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
