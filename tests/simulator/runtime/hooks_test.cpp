// What the injection framework promises, and the record of what was installed.
#include "objc/class.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/runtime.h"

struct TSTAnimal : objc::Interface<TSTAnimal, "TSTAnimal", NSObject> {
    int legs() { return send<"legs", int>(); }
    int eyes() { return send<"eyes", int>(); }
    static int kinds() { return class_send<"kinds", int>(); }
};
struct TSTBird : objc::Interface<TSTBird, "TSTBird", TSTAnimal> {
    static int kinds() { return class_send<"kinds", int>(); }
};
struct TSTPenguin : objc::Interface<TSTPenguin, "TSTPenguin", TSTBird> {};

namespace {

struct Animal : objc::Implements<Animal, TSTAnimal> {
    using Ivars = objc::NoIvars;
    int legs() { return 4; }
    int eyes() { return 2; }
    static int kinds(Class) { return 1000; }
};
struct Bird : objc::Implements<Bird, TSTBird> {
    using Ivars = objc::NoIvars;
    int legs() { return 2; }
};
struct Penguin : objc::Implements<Penguin, TSTPenguin> {
    using Ivars = objc::NoIvars;
    int height() { return 1; }
};

}  // namespace

using namespace objc::definition;
OBJC_CLASS(TSTAnimal, NSObject, Animal, method<"legs", &Animal::legs>, method<"eyes", &Animal::eyes>,
           class_method<"kinds", &Animal::kinds>)
OBJC_CLASS(TSTBird, TSTAnimal, Bird, method<"legs", &Bird::legs>)
OBJC_CLASS(TSTPenguin, TSTBird, Penguin, method<"height", &Penguin::height>)

namespace test {
namespace {

using Count = int (*)(id, SEL);
Count previous = nullptr;
int one_more(id self, SEL selector) { return previous(self, selector) + 1; }

class Hooks : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        objc::register_classes([](auto) { return true; });
        previous = nullptr;
        animal = TSTAnimal::class_send<"new", objc::strong<TSTAnimal>>();
        bird = TSTBird::class_send<"new", objc::strong<TSTAnimal>>();
        penguin = TSTPenguin::class_send<"new", objc::strong<TSTAnimal>>();
    }
    static void hook(Class owner, const char* selector) {
        MSHookMessageEx(owner, sel_registerName(selector), as_method(one_more),
                        reinterpret_cast<IMP*>(&previous));
    }
    /// Uses every method once, so that the runtime's tables are warm.
    void use() {
        for (auto* each : {animal.get(), bird.get(), penguin.get()}) each->legs(), each->eyes();
        TSTAnimal::kinds(), TSTBird::kinds();
    }

    Phone phone;
    objc::strong<TSTAnimal> animal, bird, penguin;
};

TEST_F(Hooks, OwnMethodIsReplacedAndCallsThePreviousOne) {
    hook(TSTBird::class_object(), "legs");
    EXPECT_EQ(bird->legs(), 3);
    EXPECT_EQ(animal->legs(), 4);
}

TEST_F(Hooks, SubclassesThatInheritHearTheReplacement) {
    use();
    hook(TSTBird::class_object(), "legs");
    EXPECT_EQ(penguin->legs(), 3);
}

TEST_F(Hooks, InheritedMethodIsReplacedForTheNamedClassOnly) {
    use();
    hook(TSTBird::class_object(), "eyes");
    EXPECT_EQ(animal->eyes(), 2);
    EXPECT_EQ(bird->eyes(), 3);
    EXPECT_EQ(penguin->eyes(), 3);
}

TEST_F(Hooks, OverridingSubclassKeepsItsOwn) {
    use();
    hook(TSTAnimal::class_object(), "legs");
    EXPECT_EQ(animal->legs(), 5);
    EXPECT_EQ(bird->legs(), 2);
}

TEST_F(Hooks, ClassMethodIsReplacedOnTheMetaclass) {
    use();
    hook(object_getClass(reinterpret_cast<id>(TSTBird::class_object())), "kinds");
    EXPECT_EQ(TSTAnimal::kinds(), 1000);
    EXPECT_EQ(TSTBird::kinds(), 1001);
}

TEST_F(Hooks, TwoHooksOfOneMethodChain) {
    static Count first = nullptr, second = nullptr;
    auto add_ten = [](id self, SEL selector) { return first(self, selector) + 10; };
    auto doubled = [](id self, SEL selector) { return second(self, selector) * 2; };
    SEL legs = sel_registerName("legs");
    MSHookMessageEx(TSTBird::class_object(), legs, as_method(add_ten), reinterpret_cast<IMP*>(&first));
    MSHookMessageEx(TSTBird::class_object(), legs, as_method(doubled), reinterpret_cast<IMP*>(&second));
    EXPECT_EQ(bird->legs(), 24);
}

