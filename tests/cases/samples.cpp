// Cases of every fate, for the tests of what runs cases.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

// Which of its processes this is, the program that runs the cases or a fork.
void tell_process() { std::ofstream(std::getenv("CASE_PROCESSES"), std::ios::app) << getpid() << '\n'; }

int left_behind = 0;

TEST(Passing, LeavesSomething) {
    std::puts("seen by nobody");
    EXPECT_EQ(left_behind++, 0);
}
TEST(Passing, LeavesSomethingToo) { EXPECT_EQ(left_behind++, 0); }
TEST(Passing, SaysItsProcess) { std::fprintf(stderr, "process %d\n", getpid()); }

// Each leaves something of another kind behind, and expects that nobody did before it.
std::string* kept = nullptr;
void expect_nothing_left_behind() {
    EXPECT_EQ(left_behind++, 0) << "a variable";
    EXPECT_EQ(kept, nullptr) << "what was allocated";
    kept = new std::string(3 << 20, 'x');
    for (int i = 0; i < 1000; ++i) static_cast<void>(new char[1000]);
    EXPECT_EQ(fcntl(200, F_GETFD), -1) << "an open file";
    EXPECT_EQ(dup2(STDOUT_FILENO, 200), 200);
    EXPECT_STRNE(std::filesystem::current_path().c_str(), "/") << "a folder";
    std::filesystem::current_path("/");
    EXPECT_EQ(std::signal(SIGUSR1, SIG_IGN), SIG_DFL) << "a signal";
    EXPECT_EQ(std::getenv("LEFT_BEHIND"), nullptr) << "a variable of the environment";
    setenv("LEFT_BEHIND", "1", 1);
    // Where the first one's was, if it was not taken away.
    void* const place = reinterpret_cast<void*>(0x7100000000);
    EXPECT_EQ(
        mmap(place, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0),
        place)
        << "what was mapped";
}
TEST(Leaving, FirstLeavesAllSorts) { expect_nothing_left_behind(); }
TEST(Leaving, SecondLeavesAllSorts) { expect_nothing_left_behind(); }
TEST(Leaving, ThirdLeavesAllSorts) { expect_nothing_left_behind(); }
TEST(AlsoLeaving, FirstTakesLong) {
    expect_nothing_left_behind();
    for (const std::clock_t start = std::clock(); std::clock() - start < CLOCKS_PER_SEC / 10;) {
    }
    if (std::getenv("CASE_PROCESSES")) tell_process();
}
TEST(AlsoLeaving, ThirdLeavesAllSorts) { expect_nothing_left_behind(); }
TEST(AlsoLeaving, SecondLeavesAllSorts) { expect_nothing_left_behind(); }
TEST(Threading, LeavesItRunning) {
    std::thread([] { std::this_thread::sleep_for(std::chrono::hours(1)); }).detach();
}
TEST(Threading, HasNothingToDo) {}
// As of a thread that was joined: a stack, and before it what nobody may touch.
const size_t guard = 64 << 10, stack = 1 << 20;
auto* const ended_thread = [] {
    auto* mapped = static_cast<char*>(
        mmap(nullptr, guard + stack, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    mprotect(mapped + guard, stack, PROT_READ | PROT_WRITE);
    mapped[guard] = 'k';
    return mapped;
}();
void give_stack_back() {
    EXPECT_EQ(ended_thread[guard], 'k');
    EXPECT_EQ(munmap(ended_thread, guard + stack), 0);
}
TEST(Unmapping, AStackWithItsGuard) { give_stack_back(); }
TEST(Unmapping, TheSameStackWithItsGuard) { give_stack_back(); }
TEST(Telling, SaysWhereItRuns) { tell_process(); }
TEST(Telling, SaysItAgain) { tell_process(); }

// As late as anything of the program ends.
struct Ending {
    bool tells = false;
    ~Ending() {
        if (tells) tell_process();
    }
} the_ending;
TEST(Closing, IsTold) { the_ending.tells = true; }
TEST(Closing, IsToldOnce) { the_ending.tells = true; }

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
