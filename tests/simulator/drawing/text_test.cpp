// Fonts, labels, and text drawn with them.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using Font = Drawing;
using Label = Drawing;
using objc::strong;
using namespace objc::literals;

strong<UILabel> label_with(std::string_view words, CGRect frame = {{0, 0}, {100, 30}}) {
    auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame(frame).leak()));
    label->setText(text(words));
    return label;
}

/// The box of the pixels that are not transparent.
struct Ink {
    size_t left = SIZE_MAX, top = SIZE_MAX, right = 0, bottom = 0;
    double amount = 0;
    bool none() const { return amount == 0; }
};
Ink ink_of(const Picture& picture) {
    Ink ink;
    for (size_t y = 0; y < picture.height(); ++y)
        for (size_t x = 0; x < picture.width(); ++x)
            if (const int alpha = picture.at(x, y).alpha; alpha > 0) {
                ink.left = std::min(ink.left, x), ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y), ink.bottom = std::max(ink.bottom, y);
                ink.amount += alpha / 255.0;
            }
    return ink;
}
Ink ink_of(UIView* view) { return ink_of(photographed(view, 2)); }

TEST_F(Font, TheSystemsFontHasAName) {
    EXPECT_EQ(utf8(UIFont::systemFontOfSize(17)->fontName()), ".SFUIText");
    EXPECT_EQ(utf8(UIFont::systemFontOfSize(20)->fontName()), ".SFUIDisplay");
    EXPECT_EQ(utf8(UIFont::systemFontOfSize(17, UIFontWeightLight)->fontName()), ".SFUIText-Light");
    EXPECT_EQ(UIFont::systemFontOfSize(17)->pointSize(), 17);
}

TEST_F(Font, AWeightOfAFamilyIsFoundByName) {
    UIFont* bold = UIFont::fontWithName(".SFUIText-Bold"_ns, 14);
    ASSERT_NE(bold, nullptr);
    EXPECT_EQ(bold->pointSize(), 14);
    EXPECT_EQ(utf8(bold->fontName()), ".SFUIText-Bold");
    EXPECT_EQ(bold->fontWithSize(20)->pointSize(), 20);
}

TEST_F(Font, AnUnknownNameIsNil) {
    EXPECT_EQ(UIFont::fontWithName("NoSuchFont"_ns, 14), nullptr);
    EXPECT_EQ(UIFont::fontWithName(""_ns, 14), nullptr);
    EXPECT_EQ(UIFont::fontWithName(nullptr, 14), nullptr);
}

TEST_F(Font, ASizeThatIsNoneIsTheDefault) {
    for (CGFloat size : {0.0, -3.0, double{NAN}}) EXPECT_EQ(UIFont::systemFontOfSize(size)->pointSize(), 12);
}

TEST_F(Font, MeasuresGrowWithTheSize) {
    UIFont *small = UIFont::systemFontOfSize(10), *large = UIFont::systemFontOfSize(20 - 1e-9);
    EXPECT_GT(small->ascender(), 8);
    EXPECT_LT(small->descender(), 0);
    EXPECT_NEAR(small->lineHeight(), small->ascender() - small->descender(), 1e-9);
    EXPECT_NEAR(large->lineHeight(), 2 * small->lineHeight(), 0.05);
}

TEST_F(Font, EmojiAreMeasuredInTheirSize) {
    UIFont* emoji = UIFont::fontWithName("AppleColorEmoji"_ns, 16);
    EXPECT_NEAR(emoji->ascender(), 0.93 * 16, 0.5);
    EXPECT_NEAR(emoji->descender(), -0.25 * 16, 0.5);
    EXPECT_NEAR(emoji->fontWithSize(48)->lineHeight(), 3 * emoji->lineHeight(), 0.05);
}

TEST_F(Font, EqualFontsAreEqual) {
    EXPECT_TRUE(UIFont::systemFontOfSize(17)->isEqual(UIFont::fontWithName(".SFUIText"_ns, 17)));
    EXPECT_FALSE(UIFont::systemFontOfSize(17)->isEqual(UIFont::systemFontOfSize(18)));
    EXPECT_FALSE(UIFont::systemFontOfSize(17)->isEqual(nullptr));
}

