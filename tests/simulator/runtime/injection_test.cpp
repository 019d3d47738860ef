// The injection frameworks that phones have: what each does where something is missing.
#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/runtime.h"

extern "C" void objc_thread_add();

namespace test {
namespace {

using Count = int (*)(id, SEL);
IMP anything() {
    return as_method([](id, SEL) { return 55; });
}

/// A class and a subclass that inherits its methods: legs, and a wide one with everything in registers.
struct Family {
    Class parent, child;

    static CGRect wide(id, SEL, CGRect frame, long a, long b, double c, bool d) {
        return {{frame.origin.x + static_cast<double>(a), frame.origin.y + static_cast<double>(b)},
                {frame.size.width + c, d ? frame.size.height : -1}};
    }
    static Family made(const std::string& name) {
        Class parent = objc_allocateClassPair(NSObject::class_object(), name.c_str(), 0);
        class_addMethod(parent, sel_registerName("legs"), as_method([](id, SEL) { return 4; }), "i16@0:8");
        class_addMethod(parent, sel_registerName("wide"), reinterpret_cast<IMP>(&wide), "v16@0:8");
        class_addMethod(object_getClass(reinterpret_cast<id>(parent)), sel_registerName("kinds"),
                        as_method([](id, SEL) { return 9; }), "i16@0:8");
        objc_registerClassPair(parent);
        Class child = objc_allocateClassPair(parent, (name + "Child").c_str(), 0);
        objc_registerClassPair(child);
        return {parent, child};
    }
};

int legs(id object) { return objc::send<"legs", int>(object); }

class Injection : public testing::Test {
  protected:
    void boot(sim_injection injection) {
        phone.boot({.injection = injection});
        family = Family::made("TSTParent");
        object = objc_autorelease(objc::send<"new", id>(reinterpret_cast<id>(family.child)));
    }
    IMP hooked(Class owner, const char* selector, IMP replacement = anything()) {
        IMP slot = nullptr;
        MSHookMessageEx(owner, sel_registerName(selector), replacement, &slot);
        return slot;
    }
    int call(IMP previous) { return reinterpret_cast<Count>(previous)(object, sel_registerName("legs")); }
    void replace_legs_of_the_parent() {
        hooked(family.parent, "legs", as_method([](id, SEL) { return 6; }));
    }

