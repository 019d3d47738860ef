// The home screen's class, which only its own process has.
#include "support/phone.h"

namespace test {
namespace {

TEST(HomeScreen, HasItsClassAndCanFinishLaunching) {
    Phone phone;
    phone.boot({.executable = springboard});
    auto home_screen = objc::send<"new", objc::strong<NSObject>>(class_named("SpringBoard"));
    EXPECT_FALSE((home_screen->send<"launched", bool>()));
    home_screen->send<"applicationDidFinishLaunching:">(id{nullptr});
    EXPECT_TRUE((home_screen->send<"launched", bool>()));
}

TEST(HomeScreen, IsUnknownInAnApplication) {
    Phone phone;
    phone.boot({.executable = "/Applications/MobileNotes.app/MobileNotes"});
    EXPECT_EQ(objc_getClass("SpringBoard"), nullptr);
}

TEST(HomeScreen, IsUnknownWhereOnlyAFolderIsCalledLikeIt) {
    Phone phone;
    phone.boot({.executable = "/Applications/SpringBoard/Notes"});
    EXPECT_EQ(objc_getClass("SpringBoard"), nullptr);
}

}  // namespace
}  // namespace test
