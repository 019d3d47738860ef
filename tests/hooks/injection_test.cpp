// The library under the injection frameworks that phones have.
#include "hooks/hook_rows.h"
#include "hooks/row_probes.h"
#include "support/themes.h"

namespace test {
namespace {

class Frameworks : public testing::Test {
  protected:
    void SetUp() override { arrange_theme(phone); }
    Phone phone;
};

TEST_F(Frameworks, StrictEndsAnApplicationAtTheFirstRow) {
    EXPECT_DEATH(phone.start({.injection = SIM_INJECTION_STRICT}),
                 "the class is nil, for applicationDidFinishLaunching:: this injection framework ends");
}

TEST_F(Frameworks, StrictEndsAnApplicationThatIsNotThemedToo) {
    arrange_theme(phone, false);
    EXPECT_DEATH(phone.start({.injection = SIM_INJECTION_STRICT}),
                 "the class is nil, for applicationDidFinishLaunching:: this injection framework ends");
}

TEST_F(Frameworks, StrictLetsADaemonLive) {
    phone.start({.executable = "/usr/libexec/keyboardd", .injection = SIM_INJECTION_STRICT});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Frameworks, StrictLetsSpringBoardHaveEveryRow) {
    phone.start({.executable = springboard, .injection = SIM_INJECTION_STRICT});
    EXPECT_EQ(installed_rows().size(), whole_table().size() + 1);
    for (const auto& [row, probe] : row_probes()) EXPECT_TRUE(probe.shows_the_theme()) << row;
}

TEST_F(Frameworks, AnUnpatchableFunctionEndsTheProcessUnderAllButLenient) {
    for (const sim_injection injection :
         {SIM_INJECTION_CLEARING, SIM_INJECTION_STRICT, SIM_INJECTION_GUARDED})
        EXPECT_DEATH(phone.start({.executable = "/usr/libexec/keyboardd",
                                  .unpatchable = {"UIKBGetNamedColor"},
                                  .injection = injection}),
                     "MSHookFunction: UIKBGetNamedColor cannot be patched");
}

TEST_F(Frameworks, LenientThemesAllButTheNamedColoursThen) {
    phone.start({.unpatchable = {"UIKBGetNamedColor"}, .injection = SIM_INJECTION_LENIENT});
    for (const auto& [row, probe] : row_probes()) EXPECT_TRUE(probe.shows_the_theme()) << row;
    sim_colour colour{};
    ASSERT_EQ(sim_named_colour("UIKBColorText", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(colour.model, SIM_COLOUR_NONE);
}

}  // namespace
}  // namespace test
