// The named-colour hook, asked as the system asks.
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

class NamedColours : public testing::Test {
  protected:
    static sim_colour named(const char* name) {
        sim_colour colour{};
        EXPECT_EQ(sim_named_colour(name, &colour), SIM_OK) << sim_last_error();
        return colour;
    }
    static Rgba rgb(const sim_colour& colour) {
        EXPECT_EQ(colour.model, SIM_COLOUR_RGB);
        return {colour.components[0], colour.components[1], colour.components[2], colour.components[3]};
    }
    static void expect_same(const sim_colour& a, const sim_colour& b) {
        EXPECT_EQ(a.model, b.model);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(a.components[i], b.components[i]);
    }

    Phone phone;
};

TEST_F(NamedColours, TextAndHighlightAreTheThemes) {
    arrange_theme(phone);
    phone.start();
    EXPECT_EQ(rgb(named("UIKBColorText")), theme_text);
    EXPECT_EQ(rgb(named("UIKBColorHighlight")), theme_highlight);
}

TEST_F(NamedColours, ClearIsFullyTransparent) {
    arrange_theme(phone);
    phone.start();
    const sim_colour clear = named("UIKBColorClear");
    EXPECT_EQ(clear.model, SIM_COLOUR_GREY);
    EXPECT_EQ(clear.components[1], 0.0);
}

TEST_F(NamedColours, ClearIsUIColorsAndNotTheSystemsNamedOne) {
    arrange_theme(phone);
    phone.start();
    stand_in("UIColor", "clearColor", [](id, SEL) -> id { return color(1, 0, 0); }, Side::on_class);
    EXPECT_EQ(rgb(named("UIKBColorClear")), (Rgba{1, 0, 0, 1}));
}

TEST_F(NamedColours, AnyOtherNameIsTheSystems) {
    arrange_theme(phone);
    phone.boot();
    const sim_colour before = named("UIKBColorBlack_Alpha60");
    phone.load();
    expect_same(named("UIKBColorBlack_Alpha60"), before);
}

TEST_F(NamedColours, ADaemonIsAnsweredToo) {
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/keyboardd"});
    EXPECT_EQ(rgb(named("UIKBColorText")), theme_text);
}

TEST_F(NamedColours, WithThemingOffEveryNameIsTheSystems) {
    arrange_theme(phone, false);
    phone.boot();
    const sim_colour clear = named("UIKBColorClear");
    phone.load();
    expect_same(named("UIKBColorClear"), clear);
}

TEST_F(NamedColours, TheSwitchIsAskedOnEveryCall) {
    arrange_theme(phone);
    phone.start();
    EXPECT_EQ(rgb(named("UIKBColorText")), theme_text);
    static bool on = false;
    stand_in("HCPreferences", "isEnabled", [](id, SEL) -> int { return on; });
    EXPECT_EQ(named("UIKBColorText").model, SIM_COLOUR_NONE) << "the system does not know the name";
    on = true;
    EXPECT_EQ(rgb(named("UIKBColorText")), theme_text);
}

TEST_F(NamedColours, AThemeWithoutColoursAnswersNone) {
    arrange_theme_of(phone, "");
    phone.start();
    EXPECT_EQ(named("UIKBColorText").model, SIM_COLOUR_NONE);
    EXPECT_EQ(named("UIKBColorHighlight").model, SIM_COLOUR_NONE);
}

}  // namespace
}  // namespace test
