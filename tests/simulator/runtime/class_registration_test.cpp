// Classes that are made while the process runs.
#include "support/phone.h"

namespace test {
namespace {

int seven(id, SEL) { return 7; }

class ClassRegistration : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    static Class pair(Class superclass, const char* name) {
        return objc_allocateClassPair(superclass, name, 0);
    }
    Phone phone;
};

TEST_F(ClassRegistration, AClassKnowsItsSuperclass) {
    Class parent = pair(NSObject::class_object(), "RegisteredParent");
    ASSERT_TRUE(class_addIvar(parent, "_kept", sizeof(int), 2, "i"));
    objc_registerClassPair(parent);
    Class child = pair(parent, "RegisteredChild");
    EXPECT_FALSE(class_addIvar(child, "_kept", sizeof(int), 2, "i"));
    objc_registerClassPair(child);
    EXPECT_EQ(class_getSuperclass(child), parent);
    EXPECT_EQ(class_getSuperclass(parent), NSObject::class_object());
    EXPECT_EQ(class_getSuperclass(object_getClass(reinterpret_cast<id>(child))),
              object_getClass(reinterpret_cast<id>(parent)));
    EXPECT_EQ(class_getInstanceVariable(child, "_kept"), class_getInstanceVariable(parent, "_kept"));
    EXPECT_NE(class_getInstanceVariable(child, "_kept"), nullptr);
}

TEST_F(ClassRegistration, AClassThatNobodyAskedForInherits) {
    const SEL selector = sel_registerName("seven");
    Class parent = pair(NSObject::class_object(), "SilentParent");
    class_addMethod(parent, selector, reinterpret_cast<IMP>(&seven), "i@:");
    objc_registerClassPair(parent);
    Class child = pair(parent, "SilentChild");
    objc_registerClassPair(child);
    EXPECT_EQ(class_getInstanceMethod(child, selector), class_getInstanceMethod(parent, selector));
    auto object = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(child)));
    EXPECT_EQ((object->send<"seven", int>()), 7);
    EXPECT_TRUE((object->send<"isKindOfClass:", bool>(parent)));
}

TEST_F(ClassRegistration, ANameIsTheFirstClasssOfIt) {
    Class first = pair(NSObject::class_object(), "TakenName"), second = pair(first, "TakenName");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);  // its superclass is under construction
    second = pair(NSObject::class_object(), "TakenName");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(objc_lookUpClass("TakenName"), nullptr);
    objc_registerClassPair(first);
    objc_registerClassPair(second);
    EXPECT_EQ(objc_lookUpClass("TakenName"), first);
    EXPECT_EQ(pair(NSObject::class_object(), "TakenName"), nullptr);
}

TEST_F(ClassRegistration, WhatIsRegisteredAlreadyOrNoClassChangesNothing) {
    const int before = objc_getClassList(nullptr, 0);
    objc_registerClassPair(nullptr);
    objc_registerClassPair(NSObject::class_object());
    objc_registerClassPair(object_getClass(reinterpret_cast<id>(NSObject::class_object())));
    EXPECT_EQ(objc_getClassList(nullptr, 0), before);
    EXPECT_EQ(class_getSuperclass(NSObject::class_object()), nullptr);
}

}  // namespace
}  // namespace test
