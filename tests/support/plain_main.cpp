// The entry of tests that need no phone: each case in a process of its own.
#include <gtest/gtest.h>

#include "support/cases.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return test::run_cases(argc, argv);
}
