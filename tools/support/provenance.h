// What a picture was drawn with, kept in the picture's file.
#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace tools {

/// In 64 small hexadecimal digits.
std::string sha256_of(std::string_view bytes);

/// Of files, byte for byte as they were: their SHA-256.
struct Provenance {
    std::string library;
    /// Empty where there was none.
    std::string theme;
};

/// The keywords of the texts in a picture's file.
inline constexpr const char* library_keyword = "Huecraft-Library-SHA256";
inline constexpr const char* theme_keyword = "Huecraft-Theme-SHA256";

/// The same picture, with a tEXt chunk for each, right behind the header. What is drawn stays as it is.
/// Throws Failure for what is not a PNG.
std::string with_provenance(const std::string& png, const Provenance& provenance);

/// The origin of what the library draws under the theme's file; an empty path is none.
Provenance provenance_of(const std::filesystem::path& library, const std::filesystem::path& theme);

/// Puts it into a picture's file.
void tell_provenance(const std::filesystem::path& png, const Provenance& provenance);

}  // namespace tools
