#include "mutants.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "tokens.h"

namespace mutate {
namespace {

using Pair = std::pair<std::string_view, std::string_view>;

// With a blank on each side they are operators, and neither brackets of templates nor pointers.
constexpr std::array<Pair, 24> operators{
    {{"<", "<="},  {"<=", "<"},  {">", ">="},  {">=", ">"},  {"==", "!="}, {"!=", "=="},
     {"&&", "||"}, {"||", "&&"}, {"+", "-"},   {"-", "+"},   {"*", "/"},   {"/", "*"},
     {"%", "*"},   {"|", "&"},   {"&", "|"},   {"^", "|"},   {"<<", ">>"}, {">>", "<<"},
     {"+=", "-="}, {"-=", "+="}, {"*=", "/="}, {"/=", "*="}, {"|=", "&="}, {"&=", "|="}}};
constexpr std::array<Pair, 2> steps{{{"++", "--"}, {"--", "++"}}};
constexpr std::array<Pair, 2> truths{{{"true", "false"}, {"false", "true"}}};
// With these a statement begins that is none of a call or an assignment.
constexpr std::array<std::string_view, 28> keywords{
    "using",  "typedef", "static_assert", "friend", "extern",    "template", "namespace",
    "return", "case",    "default",       "goto",   "public",    "private",  "protected",
    "if",     "for",     "while",         "do",     "switch",    "else",     "struct",
    "class",  "enum",    "union",         "static", "constexpr", "requires", "concept"};

template <size_t count>
std::string_view other(const std::array<Pair, count>& pairs, std::string_view text) {
    const auto* found = std::ranges::find(pairs, text, &Pair::first);
    return found == pairs.end() ? "" : found->second;
}

bool is_one_of(std::string_view text, std::initializer_list<std::string_view> list) {
    return std::ranges::find(list, text) != list.end();
}

std::string without_indentation(std::string_view lines) {
    std::string joined;
    for (const char c : lines) {
        const bool blank = std::isspace(static_cast<unsigned char>(c));
        if (!blank) joined += c;
        if (blank && !joined.empty() && joined.back() != ' ') joined += ' ';
    }
    while (joined.ends_with(' ')) joined.pop_back();
    return joined;
}

class Finder {
  public:
    explicit Finder(std::string_view source) : source_(source), tokens_(tokens_of(source)) {}

    std::vector<Mutant> find() {
        for (size_t i = 0; i < tokens_.size(); ++i) {
            follow_brackets(i);
            if (text(i) == "static_assert") {
                while (text(i + 1) != ";" && i + 1 < tokens_.size()) ++i;
                continue;
            }
            change_operator(i);
            change_literal(i);
            change_condition(i);
            change_result(i);
            remove_statement(i);
        }
        return std::move(mutants_);
    }

  private:
    std::string_view text(size_t i) const { return i < tokens_.size() ? tokens_[i].text : ""; }
    bool is(size_t i, Kind kind) const { return i < tokens_.size() && tokens_[i].kind == kind; }
    size_t end_of(size_t i) const { return tokens_[i].offset + text(i).size(); }
    std::string_view between(size_t begin, size_t end) const { return source_.substr(begin, end - begin); }

    void add(size_t offset, size_t length, std::string replacement) {
        const size_t previous = source_.substr(0, offset).rfind('\n');
        const size_t begin = previous == source_.npos ? 0 : previous + 1;
        const size_t end = std::min(source_.find('\n', offset + length), source_.size());
        Mutant mutant{.offset = offset,
                      .length = length,
                      .replacement = std::move(replacement),
                      .line = 1 + static_cast<size_t>(std::ranges::count(source_.substr(0, offset), '\n')),
                      .before = without_indentation(between(begin, end)),
                      .after = ""};
        mutant.after = without_indentation(std::string(between(begin, offset)) + mutant.replacement +
                                           std::string(between(offset + length, end)));
        if (mutant.before != mutant.after) mutants_.push_back(std::move(mutant));
    }
    void replace(size_t i, std::string replacement) {
        add(tokens_[i].offset, text(i).size(), std::move(replacement));
    }

    void follow_brackets(size_t i) {
        if (is_one_of(text(i), {"(", "[", "{"})) open_.push_back(text(i).front());
        if (is_one_of(text(i), {")", "]", "}"}) && !open_.empty()) open_.pop_back();
    }

    /// The index of the bracket that closes the one at i; past the end when there is none.
    size_t closing(size_t i) const {
        size_t depth = 0;
        for (; i < tokens_.size(); ++i) {
            if (is_one_of(text(i), {"(", "[", "{"})) ++depth;
            if (is_one_of(text(i), {")", "]", "}"}) && --depth == 0) return i;
        }
        return i;
    }

    // --- Operators ---

    void change_operator(size_t i) {
        if (!is(i, Kind::mark)) return;
        const bool both_sides =
            tokens_[i].after_blank && i + 1 < tokens_.size() && tokens_[i + 1].after_blank;
        if (const auto opposite = other(operators, text(i)); both_sides && !opposite.empty())
            replace(i, std::string(opposite));
        if (const auto opposite = other(steps, text(i)); !opposite.empty()) replace(i, std::string(opposite));
        // "!x" and "-x" lose their mark.
        const bool prefix = i + 1 < tokens_.size() && !tokens_[i + 1].after_blank;
        if (text(i) == "!" && prefix) replace(i, "");
        if (text(i) == "-" && prefix && (tokens_[i].after_blank || is_one_of(text(i - 1), {"(", "{", "["})))
            replace(i, "");
        // What is chosen between is always the one and always the other.
        if (text(i) == "?" && both_sides) {
            add(tokens_[i].offset, 0, "|| true ");
            add(tokens_[i].offset, 0, "&& false ");
        }
    }

