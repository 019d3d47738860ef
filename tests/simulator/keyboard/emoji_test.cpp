// The emoji plane's parts, with nothing replaced.
#include "platform/keyboard.h"
#include "support/phone.h"

namespace test {
namespace {

class EmojiHeader : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        header = static_cast<UIKeyboardEmojiSectionHeader*>(
            UIKeyboardEmojiSectionHeader::alloc()->initWithFrame({{0, 0}, {300, 16}}).autoreleased());
        label = as<UILabel>(header->subviews()->objectAtIndex(0));
        ASSERT_NE(label, nullptr);
    }
    Phone phone;
    UIKeyboardEmojiSectionHeader* header = nullptr;
    UILabel* label = nullptr;
};

TEST_F(EmojiHeader, KeepsItsColourOpacityAndBlend) {
    header->setHeaderTextColor(color(1, 0, 0));
    header->setHeaderOpacity(0.3);
    header->setUseVibrantBlend(false);
    EXPECT_EQ(rgba(header->headerTextColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_FLOAT_EQ(header->headerOpacity(), 0.3f) << "a layer's opacity is a float";
    EXPECT_FALSE(header->useVibrantBlend());
}

TEST_F(EmojiHeader, IsHalfTransparentAndVibrantAtFirst) {
    EXPECT_EQ(header->headerOpacity(), 0.5);
    EXPECT_TRUE(header->useVibrantBlend());
}

TEST_F(EmojiHeader, ShowsItsTitleAsItsPropertiesSay) {
    header->setHeaderName(text("ANIMALS"));
    header->setHeaderTextColor(color(1, 0, 0));
    header->setHeaderOpacity(0.25);
    header->setUseVibrantBlend(false);
    header->setNeedsLayout();
    header->layoutIfNeeded();
    EXPECT_EQ(utf8(label->text()), "ANIMALS");
    EXPECT_EQ(rgba(label->textColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(label->alpha(), 0.25);
    EXPECT_EQ(label->layer()->compositingFilter(), nullptr);
}

TEST_F(EmojiHeader, ShowsItsTitleInItsFontSize) {
    EXPECT_EQ(header->headerFontSize(), 12);
    header->setHeaderFontSize(15);
    EXPECT_EQ(header->headerFontSize(), 15);
    EXPECT_EQ(label->font()->pointSize(), 15);
}

TEST_F(EmojiHeader, BlendsItsTitleWhenItIsVibrant) {
    header->layoutIfNeeded();
    EXPECT_NE(label->layer()->compositingFilter(), nullptr);
}

class EmojiCategories : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        auto key = UIKBTree::alloc()->initWithType(8);
        key->setDisplayType(7);
        auto plane = UIKBTree::alloc()->initWithType(2);
        bar = UIKeyboardEmojiCategoryBar::alloc()
                  ->initWithFrame({{0, 0}, {270, 40}}, plane, key)
                  .autoreleased();
        bar->layer()->displayIfNeeded();
    }

    std::vector<CALayer*> layers() {
        std::vector<CALayer*> found;
        NSArray* sublayers = bar->layer()->sublayers();
        for (NSUInteger index = 0; index < sublayers->count(); ++index)
            found.push_back(static_cast<CALayer*>(sublayers->objectAtIndex(index)));
        return found;
    }

    Phone phone;
    UIKeyboardEmojiCategoryBar* bar = nullptr;
};

TEST_F(EmojiCategories, InheritsHowItIsDisplayedFromTheKeyView) {
    auto implementation = [](Class type) {
        return class_getMethodImplementation(type, sel_registerName("displayLayer:"));
    };
    EXPECT_EQ(implementation(UIKeyboardEmojiCategoryBar::class_object()),
              implementation(UIKBKeyView::class_object()));
}

TEST_F(EmojiCategories, HasADiscAndOneLayerForAllSymbols) {
    ASSERT_EQ(layers().size(), 2u);
    EXPECT_EQ(layers()[0], bar->scrubView()->layer());
    EXPECT_FALSE(layers()[0]->isKindOfClass(_UIKBKeyViewLayer::class_object()));
    EXPECT_TRUE(layers()[1]->isKindOfClass(_UIKBKeyViewLayer::class_object()));
    EXPECT_EQ(layers()[1]->frame(), (CGRect{{0, 0}, {270, 40}}));
}

TEST_F(EmojiCategories, TheSymbolsAreAPictureInAColourAndABlendMode) {
    CALayer* symbols = layers()[1];
    EXPECT_NE(symbols->contents(), nullptr);
    EXPECT_NE(symbols->contentsMultiplyColor(), nullptr);
    EXPECT_NE(symbols->compositingFilter(), nullptr);
}

TEST_F(EmojiCategories, TheDiscMovesBehindTheSelectedSymbol) {
    auto middle = [&] {
        const CGRect frame = bar->scrubView()->frame();
        return frame.origin.x + frame.size.width / 2;
    };
    EXPECT_EQ(middle(), 15.0);
    bar->setSelectedIndex(4);
    EXPECT_EQ(bar->selectedIndex(), 4u);
    EXPECT_EQ(middle(), 135.0);
}

TEST_F(EmojiCategories, DisplayingAgainKeepsItsLayers) {
    const auto before = layers();
    bar->layer()->setNeedsDisplay();
    bar->layer()->displayIfNeeded();
    EXPECT_EQ(layers(), before);
}

}  // namespace
}  // namespace test
