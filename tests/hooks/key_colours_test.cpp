// Keys and their labels under a theme: each hooked method, through its selector.
#include "platform/keyboard.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

class KeyColours : public testing::Test {
  protected:
    void SetUp() override { arrange_theme(phone); }

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

TEST_F(KeyColours, FactoriesWithNamesOfTheirOwnGoAroundSomeRows) {
    phone.start();
    auto* context = objc::send<"renderingContextForRenderConfig:", UIKBRenderingContext*>(
        class_named("UIKBRenderingContext"), UIKBRenderConfig::defaultConfig());
    auto names = [&](int visual_style) {
        UIKBRenderFactory* factory = UIKBRenderFactory::factory(visual_style, context);
        std::vector<std::string> kept;
        auto note = [&](const char* name, NSString* answer) {
            if (utf8(answer) != "UIKBColorClear") kept.emplace_back(name);
        };
        note("controlShadow", factory->controlKeyShadowColorName());
        note("defaultShadow", factory->defaultKeyShadowColorName());
        note("controlForeground", factory->controlKeyForegroundColorName());
        note("controlBackground", factory->controlKeyBackgroundColorName());
        note("defaultBackground", factory->defaultKeyBackgroundColorName());
        return kept;
    };
    constexpr int letters = 0, emoji = 1, number_pad = 2, candidates = 3;
    using Names = std::vector<std::string>;
    EXPECT_EQ(names(letters), Names{});
    EXPECT_EQ(names(emoji), (Names{"controlBackground", "defaultBackground"}));
    for (int other : {number_pad, candidates})
        EXPECT_EQ(names(other), (Names{"controlForeground", "controlBackground"}));
}

TEST_F(KeyColours, AFixedAnswerIsOneObjectForGood) {
    phone.start();
    id factory = made("UIKBRenderFactory");
    EXPECT_EQ((objc::send<"defaultKeyBackgroundColorName", id>(factory)),
              (objc::send<"controlKeyShadowColorName", id>(factory)));
}

TEST_F(KeyColours, FixedAnswersNeverAskTheSystem) {
    static int asked = 0;
    auto object = [](id, SEL) -> id { return ++asked, nullptr; };
    auto flag = [](id, SEL) { return ++asked; };
    phone.boot();
    for (const char* name :
         {"controlKeyShadowColorName", "defaultKeyShadowColorName", "controlKeyForegroundColorName",
          "_controlKeyBackgroundColorName", "controlKeyBackgroundColorName", "defaultKeyBackgroundColorName"})
        stand_in("UIKBRenderFactory", name, object);
    stand_in("UIKeyboardEmojiSectionHeader", "headerTextColor", object);
    stand_in("UIKeyboardEmojiSectionHeader", "headerOpacity", [](id, SEL) -> double { return ++asked; });
    stand_in("UIKeyboardEmojiSectionHeader", "useVibrantBlend", flag);
    stand_in("UIKeyboardPredictionCell", "textColor", object);
    stand_in("UIKBRenderConfig", "lightKeyboard", flag);
    stand_in("UIKBEdgeEffect", "edges", [](id, SEL) -> NSUInteger { return ++asked, 15; });
    phone.load();
    id factory = made("UIKBRenderFactory");
    objc::send<"controlKeyShadowColorName", id>(factory);
    objc::send<"defaultKeyShadowColorName", id>(factory);
    objc::send<"controlKeyForegroundColorName", id>(factory);
    objc::send<"_controlKeyBackgroundColorName", id>(factory);
    objc::send<"controlKeyBackgroundColorName", id>(factory);
    objc::send<"defaultKeyBackgroundColorName", id>(factory);
    id header = made("UIKeyboardEmojiSectionHeader");
    objc::send<"headerTextColor", id>(header);
    objc::send<"headerOpacity", double>(header);
    objc::send<"useVibrantBlend", bool>(header);
    objc::send<"textColor", id>(made("UIKeyboardPredictionCell"));
    objc::send<"lightKeyboard", bool>(made("UIKBRenderConfig"));
    objc::send<"edges", NSUInteger>(made("UIKBEdgeEffect"));
    EXPECT_EQ(asked, 0);
}

// ---- Text style ------------------------------------------------------------------------------------------

class TextStyle : public KeyColours {
  protected:
    void start_with_font(const char* name) {
        phone.boot();
        font = name ? text(name) : nullptr;
        stand_in("UIKBTextStyle", "textColor", [](id, SEL) -> id { return ++asked, text("UIKBColorBlack"); });
        stand_in("UIKBTextStyle", "fontName", [](id, SEL) -> id { return font; });
        phone.load();
    }
    std::string colour() { return utf8(objc::send<"textColor", NSString*>(made("UIKBTextStyle"))); }
    static inline NSString* font = nullptr;
    static inline int asked = 0;
};

TEST_F(TextStyle, EmojiKeepTheSystemsColour) {
    start_with_font("AppleColorEmoji");
    EXPECT_EQ(colour(), "UIKBColorBlack");
    EXPECT_EQ(asked, 1);
}

TEST_F(TextStyle, AnyOtherFontIsInTheTextColour) {
    start_with_font("SFUIText-Light");
    EXPECT_EQ(colour(), "UIKBColorText");
    EXPECT_EQ(asked, 0) << "the system is not asked";
}

TEST_F(TextStyle, AStyleWithoutAFontNameIsInTheTextColour) {
    start_with_font(nullptr);
    EXPECT_EQ(colour(), "UIKBColorText");
    EXPECT_EQ(asked, 0) << "the system is not asked";
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
        Side::on_class);
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
        stand_in("UIKBGradient", "gradientWithFlatColor:", on_class, Side::on_class);
        stand_in("UIKBGradient", "gradientWithName:", on_class, Side::on_class);
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
    EXPECT_EQ(passed(text("UIKBColorKeyGrayKeyLightBackground")),
              std::vector<std::string>(4, "UIKBColorKeyGrayKeyLightBackground"));
    EXPECT_EQ(passed(text("UIKBColorWildcatKeyGradient")),
              std::vector<std::string>(4, "UIKBColorWildcatKeyGradient"));
    EXPECT_EQ(passed(nullptr), std::vector<std::string>(4, "(nil)"));
}

