// The characters of a property list that is text.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace sim::plist {

/// Whether the bytes are UTF-8 of Unicode characters: no surrogates, no longer forms than needed.
bool is_utf8(std::string_view bytes);

/// The text as UTF-8: byte order marks and the encoding that an XML declaration names are followed, UTF-8 is
/// meant otherwise. Nothing when the bytes are not such text. `storage` holds what had to be converted.
std::optional<std::string_view> decode(std::string_view bytes, std::string& storage);

/// Appends a character as UTF-8; false for what is none (a surrogate, beyond U+10FFFF).
bool append_utf8(std::string& text, char32_t character);

}  // namespace sim::plist
