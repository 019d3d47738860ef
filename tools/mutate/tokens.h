// The tokens of a C++ source, as far as one needs them to change it in places.
#pragma once
#include <string_view>
#include <vector>

namespace mutate {

enum class Kind { word, number, character, text, mark };

struct Token {
    Kind kind;
    std::string_view text;  // part of the source
    size_t offset;
    bool after_blank;  // a blank or a line's end stands before it
};

/// Comments and the preprocessor's lines are left out. A prefix or suffix of a literal is part of it.
std::vector<Token> tokens_of(std::string_view source);

}  // namespace mutate