TEST_F(KeyColours, AGradientKeepsItsNameUnlessItIsTheBlueKeys) {
    phone.start();
    auto kept = [](const char* name) {
        auto made_by_class = UIKBGradient::gradientWithName(text(name));
        auto initialised = UIKBGradient::alloc()->initWithName(text(name));
        return std::pair(utf8(variable<NSString*>(made_by_class, "_gradientName")),
                         utf8(variable<NSString*>(initialised.get(), "_gradientName")));
    };
    const std::string gradient = "UIKBColorWildcatKeyGradient", highlight = "UIKBColorHighlight";
    EXPECT_EQ(kept("UIKBColorWildcatKeyGradient"), std::pair(gradient, gradient));
    EXPECT_EQ(kept("UIKBColorKeyBlueKeyBackground"), std::pair(highlight, highlight));
}

TEST_F(KeyColours, AGradientNamedAfterTheHighlightIsNone) {
    phone.start();
    EXPECT_EQ(UIKBGetNamedLinearGradient(text("UIKBColorHighlight")), nullptr);
    EXPECT_EQ(UIKBGradient::gradientWithName(text("UIKBColorHighlight"))->CGGradient(), nullptr);
    EXPECT_EQ(UIKBGradient::gradientWithName(text("UIKBColorKeyBlueKeyBackground"))->CGGradient(), nullptr);
    EXPECT_NE(UIKBGetNamedColor(text("UIKBColorHighlight")), nullptr) << "though the colour is there";
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
        Side::on_class);
    phone.load();
    id answered = objc::send<"effectWithColor:edges:inset:weight:", id>(
        class_named("UIKBEdgeEffect"), text("UIKBColorBlack"), NSUInteger{5}, 1.5, 2.5);
    EXPECT_EQ(answered, class_named("UIKBEdgeEffect")) << "what the system made";
    EXPECT_EQ(seen_edge,
              (EdgeArguments{.colour = "UIKBColorClear", .edges = 0, .inset = 1.5, .weight = 2.5}));
}

TEST_F(Effects, EdgeEffectsWithInsetsAreMadeClearAndWithoutEdges) {
    phone.boot();
    stand_in("UIKBEdgeEffect", "effectWithColor:edges:insets:weight:", edge_with_insets, Side::on_class);
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
    stand_in("UIKBShadowEffect", "effectWithColor:offset:insets:weight:", see, Side::on_class);
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
    static IMP previous;
    phone.boot();
    previous = stand_in("UIView", "dealloc", [](id self, SEL selector) {
        if (std::string(object_getClassName(self)) == "UIKBBlurredKeyView") ++deaths;
        call(previous, self, selector);
    });
    phone.load();
    {
        objc::AutoreleasePool pool;
        view_for(key_named("EnabledLanguageIndicator"));
    }
    EXPECT_EQ(deaths, 1);
}

TEST_F(BlurredKey, TheSystemMakesTheViewFirstOfTheSameArguments) {
    static CGRect frame{};
    static id keyplane = nullptr, key = nullptr;
    phone.boot();
    stand_in("UIKBBlurredKeyView", "initWithFrame:keyplane:key:",
             [](id self, SEL, CGRect given, id given_keyplane, id given_key) -> id {
                 frame = given;
                 keyplane = given_keyplane;
                 key = given_key;
                 return self;
             });
    phone.load();
    id plane = made("UIKBTree"), indicator = key_named("EnabledLanguageIndicator");
    EXPECT_EQ((made<"initWithFrame:keyplane:key:">("UIKBBlurredKeyView", CGRect{{1, 2}, {30, 40}}, plane,
                                                   indicator)),
              nullptr);
    EXPECT_EQ(frame, (CGRect{{1, 2}, {30, 40}}));
    EXPECT_EQ(keyplane, plane);
    EXPECT_EQ(key, indicator);
}

}  // namespace
}  // namespace test
