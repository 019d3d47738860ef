// Type encodings, taken apart into what matters when a value is passed. On Linux and in tools only.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "objc/descriptions/plain_types.h"

namespace objc {

namespace detail {
/// Reads one type after another, each as what matters when it is passed.
class TypesReader {
  public:
    explicit TypesReader(const std::string& types) : types_(types) {}

    bool at_end() const { return at_ == types_.size(); }
    bool is_sound() const { return sound_; }

    std::string next() {
        if (depth_ == deepest) sound_ = false;
        if (!sound_) return "";
        ++depth_;
        const std::string type = one();
        --depth_;
        return type;
    }

  private:
    static constexpr size_t deepest = 100;

    std::string one() {
        skip_quoted();  // the name of a structure's member
        const char kind = taken();
        switch (kind) {
            case 'c':
            case 'C':
            case 'B': return "B";
            case '*': return "^";
            case '^': next(); return "^";
            case '@':
                if (peek() == '?') ++at_;
                skip_quoted();
                return "@";
            case 'b': return "b" + digits();
            case '[': return "[" + digits() + members(']');
            case '{':
            case '(': return kind + aggregate(kind == '{' ? '}' : ')');
        }
        constexpr std::string_view simple = "v#:iIsSlLqQtTfdD?";
        sound_ = sound_ && simple.find(kind) != simple.npos;
        return std::string(1, kind);
    }

    char peek() const { return at_ < types_.size() ? types_[at_] : '\0'; }
    char taken() {
        const char c = peek();
        if (c)
            ++at_;
        else
            sound_ = false;
        return c;
    }
    void skip_quoted() {
        if (peek() != '"') return;
        at_ = types_.find('"', at_ + 1);
        if (at_ == types_.npos) {
            at_ = types_.size();
            sound_ = false;
        } else {
            ++at_;
        }
    }
    std::string digits() {
        const size_t start = at_;
        while (peek() >= '0' && peek() <= '9') ++at_;
        return types_.substr(start, at_ - start);
    }
    std::string members(char end) {
        std::string all;
        while (sound_ && peek() != end) all += next();
        taken();
        return all + end;
    }
    /// A structure by what it consists of; by its name where nothing else is recorded.
    std::string aggregate(char end) {
        const size_t start = at_;
        while (peek() && peek() != '=' && peek() != end) ++at_;
        if (peek() == '=') {
            ++at_;
            return members(end);
        }
        const std::string name = types_.substr(start, at_ - start);
        taken();
        return name + end;
    }

    const std::string& types_;
    size_t at_ = 0, depth_ = 0;
    bool sound_ = true;
};
}  // namespace detail

/// What a method's types say of its result and its arguments, each apart: structures without their names and
/// objects without their classes, and BOOL, which compilers encode in three ways, as "B". Nothing for types
/// that cannot be read.
inline std::optional<std::vector<std::string>> passed_types(std::string types) {
    make_plain(types.data());
    types.resize(types.find('\0') == types.npos ? types.size() : types.find('\0'));
    std::vector<std::string> all;
    detail::TypesReader reader(types);
    while (!reader.at_end() && reader.is_sound()) all.push_back(reader.next());
    if (!reader.is_sound()) return std::nullopt;
    return all;
}

}  // namespace objc
