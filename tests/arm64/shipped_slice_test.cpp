// What the library's tests run on here: the code of the package's own slice.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "objc/runtime.h"
#include "support/phone.h"

namespace test {
namespace {

class ShippedSlice : public testing::Test {
  protected:
    void SetUp() override {
        std::ifstream file(std::getenv("HUECRAFT_LIBRARY"), std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
        ASSERT_GT(bytes.size(), 32u);
    }

    uint32_t word(size_t offset) const {
        uint32_t value;
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    bool has_code_at(IMP implementation) const {
        constexpr size_t sixteen_instructions = 64;
        return bytes.find(std::string_view(reinterpret_cast<const char*>(implementation),
                                           sixteen_instructions)) != bytes.npos;
    }

    std::string bytes;
    Phone phone;
};

TEST_F(ShippedSlice, IsForTheProcessorOfTheDeviceAlone) {
    constexpr uint32_t one_slice = 0xfeedfacf, arm64 = 0x0100000c, not_arm64e = 0;
    EXPECT_EQ(word(0), one_slice);
    EXPECT_EQ(word(4), arm64);
    EXPECT_EQ(word(8), not_arm64e);
}

TEST_F(ShippedSlice, EveryMethodOfItsClassesRunsTheCodeInTheFile) {
    phone.start();
    size_t methods_seen = 0;
    for (size_t i = 0; const char* name = sim_class_name(phone.loaded_library(), i); ++i) {
        const auto one_class = class_named(name);
        for (Class side : {reinterpret_cast<Class>(one_class), object_getClass(one_class)}) {
            unsigned count = 0;
            const std::unique_ptr<Method, decltype(&std::free)> methods(class_copyMethodList(side, &count),
                                                                        &std::free);
            for (unsigned each = 0; each < count; ++each)
                EXPECT_TRUE(has_code_at(method_getImplementation(methods.get()[each]))) << name;
            methods_seen += count;
        }
    }
    EXPECT_GT(methods_seen, 200u);
    // And what is the system's is not found there.
    EXPECT_FALSE(has_code_at(
        class_getMethodImplementation(objc_getClass("NSObject"), sel_registerName("description"))));
}

TEST_F(ShippedSlice, TheOneForTheOtherProcessorIsRefused) {
    phone.boot();
    sim_library* library = nullptr;
    EXPECT_EQ(sim_load(OTHER_SLICE, &library), SIM_BAD_FILE);
    EXPECT_EQ(library, nullptr);
    const std::string line = sim_last_error();
    EXPECT_TRUE(line.ends_with("built for another processor (found x86_64, expected arm64)")) << line;
}

}  // namespace
}  // namespace test
