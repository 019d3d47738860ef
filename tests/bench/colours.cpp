// What the hex colour format costs, against the same built on the system's scanner and formatter.
#include <cstdlib>

#include "allocations.h"
#include "ratio.h"
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

void read_hex() { objc::send<"colorFromHexString:", id>(tool(), "#33669980"_ns); }

/// The same steps with NSScanner.
void read_hex_by_scanner() {
    NSString* text = "#33669980"_ns;
    id scanner = objc::send<"scannerWithString:", id>(reinterpret_cast<id>(objc::class_named<"NSScanner">()), text);
    objc::send<"setCharactersToBeSkipped:">(scanner, NSCharacterSet::characterSetWithCharactersInString("#"_ns));
    unsigned value = 0;
    objc::send<"scanHexInt:", bool>(scanner, &value);
    UIColor::colorWithRGB((value >> 24) / 255.0, (value >> 16 & 255) / 255.0, (value >> 8 & 255) / 255.0,
                          (value & 255) / 255.0);
}

void write_hex() { objc::send<"hexStringFromColor:", id>(tool(), colour()); }

/// The same steps with a format string.
void write_hex_by_format() {
    double red, green, blue, alpha;
    colour()->getRGB(&red, &green, &blue, &alpha);
    auto type = reinterpret_cast<id>(objc::class_named<"NSString">());
    SEL selector = objc::selector<"stringWithFormat:">();
    using Format = id (*)(id, SEL, NSString*, ...);
    reinterpret_cast<Format>(objc_msg_lookup(type, selector))(type, selector, "#%02X%02X%02X%02X"_ns,
                                                              static_cast<int>(red * 255), static_cast<int>(green * 255),
                                                              static_cast<int>(blue * 255),
                                                              static_cast<int>(alpha * 255));
}

void make_colour() { UIColor::colorWithRGB(0.2, 0.4, 0.6, 0.5); }
void make_text() { NSString::stringWithUTF8String("#33669980"); }

constexpr double at_least_five_times_faster = 1 / 5.0;

}  // namespace

void measure_colours(std::vector<Ratio>& ratios) {
    static test::Phone phone;
    test::arrange_theme(phone);
    phone.boot();
    phone.load();
    if (!phone.library()) std::exit(2);  // the phone has said why

    Ratio reading{.what = "colorFromHexString:", .against = "NSScanner", .limit = at_least_five_times_faster};
    compare(reading, read_hex, read_hex_by_scanner);
    reading.allocations = static_cast<long>(allocations_of(read_hex));
    reading.allowed_allocations = static_cast<long>(allocations_of(make_colour));
    ratios.push_back(reading);

    Ratio writing{.what = "hexStringFromColor:", .against = "stringWithFormat:", .limit = at_least_five_times_faster};
    compare(writing, write_hex, write_hex_by_format);
    writing.allocations = static_cast<long>(allocations_of(write_hex));
    writing.allowed_allocations = static_cast<long>(allocations_of(make_text));
    ratios.push_back(writing);
}

}  // namespace bench