TEST_F(Hooks, AbsentMethodLeavesThePreviousSlotUntouched) {
    previous = reinterpret_cast<Count>(0x55);
    hook(TSTBird::class_object(), "wheels");
    EXPECT_EQ(previous, reinterpret_cast<Count>(0x55));
    EXPECT_FALSE(bird->respondsToSelector(sel_registerName("wheels")));
}

TEST_F(Hooks, NilClassDoesNothing) {
    previous = reinterpret_cast<Count>(0x55);
    hook(nullptr, "legs");
    EXPECT_EQ(previous, reinterpret_cast<Count>(0x55));
}

TEST_F(Hooks, ThePreviousSlotMayBeLeftOut) {
    MSHookMessageEx(TSTBird::class_object(), sel_registerName("legs"), as_method([](id, SEL) { return 7; }),
                    nullptr);
    EXPECT_EQ(bird->legs(), 7);
}

TEST_F(Hooks, SelectorsOfOneNameAreOne) {
    // The runtime keeps a selector with types apart from one without.
    SEL typed = method_getName(class_getInstanceMethod(TSTAnimal::class_object(), sel_registerName("eyes")));
    MSHookMessageEx(TSTAnimal::class_object(), typed, as_method(one_more), reinterpret_cast<IMP*>(&previous));
    EXPECT_EQ(animal->eyes(), 3);
}

// ---- Functions

CGColorRef (*previous_color)(NSString*) = nullptr;

TEST_F(Hooks, FunctionIsReplacedAndCallsThePreviousOne) {
    CGColorRef black = UIKBGetNamedColor(text("UIKBColorBlack"));
    CGColorRef white = UIKBGetNamedColor(text("UIKBColorWhite"));
    ASSERT_NE(black, white);
    CGColorRef (*replacement)(NSString*) = [](NSString* name) {
        return previous_color(name->isEqualToString(text("UIKBColorBlack")) ? text("UIKBColorWhite") : name);
    };
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(replacement),
                   reinterpret_cast<void**>(&previous_color));
    EXPECT_EQ(UIKBGetNamedColor(text("UIKBColorBlack")), white);
    EXPECT_EQ(UIKBGetNamedColor(text("UIKBColorWhite")), white);
}

TEST_F(Hooks, WhatAFunctionLeavesBehindGoesWithTheCall) {
    static id left_behind = nullptr;
    CGColorRef (*replacement)(NSString*) = [](NSString*) -> CGColorRef {
        objc_initWeak(&left_behind, TSTAnimal::class_send<"new", objc::strong<TSTAnimal>>().autoreleased());
        return nullptr;
    };
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(replacement),
                   nullptr);
    sim_colour colour;
    ASSERT_EQ(sim_named_colour("UIKBColorBlack", &colour), SIM_OK) << sim_last_error();
    EXPECT_EQ(left_behind, nullptr);
}

TEST_F(Hooks, AnyOtherFunctionStopsTheProcess) {
    EXPECT_DEATH(MSHookFunction(reinterpret_cast<void*>(&CGColorRelease), nullptr, nullptr),
                 "not modelled: MSHookFunction");
}

// ---- The record

TEST_F(Hooks, AreRecordedInOrder) {
    hook(TSTBird::class_object(), "legs");
    hook(nullptr, "legs");
    hook(TSTBird::class_object(), "wheels");
    hook(object_getClass(reinterpret_cast<id>(TSTBird::class_object())), "kinds");
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(&UIKBGetNamedColor),
                   reinterpret_cast<void**>(&previous_color));

    std::vector<sim_installing_call> calls(sim_installing_call_count());
    for (size_t i = 0; i < calls.size(); ++i) ASSERT_EQ(sim_installing_call_at(i, &calls[i]), SIM_OK);
    ASSERT_EQ(calls.size(), 5u);

    EXPECT_EQ(calls[0].kind, SIM_HOOK_MESSAGE);
    EXPECT_STREQ(calls[0].class_name, "TSTBird");
    EXPECT_STREQ(calls[0].name, "legs");
    EXPECT_STREQ(calls[0].types, "i16@0:8");
    EXPECT_FALSE(calls[0].on_class);
    EXPECT_TRUE(calls[0].took_effect);

    EXPECT_EQ(calls[1].class_name, nullptr);
    EXPECT_STREQ(calls[1].name, "legs");
    EXPECT_EQ(calls[1].types, nullptr);
    EXPECT_FALSE(calls[1].took_effect);

    EXPECT_STREQ(calls[2].class_name, "TSTBird");
    EXPECT_FALSE(calls[2].took_effect);

    EXPECT_STREQ(calls[3].class_name, "TSTBird");
    EXPECT_TRUE(calls[3].on_class);

    EXPECT_EQ(calls[4].kind, SIM_HOOK_FUNCTION);
    EXPECT_EQ(calls[4].class_name, nullptr);
    EXPECT_STREQ(calls[4].name, "UIKBGetNamedColor");
    EXPECT_TRUE(calls[4].took_effect);
}

