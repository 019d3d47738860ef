// Main executables: which ones run, and how the others are refused.
#include <gmock/gmock.h>

#include <cstring>

#include "describe/report.h"

namespace test {
namespace {

using testing::EndsWith;

class MainExecutable : public DescribedPhone {
  protected:
    MainExecutable() : bytes(contents_of(DESCRIBE)) {}

    uint32_t word(size_t at) const {
        uint32_t value;
        std::memcpy(&value, bytes.data() + at, sizeof value);
        return value;
    }
    void put(size_t at, uint32_t value) { std::memcpy(bytes.data() + at, &value, sizeof value); }
    /// Where the load command of that number is.
    size_t command(uint32_t number) const {
        size_t at = 32;
        for (uint32_t left = word(16); left > 0; --left, at += word(at + 4))
            if (word(at) == number) return at;
        ADD_FAILURE() << "no load command " << number;
        return 0;
    }
    /// What is said of the executable as it is now.
    std::string refusal() {
        phone.write(executable, bytes);
        const Outcome outcome = run();
        EXPECT_EQ(outcome.status, SIM_BAD_FILE);
        EXPECT_EQ(outcome.out, "");
        return sim_last_error();
    }

    static constexpr uint32_t lc_main = 0x80000028, position_independent = 0x200000;
    std::string bytes;
};

TEST_F(MainExecutable, IsBuiltAsTheDeviceLoadsThem) {
    EXPECT_EQ(word(12), 2u);
    EXPECT_TRUE(word(24) & position_independent);
    EXPECT_EQ(bytes.substr(command(0xe) + 12, 13), std::string("/usr/lib/dyld", 13));
    EXPECT_NE(command(lc_main), 0u);
}

TEST_F(MainExecutable, ALibraryDoesNotRun) {
    bytes = contents_of(std::getenv("HUECRAFT_LIBRARY"));
    EXPECT_THAT(refusal(), EndsWith("not a main executable (found file type 6, expected 2)"));
}

TEST_F(MainExecutable, IsNoLibrary) {
    phone.boot();
    sim_library* library = nullptr;
    EXPECT_EQ(sim_load(DESCRIBE, &library), SIM_BAD_FILE);
    EXPECT_THAT(std::string(sim_last_error()),
                EndsWith("not a dynamic library (found file type 2, expected 6)"));
}

TEST_F(MainExecutable, WithoutAnEntryPointIsRefused) {
    put(command(lc_main), 0x2a);  // LC_SOURCE_VERSION, which nobody needs
    EXPECT_THAT(refusal(), EndsWith("no entry point (expected the load command LC_MAIN)"));
}

TEST_F(MainExecutable, OneThatBeginsOutsideItsCodeIsRefused) {
    put(command(lc_main) + 8, 0x7ffffff0);
    EXPECT_THAT(refusal(), EndsWith("LC_MAIN: the entry point is not code of the image (found 0x7ffffff0)"));
}

TEST_F(MainExecutable, OneThatIsNotThereIsNamed) {
    phone.boot();
    const char* const arguments[] = {"/usr/bin/other", nullptr};
    int exit_status = -1;
    EXPECT_EQ(sim_run("/usr/bin/other", arguments, &exit_status), SIM_NOT_FOUND);
    EXPECT_EQ(exit_status, -1);
}

TEST_F(MainExecutable, BeforeBootNothingRuns) {
    const char* const arguments[] = {executable, nullptr};
    int exit_status = -1;
    EXPECT_EQ(sim_run(executable, arguments, &exit_status), SIM_MISUSE);
}

}  // namespace
}  // namespace test
