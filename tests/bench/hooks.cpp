// What hooks cost, against what they replace.
#include "compared/answering_class.h"
#include "measuring/allocations.h"
#include "measuring/check.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "platform/keyboard.h"
#include "support/phone.h"

namespace bench {

using namespace objc::literals;

namespace {

id hooked = nullptr, unhooked = nullptr;

/// The receiver that is asked. The same instructions ask both, so that only what they reach differs.
id asked = nullptr;
NSString* ask() { return objc::send<"defaultKeyBackgroundColorName", NSString*>(asked); }
[[gnu::noinline]] void ask_a_hundred_times() { calls_of<ask>(); }
NSString* ask(id receiver) {
    asked = receiver;
    return ask();
}
void ask_hooked() {
    asked = hooked;
    ask_a_hundred_times();
}
void ask_unhooked() {
    asked = unhooked;
    ask_a_hundred_times();
}

CGColorRef ask_named_colour() { return UIKBGetNamedColor("UIKBColorText"_ns); }
CGColorRef make_the_colour() { return UIColor::colorWithRGB(0, 1, 0, 1)->CGColor(); }

}  // namespace

void measure_hooks(std::vector<Ratio>& ratios) {
    hooked = objc::send<"new", id>(reinterpret_cast<id>(objc_getClass("UIKBRenderFactory")));
    unhooked = objc::send<"new", id>(bench_answering_class());
    check(ask(hooked)->isEqualToString("UIKBColorClear"_ns), "the render factory is hooked");
    check(ask(unhooked)->isEqualToString("UIKBColorWhite"_ns), "the other factory is not");
    check(CGColorEqualToColor(ask_named_colour(), make_the_colour()), "the named colour is the theme's");

    Ratio fixed = compared({.what = "a fixed-answer hook", .against = "such a method unhooked", .limit = 1.1},
                           ask_hooked, ask_unhooked);
    fixed.counted = {"allocations", allocations_of([] { ask(hooked); }), 0};
    ratios.push_back(fixed);

    ratios.push_back(compared({.what = "the named-colour hook, \"UIKBColorText\"",
                               .against = "making the colour from its components",
                               .limit = 3.0},
                              calls_of<ask_named_colour>, calls_of<make_the_colour>));
}

}  // namespace bench
