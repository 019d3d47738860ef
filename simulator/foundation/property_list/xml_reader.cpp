// XML property lists. The device's reader is not a full XML parser, and neither is this: it steps over
// declarations and comments, ignores attributes, and looks no further than the end of the outermost element.
#include <algorithm>
#include <charconv>

#include "foundation/property_list/base64.h"
#include "foundation/property_list/reader.h"
#include "foundation/property_list/text_encoding.h"
#include "foundation/property_list/xml_values.h"

namespace sim::plist {
namespace {

bool is_space(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// A start tag.
struct Tag {
    std::string_view name;
    bool empty;  ///< "<name/>"
};

/// At most so many bytes, and no part of a character at the end.
std::string_view beginning_of(std::string_view utf8, size_t most) {
    if (utf8.size() <= most) return utf8;
    while (most > 0 && (static_cast<unsigned char>(utf8[most]) & 0xc0) == 0x80) --most;
    return utf8.substr(0, most);
}

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
        std::string storage;
        if (tag.name == "string" || tag.name == "key")
            return maker_.text(tag.empty ? "" : characters(tag.name, storage));
        if (tag.name == "true" || tag.name == "false") {
            if (!tag.empty) end_tag(tag.name);
            return maker_.boolean(tag.name == "true");
        }
        const bool known =
            tag.name == "integer" || tag.name == "real" || tag.name == "date" || tag.name == "data";
        if (!known) fail("unknown tag <" + std::string(beginning_of(tag.name, 40)) + ">");
        if (tag.empty) fail("empty <" + std::string(tag.name) + ">");
        const std::string_view content = characters(tag.name, storage);
        if (tag.name == "data") return maker_.data(decoded_base64(content));
        if (tag.name == "integer") {
            if (auto value = parse_integer(content)) return integer(*value);
        } else if (auto value = tag.name == "real" ? parse_real(content) : parse_date(content)) {
            return tag.name == "real" ? maker_.real(*value) : maker_.date(*value);
        }
        fail("misformatted <" + std::string(tag.name) + ">");
    }

    Value integer(XmlInteger value) const {
        if (value.negative) return maker_.integer(static_cast<int64_t>(~value.magnitude + 1));
        if (value.magnitude > INT64_MAX) return maker_.unsigned_integer(value.magnitude);
        return maker_.integer(static_cast<int64_t>(value.magnitude));
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

    /// Steps to the next "<" or "&". Each character is looked at once for either.
    void step_to_markup(std::string_view element) {
        if (next_tag_ < at_) next_tag_ = std::min(text_.find('<', at_), text_.size());
        at_ = std::min(text_.substr(0, next_tag_).find('&', at_), next_tag_);
        if (at_end()) fail("unexpected end of <" + std::string(element) + ">");
    }

    /// The text of an element that holds nothing else, with its end tag. `storage` holds it where it does not
    /// stand in the file as it is.
    std::string_view characters(std::string_view name, std::string& storage) {
        for (;;) {
            const size_t from = at_;
            step_to_markup(name);
            const std::string_view run = text_.substr(from, at_ - from);
            if (storage.empty() && at_end_tag()) {
                end_tag(name);
                return run;
            }
            storage += run;
            if (text_[at_] == '&') {
                append_entity(storage);
            } else if (constexpr std::string_view start = "<![CDATA["; rest().starts_with(start)) {
                const size_t first = at_ + start.size();
                step_past("]]>", "a CDATA section");
                storage += text_.substr(first, at_ - first - 3);
            } else {
                end_tag(name);
                return storage;
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
    size_t next_tag_ = 0;  // or before at_
    int depth_ = 0;
};

}  // namespace

Value read_xml(std::string_view text, const ObjectMaker& maker) { return XmlReader(text, maker).document(); }

}  // namespace sim::plist
