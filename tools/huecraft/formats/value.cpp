#include "formats/value.h"

#include <cstdio>
#include <regex>
#include <string_view>

#include "cli/terminal.h"
#include "objc/fast_enumeration.h"
#include "support/text.h"

namespace command {
namespace {

using tools::utf8;

struct NSDate : objc::Interface<NSDate, "NSDate", NSObject> {};

Kind number_kind(NSNumber* number) {
    // There are two booleans, and both are kept for good.
    if (number == NSNumber::numberWithBool(true) || number == NSNumber::numberWithBool(false))
        return Kind::boolean;
    const std::string_view type = number->send<"objCType", const char*>();
    return type == "d" || type == "f" ? Kind::real : Kind::whole;
}

/// As many digits as it takes to read the same number again.
std::string shortest(double value) {
    char text[40];
    for (int digits : {6, 9, 17}) {
        std::snprintf(text, sizeof text, "%.*g", digits, value);
        if (std::strtod(text, nullptr) == value) break;
    }
    return text;
}

bool printed_json = false;

std::string number_text(NSNumber* number) {
    if (kind_of(number) == Kind::real) return shortest(number_of(number));
    return utf8(number->send<"stringValue", NSString*>());
}

}  // namespace

static std::string in_words(id value, int depth);

Kind kind_of(id value) {
    if (!value) return Kind::none;
    if (as<NSString>(value)) return Kind::text;
    if (auto* number = as<NSNumber>(value)) return number_kind(number);
    if (as<NSData>(value)) return Kind::data;
    if (as<NSDate>(value)) return Kind::date;
    if (as<NSArray>(value)) return Kind::list;
    if (as<NSDictionary>(value)) return Kind::dictionary;
    return Kind::other;
}

std::string name_of(Kind kind) {
    switch (kind) {
        case Kind::none: return "nothing";
        case Kind::text: return "a text";
        case Kind::boolean: return "yes or no";
        case Kind::whole: return "a whole number";
        case Kind::real: return "a number";
        case Kind::data: return "data";
        case Kind::date: return "a date";
        case Kind::list: return "a list";
        case Kind::dictionary: return "a dictionary";
        case Kind::other: break;
    }
    return "something else";
}

std::string in_words(id value) { return in_words(value, 0); }

bool json_was_printed() { return printed_json; }

static std::string in_words(id value, int depth) {
    switch (kind_of(value)) {
        case Kind::none: return "nothing";
        case Kind::text: return in_quotes(utf8(static_cast<NSString*>(value)));
        case Kind::boolean: return number_of(value) != 0 ? "yes" : "no";
        case Kind::whole:
        case Kind::real: return number_text(static_cast<NSNumber*>(value));
        case Kind::data: return counted(static_cast<NSData*>(value)->length(), "byte");
        case Kind::list: {
            auto* list = static_cast<NSArray*>(value);
            constexpr NSUInteger shown = 8;
            constexpr int deepest_shown = 2;
            if (depth > deepest_shown) return "[… " + std::to_string(list->count()) + "]";
            std::string words;
            for (NSUInteger i = 0; i < list->count() && i < shown; ++i)
                words += (i ? ", " : "") + in_words(list->objectAtIndex(i), depth + 1);
            if (list->count() > shown) words += ", … " + std::to_string(list->count()) + " entries";
            return "[" + words + "]";
        }
        case Kind::dictionary:
            return "a dictionary of " + counted(objc::send<"count", NSUInteger>(value), "key");
        case Kind::date:
        case Kind::other: break;
    }
    return one_line(utf8(static_cast<NSObject*>(value)->description()));
}

Json json_of(id value) {
    switch (kind_of(value)) {
        case Kind::none: return nullptr;
        case Kind::text: return utf8(static_cast<NSString*>(value));
        case Kind::boolean: return number_of(value) != 0;
        case Kind::whole: {
            const std::string digits = number_text(static_cast<NSNumber*>(value));
            Json number = Json::parse(digits, nullptr, false);
            return number.is_discarded() ? Json(digits) : number;
        }
        case Kind::real: return number_of(value);
        case Kind::data: return {{"bytes", static_cast<NSData*>(value)->length()}};
        case Kind::list: {
            Json list = Json::array();
            objc::for_each<NSObject>(value, [&](NSObject* entry) { list.push_back(json_of(entry)); });
            return list;
        }
        case Kind::dictionary: {
            Json dictionary = Json::object();
            objc::for_each<NSString>(value, [&](NSString* key) {
                dictionary[utf8(key)] = json_of(static_cast<NSDictionary*>(value)->objectForKey(key));
            });
            return dictionary;
        }
        case Kind::date:
        case Kind::other: break;
    }
    return utf8(static_cast<NSObject*>(value)->description());
}

std::string printed(Json json) {
    printed_json = true;
    for (const Complaint& one : complaints())
        json["errors"].push_back({{"file", one.file}, {"found", one.what}});
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string without_addresses(const std::string& text) {
    static const std::regex address(" ?\\(?0x[0-9a-fA-F]{6,}\\)?");
    return std::regex_replace(text, address, "");
}

std::string exception_in_words(id raised) {
    auto* exception = static_cast<NSObject*>(raised);
    if (!exception->isKindOfClass(objc_getClass("NSException"))) return "an exception was raised";
    if (utf8(exception->send<"name", NSString*>()) == "NSMallocException") return out_of_memory;
    return "an exception was raised: " + utf8(exception->send<"name", NSString*>()) + ": " +
           one_line(without_addresses(utf8(exception->send<"reason", NSString*>())), 300);
}

double number_of(id value) { return objc::send<"doubleValue", double>(value); }

std::string bytes_of(NSData* data) { return {static_cast<const char*>(data->bytes()), data->length()}; }

NSData* data_of(const std::string& bytes) {
    return NSData::class_send<"dataWithBytes:length:", NSData*>(static_cast<const void*>(bytes.data()),
                                                                NSUInteger{bytes.size()});
}

}  // namespace command
