#include "tokens.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace mutate {
namespace {

// The longest first.
constexpr std::array<std::string_view, 26> marks{"<=>", "<<=", ">>=", "->*", "...", "::", "->", "++", "--",
                                                 "<<",  "<=",  ">=",  "==",  "!=",  "&&", "||", "+=", "-=",
                                                 "*=",  "/=",  "%=",  "&=",  "|=",  "^=", ".*", "##"};

bool in_word(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$'; }
bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)); }

class Reader {
  public:
    explicit Reader(std::string_view source) : source_(source) {}

    std::vector<Token> read() {
        while (at_ < source_.size()) step();
        return std::move(tokens_);
    }

  private:
    char look(size_t ahead = 0) const { return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0'; }
    bool sees(std::string_view text) const { return source_.substr(at_).starts_with(text); }

    void skip_past(std::string_view end) {
        const size_t found = source_.find(end, at_);
        at_ = found == source_.npos ? source_.size() : found + end.size();
    }

    /// A line of the preprocessor goes on after a backslash.
    void skip_directive() {
        do skip_past("\n");
        while (at_ >= 2 && at_ < source_.size() && source_[at_ - 2] == '\\');
    }

    void step() {
        const char c = look();
        if (std::isspace(static_cast<unsigned char>(c))) {
            fresh_line_ = fresh_line_ || c == '\n';
            blank_ = true;
            ++at_;
        } else if (sees("//")) {
            at_ = std::min(source_.find('\n', at_), source_.size());
        } else if (sees("/*")) {
            at_ += 2;
            skip_past("*/");
        } else if (c == '#' && fresh_line_) {
            skip_directive();
        } else {
            const size_t begin = at_;
            const Kind kind = pass_token();
            tokens_.push_back({kind, source_.substr(begin, at_ - begin), begin, blank_});
            blank_ = fresh_line_ = false;
        }
    }

    Kind pass_token() {
        const char c = look();
        if (is_digit(c) || (c == '.' && is_digit(look(1)))) return pass_number(), Kind::number;
        if (c == '"') return pass_quoted('"'), Kind::text;
        if (c == '\'') return pass_quoted('\''), Kind::character;
        if (in_word(c)) return pass_word();
        const auto* found = std::ranges::find_if(marks, [this](std::string_view mark) { return sees(mark); });
        at_ += found == marks.end() ? 1 : found->size();
        return Kind::mark;
    }

    Kind pass_word() {
        const size_t begin = at_;
        while (in_word(look())) ++at_;
        const std::string_view word = source_.substr(begin, at_ - begin);
        if (look() == '"' && word.ends_with('R')) return pass_raw(), Kind::text;
        const bool prefix = word == "u8" || word == "u" || word == "U" || word == "L";
        if (prefix && look() == '"') return pass_quoted('"'), Kind::text;
        if (prefix && look() == '\'') return pass_quoted('\''), Kind::character;
        return Kind::word;
    }

    void pass_number() {
        while (in_word(look()) || look() == '.' || (look() == '\'' && in_word(look(1))) ||
               ((look() == '+' || look() == '-') && is_exponent(source_[at_ - 1])))
            ++at_;
    }
    bool is_exponent(char c) const { return c == 'e' || c == 'E' || c == 'p' || c == 'P'; }

    void pass_quoted(char quote) {
        ++at_;
        while (at_ < source_.size() && look() != quote && look() != '\n') at_ += look() == '\\' ? 2 : 1;
        ++at_;
        while (in_word(look())) ++at_;  // a suffix
        at_ = std::min(at_, source_.size());
    }

    void pass_raw() {
        const size_t opened = source_.find('(', at_);
        const std::string_view name = opened == source_.npos ? "" : source_.substr(at_ + 1, opened - at_ - 1);
        skip_past(")" + std::string(name) + "\"");
        while (in_word(look())) ++at_;
    }

    std::string_view source_;
    size_t at_ = 0;
    bool blank_ = true, fresh_line_ = true;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokens_of(std::string_view source) { return Reader(source).read(); }

}  // namespace mutate
