// Blocks made of lambdas, as the frameworks call, keep and drop them.
#include "objc/block.h"

#include "support/phone.h"

extern "C" {
void* _Block_copy(const void*);
void _Block_release(const void*);
}

namespace test {
namespace {

/// What a caller knows of a block.
struct Layout {
    Class isa;
    unsigned flags;
    int reserved;
    void (*invoke)();
};

template <class... Arguments>
void call_block(const void* block, Arguments... arguments) {
    auto* invoke = static_cast<const Layout*>(block)->invoke;
    reinterpret_cast<void (*)(const void*, Arguments...)>(invoke)(block, arguments...);
}

class SeamBlock : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    Phone phone;
};

TEST_F(SeamBlock, CallsItsFunction) {
    int calls = 0;
    objc::Block block([&calls] { ++calls; });
    id object = block;
    EXPECT_STREQ(object_getClassName(object), "__NSStackBlock__");
    call_block(object);
    call_block(object);
    EXPECT_EQ(calls, 2);
}

TEST_F(SeamBlock, ItsArgumentsArriveNarrowed) {
    bool finished = false;
    double fraction = 0;
    objc::Block block([&](bool yes, double part) {
        finished = yes;
        fraction = part;
    });
    call_block(static_cast<id>(block), 0x100, 0.5);
    EXPECT_FALSE(finished) << "only the lowest byte of a BOOL counts";
    call_block(static_cast<id>(block), 0x101, 0.5);
    EXPECT_TRUE(finished);
    EXPECT_EQ(fraction, 0.5);
}

TEST_F(SeamBlock, ACopyKeepsWhatWasCaptured) {
    auto captured = objc::adopt(NSObject::class_send<"new", NSObject*>());
    auto count = [&captured] { return captured->send<"retainCount", NSUInteger>(); };
    void* copy = nullptr;
    {
        objc::Block block([kept = captured] { kept->send<"self", id>(); });
        EXPECT_EQ(count(), 2u);
        copy = _Block_copy(static_cast<id>(block));
        EXPECT_EQ(count(), 3u);
    }
    EXPECT_EQ(count(), 2u);
    call_block(copy);
    _Block_release(copy);
    EXPECT_EQ(count(), 1u);
}

}  // namespace
}  // namespace test
