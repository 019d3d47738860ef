// The library asked from sixteen threads at once: the system may ask for colours off the main thread. Its
// worth is under the thread sanitizer (./dev test --threads).
#include <atomic>
#include <barrier>
#include <set>
#include <thread>

#include "platform/keyboard.h"
#include "support/configuration.h"
#include "support/themes.h"

namespace test {
namespace {

constexpr size_t thread_count = 16, rounds = 50;

class Threads : public testing::Test {
  protected:
    /// Every thread does the work so often. All begin each time together, and none takes a lock just before:
    /// what a lock orders is no race that could be seen.
    static void race(const std::function<void(size_t thread)>& work) {
        std::barrier together(thread_count);
        std::vector<std::thread> threads;
        for (size_t number = 0; number < thread_count; ++number)
            threads.emplace_back([&, number] {
                for (size_t round = 0; round < rounds; ++round) {
                    objc::AutoreleasePool pool;
                    together.arrive_and_wait();
                    work(number);
                }
            });
        for (std::thread& thread : threads) thread.join();
    }

    Phone phone;
};

TEST_F(Threads, TheStoreIsMadeOnce) {
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/keyboardd"});  // where the set-up asks for none
    const id store_class = class_named("HCPreferences");
    std::atomic<id> stores[thread_count] = {};
    race([&](size_t thread) { stores[thread] = objc::send<"sharedInstance", id>(store_class); });
    for (const auto& each : stores) EXPECT_EQ(each.load(), stores[0].load());
    EXPECT_TRUE((objc::send<"isEnabled", bool>(stores[0].load())));
}

TEST_F(Threads, EveryThreadIsToldTheThemesColours) {
    arrange_theme(phone);
    phone.start();
    std::atomic<size_t> right = 0;
    NSString *const label = text("UIKBColorText"), *const highlight = text("UIKBColorHighlight");
    race([&](size_t thread) {
        const CGColorRef colour = UIKBGetNamedColor(thread % 2 ? label : highlight);
        const CGFloat* parts = colour ? CGColorGetComponents(colour) : nullptr;
        right += parts && parts[0] == (thread % 2 ? theme_text : theme_highlight).red;
    });
    EXPECT_EQ(right, thread_count * rounds);
}

TEST_F(Threads, ADaemonsFirstQuestionsMayComeTogether) {
    arrange_theme(phone);
    phone.start({.executable = "/usr/libexec/keyboardd"});
    std::atomic<size_t> answered = 0;
    NSString* const label = text("UIKBColorText");
    race([&](size_t) { answered += UIKBGetNamedColor(label) != nullptr; });
    EXPECT_EQ(answered, thread_count * rounds);
}

TEST_F(Threads, ColoursAreReadAndWrittenByAll) {
    phone.start();
    const id tool = class_named("HCCITool");
    std::atomic<size_t> right = 0;
    race([&](size_t) {
        const id colour = objc::send<"colorFromHexString:", id>(tool, text("#336699"));
        right += utf8(objc::send<"hexStringFromColor:", id>(tool, colour)) == "#336699";
    });
    EXPECT_EQ(right, thread_count * rounds);
}

TEST_F(Threads, EachThreadMakesThemesOfItsOwn) {
    phone.start();
    std::atomic<size_t> right = 0;
    race([&](size_t thread) {
        const auto theme = Configuration::made_default();
        theme.set_name("Theme " + std::to_string(thread));
        right += theme.name() == "Theme " + std::to_string(thread) && theme.colours()->count() == 2;
    });
    EXPECT_EQ(right, thread_count * rounds);
}

#if __has_feature(thread_sanitizer)
class KnownRace : public Threads {};

int raced_for = 0;

/// What the others rest on: this one is seen, and ./dev test --threads runs it by itself.
TEST_F(KnownRace, IsSeen) {
    race([](size_t) { ++raced_for; });
}
#endif

}  // namespace
}  // namespace test
