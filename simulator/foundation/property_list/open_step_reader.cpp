// The old, readable form of property lists: (arrays), {dictionaries = of; strings = "quoted or not";}, <0fbd
// data>, and strings files, which are dictionaries without their braces.
#include "foundation/property_list/reader.h"
#include "foundation/property_list/text_encoding.h"

namespace sim::plist {
namespace {

bool is_letter_or_digit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool is_unquoted(char c) {
    return is_letter_or_digit(c) || c == '_' || c == '$' || c == '/' || c == ':' || c == '.' || c == '-';
}

int hexadecimal_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

class OpenStepReader {
  public:
    OpenStepReader(std::string_view text, const ObjectMaker& maker) : text_(text), maker_(maker) {}

    Value document() {
        step_over_space();
        if (at_end()) return maker_.dictionary({});  // an empty strings file
        const size_t start = at_;
        Value root = object();
        step_over_space();
        if (at_end()) return root;
        if (!root->isKindOfClass(NSString::class_object())) fail("something follows the property list");
        at_ = start;
        Value strings = maker_.dictionary(entries());
        if (!at_end()) fail("unexpected character in a strings file");
        return strings;
    }

  private:
    [[noreturn]] void fail(const std::string& what) const {
        size_t line = 1;
        for (char c : text_.substr(0, at_)) line += c == '\n';
        throw ParseError(what + " on line " + std::to_string(line));
    }

    bool at_end() const { return at_ == text_.size(); }
    bool is_at(char c) const { return !at_end() && text_[at_] == c; }
    void expect(char c, const char* what) {
        if (!is_at(c)) fail(what);
        ++at_;
    }

    /// Space of Unicode's kinds too, and comments.
    void step_over_space() {
        while (!at_end()) {
            const std::string_view rest = text_.substr(at_);
            if ((rest[0] >= '\t' && rest[0] <= '\r') || rest[0] == ' ') {
                ++at_;
            } else if (rest.starts_with("\u2028") || rest.starts_with("\u2029")) {
                at_ += 3;
            } else if (rest.starts_with("//")) {
                const size_t end = rest.find_first_of("\r\n");
                at_ += end == rest.npos ? rest.size() : end;
            } else if (rest.starts_with("/*")) {
                const size_t end = rest.find("*/", 2);
                at_ += end == rest.npos ? rest.size() : end + 2;
            } else {
                return;
            }
        }
    }

    Value object() {
        step_over_space();
        if (at_end()) fail("unexpected end of the file");
        if (depth_ == deepest) fail("nested too deeply");
        switch (text_[at_]) {
            case '{': {
                ++at_;
                ++depth_;
                auto content = entries();
                --depth_;
                expect('}', "no '}' at the end of a dictionary");
                return maker_.dictionary(content);
            }
            case '(': return array();
            case '<': return data();
            default: return string();
        }
    }

    Value array() {
        ++at_;
        ++depth_;
        std::vector<Value> values;
        for (;;) {
            step_over_space();
            if (is_at(')')) break;
            values.push_back(object());
            step_over_space();
            if (!is_at(',')) break;
            ++at_;
        }
        --depth_;
        expect(')', "no ')' at the end of an array");
        return maker_.array(values);
    }

    /// `key = value;` and `key;`, which means `key = key;`, as long as they come.
    std::vector<std::pair<Value, Value>> entries() {
        std::vector<std::pair<Value, Value>> found;
        for (;;) {
            step_over_space();
            if (at_end() || !(is_unquoted(text_[at_]) || is_at('"') || is_at('\''))) return found;
            const Value key = string();
            Value value = key;
            step_over_space();
            if (is_at('=')) {
                ++at_;
                value = object();
                step_over_space();
            }
            expect(';', "no ';' behind an entry of a dictionary");
            found.emplace_back(key, std::move(value));
        }
    }

    Value data() {
        ++at_;
        std::string bytes;
        for (;;) {
            while (!at_end() && (is_at(' ') || (text_[at_] >= '\t' && text_[at_] <= '\r'))) ++at_;
            if (is_at('>')) break;
            const int high = at_end() ? -1 : hexadecimal_digit(text_[at_]);
            const int low = at_ + 1 < text_.size() ? hexadecimal_digit(text_[at_ + 1]) : -1;
            if (high < 0 || low < 0) fail("malformed data");
            bytes += static_cast<char>(high << 4 | low);
            at_ += 2;
        }
        ++at_;
        return maker_.data(bytes);
    }

    Value string() {
        if (is_at('"') || is_at('\'')) return quoted_string(text_[at_++]);
        const size_t start = at_;
        while (!at_end() && is_unquoted(text_[at_])) ++at_;
        if (at_ == start) fail("unexpected character");
        return maker_.text(text_.substr(start, at_ - start));
    }

    Value quoted_string(char quote) {
        std::string content;
        for (;;) {
            const size_t stop = text_.find_first_of(quote == '"' ? "\"\\" : "'\\", at_);
            if (stop == text_.npos) {
                at_ = text_.size();
                fail("unexpected end of a quoted string");
            }
            content += text_.substr(at_, stop - at_);
            at_ = stop + 1;
            if (text_[stop] == quote) return maker_.text(content);
            append_escaped(content);
        }
    }

    void append_escaped(std::string& content) {
        if (at_end()) fail("unexpected end of a quoted string");
        const char c = text_[at_++];
        switch (c) {
            case 'a': content += '\a'; break;
            case 'b': content += '\b'; break;
            case 'f': content += '\f'; break;
            case 'n': content += '\n'; break;
            case 'r': content += '\r'; break;
            case 't': content += '\t'; break;
            case 'v': content += '\v'; break;
            case 'U': append_unit(content); break;
            default:
                if (c >= '0' && c <= '7')
                    append_octal(content, c - '0');
                else
                    content += c;
        }
    }

    /// "\U00e9": up to four digits, a UTF-16 unit.
    char32_t unit() {
        char32_t value = 0;
        for (int i = 0; i < 4 && !at_end() && hexadecimal_digit(text_[at_]) >= 0; ++i)
            value = value << 4 | static_cast<char32_t>(hexadecimal_digit(text_[at_++]));
        return value;
    }

    void append_unit(std::string& content) {
        char32_t character = unit();
        if (character >= 0xd800 && character < 0xdc00 && text_.substr(at_).starts_with("\\U")) {
            at_ += 2;
            const char32_t low = unit();
            if (low < 0xdc00 || low >= 0xe000) fail("half of a character in a quoted string");
            character = 0x10000 + ((character - 0xd800) << 10) + (low - 0xdc00);
        }
        if (!append_utf8(content, character)) fail("half of a character in a quoted string");
    }

    void append_octal(std::string& content, int value) {
        for (int i = 0; i < 2 && !at_end() && text_[at_] >= '0' && text_[at_] <= '7'; ++i)
            value = value << 3 | (text_[at_++] - '0');
        // Beyond ASCII the device means NeXTSTEP's character set, which nothing writes any more.
        if (value > 0x7f) fail("an octal escape beyond ASCII, which is not modelled,");
        append_utf8(content, static_cast<char32_t>(value));
    }

    std::string_view text_;
    const ObjectMaker& maker_;
    size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

Value read_open_step(std::string_view text, const ObjectMaker& maker) {
    return OpenStepReader(text, maker).document();
}

}  // namespace sim::plist
