// What the hex colour format costs, against the same built on the system's scanner and formatter.
#include "measuring/allocations.h"
#include "measuring/check.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "support/phone.h"
#include "support/themes.h"

namespace bench {

using namespace objc::literals;

namespace {

id tool() {
    static id found = reinterpret_cast<id>(objc_getClass("HCCITool"));
    return found;
}

UIColor* colour() {
    static UIColor* made = objc::strong<UIColor>(UIColor::colorWithRGB(0.2, 0.4, 0.6, 0.5)).leak();
    return made;
}

/// A string as it comes out of a theme file, and so none of this program's own constants.
NSString* hex() {
    static NSString* made = objc::strong<NSString>(test::text("#33669980")).leak();
    return made;
}

UIColor* read_hex() { return objc::send<"colorFromHexString:", UIColor*>(tool(), hex()); }

/// The same steps with NSCharacterSet and NSScanner. The set is made once.
UIColor* read_hex_by_scanner() {
    static NSCharacterSet* other_letters =
        objc::strong<NSCharacterSet>(
            objc::send<"invertedSet", NSCharacterSet*>(
                NSCharacterSet::characterSetWithCharactersInString("#0123456789ABCDEFabcdef"_ns)))
            .leak();
    NSString* text = hex();
    const NSUInteger length = text->length();
    if (length < 6 || length > 9 ||
        text->send<"rangeOfCharacterFromSet:", NSRange>(other_letters).location != NSNotFound)
        return UIColor::colorWithRGB(0, 0, 0, 0);
    id scanner =
        objc::send<"scannerWithString:", id>(reinterpret_cast<id>(objc::class_named<"NSScanner">()), text);
    if (length == 7 || length == 9)
        objc::send<"setCharactersToBeSkipped:">(scanner,
                                                NSCharacterSet::characterSetWithCharactersInString("#"_ns));
    unsigned value = 0;
    objc::send<"scanHexInt:", bool>(scanner, &value);
    auto component = [value](int shift) { return (value >> shift & 255) / 255.0; };
    if (length == 7 || length == 6)
        return UIColor::colorWithRGB(component(16), component(8), component(0), 1.0);
    return UIColor::colorWithRGB(component(24), component(16), component(8), component(0));
}

NSString* write_hex() { return objc::send<"hexStringFromColor:", NSString*>(tool(), colour()); }

/// The same steps with a format string.
NSString* write_hex_by_format() {
    double red = 0, green = 0, blue = 0, alpha = 0;
    colour()->getRGB(&red, &green, &blue, &alpha);
    auto byte = [](double component) { return static_cast<int>(component * 255.0); };
    auto type = reinterpret_cast<id>(NSString::class_object());
    SEL selector = objc::selector<"stringWithFormat:">();
    using Format = NSString* (*)(id, SEL, NSString*, ...);
    auto format = reinterpret_cast<Format>(objc_msg_lookup(type, selector));
    if (alpha >= 1.0) return format(type, selector, "#%02X%02X%02X"_ns, byte(red), byte(green), byte(blue));
    return format(type, selector, "#%02X%02X%02X%02X"_ns, byte(red), byte(green), byte(blue), byte(alpha));
}

UIColor* make_colour() { return UIColor::colorWithRGB(0.2, 0.4, 0.6, 0.5); }
NSString* make_text() { return NSString::stringWithUTF8String("#3366997F"); }

constexpr double at_least_five_times_faster = 1 / 5.0;

}  // namespace

void measure_colours(std::vector<Ratio>& ratios) {
    check(read_hex()->isEqual(read_hex_by_scanner()), "both ways read the same colour");
    check(write_hex()->isEqualToString(write_hex_by_format()), "both ways write the same text");
    check(allocations_of(make_colour) > 0 && allocations_of(make_text) > 0, "allocations are counted");

    auto reading =
        compared({.what = "colorFromHexString:", .against = "NSScanner", .limit = at_least_five_times_faster},
                 calls_of<read_hex>, calls_of<read_hex_by_scanner>);
    reading.counted = {"allocations", allocations_of(read_hex), allocations_of(make_colour)};
    ratios.push_back(reading);

    const auto seconds =
        seconds_of({calls_of<write_hex>, calls_of<write_hex_by_format>, calls_of<make_text>});
    const double result = seconds[2];
    ratios.push_back({.what = "hexStringFromColor:",
                      .against = "stringWithFormat:",
                      .limit = at_least_five_times_faster,
                      .cost = seconds[0],
                      .cost_against = seconds[1],
                      .counted = Counted{"allocations", allocations_of(write_hex), allocations_of(make_text)},
                      .known = "making the string alone takes Foundation longer than that"});
    ratios.push_back({.what = "  the making of its result",
                      .against = "stringWithFormat:",
                      .cost = result,
                      .cost_against = seconds[1]});
    ratios.push_back({.what = "  all but the making of its result",
                      .against = "stringWithFormat:, less the same",
                      .limit = at_least_five_times_faster,
                      .cost = seconds[0] - result,
                      .cost_against = seconds[1] - result});
}

}  // namespace bench
