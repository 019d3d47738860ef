// What hooks cost, against what they replace.
#include "allocations.h"
#include "platform/keyboard.h"
#include "ratio.h"
#include "support/phone.h"

namespace bench {

using namespace objc::literals;

namespace {

id factory = nullptr;
id unhooked_factory = nullptr;

void ask_hooked() { objc::send<"defaultKeyBackgroundColorName", id>(factory); }
void ask_unhooked() { objc::send<"defaultKeyBackgroundColorName", id>(unhooked_factory); }

void ask_named_colour() { UIKBGetNamedColor("UIKBColorText"_ns); }
void make_the_colour() { UIColor::colorWithRGB(0, 1, 0, 1)->CGColor(); }

/// A class whose method answers a constant string, as the system's own does before it is hooked.
id answering_class() {
    Class type = objc_allocateClassPair(objc_getClass("NSObject"), "HCUnhookedFactory", 0);
    class_addMethod(type, objc::selector<"defaultKeyBackgroundColorName">(),
                    reinterpret_cast<IMP>(+[](id, SEL) -> id { return "UIKBColorKeyGrayKeyBackground"_ns; }), "@16@0:8");
    objc_registerClassPair(type);
    return reinterpret_cast<id>(type);
}

}  // namespace

void measure_hooks(std::vector<Ratio>& ratios) {
    factory = objc::send<"new", id>(reinterpret_cast<id>(objc_getClass("UIKBRenderFactory")));
    unhooked_factory = objc::send<"new", id>(answering_class());

    Ratio fixed{.what = "a fixed-answer hook", .against = "the send of such a method unhooked", .limit = 1.1};
    compare(fixed, ask_hooked, ask_unhooked);
    fixed.allocations = static_cast<long>(allocations_of(ask_hooked));
    fixed.allowed_allocations = 0;
    ratios.push_back(fixed);

    Ratio named{.what = "the named-colour hook, \"UIKBColorText\"",
                .against = "making the colour from its components",
                .limit = 3.0};
    compare(named, ask_named_colour, make_the_colour);
    ratios.push_back(named);
}

}  // namespace bench
