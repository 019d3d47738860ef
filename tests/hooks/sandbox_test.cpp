// A process whose sandbox denies it the preferences: nothing is themed, and nothing breaks.
#include "hooks/hook_rows.h"
#include "hooks/surfaces.h"
#include "support/configuration.h"
#include "support/themes.h"

namespace test {
namespace {

class DeniedPreferences : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        arrange_theme(phone);
        phone.boot({.executable = GetParam(), .denied = {"/var/mobile/Library/Preferences"}});
        system_black = named("UIKBColorBlack_Alpha60");
        phone.load();
    }
    static std::vector<double> named(const char* name) {
        sim_colour colour{};
        EXPECT_EQ(sim_named_colour(name, &colour), SIM_OK) << sim_last_error();
        return {colour.components, colour.components + 4};
    }

    Phone phone;
    std::vector<double> system_black;
};
INSTANTIATE_TEST_SUITE_P(, DeniedPreferences, testing::Values(notes, springboard), [](const auto& info) {
    return info.param == notes ? "InAnApplication" : "InSpringBoard";
});

TEST_P(DeniedPreferences, InstallNoThemedRow) {
    const bool is_springboard = GetParam() == springboard;
    EXPECT_EQ(installed_rows(), and_named_colours_unless_arm64e(
                                    {is_springboard ? cache_rows.front() : cache_row_without_class}));
}

TEST_P(DeniedPreferences, LeaveTheSystemsColours) {
    EXPECT_EQ(named("UIKBColorBlack_Alpha60"), system_black);
    sim_colour colour{};
    ASSERT_EQ(sim_named_colour("UIKBColorText", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.model, SIM_COLOUR_NONE) << "the system does not know the name";
}

TEST_P(DeniedPreferences, LeaveEveryKeyboardToBeShown) { show_every_keyboard(phone); }

TEST_P(DeniedPreferences, AnswerAsIfThereWereNone) {
    id store = objc::send<"sharedInstance", id>(class_named("HCPreferences"));
    ASSERT_NE(store, nullptr);
    EXPECT_FALSE((objc::send<"isEnabled", bool>(store)));
    EXPECT_FALSE(Configuration::from_file("Test.plist")) << "a theme is not read either";
}

TEST_P(DeniedPreferences, MakeSavingAThemeFail) {
    Configuration theme = Configuration::made_default();
    theme.set_name("New");
    NSError* error = nullptr;
    EXPECT_FALSE(theme.save(&error));
    EXPECT_NE(error, nullptr);
    EXPECT_FALSE(phone.exists(std::string(theme_folder) + "New.plist"));
}

}  // namespace
}  // namespace test
