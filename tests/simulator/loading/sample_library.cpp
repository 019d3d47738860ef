// A library that uses a little of everything, built for Linux and for the device like the real one.
#include "objc/image.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "platform/uikit.h"

struct SampleThing : objc::Interface<SampleThing, "SampleThing", NSObject> {
    long number() { return send<"number", long>(); }
};

namespace {

using namespace objc::literals;

struct Thing : objc::Implements<Thing, SampleThing> {
    struct Ivars {
        objc::strong<NSString> name;
    };
    long number() { return 42; }
    NSString* constant() { return "constant"_ns; }
};

int initializers_run = 0;
objc::Handed<void()> previous_bounds{};
objc::Handed<CGColorRef(NSString*)> previous_color{};

CGRect bounds(id self, SEL selector) {
    CGRect rectangle =
        reinterpret_cast<CGRect (*)(id, SEL)>(objc::take_back(previous_bounds))(self, selector);
    rectangle.size.width += 1000;
    return rectangle;
}

CGColorRef color(NSString* name) {
    return objc::take_back(previous_color)(name->isEqualToString("UIKBColorBlack"_ns) ? "UIKBColorWhite"_ns
                                                                                      : name);
}

long count_initializers(id, SEL) { return initializers_run; }

/// In a process of this name the library is a broken one.
bool shall_raise() {
    auto* executable =
        static_cast<NSString*>(NSProcessInfo::processInfo()->arguments()->objectAtIndexedSubscript(0));
    return executable->isEqualToString("/Applications/Raises"_ns);
}

void install() {
    ++initializers_run;
    if (shall_raise()) objc::send<"noSuchMethod">("a string"_ns);
    const auto replacement = objc::hand_over(reinterpret_cast<IMP>(&bounds));
    MSHookMessageEx(objc_getClass("UIScreen"), objc::selector<"bounds">(), replacement, &previous_bounds);
    MSHookMessageEx(objc_getClass("SampleMissing"), objc::selector<"bounds">(), replacement,
                    &previous_bounds);
    class_addMethod(objc_getClass("UIScreen"), objc::selector<"countInitializers">(),
                    objc::hand_over(reinterpret_cast<IMP>(&count_initializers)), "q@:");
}

void install_function() {
    ++initializers_run;
    MSHookFunction(objc::hand_over(&UIKBGetNamedColor), objc::hand_over(&color), &previous_color);
}

}  // namespace

extern "C" {
[[gnu::visibility("default")]] extern const CGPoint kSamplePoint;
constinit const CGPoint kSamplePoint{0.25, 0.75};
}

OBJC_IMAGE(install, install_function)

using namespace objc::definition;
OBJC_CLASS(SampleThing, NSObject, Thing,
           property<"name", &Thing::Ivars::name>,
           method<"number", &Thing::number>,
           method<"constant", &Thing::constant>)
