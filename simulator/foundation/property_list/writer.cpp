// Writing property lists as the device does: XML in its order, its precision and its line breaks. Foundation
// on Linux writes other escapes than it reads.
#include "foundation/property_list/writer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "foundation/property_list/base64.h"
#include "foundation/property_list/kinds.h"
#include "foundation/property_list/reader.h"
#include "foundation/text.h"

namespace sim::plist {
namespace {

std::optional<std::string> fault_at(id object, int depth) {
    if (!object) return "nil";
    if (is_kind(object, "NSString")) {
        if (!utf8_of(static_cast<NSString*>(object))) return "a string with half of a character";
        return std::nullopt;
    }
    for (const char* leaf : {"NSNumber", "NSData", "NSDate"})
        if (is_kind(object, leaf)) return std::nullopt;
    if (depth == deepest) return "containers nested too deeply";
    if (is_kind(object, "NSArray")) {
        for (id element : elements_of(object))
            if (auto fault = fault_at(element, depth + 1)) return fault;
        return std::nullopt;
    }
    if (is_kind(object, "NSDictionary")) {
        for (id key : elements_of(objc::send<"allKeys", id>(object))) {
            if (!is_kind(key, "NSString")) return std::string("a key of type ") + object_getClassName(key);
            if (auto fault = fault_at(key, depth + 1)) return fault;
            if (auto fault = fault_at(
                    static_cast<NSDictionary*>(object)->objectForKey(static_cast<NSString*>(key)), depth + 1))
                return fault;
        }
        return std::nullopt;
    }
    return std::string("an object of type ") + object_getClassName(object);
}

class XmlWriter {
  public:
    std::string document(id root) {
        text_ =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n";
        value(root);
        text_ += "</plist>\n";
        return std::move(text_);
    }

  private:
    void line(const std::string& content) {
        text_.append(depth_, '\t');
        text_ += content + '\n';
    }

    void element(const char* name, const std::string& content) {
        line(std::string("<") + name + ">" + content + "</" + name + ">");
    }

    static std::string escaped(const std::string& text) {
        std::string result;
        for (char c : text) {
            if (c == '<')
                result += "&lt;";
            else if (c == '>')
                result += "&gt;";
            else if (c == '&')
                result += "&amp;";
            else
                result += c;
        }
        return result;
    }

    void value(id object) {
        if (is_kind(object, "NSString"))
            return element("string", escaped(*utf8_of(static_cast<NSString*>(object))));
        if (is_kind(object, "NSNumber")) return number(object);
        if (is_kind(object, "NSDate")) return date(object);
        if (is_kind(object, "NSData")) return data(static_cast<NSData*>(object));
        if (is_kind(object, "NSArray")) return array(object);
        dictionary(static_cast<NSDictionary*>(object));
    }

    void array(id object) {
        const auto values = elements_of(object);
        if (values.empty()) return line("<array/>");
        line("<array>");
        ++depth_;
        for (id each : values) value(each);
        --depth_;
        line("</array>");
    }

    void dictionary(NSDictionary* object) {
        const auto keys = sorted_keys_of(object);
        if (keys.empty()) return line("<dict/>");
        line("<dict>");
        ++depth_;
        for (id key : keys) {
            element("key", escaped(*utf8_of(static_cast<NSString*>(key))));
            value(object->objectForKey(static_cast<NSString*>(key)));
        }
        --depth_;
        line("</dict>");
    }

    void number(id object) {
        switch (number_kind(object)) {
            case NumberKind::boolean:
                return line(objc::send<"boolValue", bool>(object) ? "<true/>" : "<false/>");
            case NumberKind::real:
            case NumberKind::single_real:
                return element("real", real(objc::send<"doubleValue", double>(object)));
            case NumberKind::unsigned_integer:
                return element(
                    "integer",
                    std::to_string(objc::send<"unsignedLongLongValue", unsigned long long>(object)));
            case NumberKind::integer:
                return element("integer", std::to_string(objc::send<"longLongValue", long long>(object)));
        }
    }

    static std::string real(double value) {
        if (std::isnan(value)) return "nan";
        if (std::isinf(value)) return value < 0 ? "-infinity" : "+infinity";
        if (value == 0) return "0.0";
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", value);
        return digits;
    }

    void date(id object) {
        using namespace std::chrono;
        // What is beyond every year that the form can hold ends up beyond it, too, and is not read back.
        constexpr double beyond = 1e12;
        const double since =
            std::clamp(objc::send<"timeIntervalSinceReferenceDate", double>(object), -beyond, beyond);
        const auto moment = sys_days{year(2001) / 1 / 1} + seconds(static_cast<int64_t>(std::floor(since)));
        const year_month_day day{floor<days>(moment)};
        const hh_mm_ss time{moment - floor<days>(moment)};
        char text[64];
        std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                      static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                      static_cast<int>(time.seconds().count()));
        element("date", text);
    }

    // Lines of 76 columns, of which each tab takes eight, but no more than eight tabs.
    void data(NSData* object) {
        const auto* bytes = static_cast<const char*>(object->bytes());
        const std::string encoded = base64_of({bytes, object->length()});
        const size_t indent = std::min<size_t>(depth_, 8), width = 76 - 8 * indent;
        line("<data>");
        for (size_t i = 0; i < encoded.size(); i += width)
            text_ += std::string(indent, '\t') + encoded.substr(i, width) + '\n';
        line("</data>");
    }

    std::string text_;
    size_t depth_ = 0;
};

}  // namespace

std::optional<std::string> fault_of(id object) { return fault_at(object, 0); }

std::string xml_of(id object) { return XmlWriter().document(object); }

}  // namespace sim::plist
