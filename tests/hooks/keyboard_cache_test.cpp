// SpringBoard's launch removes the system's cache of keyboard images.
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

constexpr const char* cache_folder = "/var/mobile/Library/Caches/com.apple.keyboards";

class KeyboardCache : public testing::Test {
  protected:
    void launch_springboard() {
        phone.start({.executable = springboard});
        objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), id{});
    }

    Phone phone;
};

TEST_F(KeyboardCache, IsRemovedAfterLaunch) {
    phone.write(std::string(cache_folder) + "/en/a.png", "picture");
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
    EXPECT_TRUE(phone.exists("/var/mobile/Library/Caches")) << "and nothing beside it";
}

TEST_F(KeyboardCache, IsRemovedWithThemingOffToo) {
    arrange_theme(phone, false);
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, APlainFileOfItsNameIsLeftAlone) {
    phone.write(cache_folder, "a file");
    launch_springboard();
    EXPECT_EQ(phone.read(cache_folder), "a file");
}

TEST_F(KeyboardCache, NothingHappensWithoutOne) {
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, StaysUntilTheLaunchIsDone) {
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    phone.start({.executable = springboard});
    EXPECT_TRUE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, TheSystemsOwnLaunchRunsFirstWithTheSameArgument) {
    static bool cache_was_there = false;
    static id argument = nullptr;
    static const Phone* of_test = nullptr;
    of_test = &phone;
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    phone.boot({.executable = springboard});
    stand_in("SpringBoard", "applicationDidFinishLaunching:", [](id, SEL, id application) {
        argument = application;
        cache_was_there = of_test->exists(cache_folder);
    });
    phone.load();
    id application = text("application");
    objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), application);
    EXPECT_EQ(argument, application);
    EXPECT_TRUE(cache_was_there);
    EXPECT_FALSE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, ARemovalThatFailsIsNotRetriedAndItsErrorIsIgnored) {
    static std::vector<bool> gave_a_slot;
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    phone.boot({.executable = springboard});
    stand_in("NSFileManager", "removeItemAtPath:error:", [](id, SEL, id, NSError** error) -> int {
        gave_a_slot.push_back(error != nullptr);
        if (error) *error = NSError::errorWithDomain(text("test"), 1, nullptr);
        return 0;
    });
    phone.load();
    EXPECT_EQ(raised_by([] { objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), id{}); }), "");
    EXPECT_EQ(gave_a_slot, std::vector<bool>{true});
    EXPECT_TRUE(phone.exists(cache_folder));
}

}  // namespace
}  // namespace test
