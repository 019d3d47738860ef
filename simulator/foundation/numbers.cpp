// NSNumber: real numbers beyond the range of an integer become the nearest one, and no number 0, as the
// device's processor converts them. Foundation on Linux leaves it to the compiler, which promises nothing.
#include <limits>

#include "foundation/corrections.h"
#include "platform/foundation.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

template <class Integer>
Integer nearest(double value) {
    using Limits = std::numeric_limits<Integer>;
    if (value != value) return 0;
    if (value <= static_cast<double>(Limits::min())) return Limits::min();
    if (value >= static_cast<double>(Limits::max())) return Limits::max();
    return static_cast<Integer>(value);
}

struct RealNumber : NSNumber {
    double doubleValue() { return send<"doubleValue", double>(); }

    int intValue() { return nearest<int>(doubleValue()); }
    unsigned unsignedIntValue() { return nearest<unsigned>(doubleValue()); }
    long longValue() { return nearest<long>(doubleValue()); }
    unsigned long unsignedLongValue() { return nearest<unsigned long>(doubleValue()); }
};

}  // namespace

void correct_numbers() {
    for (const char* name : {"NSDoubleNumber", "NSFloatNumber"}) {
        Class number = objc_getClass(name);
        redefine<"intValue", &RealNumber::intValue>(number);
        redefine<"unsignedIntValue", &RealNumber::unsignedIntValue>(number);
        redefine<"longValue", &RealNumber::longValue>(number);
        redefine<"integerValue", &RealNumber::longValue>(number);
        redefine<"longLongValue", &RealNumber::longValue>(number);
        redefine<"unsignedLongValue", &RealNumber::unsignedLongValue>(number);
        redefine<"unsignedIntegerValue", &RealNumber::unsignedLongValue>(number);
        redefine<"unsignedLongLongValue", &RealNumber::unsignedLongValue>(number);
    }
}

}  // namespace sim
