// Hook rows: each kind of behaviour on a class of the test's own.
#include "objc/hook.h"

#include "support/runtime.h"

namespace test {
namespace {

using namespace objc::behaviour;
using objc::hook;

/// Who ran, in order.
std::vector<std::string> ran;
double width_of_system = 0;

double seven() {
    ran.push_back("seven");
    return 7.0;
}
void doubled(double& width, bool& animated) {
    width *= 2;
    animated = !animated;
}
double one_more(objc::Previous<double(double)> previous, NSObject*, double value) {
    return previous(value) + 1;
}
void note(NSObject*, double value) { ran.push_back("replacement " + std::to_string(value)); }
NSInteger added(NSObject*, NSInteger value) { return value * 3; }

class Hooks : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        Class type = objc_allocateClassPair(objc_getClass("NSObject"), "HCLane", 0);
        auto add = [&](Class to, const char* name, IMP imp, const char* types) {
            class_addMethod(to, sel_registerName(name), imp, types);
        };
        add(type, "width", reinterpret_cast<IMP>(+[](id, SEL) {
                ran.push_back("system");
                return 1.0;
            }),
            "d16@0:8");
        add(type, "setWidth:animated:", reinterpret_cast<IMP>(+[](id, SEL, double width, int animated) {
                width_of_system = animated & 0xff ? width : -width;
            }),
            "v28@0:8d16B24");
        add(type, "grow:", reinterpret_cast<IMP>(+[](id, SEL, double by) { return by * 10; }), "d24@0:8d16");
        add(type, "note:", reinterpret_cast<IMP>(+[](id, SEL, double value) {
                ran.push_back("system " + std::to_string(value));
            }),
            "v24@0:8d16");
        objc_registerClassPair(type);
        add(object_getClass(reinterpret_cast<id>(type)),
            "grow:", reinterpret_cast<IMP>(+[](id, SEL, double by) { return by * 100; }), "d24@0:8d16");
        lane = made("HCLane");
    }
    static void install(const objc::HookRow& row) {
        Class type = objc_getClass(row.class_name);
        if (row.side == objc::Side::on_class) type = object_getClass(reinterpret_cast<id>(type));
        if (row.adds)
            class_addMethod(type, row.selector(), row.replacement(), row.types);
        else
            MSHookMessageEx(type, row.selector(), row.replacement(), row.previous);
    }
    Phone phone;
    id lane = nullptr;
};

TEST_F(Hooks, AnswersWithoutCallingThePrevious) {
    install(hook<"-[HCLane width]", answers<seven>>);
    EXPECT_EQ((objc::send<"width", double>(lane)), 7.0);
    EXPECT_EQ(ran, std::vector<std::string>{"seven"});
}

TEST_F(Hooks, AnswersAConstant) {
    install(hook<"-[HCLane width]", answers<2.5>>);
    EXPECT_EQ((objc::send<"width", double>(lane)), 2.5);
    EXPECT_EQ(ran, std::vector<std::string>{});
}

TEST_F(Hooks, SubstitutesArgumentsInPlace) {
    install(hook<"-[HCLane setWidth:animated:]", substitutes<void, doubled>>);
    objc::send<"setWidth:animated:">(lane, 4.0, false);
    EXPECT_EQ(width_of_system, 8.0);
    objc::send<"setWidth:animated:">(lane, 4.0, true);
    EXPECT_EQ(width_of_system, -8.0);
}

TEST_F(Hooks, RunsAroundThePrevious) {
    install(hook<"-[HCLane grow:]", around<one_more>>);
    EXPECT_EQ((objc::send<"grow:", double>(lane, 2.0)), 21.0);
}

TEST_F(Hooks, RunsAfterThePrevious) {
    install(hook<"-[HCLane note:]", after<note>>);
    objc::send<"note:">(lane, 1.5);
    EXPECT_EQ(ran, (std::vector<std::string>{"system 1.500000", "replacement 1.500000"}));
}

TEST_F(Hooks, TheTwoSidesOfASelectorAreTwoRows) {
    install(hook<"+[HCLane grow:]", around<one_more>>);
    EXPECT_EQ((objc::send<"grow:", double>(reinterpret_cast<id>(objc_getClass("HCLane")), 2.0)), 201.0);
    EXPECT_EQ((objc::send<"grow:", double>(lane, 2.0)), 20.0);
}

TEST_F(Hooks, EachRowKeepsItsOwnPrevious) {
    install(hook<"-[HCLane grow:]", around<one_more>>);
    install(hook<"+[HCLane grow:]", around<one_more>>);
    EXPECT_EQ((objc::send<"grow:", double>(lane, 2.0)), 21.0);
    EXPECT_EQ((objc::send<"grow:", double>(reinterpret_cast<id>(objc_getClass("HCLane")), 2.0)), 201.0);
}

TEST_F(Hooks, AddsAMethodWithItsTypes) {
    constexpr auto row = hook<"-[HCLane triple:]", adds<added>>;
    EXPECT_STREQ(row.types, "q@:q");
    install(row);
    EXPECT_EQ((objc::send<"triple:", NSInteger>(lane, NSInteger{14})), 42);
}

}  // namespace
}  // namespace test
