// Emoji header and bar, predictions and dock under a theme: each hooked method, through its selector.
#include <optional>

#include "platform/keyboard.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

class GlyphColours : public testing::Test {
  protected:
    void SetUp() override { arrange_theme(phone); }
    static constexpr Rgba blue{0, 0, 1, 1};

    Phone phone;
};

// ---- Emoji section header --------------------------------------------------------------------------------

TEST_F(GlyphColours, TheEmojiHeaderIsInTheTextColourWhateverWasStored) {
    phone.start();
    id header = made("UIKeyboardEmojiSectionHeader");
    objc::send<"setHeaderTextColor:">(header, color(1, 0, 0));
    EXPECT_EQ(rgba(objc::send<"headerTextColor", id>(header)), theme_text);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    EXPECT_EQ(rgba(objc::send<"headerTextColor", id>(header)), blue) << "asked again";
}

TEST_F(GlyphColours, TheEmojiHeaderIsGivenTheTextColour) {
    static id stored = nullptr;
    phone.boot();
    stand_in("UIKeyboardEmojiSectionHeader",
             "setHeaderTextColor:", [](id, SEL, id colour) { stored = colour; });
    phone.load();
    id header = made("UIKeyboardEmojiSectionHeader");
    objc::send<"setHeaderTextColor:">(header, color(1, 0, 0));
    EXPECT_EQ(rgba(stored), theme_text);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    objc::send<"setHeaderTextColor:">(header, color(1, 0, 0));
    EXPECT_EQ(rgba(stored), blue);
}

TEST_F(GlyphColours, TheEmojiHeaderStoresAndAnswersFullOpacity) {
    static double stored = -1;
    phone.boot();
    stand_in("UIKeyboardEmojiSectionHeader",
             "setHeaderOpacity:", [](id, SEL, double opacity) { stored = opacity; });
    phone.load();
    id header = made("UIKeyboardEmojiSectionHeader");
    EXPECT_EQ((objc::send<"headerOpacity", double>(header)), 1.0);
    objc::send<"setHeaderOpacity:">(header, 0.3);
    EXPECT_EQ(stored, 1.0);
    EXPECT_EQ((objc::send<"headerOpacity", double>(header)), 1.0);
}

TEST_F(GlyphColours, TheEmojiHeaderNeverBlendsVibrantly) {
    static int stored = -1;
    phone.boot();
    stand_in("UIKeyboardEmojiSectionHeader",
             "setUseVibrantBlend:", [](id, SEL, int flag) { stored = flag & 0xff; });
    phone.load();
    id header = made("UIKeyboardEmojiSectionHeader");
    objc::send<"setUseVibrantBlend:">(header, true);
    EXPECT_EQ(stored, 0);
    EXPECT_FALSE((objc::send<"useVibrantBlend", bool>(header)));
}

// ---- Emoji category bar ----------------------------------------------------------------------------------

class CategoryBar : public GlyphColours {
  protected:
    void SetUp() override {
        GlyphColours::SetUp();
        phone.boot();
        stand_in("UIKeyboardEmojiCategoryBar", "displayLayer:", [](id, SEL, id layer) {
            displayed = layer;
            if (added_by_system) objc::send<"addSublayer:">(layer, added_by_system);
        });
        phone.load();
        bar = made("UIKeyboardEmojiCategoryBar");
        shown = made("CALayer");
        glyph = made("_UIKBKeyViewLayer");
        other = made("CALayer");
        for (id layer : {glyph, other}) {
            objc::send<"addSublayer:">(shown, layer);
            objc::send<"setCompositingFilter:">(layer, id{text("plusL")});
        }
    }
    static inline id displayed = nullptr, added_by_system = nullptr;
    id bar = nullptr, shown = nullptr, glyph = nullptr, other = nullptr;

    static std::optional<Rgba> multiply_colour(id layer) {
        auto* colour = objc::send<"contentsMultiplyColor", CGColorRef>(layer);
        if (!colour) return std::nullopt;
        return rgba(UIColor::colorWithCGColor(colour));
    }
    static NSArray* filters(id layer) { return objc::send<"filters", NSArray*>(layer); }
    static Rgba input_colour(id layer) {
        id input = objc::send<"valueForKey:", id>(filters(layer)->objectAtIndex(0), text("inputColor"));
        return rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(input)));
    }
};