    Phone phone;
    Family family{};
    id object = nullptr;
};

class EachInjection : public Injection, public testing::WithParamInterface<sim_injection> {};
std::string name_of(const testing::TestParamInfo<sim_injection>& info) {
    return std::array{"Lenient", "Clearing", "Strict", "Guarded"}[info.param];
}
INSTANTIATE_TEST_SUITE_P(, EachInjection,
                         testing::Values(SIM_INJECTION_LENIENT, SIM_INJECTION_CLEARING, SIM_INJECTION_STRICT,
                                         SIM_INJECTION_GUARDED),
                         name_of);

TEST_P(EachInjection, AnOwnMethodIsHandedOut) {
    boot(GetParam());
    const IMP own = class_getMethodImplementation(family.parent, sel_registerName("legs"));
    EXPECT_EQ(hooked(family.parent, "legs"), own);
    EXPECT_EQ(legs(object), 55);
}

TEST_P(EachInjection, AnInheritedMethodIsReplacedForTheNamedClassOnly) {
    boot(GetParam());
    EXPECT_EQ(call(hooked(family.child, "legs")), 4);
    EXPECT_EQ(legs(object), 55);
    EXPECT_EQ(legs(objc_autorelease(objc::send<"new", id>(reinterpret_cast<id>(family.parent)))), 4);
}

TEST_P(EachInjection, AnInheritedMethodGetsItsArgumentsAndAnswers) {
    boot(GetParam());
    const SEL wide = sel_registerName("wide");
    IMP previous = hooked(family.child, "wide");
    auto function = reinterpret_cast<decltype(&Family::wide)>(previous);
    const CGRect answered = function(object, wide, {{1, 2}, {3, 4}}, 10, 20, 0.5, true);
    EXPECT_EQ(answered.origin.x, 11);
    EXPECT_EQ(answered.origin.y, 22);
    EXPECT_EQ(answered.size.width, 3.5);
    EXPECT_EQ(answered.size.height, 4);
}

TEST_P(EachInjection, TheSlotMayBeLeftOut) {
    boot(GetParam());
    MSHookMessageEx(family.child, sel_registerName("legs"), anything(), nullptr);
    MSHookMessageEx(family.parent, sel_registerName("legs"), anything(), nullptr);
    EXPECT_EQ(legs(object), 55);
}

/// Calls that are under way on another thread while their class is being changed.
TEST_P(EachInjection, ACallOnAnotherThreadMeetsNoEmptySlot) {
    constexpr size_t families = 61;
    static std::array<id, families> children;
    static std::array<IMP, families> slots;
    static std::atomic<unsigned> empty, calls;
    static std::atomic<size_t> called;
    const IMP replacement = as_method([](id self, SEL selector) {
        const auto index =
            static_cast<size_t>(std::find(children.begin(), children.end(), self) - children.begin());
        const IMP previous = std::atomic_ref(slots[index]).load();
        if (!previous) return empty++, 0;
        return reinterpret_cast<Count>(previous)(self, selector);
    });
    boot(GetParam());
    std::array<Class, families> owners;
    for (size_t i = 0; i < families; ++i) {
        const Family made = Family::made("TSTParent" + std::to_string(i));
        owners[i] = i % 2 ? made.parent : made.child;  // one that has the method, one that inherits it
        children[i] = objc::send<"new", id>(reinterpret_cast<id>(made.child));
    }
    objc_thread_add();  // libobjc is careful with its tables from now on
    std::thread caller([] {
        for (size_t now; (now = called) < families; ++calls) EXPECT_EQ(legs(children[now]), 4);
    });
    const auto wait_for_a_call = [] {
        for (const unsigned before = calls; calls < before + 2;) std::this_thread::yield();
    };
    for (; called < families - 1; ++called) {
        wait_for_a_call();
        MSHookMessageEx(owners[called], sel_registerName("legs"), replacement, &slots[called]);
        wait_for_a_call();
    }
    called = families;
    caller.join();
    EXPECT_EQ(empty, 0u);
}

// ---- The superclass, asked at each call

class AskingInjection : public Injection, public testing::WithParamInterface<sim_injection> {};
INSTANTIATE_TEST_SUITE_P(, AskingInjection,
                         testing::Values(SIM_INJECTION_CLEARING, SIM_INJECTION_STRICT, SIM_INJECTION_GUARDED),
                         name_of);

TEST_P(AskingInjection, AnInheritedMethodIsAskedForAtEachCall) {
    boot(GetParam());
    const IMP previous = hooked(family.child, "legs");
    EXPECT_EQ(call(previous), 4);
    replace_legs_of_the_parent();
    EXPECT_EQ(call(previous), 6);
}

TEST_P(AskingInjection, AnInheritedClassMethodToo) {
    boot(GetParam());
    Class parent_side = object_getClass(reinterpret_cast<id>(family.parent));
    const auto kinds =
        reinterpret_cast<Count>(hooked(object_getClass(reinterpret_cast<id>(family.child)), "kinds"));
    const auto child = reinterpret_cast<id>(family.child);
    EXPECT_EQ(kinds(child, sel_registerName("kinds")), 9);
    hooked(parent_side, "kinds", as_method([](id, SEL) { return 8; }));
    EXPECT_EQ(kinds(child, sel_registerName("kinds")), 8);
}

TEST_P(AskingInjection, AFunctionThatCannotBePatchedEndsTheProcess) {
    phone.boot({.unpatchable = {"UIKBGetNamedColor"}, .injection = GetParam()});
    EXPECT_DEATH(
        MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), nullptr, nullptr),
        "MSHookFunction: UIKBGetNamedColor cannot be patched: this injection framework ends the process");
}

