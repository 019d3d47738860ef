// Keys, labels, glyphs and highlights under a theme: each hooked method, through its selector.
#include <optional>

#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/themes.h"

namespace test {
namespace {

class KeyColours : public testing::Test {
  protected:
    void SetUp() override { arrange_theme(phone); }

    /// Stands in for the system's implementation, before the library replaces it: sees what the hook passes
    /// on.
    template <class Function>
    static void stand_in(const char* class_name, const char* selector, Function function,
                         bool on_class = false) {
        Class target = objc_getClass(class_name);
        ASSERT_NE(target, nullptr) << class_name;
        IMP previous = nullptr;
        MSHookMessageEx(on_class ? object_getClass(reinterpret_cast<id>(target)) : target,
                        sel_registerName(selector), reinterpret_cast<IMP>(+function), &previous);
        ASSERT_NE(previous, nullptr) << class_name << " has no " << selector;
    }

    Phone phone;
};

// ---- Render factory --------------------------------------------------------------------------------------

template <objc::Name Selector>
std::string colour_name(id receiver) {
    return utf8(objc::send<Selector, NSString*>(receiver));
}

TEST_F(KeyColours, EveryKeyBackgroundShadowAndControlForegroundIsClear) {
    phone.start();
    id factory = made("UIKBRenderFactory");
    EXPECT_EQ(colour_name<"controlKeyShadowColorName">(factory), "UIKBColorClear");
    EXPECT_EQ(colour_name<"defaultKeyShadowColorName">(factory), "UIKBColorClear");
    EXPECT_EQ(colour_name<"controlKeyForegroundColorName">(factory), "UIKBColorClear");
    EXPECT_EQ(colour_name<"_controlKeyBackgroundColorName">(factory), "UIKBColorClear");
    EXPECT_EQ(colour_name<"controlKeyBackgroundColorName">(factory), "UIKBColorClear");
    EXPECT_EQ(colour_name<"defaultKeyBackgroundColorName">(factory), "UIKBColorClear");
    sim_colour colour;
    ASSERT_EQ(sim_named_colour("UIKBColorClear", &colour), SIM_OK);
    EXPECT_EQ(colour.components[colour.model == SIM_COLOUR_GREY ? 1 : 3], 0.0) << "which is transparent";
}

TEST_F(KeyColours, VisibleCapsKeepTheSystemsNames) {
    arrange_theme(phone, true, "<key>_VisibleKeycaps</key><true/>");
    phone.boot();
    auto answer = [] {
        return class_getMethodImplementation(objc_getClass("UIKBRenderFactory"),
                                             sel_registerName("defaultKeyBackgroundColorName"));
    };
    const IMP of_the_system = answer();
    phone.load();
    EXPECT_EQ(answer(), of_the_system);
    EXPECT_NE(colour_name<"defaultKeyBackgroundColorName">(made("UIKBRenderFactory")), "UIKBColorClear");
}

TEST_F(KeyColours, AFixedAnswerIsOneObjectForGood) {
    phone.start();
    id factory = made("UIKBRenderFactory");
    EXPECT_EQ((objc::send<"defaultKeyBackgroundColorName", id>(factory)),
              (objc::send<"controlKeyShadowColorName", id>(factory)));
}

// ---- Emoji section header --------------------------------------------------------------------------------

TEST_F(KeyColours, TheEmojiHeaderIsInTheTextColourWhateverWasStored) {
    phone.start();
    id header = made("UIKeyboardEmojiSectionHeader");
    objc::send<"setHeaderTextColor:">(header, color(1, 0, 0));
    EXPECT_EQ(rgba(objc::send<"headerTextColor", id>(header)), theme_text);
}

TEST_F(KeyColours, TheEmojiHeaderIsGivenTheTextColour) {
    static id stored = nullptr;
    phone.boot();
    stand_in("UIKeyboardEmojiSectionHeader",
             "setHeaderTextColor:", [](id, SEL, id colour) { stored = colour; });
    phone.load();
    objc::send<"setHeaderTextColor:">(made("UIKeyboardEmojiSectionHeader"), color(1, 0, 0));
    EXPECT_EQ(rgba(stored), theme_text);
}

TEST_F(KeyColours, TheEmojiHeaderStoresAndAnswersFullOpacity) {
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

TEST_F(KeyColours, TheEmojiHeaderNeverBlendsVibrantly) {
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

class CategoryBar : public KeyColours {
  protected:
    void SetUp() override {
        KeyColours::SetUp();
        phone.boot();
        stand_in("UIKeyboardEmojiCategoryBar", "displayLayer:", [](id, SEL, id layer) { displayed = layer; });
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
    static inline id displayed = nullptr;
    id bar = nullptr, shown = nullptr, glyph = nullptr, other = nullptr;

    static std::optional<Rgba> multiply_colour(id layer) {
        auto* colour = objc::send<"contentsMultiplyColor", CGColorRef>(layer);
        if (!colour) return std::nullopt;
        return rgba(UIColor::colorWithCGColor(colour));
    }
    static NSArray* filters(id layer) { return objc::send<"filters", NSArray*>(layer); }
};

TEST_F(CategoryBar, TheSystemDisplaysFirstWithTheSameLayer) {
    objc::send<"displayLayer:">(bar, shown);
    EXPECT_EQ(displayed, shown);
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
    EXPECT_EQ(rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(value("inputColor")))),
              theme_highlight);
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

TEST_F(CategoryBar, ALayerWithoutSublayersIsDisplayedAsItIs) {
    objc::send<"displayLayer:">(bar, made("CALayer"));
    EXPECT_NE(displayed, nullptr);
}

// ---- Prediction cell -------------------------------------------------------------------------------------

TEST_F(KeyColours, APredictionIsWrittenInTheTextColour) {
    phone.start();
    EXPECT_EQ(rgba(objc::send<"textColor", id>(made("UIKeyboardPredictionCell"))), theme_text);
}

TEST_F(KeyColours, TheActivePredictionShowsTheHighlightColourAndNothingElse) {
    phone.start();
    id cell = made("UIKeyboardPredictionCell");
    Ivar variable = class_getInstanceVariable(cell->isa, "m_activeView");
    ASSERT_NE(variable, nullptr);
    auto& active = *reinterpret_cast<UIView**>(reinterpret_cast<char*>(cell) + ivar_getOffset(variable));
    ASSERT_NE(active, nullptr);
    id drawn = made("CALayer");
    objc::send<"addSublayer:">(active->layer(), drawn);
    objc::send<"layoutSubviews">(cell);
    EXPECT_EQ(active->layer()->sublayers()->count(), 0u);
    EXPECT_EQ(rgba(UIColor::colorWithCGColor(objc::send<"backgroundColor", CGColorRef>(active->layer()))),
              theme_highlight);
}

TEST_F(KeyColours, APredictionCellIsLaidOutByTheSystemFirst) {
    static int layouts = 0;
    phone.boot();
    stand_in("UIKeyboardPredictionCell", "layoutSubviews", [](id, SEL) { ++layouts; });
    phone.load();
    objc::send<"layoutSubviews">(made("UIKeyboardPredictionCell"));
    EXPECT_EQ(layouts, 1);
}

// ---- Dock button -----------------------------------------------------------------------------------------

TEST_F(KeyColours, DockButtonsAreTintedWithTheTextColourAtEveryLayout) {
    phone.start();
    id button = made("UIKeyboardDockItemButton");
    objc::send<"setTintColor:">(button, color(1, 0, 0));
    objc::send<"layoutSubviews">(button);
    EXPECT_EQ(rgba(objc::send<"tintColor", id>(button)), theme_text);
}

// ---- Text style ------------------------------------------------------------------------------------------

class TextStyle : public KeyColours {
  protected:
    void start_with_font(const char* name) {
        phone.boot();
        font = name ? text(name) : nullptr;
        stand_in("UIKBTextStyle", "textColor", [](id, SEL) -> id { return text("UIKBColorBlack"); });
        stand_in("UIKBTextStyle", "fontName", [](id, SEL) -> id { return font; });
        phone.load();
    }
    std::string colour() { return utf8(objc::send<"textColor", NSString*>(made("UIKBTextStyle"))); }
    static inline NSString* font = nullptr;
};

TEST_F(TextStyle, EmojiKeepTheSystemsColour) {
    start_with_font("AppleColorEmoji");
    EXPECT_EQ(colour(), "UIKBColorBlack");
}

TEST_F(TextStyle, AnyOtherFontIsInTheTextColour) {
    start_with_font("SFUIText-Light");
    EXPECT_EQ(colour(), "UIKBColorText");
}

TEST_F(TextStyle, AStyleWithoutAFontNameIsInTheTextColour) {
    start_with_font(nullptr);
    EXPECT_EQ(colour(), "UIKBColorText");
}

// ---- Render configuration --------------------------------------------------------------------------------

TEST_F(KeyColours, EveryBackdropStyleBecomesTheTranslucentOne) {
    static NSInteger seen_style = 0, seen_quality = 0;
    phone.boot();
    stand_in(
        "UIKBRenderConfig", "backdropStyleForStyle:quality:",
        [](id, SEL, NSInteger style, NSInteger quality) -> NSInteger {
            seen_style = style;
            seen_quality = quality;
            return 4711;
        },
        true);
    phone.load();
    EXPECT_EQ((objc::send<"backdropStyleForStyle:quality:", NSInteger>(class_named("UIKBRenderConfig"),
                                                                       NSInteger{3}, NSInteger{100})),
              4711);
    EXPECT_EQ(seen_style, -2);
    EXPECT_EQ(seen_quality, 100);
}

TEST_F(KeyColours, NoKeyboardIsLight) {
    phone.start();
    EXPECT_FALSE((objc::send<"lightKeyboard", bool>(made("UIKBRenderConfig"))));
}

// ---- Gradients -------------------------------------------------------------------------------------------

class Gradient : public KeyColours {
  protected:
    void SetUp() override {
        KeyColours::SetUp();
        phone.boot();
        auto on_class = [](id, SEL, NSString* name) -> id { return seen = name, text("made"); };
        auto on_object = [](id self, SEL, NSString* name) -> id { return seen = name, self; };
        stand_in("UIKBGradient", "gradientWithFlatColor:", on_class, true);
        stand_in("UIKBGradient", "gradientWithName:", on_class, true);
        stand_in("UIKBGradient", "initWithFlatColor:", on_object);
        stand_in("UIKBGradient", "initWithName:", on_object);
        phone.load();
    }
    static inline NSString* seen = nullptr;

    /// The names that the four ways of making a gradient are passed.
    std::vector<std::string> passed(NSString* name) {
        std::vector<std::string> names;
        auto note = [&](id result) {
            EXPECT_NE(result, nullptr);
            names.push_back(utf8(seen));
        };
        note(objc::send<"gradientWithFlatColor:", id>(class_named("UIKBGradient"), name));
        note(objc::send<"gradientWithName:", id>(class_named("UIKBGradient"), name));
        note(made<"initWithFlatColor:">("UIKBGradient", name));
        note(made<"initWithName:">("UIKBGradient", name));
        return names;
    }
};

TEST_F(Gradient, TheBlueKeyBecomesTheHighlight) {
    EXPECT_EQ(passed(text("UIKBColorKeyBlueKeyBackground")),
              std::vector<std::string>(4, "UIKBColorHighlight"));
}

TEST_F(Gradient, AnyOtherNameIsUnchanged) {
    EXPECT_EQ(passed(text("UIKBColorKeyGrayKeyBackground")),
              std::vector<std::string>(4, "UIKBColorKeyGrayKeyBackground"));
    EXPECT_EQ(passed(nullptr), std::vector<std::string>(4, "(nil)"));
}

// ---- Effects ---------------------------------------------------------------------------------------------

struct EdgeArguments {
    std::string colour;
    NSUInteger edges = 99;
    double inset = 0, weight = 0;
    UIEdgeInsets insets{};
    friend bool operator==(const EdgeArguments&, const EdgeArguments&) = default;
};
EdgeArguments seen_edge;

class Effects : public KeyColours {
  protected:
    static id edge_with_insets(id self, SEL, NSString* colour, NSUInteger edges, UIEdgeInsets insets,
                               double weight) {
        seen_edge = {.colour = utf8(colour), .edges = edges, .weight = weight, .insets = insets};
        return self;
    }
    static constexpr UIEdgeInsets some_insets{1, 2, 3, 4};
};

TEST_F(Effects, NoEdgeEffectHasEdgesWhateverItWasMadeWith) {
    phone.boot();
    id effect = made<"initWithColor:edges:insets:weight:">("UIKBEdgeEffect", text("UIKBColorBlack"),
                                                           NSUInteger{5}, some_insets, 2.0);
    EXPECT_EQ((objc::send<"edges", NSUInteger>(effect)), 5u);
    phone.load();
    EXPECT_EQ((objc::send<"edges", NSUInteger>(effect)), 0u);
}

TEST_F(Effects, AnEdgeEffectWithOneInsetIsMadeClearAndWithoutEdges) {
    phone.boot();
    stand_in(
        "UIKBEdgeEffect", "effectWithColor:edges:inset:weight:",
        [](id self, SEL, NSString* colour, NSUInteger edges, double inset, double weight) -> id {
            seen_edge = {.colour = utf8(colour), .edges = edges, .inset = inset, .weight = weight};
            return self;
        },
        true);
    phone.load();
    id answered = objc::send<"effectWithColor:edges:inset:weight:", id>(
        class_named("UIKBEdgeEffect"), text("UIKBColorBlack"), NSUInteger{5}, 1.5, 2.5);
    EXPECT_EQ(answered, class_named("UIKBEdgeEffect")) << "what the system made";
    EXPECT_EQ(seen_edge,
              (EdgeArguments{.colour = "UIKBColorClear", .edges = 0, .inset = 1.5, .weight = 2.5}));
}

TEST_F(Effects, EdgeEffectsWithInsetsAreMadeClearAndWithoutEdges) {
    phone.boot();
    stand_in("UIKBEdgeEffect", "effectWithColor:edges:insets:weight:", edge_with_insets, true);
    stand_in("UIKBEdgeEffect", "initWithColor:edges:insets:weight:", edge_with_insets);
    phone.load();
    const EdgeArguments clear{.colour = "UIKBColorClear", .edges = 0, .weight = 2.5, .insets = some_insets};
    objc::send<"effectWithColor:edges:insets:weight:", id>(
        class_named("UIKBEdgeEffect"), text("UIKBColorBlack"), NSUInteger{5}, some_insets, 2.5);
    EXPECT_EQ(seen_edge, clear);
    seen_edge = {};
    made<"initWithColor:edges:insets:weight:">("UIKBEdgeEffect", text("UIKBColorBlack"), NSUInteger{5},
                                               some_insets, 2.5);
    EXPECT_EQ(seen_edge, clear);
}

struct ShadowArguments {
    std::string colour;
    CGSize offset{9, 9};
    UIEdgeInsets insets{9, 9, 9, 9};
    double weight = 9;
    friend bool operator==(const ShadowArguments&, const ShadowArguments&) = default;
};
ShadowArguments seen_shadow;

TEST_F(Effects, ShadowsAreMadeClearAndWithoutSize) {
    auto see = [](id self, SEL, NSString* colour, CGSize offset, UIEdgeInsets insets, double weight) -> id {
        seen_shadow = {utf8(colour), offset, insets, weight};
        return self;
    };
    phone.boot();
    stand_in("UIKBShadowEffect", "effectWithColor:offset:insets:weight:", see, true);
    stand_in("UIKBShadowEffect", "initWithColor:offset:insets:weight:", see);
    phone.load();
    const ShadowArguments nothing{"UIKBColorClear", {0, 0}, {0, 0, 0, 0}, 0};
    objc::send<"effectWithColor:offset:insets:weight:", id>(
        class_named("UIKBShadowEffect"), text("UIKBColorBlack"), CGSize{1, 2}, some_insets, 2.5);
    EXPECT_EQ(seen_shadow, nothing);
    seen_shadow = {};
    made<"initWithColor:offset:insets:weight:">("UIKBShadowEffect", text("UIKBColorBlack"), CGSize{1, 2},
                                                some_insets, 2.5);
    EXPECT_EQ(seen_shadow, nothing);
}

// ---- Blurred key view ------------------------------------------------------------------------------------

class BlurredKey : public KeyColours {
  protected:
    /// A key of that name; its view's class is the platform's.
    id key_named(const char* name) {
        id key = made("UIKBTree");
        objc::send<"setName:">(key, name ? text(name) : nullptr);
        return key;
    }
    id view_for(id key) {
        return made<"initWithFrame:keyplane:key:">("UIKBBlurredKeyView", CGRect{{1, 2}, {30, 40}}, id{}, key);
    }
};

TEST_F(BlurredKey, TheLanguageIndicatorHasNoView) {
    phone.start();
    EXPECT_EQ(view_for(key_named("EnabledLanguageIndicator")), nullptr);
}

TEST_F(BlurredKey, AnyOtherKeyKeepsItsView) {
    phone.start();
    EXPECT_NE(view_for(key_named("Latin-Small-Letter-A")), nullptr);
}

TEST_F(BlurredKey, AKeyWithoutANameKeepsItsView) {
    phone.start();
    EXPECT_NE(view_for(key_named(nullptr)), nullptr);
}

TEST_F(BlurredKey, TheDiscardedViewIsReleased) {
    static int deaths = 0;
    phone.boot();
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("UIView"), sel_registerName("dealloc"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        if (std::string(object_getClassName(self)) == "UIKBBlurredKeyView") ++deaths;
                        reinterpret_cast<void (*)(id, SEL)>(previous)(self, selector);
                    }),
                    &previous);
    phone.load();
    {
        objc::AutoreleasePool pool;
        view_for(key_named("EnabledLanguageIndicator"));
    }
    EXPECT_EQ(deaths, 1);
}

TEST_F(BlurredKey, TheSystemMakesTheViewFirst) {
    static CGRect frame{};
    phone.boot();
    stand_in("UIKBBlurredKeyView",
             "initWithFrame:keyplane:key:", [](id self, SEL, CGRect given, id, id) -> id {
                 frame = given;
                 return self;
             });
    phone.load();
    view_for(key_named("EnabledLanguageIndicator"));
    EXPECT_EQ(frame, (CGRect{{1, 2}, {30, 40}}));
}

// ---- A theme that lacks colours --------------------------------------------------------------------------

class ThemeWithoutColours : public KeyColours {
  protected:
    void SetUp() override {
        phone.write(preference_file, property_list("<dict><key>_Enabled</key><true/><key>_Config</key>"
                                                   "<string>Bare.plist</string></dict>"));
        phone.write(std::string(theme_folder) + "Bare.plist", property_list("<dict/>"));
    }
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
    phone.start();
    id layer = made("CALayer"), glyph = made("_UIKBKeyViewLayer"), other = made("CALayer");
    objc::send<"addSublayer:">(layer, glyph);
    objc::send<"addSublayer:">(layer, other);
    objc::send<"displayLayer:">(made("UIKeyboardEmojiCategoryBar"), layer);
    EXPECT_EQ((objc::send<"contentsMultiplyColor", CGColorRef>(glyph)), nullptr);
}

}  // namespace
}  // namespace test
