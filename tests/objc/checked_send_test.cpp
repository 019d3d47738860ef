// Sends that are checked against the method that they find. The program is compiled as the debug build is.
#include "objc/object.h"
#include "platform/foundation.h"
#include "support/phone.h"

namespace test {
namespace {

template <class Function>
void add(Class owner, const char* selector, Function function, const char* types) {
    class_addMethod(owner, sel_registerName(selector), reinterpret_cast<IMP>(+function), types);
}

class CheckedSend : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        type = objc_allocateClassPair(objc_getClass("NSObject"), "HCScale", 0);
        add(type, "setTare:", [](id, SEL, float) {}, "v20@0:8f16");
        add(type, "tare", [](id, SEL) { return 2.5f; }, "f16@0:8");
        add(type, "setLocked:", [](id, SEL, int) {}, "v20@0:8C16");
        add(type, "weigh:", [](id, SEL, const void*) { return 1L; }, "l24@0:8r^{Load=dd}16");
        add(type, "name", [](id self, SEL) { return self; }, "@\"NSString\"16@0:8");
        add(type, "plate", [](id, SEL) { return CGRect{}; }, "{_NSRect={_NSPoint=dd}{_NSSize=dd}}16@0:8");
        add(type, "setCount:", [](id, SEL, unsigned) {}, "v20@0:8I16");
        objc_registerClassPair(type);
        add(object_getClass(reinterpret_cast<id>(type)), "setUnit:", [](id, SEL, id) {}, "v24@0:8@16");
        scale = made("HCScale");
    }
    Phone phone;
    Class type = nullptr;
    id scale = nullptr;
};

TEST_F(CheckedSend, OfADoubleForAFloatEndsTheProcess) {
    EXPECT_DEATH(objc::send<"setTare:">(scale, 2.5),
                 R"(-\[HCScale setTare:\] was sent as v@:d, and its types are v20@0:8f16)");
}

TEST_F(CheckedSend, ForAnotherResultEndsTheProcess) {
    EXPECT_DEATH((objc::send<"tare", double>(scale)), R"(-\[HCScale tare\] was sent as d@:)");
}

TEST_F(CheckedSend, OfAnIntForALongEndsTheProcess) {
    EXPECT_DEATH((objc::send<"weigh:", int>(scale, static_cast<void*>(nullptr))), "was sent as i@:");
}

TEST_F(CheckedSend, OfANumberForAnObjectEndsTheProcess) {
    EXPECT_DEATH(objc::send<"setUnit:">(reinterpret_cast<id>(type), NSInteger{4}),
                 R"(\+\[HCScale setUnit:\] was sent as v@:q)");
}

TEST_F(CheckedSend, ToTheSuperclassIsCheckedThere) {
    Class heir = objc_allocateClassPair(type, "HCFineScale", 0);
    objc_registerClassPair(heir);
    EXPECT_DEATH(objc::send_super<"setTare:">(made("HCFineScale"), heir, 2.5), "was sent as v@:d");
}

TEST_F(CheckedSend, IsCheckedAgainWhenTheMethodHasChanged) {
    auto ask = [](id receiver) { return objc::send<"mass", float>(receiver); };
    Class light = objc_allocateClassPair(type, "HCLight", 0),
          heavy = objc_allocateClassPair(type, "HCHeavy", 0);
    add(light, "mass", [](id, SEL) { return 1.0f; }, "f16@0:8");
    add(heavy, "mass", [](id, SEL) { return 1.0; }, "d16@0:8");
    objc_registerClassPair(light);
    objc_registerClassPair(heavy);
    EXPECT_EQ(ask(made("HCLight")), 1.0f);
    EXPECT_DEATH(ask(made("HCHeavy")), R"(-\[HCHeavy mass\])");
}

TEST_F(CheckedSend, MayIgnoreAResult) { objc::send<"tare">(scale); }

TEST_F(CheckedSend, MayNotIgnoreAResultInMemory) {
    EXPECT_DEATH(objc::send<"plate">(scale), R"(-\[HCScale plate\] was sent as v@:)");
}

TEST_F(CheckedSend, IgnoresQualifiersAndNames) {
    EXPECT_EQ((objc::send<"name", NSString*>(scale)), static_cast<objc_object*>(scale));
    EXPECT_EQ((objc::send<"plate", CGRect>(scale)), CGRect{});
    EXPECT_EQ((objc::send<"weigh:", NSInteger>(scale, static_cast<void*>(nullptr))), 1);
}

TEST_F(CheckedSend, TakesEveryEncodingOfABool) {
    objc::send<"setLocked:">(scale, true);
    objc::send<"setLocked:">(scale, static_cast<signed char>(1));
}

TEST_F(CheckedSend, TakesFoundationsIntForANumber) {
    id bytes = made<"initWithBytes:length:encoding:">("NSString", static_cast<const void*>("a"),
                                                      NSUInteger{1}, NSUInteger{4});
    EXPECT_EQ(utf8(bytes), "a");
}

TEST_F(CheckedSend, OfALongForAnIntOfOursEndsTheProcess) {
    EXPECT_DEATH(objc::send<"setCount:">(scale, NSUInteger{4}), R"(-\[HCScale setCount:\] was sent as v@:Q)");
}

}  // namespace
}  // namespace test
