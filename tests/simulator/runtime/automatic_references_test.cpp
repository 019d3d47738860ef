// What the compiler calls in code with automatic reference counting.
#include "support/block.h"
#include "support/phone.h"

extern "C" {
id objc_alloc(Class);
id objc_allocWithZone(Class);
id objc_autoreleaseReturnValue(id);
id objc_retainAutorelease(id);
id objc_retainAutoreleaseReturnValue(id);
id objc_retainAutoreleasedReturnValue(id);
id objc_unsafeClaimAutoreleasedReturnValue(id);
void objc_storeStrong(id* variable, id object);
id objc_retainBlock(id block);
id objc_loadWeak(id* variable);
void objc_copyWeak(id* to, id* from);
void objc_moveWeak(id* to, id* from);
void objc_setProperty_nonatomic_copy(id self, SEL, id value, ptrdiff_t offset);
}

namespace test {
namespace {

NSUInteger references(id object) { return objc::send<"retainCount", NSUInteger>(object); }

class AutomaticReferences : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        type = objc_getClass("NSObject");
        object = objc_alloc(type);
        other = objc_allocWithZone(type);
    }
    void TearDown() override {
        objc_release(object);
        objc_release(other);
    }

    Phone phone;
    Class type = nullptr;
    id object = nullptr, other = nullptr;
};

TEST_F(AutomaticReferences, AllocatedObjectsBelongToTheCaller) {
    EXPECT_EQ(object_getClass(object), type);
    EXPECT_EQ(object_getClass(other), type);
    EXPECT_EQ(references(object), 1u);
    EXPECT_EQ(references(other), 1u);
    EXPECT_EQ(objc_alloc(nullptr), nullptr);
}

TEST_F(AutomaticReferences, AStrongVariableHoldsWhatIsStoredLast) {
    id variable = nullptr;
    objc_storeStrong(&variable, object);
    EXPECT_EQ(variable, object);
    EXPECT_EQ(references(object), 2u);
    objc_storeStrong(&variable, object);
    EXPECT_EQ(references(object), 2u) << "the same again";
    objc_storeStrong(&variable, other);
    EXPECT_EQ(references(object), 1u);
    EXPECT_EQ(references(other), 2u);
    objc_storeStrong(&variable, nullptr);
    EXPECT_EQ(references(other), 1u);
}

TEST_F(AutomaticReferences, ResultsGoThroughThePool) {
    {
        objc::AutoreleasePool pool;
        EXPECT_EQ(objc_autoreleaseReturnValue(objc_retain(object)), object);
        EXPECT_EQ(objc_retainAutorelease(object), object);
        EXPECT_EQ(objc_retainAutoreleaseReturnValue(object), object);
        EXPECT_EQ(references(object), 4u);
    }
    EXPECT_EQ(references(object), 1u);
}

TEST_F(AutomaticReferences, AResultIsTakenOrLookedAt) {
    EXPECT_EQ(objc_unsafeClaimAutoreleasedReturnValue(object), object);
    EXPECT_EQ(references(object), 1u);
    EXPECT_EQ(objc_retainAutoreleasedReturnValue(object), object);
    EXPECT_EQ(references(object), 2u);
    objc_release(object);
}

TEST_F(AutomaticReferences, AWeakVariableIsCopied) {
    id seen = objc_alloc(type), from, to;
    objc_initWeak(&from, seen);
    objc_copyWeak(&to, &from);
    {
        objc::AutoreleasePool pool;
        EXPECT_EQ(objc_loadWeak(&from), seen);
        EXPECT_EQ(objc_loadWeak(&to), seen);
    }
    EXPECT_EQ(references(seen), 1u);
    objc_release(seen);
    EXPECT_EQ(objc_loadWeak(&from), nullptr);
    EXPECT_EQ(objc_loadWeak(&to), nullptr);
    objc_destroyWeak(&from);
    objc_destroyWeak(&to);
}

TEST_F(AutomaticReferences, AWeakVariableIsMoved) {
    id seen = objc_alloc(type), from, to;
    objc_initWeak(&from, seen);
    objc_moveWeak(&to, &from);
    EXPECT_EQ(from, nullptr);
    EXPECT_EQ(to, seen);
    objc_release(seen);
    EXPECT_EQ(to, nullptr);
    objc_destroyWeak(&to);
}

TEST_F(AutomaticReferences, ABlockIsCopied) {
    int called_with = 0;
    Block block([&](int argument) { called_with = argument; });
    id copy = objc_retainBlock(block);
    EXPECT_NE(copy, static_cast<id>(block));
    EXPECT_STREQ(object_getClassName(copy), "__NSMallocBlock__");
    objc_release(copy);
    EXPECT_EQ(objc_retainBlock(nullptr), nullptr);
}

TEST_F(AutomaticReferences, APropertyKeepsACopy) {
    struct Holder {
        Class isa;
        id value;
    } holder{};
    constexpr ptrdiff_t offset = offsetof(Holder, value);
    auto* self = reinterpret_cast<id>(&holder);
    auto mutable_text = objc::adopt(objc::send<"mutableCopy", NSString*>(text("a text")));
    objc_setProperty_nonatomic_copy(self, nullptr, mutable_text, offset);
    EXPECT_NE(holder.value, static_cast<id>(mutable_text));
    EXPECT_EQ(utf8(holder.value), "a text");
    objc_setProperty_nonatomic_copy(self, nullptr, nullptr, offset);
    EXPECT_EQ(holder.value, nullptr);
}

}  // namespace
}  // namespace test