TEST_F(CategoryBar, TheSystemDisplaysFirstWithTheSameLayer) {
    added_by_system = made("CALayer");
    objc::send<"displayLayer:">(bar, shown);
    EXPECT_EQ(displayed, shown);
    EXPECT_EQ(filters(added_by_system)->count(), 1u) << "what it adds is recoloured";
}

TEST_F(CategoryBar, AGlyphIsMultipliedWithTheTextColourAndKeepsItsFilters) {
    id filter = objc::send<"filterWithName:", id>(class_named("CAFilter"), text("colorMonochrome"));
    objc::send<"setFilters:">(glyph, array({filter}));
    objc::send<"displayLayer:">(bar, shown);
    EXPECT_EQ(multiply_colour(glyph), theme_text);
    ASSERT_EQ(filters(glyph)->count(), 1u);
    EXPECT_EQ(filters(glyph)->objectAtIndex(0), filter);
    EXPECT_EQ((objc::send<"compositingFilter", id>(glyph)), nullptr);
}

TEST_F(CategoryBar, AnyOtherLayerIsMonochromeInTheHighlightColour) {
    objc::send<"displayLayer:">(bar, shown);
    ASSERT_EQ(filters(other)->count(), 1u);
    id filter = filters(other)->objectAtIndex(0);
    auto value = [&](const char* key) { return objc::send<"valueForKey:", id>(filter, text(key)); };
    EXPECT_EQ(utf8(objc::send<"name", NSString*>(filter)), "colorMonochrome");
    EXPECT_EQ(input_colour(other), theme_highlight);
    EXPECT_EQ((objc::send<"floatValue", float>(value("inputBias"))), 0.5f);
    EXPECT_EQ((objc::send<"floatValue", float>(value("inputAmount"))), 1.0f);
    EXPECT_EQ(multiply_colour(other), std::nullopt);
    EXPECT_EQ((objc::send<"compositingFilter", id>(other)), nullptr);
}

TEST_F(CategoryBar, EachLayerAndEachPassHasAFilterOfItsOwn) {
    id second = made("CALayer");
    objc::send<"addSublayer:">(shown, second);
    objc::send<"displayLayer:">(bar, shown);
    id first_pass = filters(other)->objectAtIndex(0);
    EXPECT_NE(first_pass, filters(second)->objectAtIndex(0));
    objc_autorelease(objc_retain(first_pass));
    objc::send<"displayLayer:">(bar, shown);
    EXPECT_NE(filters(other)->objectAtIndex(0), first_pass);
}

TEST_F(CategoryBar, AFilterThatWasThereIsReplaced) {
    id preset = objc::send<"filterWithName:", id>(class_named("CAFilter"), text("gaussianBlur"));
    objc::send<"setFilters:">(other, array({preset}));
    objc::send<"displayLayer:">(bar, shown);
    ASSERT_EQ(filters(other)->count(), 1u);
    EXPECT_NE(filters(other)->objectAtIndex(0), preset);
}

TEST_F(CategoryBar, EachPassAsksForTheColoursAnew) {
    objc::send<"displayLayer:">(bar, shown);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    objc::send<"displayLayer:">(bar, shown);
    EXPECT_EQ(multiply_colour(glyph), blue);
    EXPECT_EQ(input_colour(other), (Rgba{1, 1, 1, 1}));
}

TEST_F(CategoryBar, ALayerWithoutSublayersIsDisplayedAsItIs) {
    objc::send<"displayLayer:">(bar, made("CALayer"));
    EXPECT_NE(displayed, nullptr);
}

TEST_F(GlyphColours, TheSystemsCategoryBarHasItsSymbolsAndItsDiscRecoloured) {
    phone.start();
    auto key = UIKBTree::alloc()->initWithType(8);
    constexpr int categories = 7;
    key->setDisplayType(categories);
    auto plane = UIKBTree::alloc()->initWithType(2);
    auto bar = UIKeyboardEmojiCategoryBar::alloc()->initWithFrame({{0, 0}, {270, 40}}, plane, key);
    bar->layer()->displayIfNeeded();
    constexpr NSInteger symbols = 4;
    CALayer* picture = bar->layerForRenderFlags(symbols);
    EXPECT_EQ(rgba(UIColor::colorWithCGColor(picture->contentsMultiplyColor())), theme_text);
    EXPECT_EQ(picture->compositingFilter(), nullptr);
    bar->setSelectedIndex(3);
    EXPECT_EQ(bar->scrubView()->layer()->filters()->count(), 1u) << "wherever the disc moves";
    EXPECT_EQ(bar->scrubView()->layer()->compositingFilter(), nullptr);
}