TEST_F(Label, BeginsWithThePlatformsDefaults) {
    auto label = label_with("");
    EXPECT_EQ(label->font()->pointSize(), 17);
    EXPECT_EQ(label->textColor(), UIColor::blackColor());
    EXPECT_EQ(label->numberOfLines(), 1);
    EXPECT_EQ(label->lineBreakMode(), NSLineBreakByTruncatingTail);
    EXPECT_EQ(label->textAlignment(), NSTextAlignmentNatural);
    EXPECT_FALSE(label->isUserInteractionEnabled());
    EXPECT_EQ(label->backgroundColor(), nullptr);
}

TEST_F(Label, KeepsItsLineBreakMode) {
    auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
    label->setLineBreakMode(NSLineBreakByWordWrapping);
    EXPECT_EQ(label->lineBreakMode(), NSLineBreakByWordWrapping);
}

TEST_F(Label, IsMeasuredAgainAfterEachChange) {
    auto label = label_with("a word and another");
    label->setNumberOfLines(0);
    const CGSize narrow{60, 0};
    CGSize before = label->sizeThatFits(narrow);
    const auto expect_other_height = [&](auto change) {
        change();
        const CGSize now = label->sizeThatFits(narrow);
        EXPECT_NE(now.height, before.height);
        before = now;
    };
    expect_other_height([&] { label->setText(text("a word")); });
    expect_other_height([&] { label->setText(text("a word and another")); });
    expect_other_height([&] { label->setNumberOfLines(2); });
    expect_other_height([&] { label->setFont(UIFont::systemFontOfSize(14)); });
    EXPECT_LT(label->sizeThatFits({1000, 0}).height, before.height);
    EXPECT_GT(label->sizeThatFits({1000, 0}).width, before.width);
    label->setNumberOfLines(1);
    const CGFloat regular = label->sizeThatFits({}).width;
    label->setFont(UIFont::systemFontOfSize(14, UIFontWeightBold));
    EXPECT_GT(label->sizeThatFits({}).width, regular);
}

TEST_F(Label, IsMeasuredHoweverManyTextsItHad) {
    auto label = label_with("first");
    const CGSize first = label->sizeThatFits({});
    for (int i = 0; i < 1500; ++i) {
        label->setText(text("text " + std::to_string(i)));
        label->sizeThatFits({});
    }
    label->setText(text("first"));
    EXPECT_EQ(label->sizeThatFits({}), first);
    label->setText(text(std::string(300, 'w')));
    EXPECT_GT(label->sizeThatFits({}).width, 300 * 10);
}

