// The numbers and dates that stand as text in XML property lists.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace sim::plist {

/// From -2^63 to 2^64 - 1.
struct XmlInteger {
    bool negative;
    uint64_t magnitude;
};

/// "-5", "0x1F"; nothing for what is not an integer or beyond that range. Space around it is stepped over,
/// here and below.
std::optional<XmlInteger> parse_integer(std::string_view text);

/// "0.1", "1e3", "+infinity", "nan".
std::optional<double> parse_real(std::string_view text);

/// "2019-01-02T03:04:05Z", as seconds from the first moment of 2001 in Greenwich.
std::optional<double> parse_date(std::string_view text);

}  // namespace sim::plist
