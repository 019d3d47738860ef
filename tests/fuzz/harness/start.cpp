// How every target that needs the runtime begins.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

#include "objc/string.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    objc::adopt_strings();
    // What a target expects, and does not hold, is a finding.
    testing::FLAGS_gtest_break_on_failure = true;
    std::signal(SIGTRAP, [](int) { std::abort(); });  // libFuzzer puts the input away
    setenv("HUECRAFT_LIBRARY", FUZZED_LIBRARY, 0);
    return 0;
}
