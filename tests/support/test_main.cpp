// The tests' entry: as gtest's own, with the module's constant strings made objects first.
#include <gtest/gtest.h>

#include "objc/string.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    objc::adopt_strings();
    return RUN_ALL_TESTS();
}
