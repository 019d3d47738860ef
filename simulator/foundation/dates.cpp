// NSDate: the words for a date. Foundation on Linux counts the years one by one, so that one of long ago, or
// in the far future, takes for ever.
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "foundation/corrections.h"
#include "platform/foundation.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

struct Day {
    int64_t year;
    int month, day;
};

/// Of the Gregorian calendar, also before it was introduced; the days are counted from the first of 1970.
Day day_of(int64_t days) {
    // Years begin in March, so that the leap day is their last; 400 of them have as many days as any 400.
    constexpr int64_t days_of_era = 146097, march_of_year_0 = -719468;
    const int64_t since = days - march_of_year_0;
    const int64_t era = (since >= 0 ? since : since - (days_of_era - 1)) / days_of_era;
    const int64_t of_era = since - era * days_of_era;
    const int64_t year_of_era = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
    const int64_t of_year = of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const auto month_from_march = static_cast<int>((5 * of_year + 2) / 153);
    const int day = static_cast<int>(of_year) - (153 * month_from_march + 2) / 5 + 1;
    const int month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
    return {year_of_era + era * 400 + (month <= 2), month, day};
}

struct Date : NSObject {
    NSString* description() {
        const double since = send<"timeIntervalSinceReferenceDate", double>();
        char text[96];
        // Beyond it, seconds are no whole numbers any more.
        constexpr double largest = 9e15;
        if (!(std::abs(since) <= largest)) {
            std::snprintf(text, sizeof text, "%.17g seconds since 2001-01-01 00:00:00 +0000", since);
            return NSString::stringWithUTF8String(text);
        }
        constexpr int64_t day_length = 86400, reference_day = 11323;
        const auto seconds = static_cast<int64_t>(std::floor(since));
        const int64_t days = (seconds >= 0 ? seconds : seconds - (day_length - 1)) / day_length;
        const auto of_day = static_cast<int>(seconds - days * day_length);
        const Day day = day_of(days + reference_day);
        std::snprintf(text, sizeof text, "%04lld-%02d-%02d %02d:%02d:%02d +0000",
                      static_cast<long long>(day.year), day.month, day.day, of_day / 3600, of_day / 60 % 60,
                      of_day % 60);
        return NSString::stringWithUTF8String(text);
    }
    NSString* descriptionWithLocale(id) { return description(); }
};

}  // namespace

void correct_dates() {
    Class date = objc_getClass("NSDate");
    correct_everywhere<"description", &Date::description>(date);
    correct_everywhere<"descriptionWithLocale:", &Date::descriptionWithLocale>(date);
}

}  // namespace sim
