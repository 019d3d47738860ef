// Associated objects.
#include "objc/class.h"
#include "support/phone.h"

struct TSTValue : objc::Interface<TSTValue, "TSTValue", NSObject> {
    static objc::strong<TSTValue> make() { return class_send<"new", objc::strong<TSTValue>>(); }
};

namespace {

int values_gone = 0;
id owner_to_clean = nullptr;
constexpr char key = 0;

struct Value : objc::Implements<Value, TSTValue> {
    using Ivars = objc::NoIvars;
    void dealloc() {
        ++values_gone;
        // What a value's owner does when it hears of it: this must not wait for the table that is letting go.
        if (owner_to_clean) objc_setAssociatedObject(owner_to_clean, &key, nullptr, 1);
    }
};

}  // namespace

using namespace objc::definition;
OBJC_CLASS(TSTValue, NSObject, Value, conforms<"NSObject">)

namespace test {
namespace {

constexpr uintptr_t assign = 0, retain_nonatomic = 1, copy_nonatomic = 3, retain = 0x301;

class AssociatedObject : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        objc::register_classes([](auto) { return true; });
        values_gone = 0;
        owner = NSObject::class_send<"new", objc::strong<NSObject>>();
    }
    Phone phone;
    objc::strong<NSObject> owner;
    const char other_key = 0;
};

TEST_F(AssociatedObject, IsFoundUnderItsKeyAlone) {
    auto value = TSTValue::make();
    objc_setAssociatedObject(owner, &key, value, retain_nonatomic);
    EXPECT_EQ(objc_getAssociatedObject(owner, &key), value.get());
    EXPECT_EQ(objc_getAssociatedObject(owner, &other_key), nullptr);
    EXPECT_EQ(objc_getAssociatedObject(value, &key), nullptr);
}

TEST_F(AssociatedObject, RetainedGoesWithItsOwner) {
    objc_setAssociatedObject(owner, &key, TSTValue::make(), retain_nonatomic);
    EXPECT_EQ(values_gone, 0);
    owner = nullptr;
    EXPECT_EQ(values_gone, 1);
}

TEST_F(AssociatedObject, ReplacedGoesAtOnce) {
    objc_setAssociatedObject(owner, &key, TSTValue::make(), retain_nonatomic);
    auto second = TSTValue::make();
    objc_setAssociatedObject(owner, &key, second, retain_nonatomic);
    EXPECT_EQ(values_gone, 1);
    EXPECT_EQ(objc_getAssociatedObject(owner, &key), second.get());
}

TEST_F(AssociatedObject, NilClearsIt) {
    objc_setAssociatedObject(owner, &key, TSTValue::make(), retain_nonatomic);
    objc_setAssociatedObject(owner, &key, nullptr, retain_nonatomic);
    EXPECT_EQ(values_gone, 1);
    EXPECT_EQ(objc_getAssociatedObject(owner, &key), nullptr);
}

TEST_F(AssociatedObject, AssignedIsNotOwned) {
    auto value = TSTValue::make();
    objc_setAssociatedObject(owner, &key, value, assign);
    EXPECT_EQ((value->send<"retainCount", NSUInteger>()), 1u);
    owner = nullptr;
    EXPECT_EQ(values_gone, 0);
}

TEST_F(AssociatedObject, CopiedIsACopy) {
    auto* original = NSString::class_send<"stringWithString:", NSString*>(text("before"));
    auto changeable = objc::adopt(original->send<"mutableCopy", NSString*>());
    objc_setAssociatedObject(owner, &key, changeable, copy_nonatomic);
    changeable->send<"setString:">(text("after"));
    EXPECT_EQ(utf8(objc_getAssociatedObject(owner, &key)), "before");
}

TEST_F(AssociatedObject, AtomicIsKeptAliveForItsReader) {
    objc_setAssociatedObject(owner, &key, TSTValue::make(), retain);
    {
        objc::AutoreleasePool pool;
        id value = objc_getAssociatedObject(owner, &key);
        objc_setAssociatedObject(owner, &key, nullptr, retain);
        EXPECT_EQ(values_gone, 0);
        EXPECT_STREQ(object_getClassName(value), "TSTValue");
    }
    EXPECT_EQ(values_gone, 1);
}

TEST_F(AssociatedObject, OfNilIsNothing) {
    objc_setAssociatedObject(nullptr, &key, owner, retain_nonatomic);
    EXPECT_EQ(objc_getAssociatedObject(nullptr, &key), nullptr);
}

TEST_F(AssociatedObject, MayTouchTheTableWhileItGoes) {
    auto other = NSObject::class_send<"new", objc::strong<NSObject>>();
    objc_setAssociatedObject(other, &key, owner, retain_nonatomic);
    owner_to_clean = other;
    objc_setAssociatedObject(owner, &key, TSTValue::make(), retain_nonatomic);
    objc_setAssociatedObject(owner, &key, nullptr, retain_nonatomic);
    owner_to_clean = nullptr;
    EXPECT_EQ(objc_getAssociatedObject(other, &key), nullptr);
}

TEST_F(AssociatedObject, OfAClassLasts) {
    auto owning_class = reinterpret_cast<id>(TSTValue::class_object());
    auto value = TSTValue::make();
    objc_setAssociatedObject(owning_class, &key, value, retain_nonatomic);
    EXPECT_EQ(objc_getAssociatedObject(owning_class, &key), value.get());
    objc_setAssociatedObject(owning_class, &key, nullptr, retain_nonatomic);
}

TEST_F(AssociatedObject, UnknownPolicyStopsTheProcess) {
    EXPECT_DEATH(objc_setAssociatedObject(owner, &key, owner, 2), "not modelled: objc_setAssociatedObject");
}

}  // namespace
}  // namespace test
