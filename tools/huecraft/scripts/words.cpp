#include "scripts/words.h"

#include <algorithm>

namespace command {
namespace {

constexpr std::string_view blanks = " \t\r";

/// The text from its opening quotation mark on, which goes with the closing one.
Word quoted_word(std::string_view& line) {
    Word word{.text = "", .quoted = true};
    for (line.remove_prefix(1); !line.empty(); line.remove_prefix(1)) {
        char c = line.front();
        if (c == '"') {
            line.remove_prefix(1);
            if (!line.empty() && blanks.find(line.front()) == blanks.npos)
                throw Wrong{"expected a blank after " + in_quotes(word.text)};
            return word;
        }
        if (c == '\\') {
            line.remove_prefix(1);
            c = line.empty() ? '\0' : line.front();
            if (c != '"' && c != '\\') throw Wrong{"a \\ in a text comes before \" or another \\"};
        }
        word.text += c;
    }
    throw Wrong{"the text " + in_quotes(word.text) + " has no closing quotation mark"};
}

}  // namespace

Words words_of(std::string_view line) {
    Words words;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        if (line.empty() || line.front() == '#') return words;
        if (line.front() == '"') {
            words.push_back(quoted_word(line));
            continue;
        }
        const size_t end = std::min(line.find_first_of(blanks), line.size());
        words.push_back({std::string(line.substr(0, end)), false});
        line.remove_prefix(end);
    }
}

std::string text_of(const Word& word) {
    if (!word.quoted)
        throw Wrong{in_quotes(word.text) + " stands where a text in quotation marks is expected"};
    return word.text;
}

std::string picture_name_of(const Word& word) {
    const bool plain = std::ranges::all_of(word.text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_' || c == '.';
    });
    if (word.text.empty() || !plain || word.text.front() == '.' || word.text.size() > 200)
        throw Wrong{in_quotes(word.text) + " is not a name of a picture; expected letters, digits, - and _"};
    return word.text;
}

}  // namespace command