TEST_F(Label, ShowsItsTextInItsColour) {
    auto label = label_with("I");
    label->setTextColor(UIColor::redColor());
    const Ink ink = ink_of(label);
    ASSERT_FALSE(ink.none());
    const Pixel pixel = photographed(label, 2).at((ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2);
    EXPECT_EQ(pixel, red);
}

TEST_F(Label, WithoutTextShowsNothing) {
    EXPECT_TRUE(ink_of(label_with("")).none());
    auto label = label_with("x");
    label->setText(nullptr);
    EXPECT_TRUE(ink_of(label).none());
    EXPECT_EQ(label->text(), nullptr);
}

TEST_F(Label, IsDrawnAnewWhenItChanges) {
    auto label = label_with("i");
    const double before = ink_of(label).amount;
    label->setText("WWW"_ns);
    EXPECT_GT(ink_of(label).amount, 3 * before);
    const double regular = ink_of(label).amount;
    label->setFont(UIFont::systemFontOfSize(17, UIFontWeightBold));
    EXPECT_GT(ink_of(label).amount, 1.2 * regular);
    label->setTextColor(UIColor::clearColor());
    EXPECT_TRUE(ink_of(label).none());
}

TEST_F(Label, AlignsItsText) {
    auto label = label_with("l");
    const Ink left = ink_of(label);
    label->setTextAlignment(NSTextAlignmentCenter);
    const Ink middle = ink_of(label);
    label->setTextAlignment(NSTextAlignmentRight);
    const Ink right = ink_of(label);
    EXPECT_LT(left.right, 20u);
    EXPECT_NEAR(static_cast<double>(middle.left + middle.right) / 2, 100, 3);
    EXPECT_GT(right.left, 180u);
}

TEST_F(Label, StandsInTheMiddleOfItsHeight) {
    const Ink ink = ink_of(label_with("H", {{0, 0}, {100, 200}}));
    EXPECT_NEAR(static_cast<double>(ink.top + ink.bottom) / 2, 200, 6);
}

TEST_F(Label, FitsItsText) {
    auto label = label_with("Hello");
    const CGSize size = label->sizeThatFits({0, 0});
    EXPECT_EQ(size, label->intrinsicContentSize());
    EXPECT_EQ(size.width, std::ceil(size.width));
    EXPECT_NEAR(size.height, 17 * 1.21, 1);
    label->sizeToFit();
    EXPECT_EQ(label->bounds().size, size);
    const Ink ink = ink_of(label);
    EXPECT_LT(ink.left, 5u);
    EXPECT_GT(ink.right, static_cast<size_t>(2 * size.width) - 6);
    EXPECT_EQ(label_with("")->sizeThatFits({0, 0}), (CGSize{0, 0}));
}

TEST_F(Label, CutsOffWhatDoesNotFitOneLine) {
    auto label = label_with("A text that is much too long for this", {{0, 0}, {60, 60}});
    const Ink ink = ink_of(label);
    EXPECT_LT(ink.bottom - ink.top, 45u) << "one line";
    EXPECT_GT(ink.right, 80u);
    EXPECT_LT(ink.right, 120u);
}

TEST_F(Label, WrapsIntoTheLinesItMayHave) {
    auto label = label_with("A text that is much too long for this", {{0, 0}, {100, 200}});
    label->setNumberOfLines(2);
    const Ink two = ink_of(label);
    label->setNumberOfLines(0);
    const Ink all = ink_of(label);
    EXPECT_GT(all.bottom - all.top, two.bottom - two.top + 20);
    EXPECT_GT(label->sizeThatFits({100, 0}).height, 60);
    EXPECT_LE(label->sizeThatFits({100, 0}).width, 100);
}

TEST_F(Label, TextIsTheSameAtEveryScale) {
    auto label = label_with("Hamburg", {{0, 0}, {100, 30}});
    const Ink once = ink_of(photographed(label, 1));
    label->setContentScaleFactor(4);
    label->setNeedsDisplay();
    const Ink fourfold = ink_of(photographed(label, 4));
    EXPECT_NEAR(static_cast<double>(once.right), static_cast<double>(fourfold.right) / 4, 1.5);
    EXPECT_NEAR(once.amount, fourfold.amount / 16, 0.05 * once.amount);
}

TEST_F(Label, OtherScriptsAndSymbolsHaveGlyphs) {
    const double box =
        ink_of(label_with("\U0010fffd")).amount;  // what stands for a character without a glyph
    EXPECT_GT(box, 0);
    for (const char* words : {"Ж", "ñ", "→", "∀", "☃"}) {
        const double amount = ink_of(label_with(words)).amount;
        EXPECT_GT(amount, 0) << words;
        EXPECT_GT(std::abs(amount - box), 1) << words;
    }
}

TEST_F(Label, EmojiAreInColour) {
    auto label = label_with("😀");
    label->setFont(UIFont::fontWithName("AppleColorEmoji"_ns, 20));
    const Picture picture = photographed(label, 2);
    const Ink ink = ink_of(picture);
    ASSERT_FALSE(ink.none());
    const Pixel face = picture.at((ink.left + ink.right) / 2, ink.top + (ink.bottom - ink.top) / 4);
    EXPECT_GT(face.red, face.blue + 60) << "yellow";
}

TEST_F(Label, StrangeSizesAreHarmless) {
    for (CGRect frame : {CGRect{{0, 0}, {0, 0}}, CGRect{{0, 0}, {1, 1}}, CGRect{{0, 0}, {NAN, 10}},
                         CGRect{{0, 0}, {20000, 10}}, CGRect{{0, 0}, {1e8, 1e8}}}) {
        auto label = label_with("words", frame);
        label->layer()->displayIfNeeded();
        label->setNumberOfLines(-4);
        label->layer()->displayIfNeeded();
        label->setFont(nullptr);
        EXPECT_EQ(label->font()->pointSize(), 17);
    }
}

TEST_F(Label, KeepsACopyOfItsText) {
    auto words = NSString::class_send<"stringWithString:", NSString*>("abc"_ns);
    auto* changing = reinterpret_cast<NSString*>(
        objc::send<"stringWithString:", id>(class_named("NSMutableString"), words));
    auto label = label_with("");
    label->setText(changing);
    changing->send<"appendString:">("def"_ns);
    EXPECT_EQ(utf8(label->text()), "abc");
}

}  // namespace
}  // namespace test