// ---- Prediction cell -------------------------------------------------------------------------------------

class PredictionCell : public GlyphColours {
  protected:
    static UIView* active_view(id cell) { return variable<UIView*>(cell, "m_activeView"); }
    static Rgba background(id cell) {
        return rgba(
            UIColor::colorWithCGColor(objc::send<"backgroundColor", CGColorRef>(active_view(cell)->layer())));
    }
};

TEST_F(PredictionCell, IsWrittenInTheTextColour) {
    phone.start();
    id cell = made("UIKeyboardPredictionCell");
    EXPECT_EQ(rgba(objc::send<"textColor", id>(cell)), theme_text);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    EXPECT_EQ(rgba(objc::send<"textColor", id>(cell)), blue);
}

TEST_F(PredictionCell, TheActiveOneShowsTheHighlightColourAndNothingElse) {
    phone.start();
    id cell = made("UIKeyboardPredictionCell");
    objc::send<"addSublayer:">(active_view(cell)->layer(), made("CALayer"));
    objc::send<"layoutSubviews">(cell);
    EXPECT_EQ(active_view(cell)->layer()->sublayers()->count(), 0u);
    EXPECT_EQ(background(cell), theme_highlight);
    recolour_theme(color(1, 1, 1), color(0, 0, 1));
    objc::send<"layoutSubviews">(cell);
    EXPECT_EQ(background(cell), blue);
}

TEST_F(PredictionCell, IsLaidOutByTheSystemFirst) {
    static int layouts = 0;
    phone.boot();
    stand_in("UIKeyboardPredictionCell", "layoutSubviews", [](id self, SEL) {
        ++layouts;
        objc::send<"addSublayer:">(active_view(self)->layer(), made("CALayer"));
    });
    phone.load();
    id cell = made("UIKeyboardPredictionCell");
    objc::send<"layoutSubviews">(cell);
    EXPECT_EQ(layouts, 1);
    EXPECT_EQ(active_view(cell)->layer()->sublayers()->count(), 0u) << "what it adds goes, too";
}

TEST_F(PredictionCell, OneThatBecomesActiveLaterIsHighlightedAtItsNextLayout) {
    phone.start();
    auto* cell = static_cast<UIKeyboardPredictionCell*>(
        made<"initWithFrame:">("UIKeyboardPredictionCell", CGRect{{0, 0}, {125, 42}}));
    cell->layoutIfNeeded();
    cell->setActive(true);
    cell->layoutIfNeeded();
    ASSERT_EQ(active_view(cell)->layer()->sublayers()->count(), 1u)
        << "the system's white lies over the highlight: nothing asked for a layout";
    cell->setNeedsLayout();
    cell->layoutIfNeeded();
    EXPECT_EQ(active_view(cell)->layer()->sublayers()->count(), 0u);
    EXPECT_EQ(background(cell), theme_highlight);
}

// ---- Dock button -----------------------------------------------------------------------------------------

TEST_F(GlyphColours, DockButtonsAreTintedWithTheTextColourAtEveryLayout) {
    phone.start();
    id button = made("UIKeyboardDockItemButton");
    objc::send<"setTintColor:">(button, color(1, 0, 0));
    objc::send<"layoutSubviews">(button);
    EXPECT_EQ(rgba(objc::send<"tintColor", id>(button)), theme_text);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    objc::send<"layoutSubviews">(button);
    EXPECT_EQ(rgba(objc::send<"tintColor", id>(button)), blue);
}

TEST_F(GlyphColours, ADockButtonIsLaidOutByTheSystemFirst) {
    phone.boot();
    stand_in("UIKeyboardDockItemButton", "layoutSubviews",
             [](id self, SEL) { objc::send<"setTintColor:">(self, color(1, 0, 0)); });
    phone.load();
    id button = made("UIKeyboardDockItemButton");
    objc::send<"layoutSubviews">(button);
    EXPECT_EQ(rgba(objc::send<"tintColor", id>(button)), theme_text);
}