    // --- Literals ---

    void change_literal(size_t i) {
        if (is(i, Kind::number) || is(i, Kind::character)) {
            replace(i, "(" + std::string(text(i)) + " + 1)");
            replace(i, "(" + std::string(text(i)) + " - 1)");
        }
        if (const auto opposite = other(truths, text(i)); !opposite.empty())
            replace(i, std::string(opposite));
        if (is(i, Kind::text) && !text(i).starts_with('R')) {
            const size_t quote = text(i).find('"');
            add(tokens_[i].offset + quote + 1, 0, "~");
        }
    }

    // --- Conditions ---

    void change_condition(size_t i) {
        if (!is_one_of(text(i), {"if", "while"}) || text(i + 1) != "(") return;
        const size_t close = closing(i + 1);
        if (close >= tokens_.size()) return;
        size_t first = i + 2, assignment = 0, depth = 0;
        bool joined = false;
        for (size_t each = first; each < close; ++each) {
            if (is_one_of(text(each), {"(", "[", "{"})) ++depth;
            if (is_one_of(text(each), {")", "]", "}"})) --depth;
            if (depth) continue;
            if (text(each) == ";") first = each + 1, assignment = 0;
            if (text(each) == "=" && !assignment) assignment = each;
            joined = joined || is_one_of(text(each), {"&&", "||", "?"});
        }
        if (first >= close) return;
        const size_t begin = tokens_[first].offset, end = tokens_[close].offset;
        // "T* x = …" is a condition by what x then is; "x = …" alone is none that we write.
        if (assignment > first + 1) {
            if (text(i) == "if") add(end, 0, "; !" + std::string(text(assignment - 1)));
        } else if (joined || text(first) != "!") {  // "!x" loses its mark already
            add(begin, end - begin, "!(" + std::string(between(begin, end)) + ")");
        }
    }

    // --- Results and statements ---

    /// The index of the semicolon that ends the statement at i; past the end when there is none.
    size_t end_of_statement(size_t i) const {
        while (i < tokens_.size() && text(i) != ";" && !is_one_of(text(i), {"}", ")", "]"}))
            i = is_one_of(text(i), {"(", "[", "{"}) ? closing(i) + 1 : i + 1;
        return text(i) == ";" ? i : tokens_.size();
    }

    /// Instead of what is computed, the empty value of its type.
    void change_result(size_t i) {
        if (text(i) != "return" || is_one_of(text(i + 1), {";", "{"})) return;
        const size_t end = end_of_statement(i);
        if (end >= tokens_.size() ||
            (end == i + 2 && is_one_of(text(i + 1), {"nullptr", "false", "0", "true"})))
            return;
        add(tokens_[i + 1].offset, tokens_[end].offset - tokens_[i + 1].offset, "{}");
    }

    bool begins_statement(size_t i) const {
        if (open_.empty() || open_.back() != '{' || i == 0) return false;
        return is_one_of(text(i - 1), {";", "{", "}", ")", "else"}) || ends_label(i - 1);
    }

    bool ends_label(size_t i) const {
        if (text(i) != ":") return false;
        while (i > 0 && !is_one_of(text(i), {";", "{", "}", "?", "case", "default"})) --i;
        return is_one_of(text(i), {"case", "default"});
    }

    /// Calls, assignments and steps; declarations stay.
    void remove_statement(size_t i) {
        if (!begins_statement(i) || std::ranges::find(keywords, text(i)) != keywords.end()) return;
        if (!is(i, Kind::word) && !is_one_of(text(i), {"*", "(", "++", "--"})) return;
        const size_t end = end_of_statement(i);
        if (end >= tokens_.size() || end == i) return;
        const bool jumps = is_one_of(text(i), {"break", "continue"});
        if (!jumps && (is_declaration(i, end) || !does_something(i, end))) return;
        add(tokens_[i].offset, tokens_[end].offset - tokens_[i].offset, "");
    }

    /// The head, up to a bracket or an assignment, ends in a type and a name: "T x", "T* x", "T<U>& x".
    bool is_declaration(size_t i, size_t end) const {
        size_t head = i;
        int angles = 0;
        for (; head < end; ++head) {
            if (text(head) == "<" && !tokens_[head].after_blank) ++angles;
            if (text(head) == ">" && angles > 0) --angles;
            if (angles == 0 && is_one_of(text(head), {"(", "{", "[", "=", ","})) break;
        }
        if (head < i + 2 || !is(head - 1, Kind::word)) return text(head) == "{" || text(i) == "auto";
        return is(head - 2, Kind::word) || is_one_of(text(head - 2), {"*", "&", "&&", ">"});
    }

    bool does_something(size_t i, size_t end) const {
        for (; i < end; ++i)
            if (is_one_of(text(i), {"(", "=", "++", "--", "+=", "-=", "*=", "/=", "|=", "&="})) return true;
        return false;
    }

    std::string_view source_;
    std::vector<Token> tokens_;
    std::string open_;
    std::vector<Mutant> mutants_;
};

}  // namespace

std::vector<Mutant> mutants_of(std::string_view source) { return Finder(source).find(); }

std::string with(std::string_view source, const Mutant& mutant) {
    return std::string(source.substr(0, mutant.offset)) + mutant.replacement +
           std::string(source.substr(mutant.offset + mutant.length));
}

}  // namespace mutate
