// The input switcher and the bar over web forms, with nothing replaced.
#include "platform/keyboard.h"
#include "support/runtime.h"

namespace test {
namespace {

class InputSwitcher : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static UIInputSwitcherTableCell* cell(const char* name) {
        auto made = UIInputSwitcherTableCell::alloc()->initWithStyle(0, text("row"));
        made->textLabel()->setText(text(name));
        return std::move(made).autoreleased();
    }
    static UIImage* variable(id owner, const char* name) {
        Ivar found = class_getInstanceVariable(owner->isa, name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<UIImage**>(reinterpret_cast<char*>(owner) + ivar_getOffset(found));
    }

    Phone phone;
};

TEST_F(InputSwitcher, ACellKeepsHowItWasMade) {
    UIInputSwitcherTableCell* row = cell("English");
    EXPECT_EQ((row->send<"style", NSInteger>()), 0);
    EXPECT_EQ(utf8(row->send<"reuseIdentifier", NSString*>()), "row");
    EXPECT_EQ(utf8(row->textLabel()->text()), "English");
    EXPECT_EQ(row->textLabel()->layer()->filters()->count(), 0u);
}

TEST_F(InputSwitcher, TheTablePutsItsCellsBelowEachOther) {
    auto table = UIInputSwitcherTableView::alloc()->initWithFrame({{0, 0}, {200, 88}});
    UIInputSwitcherTableCell *first = cell("English"), *second = cell("Emoji");
    table->addSubview(first);
    table->addSubview(second);
    table->layoutIfNeeded();
    EXPECT_EQ(first->frame(), (CGRect{{0, 0}, {200, 44}}));
    EXPECT_EQ(second->frame(), (CGRect{{0, 44}, {200, 44}}));
}

TEST_F(InputSwitcher, TheKeyboardInUseIsMarkedInTheTablesTint) {
    auto table = UIInputSwitcherTableView::alloc()->initWithFrame({{0, 0}, {200, 44}});
    UIInputSwitcherTableCell* row = cell("English");
    EXPECT_FALSE(row->isChecked());
    row->setChecked(true);
    EXPECT_TRUE(row->isChecked());
    table->addSubview(row);
    table->setTintColor(color(1, 0, 0));
    UIImageView* mark = nullptr;
    for (NSUInteger index = 0; index < row->subviews()->count(); ++index)
        if (auto* image_view = as<UIImageView>(row->subviews()->objectAtIndex(index))) mark = image_view;
    ASSERT_NE(mark, nullptr);
    EXPECT_FALSE(mark->isHidden());
    EXPECT_EQ(mark->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(rgba(mark->tintColor()), (Rgba{1, 0, 0, 1}));
}

TEST_F(InputSwitcher, ASegmentShowsItsOriginalImageOrWhenSelectedTheInvertedOne) {
    auto* segment = static_cast<UIInputSwitcherTableCellSegmentView*>(
        UIInputSwitcherTableCellSegmentView::alloc()->initWithFrame({{0, 0}, {60, 44}}).autoreleased());
    UIImage *original = filled_image(color(1, 0, 0), 4, 4), *inverted = filled_image(color(0, 0, 1), 4, 4);
    segment->setOriginalImage(original);
    segment->setInvertedImage(inverted);
    EXPECT_EQ(variable(segment, "_originalImage"), original);
    EXPECT_EQ(variable(segment, "_invertedImage"), inverted);
    segment->layoutIfNeeded();
    EXPECT_EQ(segment->imageView()->image(), original);
    segment->setSelected(true);
    segment->layoutIfNeeded();
    EXPECT_EQ(segment->imageView()->image(), inverted);
    EXPECT_EQ(segment->imageView()->frame(), (CGRect{{0, 0}, {60, 44}}));
}

class WebFormAccessory : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        bar = static_cast<UIWebFormAccessory*>(
            UIWebFormAccessory::alloc()->initWithFrame({{0, 0}, {375, 44}}).autoreleased());
    }
    UIView* toolbar(const char* name) {
        Ivar found = class_getInstanceVariable(bar->isa, name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<UIView**>(reinterpret_cast<char*>(bar) + ivar_getOffset(found));
    }
    Phone phone;
    UIWebFormAccessory* bar = nullptr;
};

TEST_F(WebFormAccessory, HasAToolbarOnEachSide) {
    bar->layoutIfNeeded();
    EXPECT_EQ(toolbar("_leftToolbar")->frame(), (CGRect{{0, 0}, {303, 44}}));
    EXPECT_EQ(toolbar("_rightToolbar")->frame(), (CGRect{{303, 0}, {72, 44}}));
}

TEST_F(WebFormAccessory, AToolbarHoldsItsButtonsInItsContentView) {
    for (const char* name : {"_leftToolbar", "_rightToolbar"}) {
        NSArray* views = toolbar(name)->subviews();
        ASSERT_EQ(views->count(), 1u);
        auto* content = as<_UIToolbarContentView>(views->objectAtIndex(0));
        ASSERT_NE(content, nullptr) << name;
        EXPECT_GT(content->subviews()->count(), 0u) << name;
        EXPECT_EQ(content->layer()->filters()->count(), 0u) << name;
    }
}

TEST_F(WebFormAccessory, ButtonsStandSideBySide) {
    bar->layoutIfNeeded();
    auto* content = static_cast<UIView*>(toolbar("_leftToolbar")->subviews()->objectAtIndex(0));
    ASSERT_EQ(content->subviews()->count(), 2u);
    auto frame = [&](NSUInteger index) {
        return static_cast<UIView*>(content->subviews()->objectAtIndex(index))->frame();
    };
    EXPECT_GT(frame(0).size.width, 0.0);
    EXPECT_GT(frame(1).origin.x, frame(0).origin.x + frame(0).size.width);
}

TEST_F(WebFormAccessory, IsToldThatItStandsInABarWithOthers) {
    EXPECT_FALSE(variable<bool>(bar, "_usesUCB"));
    bar->send<"initForUCB:">(id{});
    EXPECT_TRUE(variable<bool>(bar, "_usesUCB"));
    EXPECT_STREQ(class_getName(class_getSuperclass(bar->isa)), "UIInputView");
}

TEST_F(WebFormAccessory, TheTextIsInTheTintColour) {
    auto* content = static_cast<UIView*>(toolbar("_rightToolbar")->subviews()->objectAtIndex(0));
    auto* done = as<UILabel>(content->subviews()->objectAtIndex(0));
    ASSERT_NE(done, nullptr);
    bar->layoutIfNeeded();
    bar->setTintColor(color(1, 0, 0));
    bar->layoutIfNeeded();
    EXPECT_EQ(rgba(done->textColor()), (Rgba{1, 0, 0, 1}));
}

}  // namespace
}  // namespace test
