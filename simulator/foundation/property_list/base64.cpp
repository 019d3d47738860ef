#include "foundation/property_list/base64.h"

#include <array>
#include <cstdint>

namespace sim::plist {
namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr auto values = [] {
    std::array<int8_t, 256> table;
    table.fill(-1);
    for (size_t i = 0; i < alphabet.size(); ++i)
        table[static_cast<unsigned char>(alphabet[i])] = static_cast<int8_t>(i);
    return table;
}();

}  // namespace

std::string decoded_base64(std::string_view text) {
    std::string bytes;
    uint32_t bits = 0;
    int count = 0;
    for (char c : text) {
        if (c == '=') break;
        const int value = values[static_cast<unsigned char>(c)];
        if (value < 0) continue;
        bits = bits << 6 | static_cast<uint32_t>(value);
        count += 6;
        if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8));
    }
    return bytes;
}

std::string base64_of(std::string_view bytes) {
    std::string text;
    for (size_t i = 0; i < bytes.size(); i += 3) {
        uint32_t bits = 0;
        for (size_t j = 0; j < 3; ++j)
            bits = bits << 8 | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0);
        for (size_t j = 0; j < 4; ++j)
            text += i + j > bytes.size() ? '=' : alphabet[bits >> (18 - 6 * j) & 63];
    }
    return text;
}

}  // namespace sim::plist
