// Cases of every fate, for the tests of what runs cases.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <thread>

namespace {

int left_behind = 0;

TEST(Passing, LeavesSomething) {
    std::puts("seen by nobody");
    EXPECT_EQ(left_behind++, 0);
}
TEST(Passing, LeavesSomethingToo) { EXPECT_EQ(left_behind++, 0); }
TEST(Passing, SaysItsProcess) { std::fprintf(stderr, "process %d\n", getpid()); }

TEST(Failing, SaysWhy) {
    std::puts("on the way");
    EXPECT_EQ(1, 2) << "as was expected of it";
}
TEST(Crashing, Aborts) {
    std::puts("last words");
    std::fflush(stdout);
    std::raise(SIGSEGV);
}
TEST(Exiting, ClaimsToHavePassed) { std::exit(0); }
TEST(Hanging, Sleeps) { std::this_thread::sleep_for(std::chrono::hours(1)); }
TEST(Hanging, Computes) {
    for (volatile unsigned turns = 0;; turns = turns + 1) {
    }
}
// Not a test left out: cases_test.cpp holds that a skipped case is counted as one.
TEST(Skipping, SaysWhy) { GTEST_SKIP() << "there is nothing to do"; }

class Each : public testing::TestWithParam<const char*> {};
TEST_P(Each, HasAName) { EXPECT_STRNE(GetParam(), ""); }
INSTANTIATE_TEST_SUITE_P(Of, Each, testing::Values("One", "Two"),
                         [](const auto& info) { return info.param; });

}  // namespace
