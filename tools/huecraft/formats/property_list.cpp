#include "formats/property_list.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/moderation.h"
#include "formats/value.h"
#include "objc/exception.h"
#include "objc/fast_enumeration.h"
#include "support/text.h"

namespace command {
namespace {

using tools::text;
using tools::utf8;

std::string reason_of(NSError* error) {
    auto* info = error->send<"userInfo", NSDictionary*>();
    const std::string detail = utf8(as<NSString>(info->objectForKey(text("NSDebugDescription"))));
    return one_line(detail.empty() ? utf8(error->send<"localizedDescription", NSString*>()) : detail, 200);
}

std::vector<NSString*> sorted_keys(id dictionary) {
    std::vector<NSString*> keys;
    objc::for_each<NSString>(dictionary, [&](NSString* key) { keys.push_back(key); });
    std::ranges::sort(keys, {}, [](NSString* key) { return utf8(key); });
    return keys;
}

std::u16string units_of(NSString* string) {
    std::u16string units(string->length(), u'\0');
    string->getCharacters(units.data(), {0, units.size()});
    return units;
}

/// Writes the old, readable form, which the device reads and nobody writes. It has texts, data, lists and
/// dictionaries.
class OpenStepWriter {
  public:
    explicit OpenStepWriter(Losses& losses) : losses_(losses) {}

    std::string document(id root) {
        write(root, "the root");
        return std::move(out_) + "\n";
    }

  private:
    void write(id value, const std::string& path) {
        switch (kind_of(value)) {
            case Kind::dictionary: return dictionary(static_cast<NSDictionary*>(value), path);
            case Kind::list: return list(static_cast<NSArray*>(value), path);
            case Kind::data: return data(static_cast<NSData*>(value));
            case Kind::text: return string(static_cast<NSString*>(value));
            default: return as_text(value, path);
        }
    }

    void line() { out_ += "\n" + std::string(static_cast<size_t>(depth_) * 4, ' '); }

    void dictionary(NSDictionary* content, const std::string& path) {
        out_ += "{";
        ++depth_;
        for (NSString* key : sorted_keys(content)) {
            line();
            string(key);
            out_ += " = ";
            write(content->objectForKey(key), (depth_ == 1 ? "" : path + ".") + one_line(utf8(key)));
            out_ += ";";
        }
        --depth_;
        line();
        out_ += "}";
    }

    void list(NSArray* content, const std::string& path) {
        out_ += "(";
        ++depth_;
        for (NSUInteger i = 0; i < content->count(); ++i) {
            if (i) out_ += ",";
            line();
            write(content->objectAtIndex(i), path + "[" + std::to_string(i) + "]");
        }
        --depth_;
        line();
        out_ += ")";
    }

    void data(NSData* content) {
        out_ += "<";
        for (unsigned char byte : bytes_of(content)) {
            char digits[4];
            std::snprintf(digits, sizeof digits, "%02x", byte);
            out_ += digits;
        }
        out_ += ">";
    }

    void string(NSString* content) {
        out_ += '"';
        for (char16_t unit : units_of(content)) {
            if (unit == u'"' || unit == u'\\') {
                out_ += '\\';
                out_ += static_cast<char>(unit);
            } else if (unit >= 0x20 && unit < 0x7f) {
                out_ += static_cast<char>(unit);
            } else {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\U%04x", static_cast<unsigned>(unit));
                out_ += escape;
            }
        }
        out_ += '"';
    }

    /// The library reads numbers and booleans from texts too.
    void as_text(id value, const std::string& path) {
        const Kind kind = kind_of(value);
        std::string words = kind == Kind::boolean ? (number_of(value) != 0 ? "YES" : "NO") : in_words(value);
        losses_.push_back(path + ": " + name_of(kind) + ", " + in_words(value) + ", became the text " +
                          in_quotes(words));
        string(text(words));
    }

    Losses& losses_;
    std::string out_;
    int depth_ = 0;
};

/// Where two lists differ, the first of them being what was meant.
void differences(id meant, id written, const std::string& path, Losses& losses) {
    const Kind kind = kind_of(meant);
    if (kind == kind_of(written) && kind == Kind::dictionary) {
        for (NSString* key : sorted_keys(meant))
            differences(static_cast<NSDictionary*>(meant)->objectForKey(key),
                        static_cast<NSDictionary*>(written)->objectForKey(key),
                        (path.empty() ? "" : path + ".") + one_line(utf8(key)), losses);
        return;
    }
    if (kind == kind_of(written) && kind == Kind::list &&
        static_cast<NSArray*>(meant)->count() == static_cast<NSArray*>(written)->count()) {
        for (NSUInteger i = 0; i < static_cast<NSArray*>(meant)->count(); ++i)
            differences(static_cast<NSArray*>(meant)->objectAtIndex(i),
                        static_cast<NSArray*>(written)->objectAtIndex(i),
                        path + "[" + std::to_string(i) + "]", losses);
        return;
    }
    const bool both_no_number =
        kind == Kind::real && std::isnan(number_of(meant)) && std::isnan(number_of(written));
    if (kind == kind_of(written) && (both_no_number || static_cast<NSObject*>(meant)->isEqual(written)))
        return;
    const std::string before = in_words(meant), after = in_words(written);
    losses.push_back((path.empty() ? "the root" : path) + ": " + name_of(kind) + ", " + before + ", became " +
                     (before == after ? "slightly different" : name_of(kind_of(written)) + ", " + after));
}

}  // namespace

std::string name_of(Form form) {
    switch (form) {
        case Form::open_step: return "openstep";
        case Form::xml: return "xml";
        case Form::binary: return "binary";
    }
    return "unknown";
}

PropertyList parse_property_list(const std::string& bytes, const std::string& file) {
    require_moderate(bytes, file);
    NSUInteger format = 0;
    NSError* error = nullptr;
    id root = NSPropertyListSerialization::propertyListWithData(
        data_of(bytes), NSPropertyListSerialization::immutable, &format, &error);
    if (!root) throw Unusable(file, "it is not a property list: " + reason_of(error));
    require_moderate(root, file);
    return {root, static_cast<Form>(format)};
}

std::string written_property_list(id root, Form form, const std::string& file, Losses& losses) {
    if (form == Form::open_step) return OpenStepWriter(losses).document(root);
    NSError* error = nullptr;
    auto* data =
        NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
            root, static_cast<NSUInteger>(form), NSUInteger{0}, &error);
    if (!data) throw Unusable(file, "cannot be written as " + name_of(form) + ": " + reason_of(error));
    const std::string bytes = bytes_of(data);
    // A form may hold less than another: an XML date has no fractions of a second.
    differences(root, parse_property_list(bytes, file).root, "", losses);
    return bytes;
}

}  // namespace command
