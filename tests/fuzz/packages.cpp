// Any bytes as a package for a device: opened, and checked as far as it can be.
#include "harness/text_inputs.h"
#include "package/checks.h"
#include "package/package.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::read_or_refuse(data, size, [](const std::string& bytes) {
        const command::Package package = command::open_package(bytes, "some.deb");
        EXPECT_EQ(package.size, bytes.size());
        EXPECT_FALSE(package.members.empty());
    });
    return 0;
}