TEST_F(GlyphColours, ADockButtonsImageIsDrawnInTheTextColour) {
    phone.start();
    auto* button = static_cast<UIKeyboardDockItemButton*>(
        made<"initWithFrame:">("UIKeyboardDockItemButton", CGRect{{0, 0}, {60, 46}}));
    button->setImage(
        filled_image(color(1, 0, 0), 20, 20)->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate),
        UIControlStateNormal);
    button->layoutIfNeeded();
    EXPECT_EQ(button->imageView()->frame(), (CGRect{{20, 13}, {20, 20}})) << "the button laid it out";
    EXPECT_EQ(rgba(button->imageView()->tintColor()), theme_text) << "the image has the button's tint";
}

// ---- Methods that the class inherits ---------------------------------------------------------------------

TEST_F(GlyphColours, AnInheritedMethodIsReplacedForTheNamedClassAlone) {
    struct Inherited {
        const char *class_name, *owner, *selector;
    };
    constexpr Inherited rows[] = {{"UIKeyboardPredictionCell", "UIView", "layoutSubviews"},
                                  {"UIKeyboardDockItemButton", "UIButton", "layoutSubviews"},
                                  {"UIKeyboardEmojiCategoryBar", "UIKBKeyView", "displayLayer:"}};
    auto implementation = [](const char* class_name, const char* selector) {
        return class_getMethodImplementation(objc_getClass(class_name), sel_registerName(selector));
    };
    phone.boot();
    std::vector<IMP> before;
    for (const auto& row : rows) {
        before.push_back(implementation(row.owner, row.selector));
        EXPECT_EQ(implementation(row.class_name, row.selector), before.back()) << row.class_name;
    }
    phone.load();
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(implementation(rows[i].owner, rows[i].selector), before[i]) << rows[i].owner;
        EXPECT_NE(implementation(rows[i].class_name, rows[i].selector), before[i]) << rows[i].class_name;
    }
}

// ---- A theme that lacks colours --------------------------------------------------------------------------

class ThemeWithoutColours : public GlyphColours {
  protected:
    void SetUp() override { arrange_theme_of(phone, ""); }
};

TEST_F(ThemeWithoutColours, NilIsPassedOn) {
    static id stored = reinterpret_cast<id>(1), tint = reinterpret_cast<id>(1);
    phone.boot();
    stand_in("UIKeyboardEmojiSectionHeader",
             "setHeaderTextColor:", [](id, SEL, id colour) { stored = colour; });
    stand_in("UIKeyboardDockItemButton", "setTintColor:", [](id, SEL, id colour) { tint = colour; });
    phone.load();
    objc::send<"setHeaderTextColor:">(made("UIKeyboardEmojiSectionHeader"), color(1, 0, 0));
    EXPECT_EQ(stored, nullptr);
    objc::send<"layoutSubviews">(made("UIKeyboardDockItemButton"));
    EXPECT_EQ(tint, nullptr);
    EXPECT_EQ((objc::send<"headerTextColor", id>(made("UIKeyboardEmojiSectionHeader"))), nullptr);
}

TEST_F(ThemeWithoutColours, TheCategoryBarIsDisplayedWithoutColours) {
    phone.boot();
    stand_in("UIKeyboardEmojiCategoryBar", "displayLayer:", [](id, SEL, id) {});
    phone.load();
    id layer = made("CALayer"), glyph = made("_UIKBKeyViewLayer"), other = made("CALayer");
    objc::send<"addSublayer:">(layer, glyph);
    objc::send<"addSublayer:">(layer, other);
    objc::send<"setContentsMultiplyColor:">(glyph, color(1, 0, 0)->CGColor());
    objc::send<"displayLayer:">(made("UIKeyboardEmojiCategoryBar"), layer);
    EXPECT_EQ((objc::send<"contentsMultiplyColor", CGColorRef>(glyph)), nullptr);
    auto* filters = objc::send<"filters", NSArray*>(other);
    ASSERT_EQ(filters->count(), 1u);
    EXPECT_EQ((objc::send<"valueForKey:", id>(filters->objectAtIndex(0), text("inputColor"))), nullptr);
}

TEST_F(ThemeWithoutColours, TheActivePredictionHasNoColour) {
    phone.start();
    id cell = made("UIKeyboardPredictionCell");
    CALayer* layer = variable<UIView*>(cell, "m_activeView")->layer();
    layer->setBackgroundColor(color(1, 0, 0)->CGColor());
    objc::send<"layoutSubviews">(cell);
    EXPECT_EQ(layer->backgroundColor(), nullptr);
}

}  // namespace
}  // namespace test