TEST_F(Hooks, BootRecordsNothing) { EXPECT_EQ(sim_installing_call_count(), 0u); }

TEST_F(Hooks, MethodAddedToAnExistingClassIsRecorded) {
    Class bird_class = TSTBird::class_object();
    auto seven = as_method([](id, SEL) { return 7; });
    EXPECT_TRUE(class_addMethod(bird_class, sel_registerName("songs"), seven, "i@:"));
    EXPECT_FALSE(class_addMethod(bird_class, sel_registerName("legs"), seven, "i@:"));
    EXPECT_TRUE(class_addMethod(object_getClass(reinterpret_cast<id>(bird_class)), sel_registerName("songs"),
                                seven, "i@:"));
    EXPECT_FALSE(class_addMethod(nullptr, sel_registerName("songs"), seven, "i@:"));
    EXPECT_EQ((bird->send<"songs", int>()), 7);
    EXPECT_EQ(bird->legs(), 2) << "a method that is there stays";
    EXPECT_EQ(installed_rows(),
              (std::vector<std::string>{"-[TSTBird songs] added as i@:", "-[TSTBird legs] added as i@:",
                                        "+[TSTBird songs] added as i@:", "-[nil songs] added as i@:"}));
    const bool took_effect[] = {true, false, true, false};
    for (size_t i = 0; i < 4; ++i) {
        sim_installing_call call;
        ASSERT_EQ(sim_installing_call_at(i, &call), SIM_OK);
        EXPECT_EQ(call.took_effect, took_effect[i]) << i;
    }
}

TEST_F(Hooks, MethodOfAClassUnderConstructionIsNotRecorded) {
    Class made = objc_allocateClassPair(NSObject::class_object(), "TSTMade", 0);
    class_addMethod(made, sel_registerName("legs"), as_method([](id, SEL) { return 0; }), "i@:");
    objc_registerClassPair(made);
    EXPECT_EQ(sim_installing_call_count(), 0u);
}

TEST_F(Hooks, WhatFoundationAddsToItsOwnClassesIsNotRecorded) {
    // First uses of clusters, which Foundation puts together at that moment.
    objc::AutoreleasePool pool;
    NSMutableArray::arrayWithCapacity(1)->addObject(animal);
    for (const char* name :
         {"NSMutableSet", "NSCountedSet", "NSMutableAttributedString", "NSMutableData", "NSOrderedSet"})
        objc_release(objc::send<"new", id>(class_named(name)));
    EXPECT_EQ(installed_rows(), std::vector<std::string>{});
}

/// A framework that does not find everything.
class HidingHooks : public testing::Test {
  protected:
    static constexpr const char* method = "-[UIKBEdgeEffect edges]";
    static inline IMP slot = nullptr;

    static NSUInteger seven(id, SEL) { return 7; }
    static IMP edges() {
        return class_getMethodImplementation(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges"));
    }
    static void hook() {
        MSHookMessageEx(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges"),
                        reinterpret_cast<IMP>(&seven), &slot);
    }
    static bool took_effect() {
        sim_installing_call call{};
        EXPECT_EQ(sim_installing_call_at(0, &call), SIM_OK) << sim_last_error();
        return call.took_effect;
    }
    void SetUp() override { slot = reinterpret_cast<IMP>(&seven); }

    Phone phone;
};

TEST_F(HidingHooks, AnUnfoundMethodStaysAndItsSlotIsNotWritten) {
    phone.boot({.unfound = {method}});
    const IMP before = edges();
    hook();
    EXPECT_EQ(edges(), before);
    EXPECT_EQ(slot, reinterpret_cast<IMP>(&seven));
    EXPECT_FALSE(took_effect());
}

TEST_F(HidingHooks, AMethodWithoutPreviousIsReplacedAndItsSlotIsNotWritten) {
    phone.boot({.without_previous = {method}});
    hook();
    EXPECT_EQ(edges(), reinterpret_cast<IMP>(&seven));
    EXPECT_EQ(slot, reinterpret_cast<IMP>(&seven));
    EXPECT_TRUE(took_effect());
}

TEST_F(HidingHooks, ClassMethodsAndInstanceMethodsAreToldApart) {
    phone.boot({.unfound = {"+[UIKBEdgeEffect edges]"}});
    hook();
    EXPECT_TRUE(took_effect());
}

}  // namespace
}  // namespace test
