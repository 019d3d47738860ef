// The classes that say how keys are drawn, with nothing replaced.
#include "platform/keyboard.h"
#include "support/phone.h"
#include "support/runtime.h"

namespace test {
namespace {

class RenderClasses : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    template <class Made>
    static Made* made() {
        return static_cast<Made*>(Made::alloc()->init().autoreleased());
    }

    Phone phone;
};

TEST_F(RenderClasses, AKeyKeepsItsProperties) {
    UIKBTree* key = UIKBTree::alloc()->initWithType(8).autoreleased();
    EXPECT_EQ(key->name(), nullptr);
    key->setName(text("Latin-Small-Letter-G"));
    key->setFrame({{1, 2}, {31.5, 42}});
    key->setDisplayString(text("g"));
    key->setRepresentedString(text("G"));
    EXPECT_EQ(key->type(), 8);
    EXPECT_EQ(utf8(key->name()), "Latin-Small-Letter-G");
    EXPECT_EQ(key->frame(), (CGRect{{1, 2}, {31.5, 42}}));
    EXPECT_EQ(utf8(key->displayString()), "g");
    EXPECT_EQ(utf8(key->representedString()), "G");
    EXPECT_EQ(key->subtrees()->count(), 0u);
}

// ---- Configuration and factory ----

TEST_F(RenderClasses, TheDefaultConfigurationIsLightUntilItIsSet) {
    auto* config = UIKBRenderConfig::defaultConfig();
    EXPECT_TRUE(config->lightKeyboard());
    EXPECT_FALSE(UIKBRenderConfig::darkConfig()->lightKeyboard());
    config->setLightKeyboard(false);
    EXPECT_FALSE(config->lightKeyboard());
}

TEST_F(RenderClasses, TheBackdropFollowsFromTheStyle) {
    const NSInteger light = UIKBRenderConfig::backdropStyle(0, 100),
                    dark = UIKBRenderConfig::backdropStyle(1, 100);
    EXPECT_NE(light, dark);
    EXPECT_EQ(UIKBRenderConfig::backdropStyle(-2, 100), -2);
    EXPECT_EQ(UIKBRenderConfig::backdropStyle(0, 0), light);
}

using RenderClassesDeathTest = RenderClasses;

TEST_F(RenderClassesDeathTest, ABackdropOfAnUnknownStyleStopsTheProcess) {
    EXPECT_DEATH(UIKBRenderConfig::backdropStyle(17, 100),
                 "UIKBRenderConfig backdropStyleForStyle:quality:.*the style 17");
}

// The visual styles, as the model has them.
constexpr int letters = 0, emoji = 1, number_pad = 2, candidates = 3;

UIKBRenderFactory* factory(int style, bool light = true) {
    auto* config = light ? UIKBRenderConfig::defaultConfig() : UIKBRenderConfig::darkConfig();
    auto* context = objc::send<"renderingContextForRenderConfig:", UIKBRenderingContext*>(
        class_named("UIKBRenderingContext"), config);
    return UIKBRenderFactory::factory(style, context);
}

/// The six names, in the order of the hook table.
std::vector<std::string> names_of(UIKBRenderFactory* factory) {
    return {utf8(factory->controlKeyShadowColorName()),
            utf8(factory->defaultKeyShadowColorName()),
            utf8(factory->controlKeyForegroundColorName()),
            utf8(factory->send<"_controlKeyBackgroundColorName", NSString*>()),
            utf8(factory->controlKeyBackgroundColorName()),
            utf8(factory->defaultKeyBackgroundColorName())};
}

TEST_F(RenderClasses, ALightKeyboardHasWhiteAndGreyKeys) {
    EXPECT_EQ(names_of(factory(letters)),
              (std::vector<std::string>{"UIKBColorBlack_Alpha35", "UIKBColorBlack_Alpha35",
                                        "UIKBColorBlack_Alpha5", "UIKBColorKeyGrayKeyLightBackground",
                                        "UIKBColorKeyGrayKeyLightBackground", "UIKBColorWhite"}));
}

TEST_F(RenderClasses, ADarkKeyboardHasTranslucentKeys) {
    EXPECT_EQ(names_of(factory(letters, false)),
              (std::vector<std::string>{"UIKBColorBlack_Alpha40", "UIKBColorBlack_Alpha40",
                                        "UIKBColorBlack_Alpha10", "UIKBColorWhite_Alpha12",
                                        "UIKBColorWhite_Alpha12", "UIKBColorWhite_Alpha30"}));
}

TEST_F(RenderClasses, EveryNameOfAFactoryIsAColour) {
    for (int style : {letters, emoji, number_pad, candidates})
        for (bool light : {true, false})
            for (const std::string& name : names_of(factory(style, light)))
                EXPECT_NE(UIKBGetNamedColor(text(name)), nullptr) << name;
}

TEST_F(RenderClasses, AFactoryOverridesTheNamesThatItsSystemClassDoes) {
    constexpr const char* names[] = {"controlKeyShadowColorName",     "defaultKeyShadowColorName",
                                     "controlKeyForegroundColorName", "_controlKeyBackgroundColorName",
                                     "controlKeyBackgroundColorName", "defaultKeyBackgroundColorName"};
    auto overridden = [&](const char* class_name) {
        std::vector<std::string> found;
        for (const char* name : names)
            if (class_getMethodImplementation(objc_getClass(class_name), sel_registerName(name)) !=
                class_getMethodImplementation(objc_getClass("UIKBRenderFactory"), sel_registerName(name)))
                found.emplace_back(name);
        return found;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(overridden("UIKBRenderFactoryiPhone"), Names{});
    EXPECT_EQ(overridden("UIKBRenderFactory_Emoji"),
              (Names{"controlKeyBackgroundColorName", "defaultKeyBackgroundColorName"}));
    for (const char* other : {"UIKBRenderFactoryNumberPad", "UIKBRenderFactory_Candidates"})
        EXPECT_EQ(overridden(other),
                  (Names{"controlKeyForegroundColorName", "controlKeyBackgroundColorName"}));
}

TEST_F(RenderClassesDeathTest, AnUnknownVisualStyleStopsTheProcess) {
    EXPECT_DEATH(factory(99), "UIKBRenderFactory factoryClassForVisualStyle:.*the visual style 99");
}

// ---- Gradients ----

TEST_F(RenderClasses, AGradientKeepsTheNamesItWasMadeWith) {
    auto name = [](UIKBGradient* gradient, const char* kept) {
        return utf8(variable<NSString*>(gradient, kept));
    };
    UIKBGradient* flat = UIKBGradient::gradientWithFlatColor(text("UIKBColorWhite"));
    EXPECT_EQ(utf8(flat->flatColorName()), "UIKBColorWhite");
    EXPECT_EQ(name(flat, "_gradientName"), "(nil)");
    UIKBGradient* named = UIKBGradient::gradientWithName(text("UIKBColorWildcatKeyGradient"));
    EXPECT_EQ(named->flatColorName(), nullptr);
    EXPECT_EQ(name(named, "_gradientName"), "UIKBColorWildcatKeyGradient");
    UIKBGradient* two = UIKBGradient::gradientWithStartColor(text("a"), text("b"));
    EXPECT_EQ(two->flatColorName(), nullptr);
    EXPECT_EQ(name(two, "_startColorName"), "a");
    EXPECT_EQ(name(two, "_endColorName"), "b");
    EXPECT_EQ(utf8(UIKBGradient::alloc()->initWithFlatColor(text("a"))->flatColorName()), "a");
    EXPECT_EQ(name(UIKBGradient::alloc()->initWithName(text("b")).get(), "_gradientName"), "b");
}

TEST_F(RenderClasses, AGradientFindsItsNameAmongTheGradients) {
    CGGradientRef found = UIKBGetNamedLinearGradient(text("UIKBColorWildcatKeyGradient"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(UIKBGradient::gradientWithName(text("UIKBColorWildcatKeyGradient"))->CGGradient(), found);
}

TEST_F(RenderClasses, NoOtherNameIsAGradients) {
    for (const char* name : {"UIKBColorHighlight", "UIKBColorBlack", "UIKBColorWildcatKeyGradientStart",
                             "UIKBColorKeyBlueKeyBackground", "WildcatKeyGradient", ""}) {
        EXPECT_EQ(UIKBGetNamedLinearGradient(text(name)), nullptr) << name;
        EXPECT_EQ(UIKBGradient::gradientWithName(text(name))->CGGradient(), nullptr) << name;
    }
    EXPECT_EQ(UIKBGetNamedLinearGradient(nullptr), nullptr);
}

TEST_F(RenderClasses, AFlatColourAndAnUnknownColourAreNoGradient) {
    EXPECT_EQ(UIKBGradient::gradientWithFlatColor(text("UIKBColorBlack"))->CGGradient(), nullptr);
    NSString* unknown = text("UIKBColorText");
    EXPECT_EQ(UIKBGradient::gradientWithStartColor(text("UIKBColorBlack"), unknown)->CGGradient(), nullptr);
    EXPECT_EQ(UIKBGradient::gradientWithStartColor(text("UIKBColorBlack"), nullptr)->CGGradient(), nullptr);
}

// ---- Effects ----

TEST_F(RenderClasses, AnEdgeEffectKeepsWhatItWasMadeWith) {
    const UIEdgeInsets insets{1, 2, 3, 4};
    for (UIKBEdgeEffect* effect :
         {UIKBEdgeEffect::effect(text("UIKBColorBlack"), 5, insets, 0.5),
          UIKBEdgeEffect::alloc()->initWithColor(text("UIKBColorBlack"), 5, insets, 0.5).autoreleased()}) {
        EXPECT_EQ(utf8(variable<NSString*>(effect, "_colorName")), "UIKBColorBlack");
        EXPECT_EQ(effect->CGColor(), UIKBGetNamedColor(text("UIKBColorBlack")));
        EXPECT_TRUE(effect->isValid());
        EXPECT_EQ(effect->edges(), 5u);
        EXPECT_EQ(effect->insets(), insets);
        EXPECT_EQ(effect->weight(), 0.5);
    }
}

TEST_F(RenderClasses, OneInsetIsTheSameAtEveryEdge) {
    UIKBEdgeEffect* effect = UIKBEdgeEffect::effect(text("UIKBColorWhite"), 4, 1.5, 2.0);
    EXPECT_EQ(effect->insets(), (UIEdgeInsets{1.5, 1.5, 1.5, 1.5}));
    EXPECT_EQ(effect->edges(), 4u);
    EXPECT_EQ(effect->weight(), 2.0);
}

TEST_F(RenderClasses, AShadowEffectKeepsWhatItWasMadeWith) {
    const CGSize offset{1, 2};
    const UIEdgeInsets insets{3, 4, 5, 6};
    for (UIKBShadowEffect* effect : {UIKBShadowEffect::effect(text("UIKBColorBlack"), offset, insets, 7),
                                     UIKBShadowEffect::alloc()
                                         ->initWithColor(text("UIKBColorBlack"), offset, insets, 7)
                                         .autoreleased()}) {
        EXPECT_EQ(utf8(variable<NSString*>(effect, "_colorName")), "UIKBColorBlack");
        EXPECT_EQ(effect->CGColor(), UIKBGetNamedColor(text("UIKBColorBlack")));
        EXPECT_TRUE(effect->isValid());
        EXPECT_EQ(effect->offset(), offset);
        EXPECT_EQ(effect->insets(), insets);
        EXPECT_EQ(effect->weight(), 7.0);
    }
}

TEST_F(RenderClasses, AnEffectWithoutColourWeightOrEdgesIsNotValid) {
    NSString *black = text("UIKBColorBlack"), *unknown = text("UIKBColorText");
    EXPECT_EQ(UIKBEdgeEffect::effect(unknown, 4, 0.0, 1.0)->CGColor(), nullptr);
    EXPECT_FALSE(UIKBEdgeEffect::effect(unknown, 4, 0.0, 1.0)->isValid());
    EXPECT_FALSE(UIKBEdgeEffect::effect(black, 0, 0.0, 1.0)->isValid());
    EXPECT_FALSE(UIKBEdgeEffect::effect(black, 4, 0.0, 0.0)->isValid());
    EXPECT_EQ(UIKBShadowEffect::effect(unknown, {}, {}, 1)->CGColor(), nullptr);
    EXPECT_FALSE(UIKBShadowEffect::effect(unknown, {}, {}, 1)->isValid());
    EXPECT_FALSE(UIKBShadowEffect::effect(black, {}, {}, 0)->isValid());
}

// ---- Text style ----

TEST_F(RenderClasses, ATextStyleIsBlackUntilItsColourIsSet) {
    UIKBTextStyle* style = UIKBTextStyle::style(text("AppleColorEmoji"), 30);
    EXPECT_EQ(utf8(style->fontName()), "AppleColorEmoji");
    EXPECT_EQ(style->fontSize(), 30.0);
    EXPECT_EQ(utf8(style->textColor()), "UIKBColorBlack");
    style->setTextColor(text("UIKBColorWhite"));
    EXPECT_EQ(utf8(style->textColor()), "UIKBColorWhite");
}

// ---- Sizes ----

TEST_F(RenderClasses, TheKeyboardIsAsWideAsTheScreen) {
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(1), (CGSize{375, 216}));
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(2), (CGSize{375, 216}));
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(3), (CGSize{667, 162}));
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(4), (CGSize{667, 162}));
}

TEST_F(RenderClassesDeathTest, AnUnknownOrientationStopsTheProcess) {
    EXPECT_DEATH(UIKeyboardImpl::keyboardSize(0), "keyboardSizeForInterfaceOrientation:.*the orientation 0");
}

TEST(KeyboardSize, FollowsTheScreenOfASmallPhone) {
    Phone phone;
    phone.boot({.screen_width = 320, .screen_height = 568});
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(1), (CGSize{320, 216}));
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(4), (CGSize{568, 162}));
}

TEST(KeyboardSize, FollowsTheScreenOfALargePhone) {
    Phone phone;
    phone.boot({.screen_width = 414, .screen_height = 736, .screen_scale = 3});
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(1), (CGSize{414, 226}));
    EXPECT_EQ(UIKeyboardImpl::keyboardSize(3), (CGSize{736, 162}));
}

}  // namespace
}  // namespace test