TEST_F(Injection, LenientHandsOutWhatWasInherited) {
    boot(SIM_INJECTION_LENIENT);
    const IMP previous = hooked(family.child, "legs");
    replace_legs_of_the_parent();
    EXPECT_EQ(call(previous), 4);
}

TEST_F(Injection, LenientLeavesAFunctionThatCannotBePatched) {
    phone.boot({.unpatchable = {"UIKBGetNamedColor"}});
    CGColorRef before = UIKBGetNamedColor(text("UIKBColorBlack"));
    CGColorRef (*replacement)(NSString*) = [](NSString*) -> CGColorRef { return nullptr; };
    void* slot = &phone;
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(replacement), &slot);
    EXPECT_EQ(UIKBGetNamedColor(text("UIKBColorBlack")), before);
    EXPECT_EQ(slot, &phone);
    sim_installing_call call{};
    ASSERT_EQ(sim_installing_call_at(0, &call), SIM_OK);
    EXPECT_FALSE(call.took_effect);
}

// ---- Nothing there

struct Nothing {
    const char* name;
    bool has_class;
    friend void PrintTo(const Nothing& nothing, std::ostream* out) { *out << nothing.name; }
};

class HookOfNothing : public Injection, public testing::WithParamInterface<Nothing> {
  protected:
    void hook(IMP* slot) {
        MSHookMessageEx(GetParam().has_class ? family.child : nullptr, sel_registerName("wheels"), anything(),
                        slot);
    }
    IMP slot_after_hook() {
        IMP slot = anything();
        hook(&slot);
        EXPECT_FALSE(class_respondsToSelector(family.child, sel_registerName("wheels")));
        return slot;
    }
};
INSTANTIATE_TEST_SUITE_P(, HookOfNothing,
                         testing::Values(Nothing{"NilClass", false}, Nothing{"AbsentMethod", true}),
                         [](const auto& info) { return info.param.name; });

TEST_P(HookOfNothing, LeavesALenientFrameworksSlot) {
    boot(SIM_INJECTION_LENIENT);
    EXPECT_EQ(slot_after_hook(), anything());
}

TEST_P(HookOfNothing, MakesAClearingFrameworksSlotNil) {
    boot(SIM_INJECTION_CLEARING);
    EXPECT_EQ(slot_after_hook(), nullptr);
    hook(nullptr);
}

TEST_P(HookOfNothing, EndsTheProcessUnderAStrictFramework) {
    boot(SIM_INJECTION_STRICT);
    EXPECT_DEATH(slot_after_hook(), GetParam().has_class
                                        ? "MSHookMessageEx: TSTParentChild has no method wheels: this "
                                          "injection framework ends the process"
                                        : "MSHookMessageEx: the class is nil, for wheels: this injection");
}

TEST_P(HookOfNothing, IsKeptFromAGuardedFramework) {
    boot(SIM_INJECTION_GUARDED);
    EXPECT_EQ(slot_after_hook(), anything());
}

TEST_F(Injection, AnUnfoundMethodIsAbsent) {
    phone.boot({.unfound = {"-[UIKBEdgeEffect edges]"}, .injection = SIM_INJECTION_CLEARING});
    IMP slot = anything();
    MSHookMessageEx(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges"), anything(), &slot);
    EXPECT_EQ(slot, nullptr);
}

TEST_F(Injection, AFunctionThatTheModelDoesNotHaveIsRefused) {
    sim_options options{};
    const auto root = phone.host("/").string();
    const char* const names[] = {"UIKBGetNamedCat", nullptr};
    options.size = sizeof options;
    options.root = root.c_str();
    options.unpatchable_functions = names;
    EXPECT_EQ(sim_boot(&options), SIM_NOT_FOUND);
    EXPECT_NE(std::string(sim_last_error()).find("UIKBGetNamedCat"), std::string::npos) << sim_last_error();
}

}  // namespace
}  // namespace test
