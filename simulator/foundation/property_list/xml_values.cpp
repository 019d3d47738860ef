#include "foundation/property_list/xml_values.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>

namespace sim::plist {
namespace {

std::string_view trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\r\n");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// Steps over a sign; whether it was a minus.
bool take_sign(std::string_view& text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    return negative;
}

bool equal_ignoring_case(std::string_view text, std::string_view lower_case) {
    if (text.size() != lower_case.size()) return false;
    for (size_t i = 0; i < text.size(); ++i)
        if ((text[i] | 0x20) != lower_case[i]) return false;
    return true;
}

/// All of the text as a number, or nothing.
template <class Number, class... Base>
std::optional<Number> whole_number(std::string_view text, Base... base) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base...);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<XmlInteger> parse_integer(std::string_view text) {
    text = trimmed(text);
    const bool negative = take_sign(text);
    text = trimmed(text);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) text.remove_prefix(2);
    const auto magnitude = whole_number<uint64_t>(text, hexadecimal ? 16 : 10);
    constexpr uint64_t least = uint64_t{1} << 63;
    if (!magnitude || (negative && *magnitude > least)) return std::nullopt;
    return XmlInteger{negative, *magnitude};
}

std::optional<double> parse_real(std::string_view text) {
    text = trimmed(text);
    const bool negative = take_sign(text);
    auto with_sign = [negative](double value) { return negative ? -value : value; };
    if (equal_ignoring_case(text, "inf") || equal_ignoring_case(text, "infinity")) return with_sign(INFINITY);
    if (equal_ignoring_case(text, "nan")) return NAN;
    if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9'))) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) return std::nullopt;
    // Out of range: infinity, or as good as nothing.
    return with_sign(error == std::errc() ? value : std::strtod(std::string(text).c_str(), nullptr));
}

std::optional<double> parse_date(std::string_view text) {
    text = trimmed(text);
    const bool before_christ = text.starts_with('-');
    if (before_christ) text.remove_prefix(1);

    int fields[6];
    constexpr char ends[] = {'-', '-', 'T', ':', ':', 'Z'};
    constexpr int largest[] = {30000, 12, 31, 24, 60, 60};
    for (size_t i = 0; i < 6; ++i) {
        const size_t length = text.find(ends[i]);
        const auto value = length == text.npos ? std::nullopt : whole_number<int>(text.substr(0, length));
        if (!value || *value < 0 || *value > largest[i]) return std::nullopt;
        fields[i] = *value;
        text.remove_prefix(length + 1);
    }

    using namespace std::chrono;
    const auto day = year(before_christ ? -fields[0] : fields[0]) / fields[1] / fields[2];
    if (!text.empty() || !day.ok()) return std::nullopt;
    constexpr sys_days reference{year(2001) / 1 / 1};
    return 86400.0 * static_cast<double>((sys_days(day) - reference).count()) + 3600.0 * fields[3] +
           60.0 * fields[4] + fields[5];
}

}  // namespace sim::plist
