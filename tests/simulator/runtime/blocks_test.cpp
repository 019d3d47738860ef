// Blocks as the device's compiler lays them out.
#include "objc/class.h"
#include "support/phone.h"

extern "C" {
void* _Block_copy(const void*);
void _Block_release(const void*);
}

namespace test {
namespace {

struct Descriptor {
    unsigned long reserved, size;
    void (*copy)(void*, const void*);
    void (*dispose)(const void*);
};

/// A block that captured a number and an object.
struct Block {
    Class isa;
    unsigned flags;
    int reserved;
    long (*invoke)(Block*);
    const Descriptor* descriptor;
    long number;
    id object;
};

constexpr unsigned has_copy_and_dispose = 1 << 25, is_global = 1 << 28;
int copies = 0, disposals = 0;

const Descriptor descriptor{0, sizeof(Block),
                            [](void* to, const void* from) {
                                ++copies;
                                static_cast<Block*>(to)->object =
                                    objc_retain(static_cast<const Block*>(from)->object);
                            },
                            [](const void* block) {
                                ++disposals;
                                objc_release(static_cast<const Block*>(block)->object);
                            }};

class BlockObject : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        copies = disposals = 0;
        captured = NSObject::class_send<"new", objc::strong<NSObject>>();
        on_stack = {objc_getClass("__NSStackBlock__"),
                    has_copy_and_dispose,
                    0,
                    [](Block* self) { return self->number; },
                    &descriptor,
                    42,
                    captured};
    }
    NSUInteger references() { return captured->send<"retainCount", NSUInteger>(); }

    Phone phone;
    objc::strong<NSObject> captured;
    Block on_stack;
};

TEST_F(BlockObject, CopyOutlivesTheFrame) {
    auto* copy = static_cast<Block*>(_Block_copy(&on_stack));
    ASSERT_NE(copy, &on_stack);
    on_stack.number = 0;
    EXPECT_EQ(copy->invoke(copy), 42);
    EXPECT_STREQ(class_getName(copy->isa), "__NSMallocBlock__");
    EXPECT_EQ(references(), 2u);
    _Block_release(copy);
    EXPECT_EQ(disposals, 1);
    EXPECT_EQ(references(), 1u);
}

TEST_F(BlockObject, CopyOfACopyIsCounted) {
    auto* copy = static_cast<Block*>(_Block_copy(&on_stack));
    EXPECT_EQ(_Block_copy(copy), copy);
    EXPECT_EQ(copies, 1);
    _Block_release(copy);
    EXPECT_EQ(disposals, 0);
    _Block_release(copy);
    EXPECT_EQ(disposals, 1);
}

TEST_F(BlockObject, GlobalIsNeverCopied) {
    Block global{objc_getClass("__NSGlobalBlock__"), is_global, 0, on_stack.invoke, &descriptor, 1, nullptr};
    EXPECT_EQ(_Block_copy(&global), &global);
    _Block_release(&global);
    EXPECT_EQ(copies + disposals, 0);
}

TEST_F(BlockObject, NilIsNothing) {
    EXPECT_EQ(_Block_copy(nullptr), nullptr);
    _Block_release(nullptr);
}

TEST_F(BlockObject, IsAnObject) {
    auto* block = reinterpret_cast<NSObject*>(&on_stack);
    auto copy = objc::adopt(block->send<"copy", NSObject*>());
    EXPECT_STREQ(object_getClassName(copy), "__NSMallocBlock__");
    EXPECT_TRUE(copy->isKindOfClass(objc_getClass("NSBlock")));
    objc_retain(copy);
    EXPECT_EQ((copy->send<"retainCount", NSUInteger>()), 2u);
    objc_release(copy);
    copy = nullptr;
    EXPECT_EQ(disposals, 1);
}

TEST_F(BlockObject, OnTheStackStaysThereWhenRetained) {
    auto block = reinterpret_cast<id>(&on_stack);
    EXPECT_EQ(objc_retain(block), block);
    objc_release(block);
    EXPECT_EQ(copies + disposals, 0);
}

TEST_F(BlockObject, MayStandInACollection) {
    {
        objc::AutoreleasePool pool;
        auto copy = objc::adopt(reinterpret_cast<NSObject*>(&on_stack)->send<"copy", NSObject*>());
        NSArray* blocks = NSArray::arrayWithObject(copy);
        auto* inside = reinterpret_cast<Block*>(blocks->objectAtIndex(0));
        EXPECT_EQ(inside->invoke(inside), 42);
    }
    EXPECT_EQ(disposals, 1);
}

TEST_F(BlockObject, OfTheDeviceIsCalledByFoundation) {
    struct Visitor {
        Class isa;
        unsigned flags;
        int reserved;
        void (*invoke)(Visitor*, id, NSUInteger, bool*);
        const Descriptor* descriptor;
        std::string seen;
    };
    static const Descriptor plain{0, sizeof(Visitor), nullptr, nullptr};
    Visitor visitor{objc_getClass("__NSStackBlock__"),
                    0,
                    0,
                    [](Visitor* self, id object, NSUInteger index, bool* stop) {
                        self->seen += utf8(object) + std::to_string(index);
                        *stop = index == 1;
                    },
                    &plain,
                    ""};
    array({text("a"), text("b"), text("c")})
        ->send<"enumerateObjectsUsingBlock:">(reinterpret_cast<id>(&visitor));
    EXPECT_EQ(visitor.seen, "a0b1");
}

}  // namespace
}  // namespace test
