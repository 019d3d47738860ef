// The device's message entry points, as compiled code of the device calls them.
#include "objc/class.h"
#include "objc/exception.h"
#include "support/phone.h"

extern "C" {
void objc_msgSend();
void objc_msgSendSuper2();
#ifdef __x86_64__
void objc_msgSend_stret();
void objc_msgSendSuper2_stret();
#endif
}

struct TSTBase : objc::Interface<TSTBase, "TSTBase", NSObject> {};
struct TSTDerived : objc::Interface<TSTDerived, "TSTDerived", TSTBase> {};
struct TSTLate : objc::Interface<TSTLate, "TSTLate", NSObject> {};

namespace {

using All = double (*)(id, SEL, long, long, long, long, long, long, double, double, double, double, double,
                       double, double, double);

struct Base : objc::Implements<Base, TSTBase> {
    using Ivars = objc::NoIvars;
    long who() { return 1; }
    CGRect frame() { return {{1, 2}, {3, 4}}; }
    CGPoint point() { return {5, 6}; }
    static long whoOnClass(Class) { return 10; }
    double half(float value) { return value / 2; }
};

struct Derived : objc::Implements<Derived, TSTDerived> {
    using Ivars = objc::NoIvars;
    long who() { return 2; }
    CGRect frame() { return {{-1, -2}, {-3, -4}}; }
    static long whoOnClass(Class) { return 20; }
};

/// Leaves something else in every register that may carry an argument.
void scribble_over_arguments() {
#ifdef __x86_64__
    asm volatile(
        "pcmpeqd %%xmm0, %%xmm0; pcmpeqd %%xmm1, %%xmm1; pcmpeqd %%xmm2, %%xmm2; pcmpeqd %%xmm3, %%xmm3;"
        "pcmpeqd %%xmm4, %%xmm4; pcmpeqd %%xmm5, %%xmm5; pcmpeqd %%xmm6, %%xmm6; pcmpeqd %%xmm7, %%xmm7;"
        "mov $-1, %%rdi; mov $-1, %%rsi; mov $-1, %%rdx; mov $-1, %%rcx; mov $-1, %%r8; mov $-1, %%r9" ::
            : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "rdi", "rsi", "rdx", "rcx",
              "r8", "r9");
#else
    asm volatile(
        "movi v0.16b, #255; movi v1.16b, #255; movi v2.16b, #255; movi v3.16b, #255;"
        "movi v4.16b, #255; movi v5.16b, #255; movi v6.16b, #255; movi v7.16b, #255;"
        "mov x0, #-1; mov x1, #-1; mov x2, #-1; mov x3, #-1; mov x4, #-1; mov x5, #-1; mov x6, #-1; mov x7, "
        "#-1;"
        "mov x8, #-1" ::
            : "v0", "v1", "v2", "v3", "v4", "v5", "v6", "v7", "x0", "x1", "x2", "x3", "x4", "x5", "x6", "x7",
              "x8");
#endif
}

/// A class whose first message makes +initialize run inside the lookup.
struct Late : objc::Implements<Late, TSTLate> {
    using Ivars = objc::NoIvars;
    static void initialize(Class) { scribble_over_arguments(); }
};

// Six numbers and eight real ones: more than the processors have registers for, so that some lie on the
// stack.
double weigh(id, SEL, long a, long b, long c, long d, long e, long f, double r, double s, double t, double u,
             double v, double w, double x, double y) {
    return 1. * a + 10. * b + 100. * c + 1e3 * d + 1e4 * e + 1e5 * f + 1e6 * r + 1e7 * s + 1e8 * t + 1e9 * u +
           1e10 * v + 1e11 * w + 1e12 * x + 1e13 * y;
}

}  // namespace

using namespace objc::definition;
OBJC_CLASS(TSTBase, NSObject, Base, method<"who", &Base::who>, method<"frame", &Base::frame>,
           method<"point", &Base::point>, method<"half:", &Base::half>, class_method<"who", &Base::whoOnClass>)
OBJC_CLASS(TSTDerived, TSTBase, Derived, method<"who", &Derived::who>, method<"frame", &Derived::frame>,
           class_method<"who", &Derived::whoOnClass>)
OBJC_CLASS(TSTLate, NSObject, Late, class_method<"initialize", &Late::initialize>)

namespace test {
namespace {

template <class Function>
Function as(void (*entry)()) {
    return reinterpret_cast<Function>(entry);
}

class MessageSend : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        objc::register_classes([](auto) { return true; });
        base = TSTBase::class_send<"new", objc::strong<TSTBase>>();
        derived = TSTDerived::class_send<"new", objc::strong<TSTDerived>>();
    }
    Phone phone;
    objc::strong<TSTBase> base;
    objc::strong<TSTDerived> derived;
};

TEST_F(MessageSend, ReachesTheReceiversOwnMethod) {
    auto send = as<long (*)(id, SEL)>(objc_msgSend);
    EXPECT_EQ(send(base, sel_registerName("who")), 1);
    EXPECT_EQ(send(derived, sel_registerName("who")), 2);
    EXPECT_EQ(send(reinterpret_cast<id>(TSTBase::class_object()), sel_registerName("who")), 10);
}

