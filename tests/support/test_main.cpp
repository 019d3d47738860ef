// The tests' entry: each case in a process of its own. What all of them need is done once, before they part:
// the module's constant strings are made objects, and what each boot would do alike.
#include <gtest/gtest.h>

#include "objc/string.h"
#include "support/cases.h"
#include "support/phone.h"

[[gnu::weak]] void test::prepare_phones() { prepare_phones_that_may_lack({}); }

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    objc::adopt_strings();
    test::prepare_phones();
    return test::run_cases(argc, argv);
}
