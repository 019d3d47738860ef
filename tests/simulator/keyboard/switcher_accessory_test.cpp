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
    Phone phone;
};

TEST_F(InputSwitcher, ACellKeepsHowItWasMade) {
    UIInputSwitcherTableCell* row = cell("English");
    EXPECT_EQ(utf8(row->reuseIdentifier()), "row");
    EXPECT_EQ(utf8(row->textLabel()->text()), "English");
    EXPECT_EQ(row->textLabel()->layer()->filters()->count(), 0u);
}

TEST_F(InputSwitcher, TheTableIsLaidOutLikeEveryTable) {
    const auto layout_of = [](const char* name) {
        return class_getMethodImplementation(objc_getClass(name), sel_registerName("layoutSubviews"));
    };
    EXPECT_EQ(layout_of("UIInputSwitcherTableView"), layout_of("UITableView"));
    EXPECT_NE(layout_of("UITableView"), layout_of("UIScrollView"));
}

TEST_F(InputSwitcher, TheKeyboardInUseIsMarkedInTheTablesTint) {
    auto table = UIInputSwitcherTableView::alloc()->initWithFrame({{0, 0}, {200, 44}});
    UIInputSwitcherTableCell* row = cell("English");
    EXPECT_EQ(row->accessoryView(), nullptr);
    row->setSelected(true, false);
    EXPECT_TRUE(row->isSelected());
    table->addSubview(row);
    table->setTintColor(color(1, 0, 0));
    objc::strong<UIImageView> mark = as<UIImageView>(row->accessoryView());
    ASSERT_NE(mark.get(), nullptr);
    EXPECT_EQ(mark->superview(), row);
    EXPECT_EQ(mark->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(rgba(mark->tintColor()), (Rgba{1, 0, 0, 1}));
    row->setSelected(false, false);
    EXPECT_EQ(row->accessoryView(), nullptr);
    EXPECT_EQ(mark->superview(), nullptr);
}

TEST_F(InputSwitcher, ASegmentShowsItsOriginalImageOrWhenSelectedTheInvertedOne) {
    auto* segment = static_cast<UIInputSwitcherTableCellSegmentView*>(
        UIInputSwitcherTableCellSegmentView::alloc()->initWithFrame({{0, 0}, {60, 44}}).autoreleased());
    objc::strong<UIImage> original = filled_image(color(1, 0, 0), 4, 4),
                          inverted = filled_image(color(0, 0, 1), 4, 4);
    variable<objc::strong<UIImage>>(segment, "_originalImage") = original;
    variable<objc::strong<UIImage>>(segment, "_invertedImage") = inverted;
    segment->layoutIfNeeded();
    EXPECT_EQ(segment->imageView()->image(), original.get());
    segment->setSelected(true);
    segment->layoutIfNeeded();
    EXPECT_EQ(segment->imageView()->image(), inverted.get());
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

TEST_F(WebFormAccessory, InitForUCBSetsItsVariable) {
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
