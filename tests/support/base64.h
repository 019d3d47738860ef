// Base64, both ways.
#pragma once
#include <string>
#include <string_view>

namespace test {

inline constexpr std::string_view base64_digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string in_base64(std::string_view bytes) {
    std::string text;
    for (size_t at = 0; at < bytes.size(); at += 3) {
        unsigned group = 0;
        for (size_t i = 0; i < 3; ++i)
            group = group << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0u);
        for (size_t i = 0; i < 4; ++i)
            text += at + i <= bytes.size() ? base64_digits[group >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

/// The bytes; what is not a digit is stepped over.
inline std::string from_base64(std::string_view text) {
    std::string bytes;
    unsigned bits = 0, count = 0;
    for (char c : text) {
        const size_t digit = base64_digits.find(c);
        if (digit == text.npos) continue;
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 255);
    }
    return bytes;
}

}  // namespace test
