// What hooks cost, against what they replace.
#include "allocations.h"
#include "check.h"
#include "platform/keyboard.h"
#include "ratio.h"
#include "support/phone.h"

namespace bench {

using namespace objc::literals;

namespace {

id factory = nullptr;
id unhooked_factory = nullptr;

NSString* ask_hooked() { return objc::send<"defaultKeyBackgroundColorName", NSString*>(factory); }
NSString* ask_unhooked() { return objc::send<"defaultKeyBackgroundColorName", NSString*>(unhooked_factory); }

CGColorRef ask_named_colour() { return UIKBGetNamedColor("UIKBColorText"_ns); }
CGColorRef make_the_colour() { return UIColor::colorWithRGB(0, 1, 0, 1)->CGColor(); }

/// A class whose method does nothing but answer a constant string. The model's own method, which has the hook
/// now, looks at the keyboard's configuration first, and would be a slower thing to compare with.
id answering_class() {
    Class type = objc_allocateClassPair(objc_getClass("NSObject"), "HCUnhookedFactory", 0);
    class_addMethod(type, objc::selector<"defaultKeyBackgroundColorName">(),
                    reinterpret_cast<IMP>(+[](id, SEL) -> NSString* { return "UIKBColorWhite"_ns; }),
                    "@16@0:8");
    objc_registerClassPair(type);
    return reinterpret_cast<id>(type);
}

}  // namespace

void measure_hooks(std::vector<Ratio>& ratios) {
    factory = objc::send<"new", id>(reinterpret_cast<id>(objc_getClass("UIKBRenderFactory")));
    unhooked_factory = objc::send<"new", id>(answering_class());
    check(ask_hooked()->isEqualToString("UIKBColorClear"_ns), "the render factory is hooked");
    check(ask_unhooked()->isEqualToString("UIKBColorWhite"_ns), "the other factory is not");
    check(CGColorEqualToColor(ask_named_colour(), make_the_colour()), "the named colour is the theme's");

    auto fixed = compared(
        {.what = "a fixed-answer hook", .against = "such a method unhooked", .limit = 1.1},
        [] { ask_hooked(); }, [] { ask_unhooked(); });
    fixed.allocations = {.counted = allocations_of(ask_hooked), .allowed = 0};
    ratios.push_back(fixed);

    ratios.push_back(compared(
        {.what = "the named-colour hook, \"UIKBColorText\"",
         .against = "making the colour from its components",
         .limit = 3.0},
        [] { ask_named_colour(); }, [] { make_the_colour(); }));
}

}  // namespace bench
