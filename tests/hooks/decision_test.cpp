// What is decided without any platform: which processes, which rows.
#include "hooks/decision.h"

#include <gtest/gtest.h>

namespace hooks {
namespace {

static_assert(accepts_process("/Applications/MobileNotes.app/MobileNotes"));

TEST(Decision, SpringBoardIsAcceptedByItsName) {
    EXPECT_TRUE(accepts_process("/System/Library/CoreServices/SpringBoard.app/SpringBoard"));
    EXPECT_TRUE(accepts_process("SpringBoard"));
    EXPECT_TRUE(accepts_process("/usr/libexec/SpringBoard/"));
}

TEST(Decision, SystemApplicationsAreAccepted) {
    EXPECT_TRUE(accepts_process("/Applications/MobileNotes.app/MobileNotes"));
}

TEST(Decision, InstalledApplicationsAreAcceptedByTheirContainer) {
    EXPECT_TRUE(accepts_process("/var/containers/Bundle/Application/0A1B/Game.app/Game"));
}

TEST(Decision, TheTestForApplicationsIsAPlainSubstring) {
    EXPECT_TRUE(accepts_process("/opt/ApplicationSupport/tool"));
    EXPECT_FALSE(accepts_process("/opt/MyApplication"));
    EXPECT_FALSE(accepts_process("/opt/application/tool"));
}

TEST(Decision, DaemonsAndToolsAreNotAccepted) {
    for (const char* path :
         {"/usr/libexec/keyboardd", "/usr/bin/tool", "", "/", "SpringBoardHelper", "/SpringBoard/tool",
          "springboard", "/System/Library/CoreServices/SpringBoard.app/Plugin"})
        EXPECT_FALSE(accepts_process(path)) << path;
}

TEST(Decision, TheLastComponentIgnoresTrailingSlashes) {
    EXPECT_EQ(last_path_component("/a/b"), "b");
    EXPECT_EQ(last_path_component("/a/b//"), "b");
    EXPECT_EQ(last_path_component("b"), "b");
    EXPECT_EQ(last_path_component("b/"), "b");
    EXPECT_EQ(last_path_component("/"), "/");
    EXPECT_EQ(last_path_component(""), "");
}

TEST(Decision, TheSpringBoardRowDependsOnNothing) {
    for (bool on : {false, true})
        for (bool caps : {false, true}) EXPECT_TRUE(installs(Condition::accepted_process, on, caps));
}

TEST(Decision, TheKeyCapRowsNeedThemingAndHiddenCaps) {
    EXPECT_TRUE(installs(Condition::caps_hidden, true, false));
    EXPECT_FALSE(installs(Condition::caps_hidden, true, true));
    EXPECT_FALSE(installs(Condition::caps_hidden, false, false));
    EXPECT_FALSE(installs(Condition::caps_hidden, false, true));
}

TEST(Decision, AllOtherRowsNeedTheming) {
    EXPECT_TRUE(installs(Condition::themed, true, false));
    EXPECT_TRUE(installs(Condition::themed, true, true));
    EXPECT_FALSE(installs(Condition::themed, false, false));
}

}  // namespace
}  // namespace hooks
