#include "keyboard/names/key_names.h"

namespace sim {
namespace {

constexpr struct {
    std::string_view character, name;
} punctuation[] = {{"-", "Hyphen-Minus"},
                   {"/", "Solidus"},
                   {":", "Colon"},
                   {";", "Semicolon"},
                   {"(", "Left-Parenthesis"},
                   {")", "Right-Parenthesis"},
                   {"$", "Dollar-Sign"},
                   {"&", "Ampersand"},
                   {"@", "Commercial-At"},
                   {"\"", "Quotation-Mark"},
                   {".", "Full-Stop"},
                   {",", "Comma"},
                   {"?", "Question-Mark"},
                   {"!", "Exclamation-Mark"},
                   {"'", "Apostrophe"},
                   {"[", "Left-Square-Bracket"},
                   {"]", "Right-Square-Bracket"},
                   {"{", "Left-Curly-Bracket"},
                   {"}", "Right-Curly-Bracket"},
                   {"#", "Number-Sign"},
                   {"%", "Percent-Sign"},
                   {"^", "Circumflex-Accent"},
                   {"*", "Asterisk"},
                   {"+", "Plus-Sign"},
                   {"=", "Equals-Sign"},
                   {"_", "Low-Line"},
                   {"\\", "Reverse-Solidus"},
                   {"|", "Vertical-Line"},
                   {"~", "Tilde"},
                   {"<", "Less-Than-Sign"},
                   {">", "Greater-Than-Sign"},
                   {"€", "Euro-Sign"},
                   {"£", "Pound-Sign"},
                   {"¥", "Yen-Sign"},
                   {"•", "Bullet"}};

}  // namespace

std::string name_of_character(std::string_view character) {
    const char first = character.size() == 1 ? character[0] : '\0';
    if (first >= 'a' && first <= 'z')
        return std::string("Latin-Small-Letter-") + static_cast<char>(first - ('a' - 'A'));
    if (first >= 'A' && first <= 'Z') return std::string("Latin-Capital-Letter-") + first;
    if (first >= '0' && first <= '9') return std::string("Digit-") + first;
    for (const auto& entry : punctuation)
        if (entry.character == character) return std::string(entry.name);
    return std::string(character);
}

}  // namespace sim
