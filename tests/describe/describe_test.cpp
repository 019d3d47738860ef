// What huecraft-describe says of the simulated phone.
#include <gmock/gmock.h>

#include "describe/report.h"
#include "hooks/hook_count.h"
#include "support/themes.h"

namespace test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Describe : public DescribedPhone {};

/// Facts alone: neither remarks nor hooks.
Lines facts(const Lines& lines) {
    Lines found;
    for (const std::string& line : lines)
        if (!line.empty() && line[0] != '#' && !line.starts_with("hook ")) found.push_back(line);
    return found;
}

/// The home screen's class, and its superclass with it, is in no application.
Lines without_the_home_screen(const Lines& lines) {
    return without(without(lines, "SpringBoard"), "FBSystemApp");
}

TEST_F(Describe, TellsOfTheModelWhatDoctorTells) {
    const Lines described = facts(lines_of(report()));
    EXPECT_THAT(described, Contains("unrecorded class SpringBoard"));
    EXPECT_EQ(without_the_home_screen(described),
              without_the_home_screen(facts(lines_of(contents_of(SIMULATED_DESCRIPTION)))));
}

TEST_F(Describe, TellsTheVersionOfTheSystem) {
    EXPECT_THAT(lines_of(report({}, {.system_version = "12.1.2"})), Contains("system 12.1.2"));
}

TEST_F(Describe, TellsTheProcessorInARemark) {
#ifdef __aarch64__
    EXPECT_THAT(lines_of(report()), Contains("# processor: arm64"));
#else
    EXPECT_THAT(lines_of(report()), Contains("# processor: x86_64"));
#endif
}

TEST_F(Describe, AMissingClassIsNotTold) {
    install_library();
    arrange_theme(phone);
    const Lines described = lines_of(report({}, {.left_out = {"UIKBEdgeEffect"}}));
    EXPECT_THAT(with(facts(described), "UIKBEdgeEffect"), IsEmpty());
    EXPECT_THAT(described, Contains("hook -[UIKBEdgeEffect edges] had no effect"));
    EXPECT_THAT(described,
                Contains("hook -[UIKBShadowEffect initWithColor:offset:insets:weight:] took effect"));
}

TEST_F(Describe, EveryHookTakesEffectInAnApplication) {
    install_library();
    arrange_theme(phone);
    const Lines described = lines_of(report());
    EXPECT_EQ(with(described, " took effect").size(), hook_count - 1) << "all but SpringBoard's";
    EXPECT_THAT(with(described, " had no effect"), IsEmpty());
    EXPECT_THAT(described, Contains("hook -[UIKBBackdropView activeBackgroundView] took effect"));
    EXPECT_THAT(described, Contains("hook +[UIKBGradient gradientWithName:] took effect"));
    EXPECT_THAT(described, Contains("hook UIKBGetNamedColor took effect"));
    EXPECT_THAT(described, Contains("# not seen, since only the home screen has the class: hook "
                                    "-[SpringBoard applicationDidFinishLaunching:]"));
}

TEST_F(Describe, TheSystemIsToldAsItIsWithoutTheLibrary) {
    install_library();
    arrange_theme(phone);
    const Lines described = facts(lines_of(report()));
    EXPECT_THAT(with(described, "activeBackgroundView"), IsEmpty());
    EXPECT_EQ(without_the_home_screen(described),
              without_the_home_screen(facts(lines_of(contents_of(SIMULATED_DESCRIPTION)))));
}

TEST_F(Describe, AHookThatTheFrameworkDoesNotFindHadNoEffect) {
    install_library();
    arrange_theme(phone);
    const Lines described = lines_of(report({}, {.unfound = {"-[UIKBEdgeEffect edges]"}}));
    EXPECT_THAT(with(described, " had no effect"), ElementsAre("hook -[UIKBEdgeEffect edges] had no effect"));
    EXPECT_EQ(with(described, " took effect").size(), hook_count - 2);
}

