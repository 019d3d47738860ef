// What runs the cases of every test program, tried on cases of every fate.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::Not;

class Cases : public testing::Test {
  protected:
    void run(const std::string& arguments) {
        std::FILE* pipe = popen((CASE_SAMPLES " " + arguments + " 2>&1").c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        std::array<char, 4096> bytes;
        while (const size_t count = std::fread(bytes.data(), 1, bytes.size(), pipe))
            output.append(bytes.data(), count);
        const int ended = pclose(pipe);
        ASSERT_TRUE(WIFEXITED(ended));
        status = WEXITSTATUS(ended);
    }
    /// What the cases of a run that goes well say of the processes that they run in, a line each.
    std::vector<std::string> processes_of(const std::string& arguments) {
        char file[] = "/tmp/huecraft-cases-XXXXXX";
        close(mkstemp(file));
        setenv("CASE_PROCESSES", file, 1);
        run(arguments);
        EXPECT_EQ(status, 0) << output;
        std::ifstream processes(file);
        unlink(file);
        return {std::istream_iterator<std::string>(processes), {}};
    }
    std::string output;
    int status = -1;
};

TEST_F(Cases, OnesThatPassAreCountedAndOtherwiseSilent) {
    run("--gtest_filter='Passing.*'");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(output, testing::StartsWith("cases run: 3, failed: 0, skipped: 0, processor seconds: "));
}

TEST_F(Cases, NoneSeesWhatAnotherLeftBehind) {
    run("--gtest_filter='Passing.LeavesSomething*'");
    EXPECT_EQ(status, 0) << output;
    output.clear();
    run("--here --gtest_filter='Passing.LeavesSomething*'");
    EXPECT_EQ(status, 1) << "in one process they do: " << output;
}

#if !__has_feature(address_sanitizer)  // whose memory a rehearsal would put back, too
TEST_F(Cases, NoneSeesWhatARehearsalLeftBehind) {
    run("--rehearse --jobs=1 --gtest_filter='Leaving.*:AlsoLeaving.*'");
    EXPECT_EQ(status, 0) << output;
    EXPECT_THAT(output, testing::StartsWith("cases run: 6, failed: 0, "));
    output.clear();
    run("--here --gtest_filter='Leaving.*'");
    EXPECT_EQ(status, 1) << "in one process they do: " << output;
}

TEST_F(Cases, TheFirstOfASuiteIsRehearsedInTheProcessThatForks) {
    for (const auto& [options, times] : {std::pair{"", 2u}, {"--rehearse ", 3u}}) {
        const auto said = processes_of(std::string(options) + "--jobs=1 --gtest_filter='Telling.*'");
        EXPECT_EQ(std::set<std::string>(said.begin(), said.end()).size(), times) << options;
    }
}

TEST_F(Cases, ARehearsalGoesToTheEndOfTheProcessAndTheProcessGoesOn) {
    for (const auto& [options, times] : {std::pair{"", 2u}, {"--rehearse ", 3u}}) {
        const auto said = processes_of(std::string(options) + "--jobs=1 --gtest_filter='Closing.*'");
        EXPECT_EQ(said.size(), times) << options;
        EXPECT_EQ(std::set<std::string>(said.begin(), said.end()).size(), said.size()) << options;
    }
}

TEST_F(Cases, OneOfAnotherSuiteIsRehearsedIfItsCasesGainByIt) {
    for (const auto& [others, times] : {std::pair{"*", 2u}, {"FirstTakesLong", 1u}})
        EXPECT_EQ(processes_of(std::string("--rehearse --jobs=1 --gtest_filter='Leaving.*:AlsoLeaving.") +
                               others + "'")
                      .size(),
                  times)
            << others;
}

TEST_F(Cases, TheStackOfAThreadThatWasJoinedMayGoInARehearsal) {
    run("--rehearse --jobs=1 --gtest_filter='Unmapping.*'");
    EXPECT_EQ(status, 0) << output;
    EXPECT_THAT(output, testing::StartsWith("cases run: 2, failed: 0, "));
}

TEST_F(Cases, WhatCannotBeUndoneEndsTheRehearsalAndTheProgram) {
    run("--rehearse --jobs=1 --gtest_filter='Threading.*'");
    EXPECT_EQ(status, 2);
    EXPECT_THAT(output, HasSubstr("a rehearsal: a thread is still running\n"));
    EXPECT_THAT(output, HasSubstr("Threading.LeavesItRunning cannot be undone when it is rehearsed\n"));
}
#endif

TEST_F(Cases, AFailureIsShownInFullUnderItsWholeName) {
    run("--prefix=elf. --gtest_filter='Failing.*:Passing.*'");
    EXPECT_EQ(status, 1);
    EXPECT_THAT(output, HasSubstr("FAILED: elf.Failing.SaysWhy\n"));
    EXPECT_THAT(output, HasSubstr("on the way\n"));
    EXPECT_THAT(output, HasSubstr("as was expected of it\n"));
    EXPECT_THAT(output, HasSubstr("cases run: 4, failed: 1, "));
    EXPECT_THAT(output, Not(HasSubstr("seen by nobody")));
}

TEST_F(Cases, ACrashEndsOneAlone) {
    run("--jobs=1 --gtest_filter='Crashing.*:Each*:Of*'");
    EXPECT_EQ(status, 1);
    // A sanitizer says itself what it was.
    EXPECT_THAT(output, HasSubstr(__has_feature(address_sanitizer)
                                      ? "FAILED: Crashing.Aborts\n"
                                      : "FAILED: Crashing.Aborts: Segmentation fault\n"));
    EXPECT_THAT(output, HasSubstr("last words\n"));
    EXPECT_THAT(output, HasSubstr("cases run: 3, failed: 1, "));
}

TEST_F(Cases, OneThatEndsItsProcessHasFailed) {
    run("--gtest_filter='Exiting.*'");
    EXPECT_EQ(status, 1);
    EXPECT_THAT(output, HasSubstr("FAILED: Exiting.ClaimsToHavePassed"));
}

TEST_F(Cases, OneThatComputesForeverIsEndedAtItsLimit) {
    run("--limit=1 --gtest_filter=Hanging.Computes");
    EXPECT_EQ(status, 1);
    EXPECT_THAT(output, HasSubstr("FAILED: Hanging.Computes: it took more than 1 s of processor time\n"));
}

TEST_F(Cases, OneThatWaitsForeverIsEndedWhenPatienceIs) {
    run("--patience=1 --gtest_filter=Hanging.Sleeps");
    EXPECT_EQ(status, 1);
    EXPECT_THAT(output, HasSubstr("FAILED: Hanging.Sleeps: it was not done after 1 s\n"));
}

TEST_F(Cases, OneThatSkipsIsNotCountedAsRun) {
    run("--gtest_filter='Skipping.*:Passing.*'");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(output, HasSubstr("SKIPPED: Skipping.SaysWhy\n"));
    EXPECT_THAT(output, HasSubstr("there is nothing to do"));
    EXPECT_THAT(output, HasSubstr("cases run: 3, failed: 0, skipped: 1, "));
}

TEST_F(Cases, AreChosenByPatternsAsGtestReadsThem) {
    run("--gtest_filter='Passing.*:*/Each.*-*Too:*/1'");
    EXPECT_THAT(output, HasSubstr("cases run: 4, "));
    run("--gtest_filter='-*ing.*'");
    EXPECT_THAT(output, HasSubstr("cases run: 2, "));
}

TEST_F(Cases, AFilterThatChoosesNoneFails) {
    run("--gtest_filter=Nothing.AtAll");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(output, "no case matches Nothing.AtAll\n");
}

TEST_F(Cases, AnUnknownArgumentIsRefusedInOneLine) {
    run("--job=3");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(output,
              "--job=3: expected --prefix=, --jobs=, --limit=, --patience=, --here, --rehearse or an option "
              "of gtest's\n");
    output.clear();
    run("--jobs=none");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(output, "--jobs=none: expected a number from 1 to 100000\n");
}

}  // namespace
