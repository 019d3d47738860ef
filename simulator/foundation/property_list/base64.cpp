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

RawBytes decoded_base64(std::string_view text) {
    RawBytes bytes(text.size() / 4 * 3 + 3);  // there may be fewer
    char* end = bytes.data();
    const auto value_at = [&](size_t at) {
        return static_cast<int32_t>(values[static_cast<unsigned char>(text[at])]);
    };
    uint32_t bits = 0;
    int count = 0;
    for (size_t at = 0; at < text.size() && text[at] != '=';) {
        // Three bytes at once, where no other character is among their four.
        if (count == 0 && text.size() - at >= 4) {
            const int32_t three =
                value_at(at) << 18 | value_at(at + 1) << 12 | value_at(at + 2) << 6 | value_at(at + 3);
            if (three >= 0) {
                for (int shift : {16, 8, 0}) *end++ = static_cast<char>(three >> shift);
                at += 4;
                continue;
            }
        }
        const int32_t value = value_at(at++);
        if (value < 0) continue;
        bits = bits << 6 | static_cast<uint32_t>(value);
        count += 6;
        if (count >= 8) *end++ = static_cast<char>(bits >> (count -= 8));
    }
    bytes.resize(static_cast<size_t>(end - bytes.data()));
    return bytes;
}

std::string base64_of(std::string_view bytes) {
    std::string text(BASE64_ENCODE_RAW_LENGTH(bytes.size()), '\0');
    base64_encode_raw(text.data(), bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
    return text;
}

}  // namespace sim::plist
