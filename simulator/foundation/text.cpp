#include "foundation/text.h"

#include "foundation/property_list/text_encoding.h"

namespace sim {

std::u16string units_of(NSString* string) {
    std::u16string units(string->length(), u'\0');
    string->getCharacters(units.data(), {0, units.size()});
    return units;
}

std::optional<std::string> utf8_of(NSString* string) {
    if (!string) return std::nullopt;
    const std::u16string units = units_of(string);
    std::string text;
    text.reserve(units.size());
    for (size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        if (character >= 0xd800 && character < 0xdc00 && i + 1 < units.size() && units[i + 1] >= 0xdc00 &&
            units[i + 1] < 0xe000)
            character = 0x10000 + ((character - 0xd800) << 10) + (units[++i] - 0xdc00u);
        if (!plist::append_utf8(text, character)) return std::nullopt;
    }
    return text;
}

NSString* string_of(std::string_view utf8) {
    constexpr NSUInteger utf8_encoding = 4;
    if (!plist::is_utf8(utf8)) return nullptr;
    return NSString::make<"initWithBytes:length:encoding:">(static_cast<const void*>(utf8.data()),
                                                            NSUInteger{utf8.size()}, utf8_encoding)
        .autoreleased();
}

}  // namespace sim
