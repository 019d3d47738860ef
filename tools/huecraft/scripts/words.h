// The words of a script's line.
#pragma once
#include <charconv>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/terminal.h"

namespace command {

struct Word {
    std::string text;
    bool quoted = false;
};
using Words = std::vector<Word>;

/// What is wrong with a line; the line is put before it.
struct Wrong {
    std::string why;
};

/// Splits a line at its blanks; a text in quotation marks is one word, and what follows a # is left out.
Words words_of(std::string_view line);

template <class Number>
std::optional<Number> number_of(const Word& word) {
    Number number{};
    const char *begin = word.text.data(), *end = begin + word.text.size();
    const auto [at, error] = std::from_chars(begin, end, number);
    if (word.quoted || error != std::errc{} || at != end) return std::nullopt;
    return number;
}

/// Throws Wrong for what is not a number of that range.
template <class Number>
Number number_within(const Word& word, const std::string& what, Number least, Number most) {
    const auto number = number_of<Number>(word);
    std::ostringstream range;
    range << least << " to " << most;
    if (!number || !(*number >= least && *number <= most))
        throw Wrong{what + " is " + in_quotes(word.text) + "; expected a number from " + range.str()};
    return *number;
}

/// Throws Wrong for a word without quotation marks.
std::string text_of(const Word& word);

/// A picture's name, without its end. Throws Wrong.
std::string picture_name_of(const Word& word);

}  // namespace command