TEST_F(Describe, HooksThatVisibleKeyCapsLeaveOutAreNotJudged) {
    install_library();
    arrange_theme(phone, true, "<key>_VisibleKeycaps</key><true/>");
    const Lines described = lines_of(report());
    EXPECT_THAT(with(described, " had no effect"), IsEmpty());
    EXPECT_EQ(
        with(described, "# not wanted, since the theme shows key caps: hook -[UIKBRenderFactory ").size(),
        6u);
    EXPECT_EQ(with(described, " took effect").size(), 38u);
}

class WithoutHooks : public Describe {
  protected:
    /// Expects the one remark, and no line of a hook.
    void expect_unseen(const Lines& described, const std::string& why) const {
        EXPECT_THAT(with(described, "hook"), ElementsAre("# hooks not seen: " + why));
        EXPECT_THAT(described, Contains("function UIKBGetNamedColor"));
    }
};

TEST_F(WithoutHooks, WithoutTheLibraryItSaysSo) {
    arrange_theme(phone);
    expect_unseen(lines_of(report()), "the library is not installed");
}

TEST_F(WithoutHooks, WithThemingOffItSaysSo) {
    install_library();
    arrange_theme(phone, false);
    expect_unseen(lines_of(report()), "theming is off");
}

TEST_F(WithoutHooks, WithoutPreferencesThemingIsOff) {
    install_library();
    expect_unseen(lines_of(report()), "theming is off");
}

TEST_F(WithoutHooks, AnUnacceptedProcessIsSaid) {
    install_library();
    arrange_theme(phone);
    expect_unseen(lines_of(report({"--as", "/usr/libexec/tool"})),
                  "the library does nothing in a process of this path");
}

TEST_F(WithoutHooks, ALibraryThatCannotBeLoadedIsSaidInOneLine) {
    phone.write(installed_library, "no\nlibrary");
    arrange_theme(phone);
    const Lines described = with(lines_of(report()), "hook");
    ASSERT_EQ(described.size(), 1u);
    EXPECT_THAT(described[0], HasSubstr("# hooks not seen: the library cannot be loaded: dlopen("));
}

TEST_F(WithoutHooks, ALibraryThatStopsItsProcessLeavesTheRestOfTheReport) {
    phone.write(installed_library, contents_of(STOPPING_LIBRARY));
    arrange_theme(phone);
    expect_unseen(lines_of(report()), "the process that loads the library stopped, by signal 06");
}

TEST_F(Describe, AnotherApplicationMayBeClaimed) {
    install_library();
    arrange_theme(phone);
    EXPECT_EQ(with(lines_of(report({"--as", "/private/var/containers/Bundle/Application/A/B.app/B"})),
                   " took effect")
                  .size(),
              hook_count - 1);
}

TEST_F(Describe, NothingOfTheUsersIsTold) {
    install_library();
    arrange_theme(phone, true, "<key>_ConfigName</key><string>Grandmother</string>");
    phone.write("/var/mobile/Library/Preferences/Grandmother.plist", "secret");
    const std::string described = report();
    ASSERT_THAT(described, HasSubstr("took effect"));
    for (const std::string& own : {std::string("Grandmother"), std::string("00FF00"), std::string("FF8000"),
                                   std::string("/var"), std::string("mobile"), std::string(".plist"),
                                   phone.host("/").string(), std::string("/Applications")})
        EXPECT_THAT(described, Not(HasSubstr(own)));
}

TEST_F(Describe, AnArgumentThatItDoesNotKnowIsNamed) {
    const Outcome outcome = run({"--everything"});
    EXPECT_EQ(outcome.exit_status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "huecraft-describe: found \"--everything\"; expected nothing, or --as and the path of an "
              "application\n");
}

TEST_F(Describe, AsWithoutAPathIsMisuse) { EXPECT_EQ(run({"--as"}).exit_status, 2); }

}  // namespace

void prepare_phones() { prepare_phones_that_may_lack({"UIKBEdgeEffect"}); }

}  // namespace test