TEST_F(MessageSend, CarriesEveryArgument) {
    SEL selector = sel_registerName("weigh");
    class_addMethod(TSTBase::class_object(), selector, reinterpret_cast<IMP>(&weigh), "d@:");
    EXPECT_EQ(as<All>(objc_msgSend)(base, selector, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5),
              54321987654321.0);
}

TEST_F(MessageSend, CarriesEveryArgumentPastTheFirstUseOfAClass) {
    SEL selector = sel_registerName("weighOnClass");
    class_addMethod(object_getClass(reinterpret_cast<id>(objc_lookUpClass("TSTLate"))), selector,
                    reinterpret_cast<IMP>(&weigh), "d@:");
    auto receiver = reinterpret_cast<id>(objc_lookUpClass("TSTLate"));
    EXPECT_EQ(as<All>(objc_msgSend)(receiver, selector, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5),
              54321987654321.0);
}

TEST_F(MessageSend, AnswersSmallStructuresInRegisters) {
    const auto point = as<CGPoint (*)(id, SEL)>(objc_msgSend)(base, sel_registerName("point"));
    EXPECT_EQ(point, (CGPoint{5, 6}));
}

TEST_F(MessageSend, NilAnswersZeroOfEveryKind) {
    SEL selector = sel_registerName("who");
    // Leave something else in the registers first.
    ASSERT_EQ(as<CGPoint (*)(id, SEL)>(objc_msgSend)(base, sel_registerName("point")), (CGPoint{5, 6}));
    EXPECT_EQ(as<CGPoint (*)(id, SEL)>(objc_msgSend)(nullptr, selector), (CGPoint{0, 0}));
    EXPECT_EQ(as<long (*)(id, SEL)>(objc_msgSend)(nullptr, selector), 0);
    EXPECT_EQ(as<double (*)(id, SEL)>(objc_msgSend)(nullptr, selector), 0.0);
    struct Pair {
        long first, second;
    };
    const auto pair = as<Pair (*)(id, SEL)>(objc_msgSend)(nullptr, selector);
    EXPECT_EQ(pair.first, 0);
    EXPECT_EQ(pair.second, 0);
}

TEST_F(MessageSend, LetsExceptionsThrough) {
    id raised =
        objc::caught([&] { as<void (*)(id, SEL)>(objc_msgSend)(base, sel_registerName("noSuchMethod")); });
    ASSERT_NE(raised, nullptr);
    EXPECT_EQ(utf8(objc::send<"name", id>(raised)), "NSInvalidArgumentException");
}

TEST_F(MessageSend, ToSuperReachesTheSuperclassOfTheGivenClass) {
    objc_super super{derived, TSTDerived::class_object()};
    EXPECT_EQ(as<long (*)(objc_super*, SEL)>(objc_msgSendSuper2)(&super, sel_registerName("who")), 1);
}

TEST_F(MessageSend, ToSuperWorksForClassMethods) {
    auto receiver = reinterpret_cast<id>(TSTDerived::class_object());
    objc_super super{receiver, object_getClass(receiver)};
    EXPECT_EQ(as<long (*)(objc_super*, SEL)>(objc_msgSendSuper2)(&super, sel_registerName("who")), 10);
}

#ifdef __x86_64__
TEST_F(MessageSend, AnswersLargeStructuresInMemory) {
    using Send = void (*)(CGRect*, id, SEL);
    CGRect frame{};
    as<Send>(objc_msgSend_stret)(&frame, base, sel_registerName("frame"));
    EXPECT_EQ(frame, (CGRect{{1, 2}, {3, 4}}));
    as<Send>(objc_msgSend_stret)(&frame, derived, sel_registerName("frame"));
    EXPECT_EQ(frame, (CGRect{{-1, -2}, {-3, -4}}));
}

TEST_F(MessageSend, LeavesTheMemoryOfAStructureAloneForNil) {
    CGRect frame{{1, 1}, {1, 1}};
    as<void (*)(CGRect*, id, SEL)>(objc_msgSend_stret)(&frame, nullptr, sel_registerName("frame"));
    EXPECT_EQ(frame, (CGRect{{1, 1}, {1, 1}}));
}

TEST_F(MessageSend, ToSuperAnswersLargeStructuresInMemory) {
    CGRect frame{};
    objc_super super{derived, TSTDerived::class_object()};
    as<void (*)(CGRect*, objc_super*, SEL)>(objc_msgSendSuper2_stret)(&frame, &super,
                                                                      sel_registerName("frame"));
    EXPECT_EQ(frame, (CGRect{{1, 2}, {3, 4}}));
}
#else
TEST_F(MessageSend, AnswersLargeStructuresInMemory) {
    const auto frame = as<CGRect (*)(id, SEL)>(objc_msgSend)(base, sel_registerName("frame"));
    EXPECT_EQ(frame, (CGRect{{1, 2}, {3, 4}}));
}
#endif

}  // namespace
}  // namespace test
