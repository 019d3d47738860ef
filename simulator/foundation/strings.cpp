// NSString: numbers read from text, and what a missing argument does.
#include <charconv>
#include <climits>
#include <cmath>
#include <string>

#include "foundation/corrections.h"
#include "platform/foundation.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

using namespace objc::literals;

bool is_digit(char16_t unit) { return unit >= '0' && unit <= '9'; }

/// The number at the front of the text, behind space and a sign; 0 without one. There is no hexadecimal form,
/// and no word is a number.
double leading_number(NSString* text) {
    NSUInteger at = 0;
    const NSUInteger length = text->length();
    auto unit = [&] { return at < length ? text->send<"characterAtIndex:", unsigned short>(at) : u'\0'; };
    std::string digits;
    auto take = [&] { digits += static_cast<char>(unit()), ++at; };
    auto take_digits = [&] {
        const size_t before = digits.size();
        while (is_digit(unit())) take();
        return digits.size() > before;
    };

    while (unit() == ' ' || (unit() >= '\t' && unit() <= '\r') || unit() == 0xa0) ++at;
    const bool negative = unit() == '-';
    if (negative || unit() == '+') ++at;
    bool any = take_digits();
    if (unit() == '.') {
        take();
        any = take_digits() || any;
    }
    if (!any) return 0;
    if (unit() == 'e' || unit() == 'E') {
        take();
        if (unit() == '-')
            take();
        else if (unit() == '+')
            ++at;
        if (!is_digit(unit())) digits.resize(digits.find_first_of("eE"));
        take_digits();
    }
    double value = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec ==
        std::errc::result_out_of_range)
        value = std::strtod(digits.c_str(), nullptr);  // infinity, or next to nothing
    return negative ? -value : value;
}

struct Text : NSString {
    int intValue() {
        const long long value = send<"longLongValue", long long>();  // which clamps by itself
        if (value > INT_MAX) return INT_MAX;
        return value < INT_MIN ? INT_MIN : static_cast<int>(value);
    }
    double doubleValue() { return leading_number(this); }
    float floatValue() { return static_cast<float>(leading_number(this)); }

    NSString* stringByAppendingString(NSString* tail) {
        if (!tail) {
            id exception = objc::send<"exceptionWithName:reason:userInfo:", id>(
                reinterpret_cast<id>(objc_getClass("NSException")), "NSInvalidArgumentException"_ns,
                "-[NSString stringByAppendingString:]: nil argument"_ns, id{});
            objc::send<"raise">(exception);
        }
        return objc::Previous<NSString*(NSString*)>(previous_append, this,
                                                    objc::selector<"stringByAppendingString:">())(tail);
    }

    // Without the language's own order of letters.
    NSInteger localizedCaseInsensitiveCompare(NSString* other) { return caseInsensitiveCompare(other); }

    static inline constinit IMP previous_append = nullptr;
};

}  // namespace

void correct_strings() {
    Class string = NSString::class_object();
    correct_everywhere<"intValue", &Text::intValue>(string);
    correct_everywhere<"doubleValue", &Text::doubleValue>(string);
    correct_everywhere<"floatValue", &Text::floatValue>(string);
    correct_everywhere<"localizedCaseInsensitiveCompare:", &Text::localizedCaseInsensitiveCompare>(string);
    Text::previous_append = redefine<"stringByAppendingString:", &Text::stringByAppendingString>(string);
}

}  // namespace sim
