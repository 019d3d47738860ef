// dispatch_once_f.
#include <thread>
#include <vector>

#include "support/phone.h"

namespace test {
namespace {

void count(void* counter) { ++*static_cast<int*>(counter); }

TEST(RunOnce, RunsTheFunctionOnce) {
    long once = 0;
    int runs = 0;
    for (int i = 0; i < 3; ++i) dispatch_once_f(&once, &runs, count);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(once, ~0L);
}

TEST(RunOnce, EachPredicateStandsForItself) {
    long first = 0, second = 0;
    int runs = 0;
    dispatch_once_f(&first, &runs, count);
    dispatch_once_f(&second, &runs, count);
    EXPECT_EQ(runs, 2);
}

TEST(RunOnce, MayNestWithAnotherPredicate) {
    static long outer = 0, inner = 0;
    int runs = 0;
    dispatch_once_f(&outer, &runs, [](void* counter) { dispatch_once_f(&inner, counter, count); });
    EXPECT_EQ(runs, 1);
}

TEST(RunOnce, LaterThreadsWaitForTheFirst) {
    struct State {
        long once = 0;
        int runs = 0;
        bool finished = false;
    } state;
    std::vector<std::thread> threads;
    std::vector<char> saw_it_finished(8);
    for (char& saw : saw_it_finished)
        threads.emplace_back([&state, &saw] {
            dispatch_once_f(&state.once, &state, [](void* context) {
                auto* shared = static_cast<State*>(context);
                ++shared->runs;
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                shared->finished = true;
            });
            saw = state.finished;
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(state.runs, 1);
    for (char saw : saw_it_finished) EXPECT_TRUE(saw);
}

TEST(RunOnce, FromItsOwnFunctionStopsTheProcess) {
    static long once = 0;
    EXPECT_DEATH(
        dispatch_once_f(&once, nullptr, [](void*) { dispatch_once_f(&once, nullptr, [](void*) {}); }),
        "not modelled: dispatch_once_f");
}

}  // namespace
}  // namespace test
