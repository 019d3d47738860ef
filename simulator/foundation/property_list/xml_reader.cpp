// XML property lists. The device's reader is no full XML parser, and neither is this: it steps over
// declarations and comments, ignores attributes, and looks no further than the end of the outermost element.
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>

#include "foundation/property_list/base64.h"
#include "foundation/property_list/reader.h"
#include "foundation/property_list/text_encoding.h"

namespace sim::plist {
namespace {

bool is_space(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
    return text;
}

bool equal_ignoring_case(std::string_view a, std::string_view lower) {
    if (a.size() != lower.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if ((a[i] | 0x20) != lower[i] && a[i] != lower[i]) return false;
    return true;
}

/// A start tag.
struct Tag {
    std::string_view name;
    bool empty;  ///< "<name/>"
};

class XmlReader {
  public:
    XmlReader(std::string_view text, const ObjectMaker& maker) : text_(text), maker_(maker) {}

    Value document() {
        step_over_misc();
        return element(start_tag());
    }

  private:
    [[noreturn]] void fail(const std::string& what) const {
        size_t line = 1;
        for (char c : text_.substr(0, at_)) line += c == '\n';
        throw ParseError(what + " on line " + std::to_string(line));
    }

    std::string_view rest() const { return text_.substr(at_); }
    bool at_end() const { return at_ == text_.size(); }
    void step_over_space() {
        while (!at_end() && is_space(text_[at_])) ++at_;
    }

    void step_past(std::string_view end, const char* what) {
        const size_t found = text_.find(end, at_);
        if (found == text_.npos) fail(std::string("unexpected end of ") + what);
        at_ = found + end.size();
    }

    /// Space, comments, processing instructions and the document type.
    void step_over_misc() {
        for (;;) {
            step_over_space();
            if (rest().starts_with("<!--"))
                step_past("-->", "a comment");
            else if (rest().starts_with("<?"))
                step_past("?>", "a processing instruction");
            else if (rest().starts_with("<!DOCTYPE"))
                step_over_document_type();
            else
                return;
        }
    }

    void step_over_document_type() {
        bool in_subset = false;
        for (char quote = 0; !at_end(); ++at_) {
            const char c = text_[at_];
            if (quote) {
                if (c == quote) quote = 0;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '[') {
                in_subset = true;
            } else if (c == ']') {
                in_subset = false;
            } else if (c == '>' && !in_subset) {
                ++at_;
                return;
            }
        }
        fail("unexpected end of the document type");
    }

    Tag start_tag() {
        if (at_end()) fail("unexpected end of the file");
        if (text_[at_] != '<') fail("unexpected character where an element begins");
        if (rest().starts_with("</")) fail("unexpected end tag");
        const size_t name = ++at_;
        while (!at_end() && !is_space(text_[at_]) && text_[at_] != '>' && text_[at_] != '/') ++at_;
        Tag tag{text_.substr(name, at_ - name), false};
        for (char quote = 0; !at_end(); ++at_) {
            const char c = text_[at_];
            if (quote) {
                if (c == quote) quote = 0;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>') {
                tag.empty = text_[at_ - 1] == '/';
                ++at_;
                return tag;
            }
        }
        fail("unexpected end of a tag");
    }

    bool at_end_tag() { return rest().starts_with("</"); }

    void end_tag(std::string_view name) {
        if (!rest().starts_with("</") || !text_.substr(at_ + 2).starts_with(name))
            fail("no end tag for <" + std::string(name) + ">");
        at_ += 2 + name.size();
        step_over_space();
        if (at_end() || text_[at_] != '>') fail("no end tag for <" + std::string(name) + ">");
        ++at_;
    }

    Value element(const Tag& tag) {
        if (tag.name == "plist") return plist(tag);
        if (tag.name == "array") return array(tag);
        if (tag.name == "dict") return dictionary(tag);
        if (tag.name == "string" || tag.name == "key")
            return maker_.text(tag.empty ? "" : characters(tag.name));
        if (tag.name == "true" || tag.name == "false") {
            if (!tag.empty) end_tag(tag.name);
            return maker_.boolean(tag.name == "true");
        }
        const bool known =
            tag.name == "integer" || tag.name == "real" || tag.name == "date" || tag.name == "data";
        if (!known) fail("unknown tag <" + std::string(tag.name.substr(0, 40)) + ">");
        if (tag.empty) fail("empty <" + std::string(tag.name) + ">");
        const std::string content = characters(tag.name);
        if (tag.name == "integer") return integer(content);
        if (tag.name == "real") return real(content);
        if (tag.name == "date") return date(content);
        return maker_.data(decoded_base64(content));
    }

    Value plist(const Tag& tag) {
        if (tag.empty) fail("empty <plist>");
        const Nesting nesting(*this);
        step_over_misc();
        if (at_end_tag()) fail("empty <plist>");
        Value value = element(start_tag());
        step_over_misc();
        end_tag("plist");
        return value;
    }

    Value array(const Tag& tag) {
        std::vector<Value> values;
        if (tag.empty) return maker_.array(values);
        const Nesting nesting(*this);
        for (step_over_misc(); !at_end_tag(); step_over_misc()) values.push_back(element(start_tag()));
        end_tag("array");
        return maker_.array(values);
    }

    Value dictionary(const Tag& tag) {
        std::vector<std::pair<Value, Value>> entries;
        if (tag.empty) return maker_.dictionary(entries);
        const Nesting nesting(*this);
        for (step_over_misc(); !at_end_tag(); step_over_misc()) {
            const Tag key_tag = start_tag();
            if (key_tag.name != "key") fail("no <key> where one belongs in a <dict>");
            Value key = element(key_tag);
            step_over_misc();
            if (at_end_tag()) fail("a value is missing for a key of a <dict>");
            entries.emplace_back(std::move(key), element(start_tag()));
        }
        end_tag("dict");
        return maker_.dictionary(entries);
    }

    /// The text of an element that holds nothing else, with its end tag.
    std::string characters(std::string_view name) {
        std::string content;
        for (;;) {
            const size_t stop = text_.find_first_of("<&", at_);
            if (stop == text_.npos) {
                at_ = text_.size();
                fail("unexpected end of <" + std::string(name) + ">");
            }
            content += text_.substr(at_, stop - at_);
            at_ = stop;
            if (text_[at_] == '&') {
                append_entity(content);
            } else if (constexpr std::string_view start = "<![CDATA["; rest().starts_with(start)) {
                const size_t from = at_ + start.size();
                step_past("]]>", "a CDATA section");
                content += text_.substr(from, at_ - from - 3);
            } else {
                end_tag(name);
                return content;
            }
        }
    }

    void append_entity(std::string& content) {
        const size_t end = text_.find(';', at_);
        if (end == text_.npos || end - at_ > 12) fail("unknown entity");
        const std::string_view name = text_.substr(at_ + 1, end - at_ - 1);
        if (name == "lt")
            content += '<';
        else if (name == "gt")
            content += '>';
        else if (name == "amp")
            content += '&';
        else if (name == "apos")
            content += '\'';
        else if (name == "quot")
            content += '"';
        else if (!name.starts_with('#') || !append_numbered(content, name.substr(1)))
            fail("unknown entity");
        at_ = end + 1;
    }

    static bool append_numbered(std::string& content, std::string_view digits) {
        const bool hexadecimal = digits.starts_with('x');
        if (hexadecimal) digits.remove_prefix(1);
        uint32_t character = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), character, hexadecimal ? 16 : 10);
        return error == std::errc() && end == digits.data() + digits.size() &&
               append_utf8(content, character);
    }

