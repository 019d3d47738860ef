#include "foundation/property_list/base64.h"

#include <nettle/base64.h>

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
        const int8_t value = values[static_cast<unsigned char>(c)];
        if (value < 0) continue;
        bits = bits << 6 | static_cast<uint32_t>(value);
        count += 6;
        if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8));
    }
    return bytes;
}

std::string base64_of(std::string_view bytes) {
    std::string text(BASE64_ENCODE_RAW_LENGTH(bytes.size()), '\0');
    base64_encode_raw(text.data(), bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
    return text;
}

}  // namespace sim::plist
