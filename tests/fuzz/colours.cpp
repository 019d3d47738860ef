// Any bytes through the colour and image tools: as texts, which a reading of its own checks, and as images.
#include <cmath>
#include <cstdio>
#include <optional>

#include "harness/fuzz.h"
#include "platform/uikit.h"

namespace {

using objc::send;
using test::text;

id tool() {
    static id found = test::class_named("HCCITool");
    return found;
}

/// The number that a text of UTF-16 units stands for, worked out from the rules alone.
uint32_t number_in(std::u16string_view units) {
    auto skipped = [steps = units.size() == 7 || units.size() == 9](char16_t unit) {
        return steps ? unit == u'#'
                     : unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0x85 || unit == 0xa0;
    };
    while (!units.empty() && skipped(units[0])) units.remove_prefix(1);
    uint64_t value = 0;
    for (char16_t unit : units) {
        if (unit > 0x7f || !std::isxdigit(unit)) break;
        value = value << 4 | static_cast<unsigned>(unit <= u'9' ? unit - u'0' : (unit | 0x20) - u'a' + 10);
        if (value > UINT32_MAX) return UINT32_MAX;
    }
    return static_cast<uint32_t>(value);
}

bool holds_digits_alone(std::u16string_view units) {
    return units.find_first_not_of(u"#0123456789ABCDEFabcdef") == units.npos;
}

std::string hex_of(id colour) { return test::utf8(send<"hexStringFromColor:", id>(tool(), colour)); }

void try_text(NSString* string) {
    std::u16string units(string->length(), u'\0');
    string->getCharacters(units.data(), {0, units.size()});
    const bool are_digits = holds_digits_alone(units);
    const bool is_colour = are_digits && units.size() >= 6 && units.size() <= 9;
    EXPECT_EQ((send<"isValidHexColorLetter:", bool>(tool(), string)), are_digits);
    EXPECT_EQ((send<"isValidHexColorString:", bool>(tool(), string)), is_colour);
    const auto number = send<"intFromString:", uint32_t>(tool(), string);
    id colour = send<"colorFromHexString:", id>(tool(), string);
    const test::Rgba is = test::rgba(colour);
    auto byte = [number](int shift) { return (number >> shift & 0xff) / 255.0; };
    if (is_colour) EXPECT_EQ(number, number_in(units));
    if (!is_colour)
        EXPECT_EQ(is, (test::Rgba{0, 0, 0, 0}));
    else if (units.size() < 8)
        EXPECT_EQ(is, (test::Rgba{byte(16), byte(8), byte(0), 1}));
    else
        EXPECT_EQ(is, (test::Rgba{byte(24), byte(16), byte(8), byte(0)}));
    // What is written is read as the colour that it was written of.
    const std::string hex = hex_of(colour);
    id again = send<"colorFromHexString:", id>(tool(), text(hex));
    EXPECT_EQ(hex_of(again), hex);
    EXPECT_TRUE((send<"isColor:equalToColor:", bool>(tool(), colour, colour)));
    send<"isColor:equalToColor:", bool>(tool(), colour, again);
}

void expect_parts(id colour) {
    const test::Rgba is = test::rgba(colour);
    for (double part : {is.red, is.green, is.blue, is.alpha}) EXPECT_TRUE(part >= 0 && part <= 1) << part;
}

void try_image(fuzz::Bytes bytes) {
    const CGSize size{bytes.byte() / 8.0, bytes.byte() / 8.0};
    UIColor* colour = test::color(bytes.part(), bytes.part(), bytes.part(), bytes.part());
    id image = bytes.byte() % 2 ? UIImage::imageWithData(test::data(bytes.rest()))
                                : send<"imageFromColor:withSize:", id>(tool(), colour, size);
    id scaled = send<"newScale:forImage:", id>(tool(), CGSize{bytes.part() * 40, bytes.part() * 40}, image);
    id tinted = send<"newColor:forImage:", id>(tool(), colour, image);
    for (id each : {image, scaled, tinted}) {
        if (!each) continue;
        const test::Rgba flat = test::rgba(send<"averageColorForImage:", id>(tool(), each));
        EXPECT_EQ(flat.alpha, 1);
        expect_parts(send<"averageColorWithAlphaForImage:", id>(tool(), each));
    }
    objc_release(scaled);
    objc_release(tinted);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::phone();
    const fuzz::Pool pool;
    fuzz::Bytes bytes(data, size);
    const uint8_t kind = bytes.byte();
    const std::string_view rest = bytes.rest();
    if (kind == 'i') {
        try_image(bytes);
    } else if (kind == 'u') {  // units of UTF-16, pairs or not
        std::u16string units(rest.size() / 2, u'\0');
        for (char16_t& unit : units) unit = static_cast<char16_t>(bytes.number(2));
        try_text(NSString::class_send<"stringWithCharacters:length:", NSString*>(units.data(),
                                                                                 NSUInteger{units.size()}));
    } else if (NSString* string = text(rest)) {
        try_text(string);
    }
    return 0;
}
