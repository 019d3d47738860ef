// The emoji plane's parts, with nothing replaced.
#include <algorithm>

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
    EXPECT_EQ(header->headerOpacity(), 0.3);
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

TEST_F(EmojiHeader, BlendsItsTitleWhenItIsVibrant) {
    header->layoutIfNeeded();
    EXPECT_NE(label->layer()->compositingFilter(), nullptr);
}

class EmojiCategories : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        bar = static_cast<UIKeyboardEmojiCategoryBar*>(
            UIKeyboardEmojiCategoryBar::alloc()->initWithFrame({{0, 0}, {270, 40}}).autoreleased());
    }

    std::vector<CALayer*> displayed() {
        bar->layer()->displayIfNeeded();
        std::vector<CALayer*> layers;
        NSArray* sublayers = bar->layer()->sublayers();
        for (NSUInteger index = 0; index < sublayers->count(); ++index)
            layers.push_back(static_cast<CALayer*>(sublayers->objectAtIndex(index)));
        return layers;
    }
    static bool is_glyph(CALayer* layer) { return layer->isKindOfClass(_UIKBKeyViewLayer::class_object()); }

    Phone phone;
    UIKeyboardEmojiCategoryBar* bar = nullptr;
};

TEST_F(EmojiCategories, HasNineGlyphsALineAndASelection) {
    const auto layers = displayed();
    EXPECT_EQ(std::count_if(layers.begin(), layers.end(), is_glyph), 9);
    EXPECT_EQ(layers.size(), 11u);
}

TEST_F(EmojiCategories, EveryGlyphIsAPictureInAColourAndABlendMode) {
    for (CALayer* layer : displayed()) {
        EXPECT_NE(layer->compositingFilter(), nullptr);
        if (!is_glyph(layer)) continue;
        EXPECT_NE(layer->contents(), nullptr);
        EXPECT_NE(layer->contentsMultiplyColor(), nullptr);
    }
}

TEST_F(EmojiCategories, TheSelectionStandsBehindTheSelectedGlyph) {
    bar->setSelectedIndex(4);
    const auto layers = displayed();
    auto selection =
        std::find_if(layers.begin() + 1, layers.end(), [](CALayer* layer) { return !is_glyph(layer); });
    ASSERT_NE(selection, layers.end());
    ASSERT_NE(selection + 1, layers.end());
    auto middle = [](CALayer* layer) { return layer->frame().origin.x + layer->frame().size.width / 2; };
    EXPECT_EQ(middle(*selection), 135.0);
    EXPECT_EQ(middle(selection[1]), 135.0);
}

TEST_F(EmojiCategories, DisplayingAgainDrawsNothingTwice) {
    displayed();
    bar->layer()->setNeedsDisplay();
    EXPECT_EQ(displayed().size(), 11u);
}

}  // namespace
}  // namespace test
