// The tests' entry: each case in a process of its own, with the module's constant strings made objects first.
#include <gtest/gtest.h>

#include "objc/string.h"
#include "support/cases.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    objc::adopt_strings();
    return test::run_cases(argc, argv);
}
