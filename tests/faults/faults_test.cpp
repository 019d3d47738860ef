// The faults themselves: that the call that is meant fails, and no other.
#include "support/faults.h"

#include <fcntl.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <tuple>

#include "folder.h"

namespace test {
namespace {

class Faults : public testing::Test {
  protected:
    /// Writes "abcdef" to a file in two calls; the status says which call failed first, with what.
    int write_twice() const {
        const std::string file = folder.path() / "file";
        const int written = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (written < 0) return errno;
        for (const char* part : {"abc", "def"}) {
            const ssize_t count = write(written, part, 3);
            if (count < 0) return 50 + errno;
            if (count < 3) return 200;
        }
        return close(written) == 0 ? 0 : 100 + errno;
    }
    FaultyRun run(size_t number = 0, const Fault& fault = {}) const {
        return run_with_fault([&] { return write_twice(); }, {folder.path()}, number, fault);
    }

    static void expect_done(const FaultyRun& run, const Fault&) { EXPECT_EQ(run.status, 0); }

    Folder folder;
};

TEST_F(Faults, WithoutOneEveryCallIsCounted) {
    const FaultyRun run = this->run();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.calls.size(), 4u);
    EXPECT_FALSE(run.struck);
    EXPECT_EQ(folder.read("file"), "abcdef");
}

TEST_F(Faults, TheNthCallFailsWithTheErrorAndIsNotMade) {
    EXPECT_EQ(run(1, Fault::failing(EACCES)).status, EACCES);
    EXPECT_TRUE(snapshot_of(folder.path()).empty());
    EXPECT_EQ(run(2, Fault::failing(ENOSPC)).status, 50 + ENOSPC);
    EXPECT_EQ(folder.read("file"), "");
    EXPECT_EQ(run(3, Fault::failing(EIO)).status, 50 + EIO);
    EXPECT_EQ(folder.read("file"), "abc");
    EXPECT_EQ(run(4, Fault::failing(EINTR)).status, 100 + EINTR);
    EXPECT_EQ(folder.read("file"), "abcdef");
    EXPECT_FALSE(run(5, Fault::failing(EIO)).struck);
}

TEST_F(Faults, HalfAWriteWritesTheBeginning) {
    const FaultyRun run = this->run(3, Fault::half_a_write());
    EXPECT_EQ(run.status, 200);
    EXPECT_EQ(folder.read("file"), "abcd");
    EXPECT_FALSE(this->run(1, Fault::half_a_write()).struck);
}

TEST_F(Faults, AKillComesBeforeTheCall) {
    const FaultyRun run = this->run(3, Fault::kill());
    EXPECT_EQ(run.status, 1000 + SIGKILL);
    EXPECT_EQ(folder.read("file"), "abc");
}

TEST_F(Faults, MeddlingComesBeforeTheCall) {
    const FaultyRun run = this->run(4, Fault::meddling([&] { folder.write("file", "meddled"); }));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(folder.read("file"), "meddled");
}

TEST_F(Faults, CallsOfStartedProcessesCount) {
    const auto in_a_child = [&] {
        const pid_t child = fork();
        if (child == 0) _exit(write_twice());
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
    };
    EXPECT_EQ(run_with_fault(in_a_child, {folder.path()}).calls.size(), 4u);
    EXPECT_EQ(run_with_fault(in_a_child, {folder.path()}, 2, Fault::failing(EIO)).status, 50 + EIO);
    EXPECT_EQ(run_with_fault(in_a_child, {folder.path()}, 2, Fault::kill()).status, 1000 + SIGKILL);
}

TEST_F(Faults, WithoutFoldersAllCallsCount) {
    const auto asks = [] { return getppid() > 0 && getpgrp() >= 0 ? 0 : 1; };
    const std::vector<std::string> calls = run_with_fault(asks, {}).calls;
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[0], std::to_string(SYS_getppid) + " ");
    EXPECT_EQ(calls[1], std::to_string(SYS_getpgrp) + " ");
    EXPECT_EQ(run_with_fault(asks, {"/nowhere"}).calls.size(), 0u);
}

TEST_F(Faults, EveryCallMeetsEveryFault) {
    size_t judged = 0;
    const size_t met = try_every_fault({.counted = {folder.path()},
                                        .prepare = [&] { folder.clear(); },
                                        .work = [&] { return write_twice(); },
                                        .judge =
                                            [&](const FaultyRun& run, const Fault& fault) {
                                                const bool is_free =
                                                    fault.kind == Fault::Kind::none || !run.struck;
                                                EXPECT_EQ(run.status == 0, is_free);
                                                ++judged;
                                            }});
    EXPECT_EQ(met, 4 * 5 + 2u);                // four errors and a kill at each call, and half of two writes
    EXPECT_EQ(judged, 1 + (4 + 1) * 5u + 3u);  // once past the end, too; two calls write
}

TEST_F(Faults, TheFirstRunMayMakeMoreCallsThatConcernNoFile) {
    int runs = 0;
    const auto work = [&] {
        unsigned drawn = 0;
        for (int more = 0; runs == 1 && more < 10; ++more) syscall(SYS_getrandom, &drawn, sizeof drawn, 0);
        return write_twice();
    };
    EXPECT_GE(try_at_every_call({{}, [&] { ++runs; }, work, expect_done}, {Fault::meddling([] {})}), 4u);
}

TEST_F(Faults, ARunThatMakesFewerCallsAboutFilesIsNotTheEnd) {
    int runs = 0;
    const auto work = [&] {
        if (runs == 1)
            for (int more = 0; more < 3; ++more) std::ignore = access(folder.path().c_str(), F_OK);
        return write_twice();
    };
    const auto try_all = [&](const Counted& counted) {
        runs = 0;
        try_at_every_call({counted, [&] { ++runs; }, work, expect_done}, {Fault::meddling([] {})});
    };
    EXPECT_NONFATAL_FAILURE(try_all({}), "with the fault call 1 of");
    EXPECT_NONFATAL_FAILURE(try_all({folder.path()}), "with the fault call 1 of 7");
}

}  // namespace
}  // namespace test
