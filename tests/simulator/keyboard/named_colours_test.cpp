// The keyboard's colours by name, with nothing replaced.
#include "platform/keyboard.h"
#include "support/phone.h"

namespace test {
namespace {

class NamedColours : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static sim_colour named(const char* name) {
        sim_colour colour{};
        EXPECT_EQ(sim_named_colour(name, &colour), SIM_OK) << sim_last_error();
        return colour;
    }
    /// White and alpha of a grey.
    static std::pair<double, double> grey(const char* name) {
        const sim_colour colour = named(name);
        EXPECT_EQ(colour.model, SIM_COLOUR_GREY) << name;
        return {colour.components[0], colour.components[1]};
    }

    Phone phone;
};

TEST_F(NamedColours, ClearIsTransparentBlack) { EXPECT_EQ(grey("UIKBColorClear"), std::pair(0.0, 0.0)); }

TEST_F(NamedColours, BlackAndWhiteAreGreys) {
    EXPECT_EQ(grey("UIKBColorBlack"), std::pair(0.0, 1.0));
    EXPECT_EQ(grey("UIKBColorWhite"), std::pair(1.0, 1.0));
}

TEST_F(NamedColours, AnAlphaInPercentFollowsTheColour) {
    EXPECT_EQ(grey("UIKBColorBlack_Alpha60"), std::pair(0.0, 0.6));
    EXPECT_EQ(grey("UIKBColorWhite_Alpha5"), std::pair(1.0, 0.05));
    EXPECT_EQ(grey("UIKBColorWhite_Alpha87_50"), std::pair(1.0, 0.875)) << "with its decimals";
}

TEST_F(NamedColours, TheBlueKeyIsBlue) {
    const sim_colour blue = named("UIKBColorKeyBlueKeyBackground");
    ASSERT_EQ(blue.model, SIM_COLOUR_RGB);
    EXPECT_EQ(blue.components[0], 0.0);
    EXPECT_EQ(blue.components[1], 122 / 255.0);
    EXPECT_EQ(blue.components[2], 1.0);
    EXPECT_EQ(blue.components[3], 1.0);
}

TEST_F(NamedColours, TheSystemKnowsNoneOfTheLibrarysNames) {
    EXPECT_EQ(named("UIKBColorText").model, SIM_COLOUR_NONE);
    EXPECT_EQ(named("UIKBColorHighlight").model, SIM_COLOUR_NONE);
}

TEST_F(NamedColours, ANameIsOneColourForGood) {
    CGColorRef first = UIKBGetNamedColor(text("UIKBColorBlack_Alpha30"));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(UIKBGetNamedColor(text("UIKBColorBlack_Alpha30")), first);
}

TEST_F(NamedColours, ANilNameIsNull) { EXPECT_EQ(UIKBGetNamedColor(nullptr), nullptr); }

using NamedColoursDeathTest = NamedColours;

TEST_F(NamedColoursDeathTest, AnUnknownNameStopsTheProcessAndIsNamed) {
    for (const char* name :
         {"UIKBColorMauve", "UIKBColorBlack_Alpha", "UIKBColorBlack_Alpha33", "UIKBColorBlack_Alpha3x",
          "UIKBColorKeyGrayKeyBackground", "UIKBColorWildcatKeyGradient", "UIKBColorUsesRGB", ""}) {
        sim_colour colour;
        EXPECT_DEATH(sim_named_colour(name, &colour),
                     std::string("UIKBGetNamedColor: no colour is named \"") + name + '"');
    }
}

TEST_F(NamedColoursDeathTest, ANameWithoutAKnownValueStopsTheProcess) {
    for (const char* name :
         {"UIKBColorCarTeal", "UIKBColor10KeyLightActiveKeyplaneSwitch", "UIKBColorWildcatKeyGradientStart",
          "UIKBColorWildcatKeyGradientEnd", "UIKBColoriPhoneDictationBackboard"}) {
        sim_colour colour;
        EXPECT_DEATH(sim_named_colour(name, &colour),
                     std::string("UIKBGetNamedColor: what colour \"") + name + "\" is, is not known");
    }
}

}  // namespace
}  // namespace test
