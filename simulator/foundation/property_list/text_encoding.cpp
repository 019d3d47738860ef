#include "foundation/property_list/text_encoding.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace sim::plist {
namespace {

constexpr bool is_surrogate(char32_t unit) { return unit >= 0xd800 && unit < 0xe000; }

std::optional<std::string> utf8_of_utf16(std::string_view bytes, bool big_endian) {
    if (bytes.size() % 2) return std::nullopt;
    auto unit = [&](size_t at) -> char32_t {
        const auto first = static_cast<unsigned char>(bytes[at]),
                   second = static_cast<unsigned char>(bytes[at + 1]);
        return big_endian ? first << 8 | second : second << 8 | first;
    };
    std::string text;
    for (size_t at = 0; at < bytes.size(); at += 2) {
        char32_t character = unit(at);
        if (character >= 0xd800 && character < 0xdc00 && at + 2 < bytes.size()) {
            const char32_t low = unit(at + 2);
            if (low < 0xdc00 || low >= 0xe000) return std::nullopt;
            character = 0x10000 + ((character - 0xd800) << 10) + (low - 0xdc00);
            at += 2;
        }
        if (!append_utf8(text, character)) return std::nullopt;
    }
    return text;
}

std::string utf8_of_latin1(std::string_view bytes) {
    std::string text;
    for (unsigned char byte : bytes) append_utf8(text, byte);
    return text;
}

/// What `<?xml … encoding="…"?>` says, in lower case; nothing without it.
std::string declared_encoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    size_t at = declaration.find("encoding");
    if (at == declaration.npos) return {};
    at = declaration.find_first_of("\"'", at);
    if (at == declaration.npos) return {};
    const size_t end = declaration.find(declaration[at], at + 1);
    if (end == declaration.npos) return {};
    std::string name(declaration.substr(at + 1, end - at - 1));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return name;
}

}  // namespace

bool append_utf8(std::string& text, char32_t character) {
    auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character > 0x10ffff || is_surrogate(character)) return false;
    if (character < 0x80) {
        append(character);
        return true;
    }
    if (character < 0x800) {
        append(0xc0 | character >> 6);
    } else {
        if (character < 0x10000) {
            append(0xe0 | character >> 12);
        } else {
            append(0xf0 | character >> 18);
            append(0x80 | (character >> 12 & 0x3f));
        }
        append(0x80 | (character >> 6 & 0x3f));
    }
    append(0x80 | (character & 0x3f));
    return true;
}

/// How many of the bytes from there on are ASCII, in whole blocks: most texts are nothing else.
static size_t ascii_blocks(std::string_view bytes, size_t from) {
    constexpr uint64_t upper_bits = 0x8080808080808080;
    uint64_t block[4];
    size_t at = from;
    for (; bytes.size() - at >= sizeof block; at += sizeof block) {
        std::memcpy(block, &bytes[at], sizeof block);
        if ((block[0] | block[1] | block[2] | block[3]) & upper_bits) break;
    }
    return at - from;
}

bool is_utf8(std::string_view bytes) {
    for (size_t at = 0; (at += ascii_blocks(bytes, at)) < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at++]);
        if (lead < 0x80) continue;
        if (lead < 0xc2 || lead > 0xf4) return false;
        const int following = lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
        char32_t character = lead & (0x3f >> following);
        for (int i = 0; i < following; ++i) {
            if (at == bytes.size()) return false;
            const auto next = static_cast<unsigned char>(bytes[at++]);
            if ((next & 0xc0) != 0x80) return false;
            character = character << 6 | (next & 0x3f);
        }
        constexpr char32_t least[] = {0x80, 0x800, 0x10000};
        if (character < least[following - 1] || character > 0x10ffff || is_surrogate(character)) return false;
    }
    return true;
}

std::optional<std::string_view> decode(std::string_view bytes, std::string& storage) {
    auto stored = [&](std::optional<std::string> text) -> std::optional<std::string_view> {
        if (!text) return std::nullopt;
        storage = std::move(*text);
        return storage;
    };
    if (bytes.starts_with("\xfe\xff")) return stored(utf8_of_utf16(bytes.substr(2), true));
    if (bytes.starts_with("\xff\xfe")) return stored(utf8_of_utf16(bytes.substr(2), false));
    if (bytes.starts_with("\xef\xbb\xbf")) bytes.remove_prefix(3);
    const std::string declared = declared_encoding(bytes);
    if (declared == "iso-8859-1") return stored(utf8_of_latin1(bytes));
    if (!declared.empty() && declared != "utf-8" && declared != "utf8" && declared != "us-ascii")
        return std::nullopt;
    if (!is_utf8(bytes)) return std::nullopt;
    return bytes;
}

}  // namespace sim::plist
