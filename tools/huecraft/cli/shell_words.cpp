#include "cli/shell_words.h"

namespace command {

std::string in_single_quotes(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string shell_word(const std::string& text) {
    constexpr const char* plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./,:+@%=";
    return !text.empty() && text.find_first_not_of(plain) == text.npos ? text : in_single_quotes(text);
}

std::string shell_line(const std::vector<std::string>& command) {
    std::string line;
    for (const std::string& word : command) line += (line.empty() ? "" : " ") + shell_word(word);
    return line;
}

}  // namespace command