    Value integer(std::string_view content) const {
        std::string_view digits = trimmed(content);
        const bool negative = digits.starts_with('-');
        if (negative || digits.starts_with('+')) digits = trimmed(digits.substr(1));
        const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
        if (hexadecimal) digits.remove_prefix(2);
        uint64_t magnitude = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), magnitude, hexadecimal ? 16 : 10);
        if (error == std::errc::result_out_of_range || (negative && magnitude > uint64_t{1} << 63))
            fail("an <integer> is too large");
        if (error != std::errc() || end != digits.data() + digits.size()) fail("a misformatted <integer>");
        if (negative) return maker_.integer(static_cast<int64_t>(~magnitude + 1));
        if (magnitude > INT64_MAX) return maker_.unsigned_integer(magnitude);
        return maker_.integer(static_cast<int64_t>(magnitude));
    }

    Value real(std::string_view content) const {
        std::string_view digits = trimmed(content);
        const bool negative = digits.starts_with('-');
        if (negative || digits.starts_with('+')) digits.remove_prefix(1);
        double value = 0;
        if (equal_ignoring_case(digits, "inf") || equal_ignoring_case(digits, "infinity")) {
            value = INFINITY;
        } else if (equal_ignoring_case(digits, "nan")) {
            value = NAN;
        } else {
            const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
            const bool a_number =
                !digits.empty() && (digits[0] == '.' || (digits[0] >= '0' && digits[0] <= '9'));
            if (error == std::errc::result_out_of_range)
                value = std::strtod(std::string(digits).c_str(), nullptr);  // infinity, or as good as nothing
            else if (error != std::errc() || end != digits.data() + digits.size() || !a_number)
                fail("a misformatted <real>");
        }
        return maker_.real(negative ? -value : value);
    }

    /// "2019-01-02T03:04:05Z", always in Greenwich's time.
    Value date(std::string_view content) const {
        std::string_view left = trimmed(content);
        const bool before_christ = left.starts_with('-');
        if (before_christ) left.remove_prefix(1);
        auto field = [&](char end) {
            int value = 0;
            const size_t length = left.find(end);
            if (length == left.npos || length == 0 || length > 6) fail("a misformatted <date>");
            const auto [stop, error] = std::from_chars(left.data(), left.data() + length, value);
            if (error != std::errc() || stop != left.data() + length || value < 0)
                fail("a misformatted <date>");
            left.remove_prefix(length + 1);
            return value;
        };
        const int year = field('-'), month = field('-'), day = field('T');
        const int hour = field(':'), minute = field(':'), second = field('Z');
        using namespace std::chrono;
        const year_month_day date(std::chrono::year(before_christ ? -year : year), std::chrono::month(month),
                                  std::chrono::day(day));
        if (!left.empty() || month > 12 || day > 31 || year > 30000 || !date.ok() || hour > 24 ||
            minute > 60 || second > 60)
            fail("a misformatted <date>");
        constexpr sys_days reference{std::chrono::year(2001) / 1 / 1};
        return maker_.date(86400.0 * (sys_days(date) - reference).count() + 3600.0 * hour + 60.0 * minute +
                           second);
    }

    /// Counts how deep the reader is.
    class Nesting {
      public:
        explicit Nesting(XmlReader& reader) : reader_(reader) {
            if (++reader_.depth_ > deepest) reader_.fail("nested too deeply");
        }
        ~Nesting() { --reader_.depth_; }

      private:
        XmlReader& reader_;
    };

    std::string_view text_;
    const ObjectMaker& maker_;
    size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

Value read_xml(std::string_view text, const ObjectMaker& maker) { return XmlReader(text, maker).document(); }

}  // namespace sim::plist
