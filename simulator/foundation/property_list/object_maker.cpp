#include "foundation/property_list/object_maker.h"

#include <cmath>

#include "foundation/property_list/reader.h"

namespace sim::plist {
namespace {

constexpr NSUInteger utf8_encoding = 4;

template <objc::Name Initialiser, class... Arguments>
Value made(const char* class_name, Arguments... arguments) {
    return objc::make<Initialiser, NSObject>(objc_getClass(class_name), arguments...);
}

}  // namespace

const char* ObjectMaker::leaf_class(const char* immutable, const char* changeable) const {
    return mutability_ == Mutability::containers_and_leaves ? changeable : immutable;
}

const char* ObjectMaker::container_class(const char* immutable, const char* changeable) const {
    return mutability_ == Mutability::nothing ? immutable : changeable;
}

Value ObjectMaker::text(std::string_view utf8) const {
    return made<"initWithBytes:length:encoding:">(leaf_class("NSString", "NSMutableString"),
                                                  static_cast<const void*>(utf8.data()),
                                                  NSUInteger{utf8.size()}, utf8_encoding);
}

Value ObjectMaker::text(std::u16string_view units) const {
    auto text = made<"initWithCharacters:length:">(leaf_class("NSString", "NSMutableString"),
                                                   reinterpret_cast<const unsigned short*>(units.data()),
                                                   NSUInteger{units.size()});
    if (!text) throw ParseError("a string has half of a character");
    return text;
}

Value ObjectMaker::data(std::string_view bytes) const {
    return made<"initWithBytes:length:">(leaf_class("NSData", "NSMutableData"),
                                         static_cast<const void*>(bytes.data()), NSUInteger{bytes.size()});
}

Value ObjectMaker::data(RawBytes bytes) const {
    auto of = reinterpret_cast<id>(objc_getClass(leaf_class("NSData", "NSMutableData")));
    return Value::adopt(bytes.initialise(objc::send<"alloc", NSData*>(of)));
}

Value ObjectMaker::integer(int64_t value) const {
    return made<"initWithLongLong:">("NSNumber", static_cast<long long>(value));
}

Value ObjectMaker::unsigned_integer(uint64_t value) const {
    return made<"initWithUnsignedLongLong:">("NSNumber", static_cast<unsigned long long>(value));
}

Value ObjectMaker::real(double value) const { return made<"initWithDouble:">("NSNumber", value); }

Value ObjectMaker::single_real(float value) const { return made<"initWithFloat:">("NSNumber", value); }

Value ObjectMaker::boolean(bool value) const { return NSNumber::numberWithBool(value); }

Value ObjectMaker::date(double seconds) const {
    if (!std::isfinite(seconds)) throw ParseError("a date is not a moment in time");
    return made<"initWithTimeIntervalSinceReferenceDate:">("NSDate", seconds);
}

Value ObjectMaker::null() const {
    return objc::send<"null", NSObject*>(reinterpret_cast<id>(objc_getClass("NSNull")));
}

Value ObjectMaker::array(const std::vector<Value>& values) const {
    std::vector<id> objects(values.begin(), values.end());
    return made<"initWithObjects:count:">(container_class("NSArray", "NSMutableArray"),
                                          static_cast<const id*>(objects.data()), NSUInteger{objects.size()});
}

Value ObjectMaker::dictionary(const std::vector<std::pair<Value, Value>>& entries) const {
    auto dictionary = made<"initWithCapacity:">("NSMutableDictionary", NSUInteger{entries.size()});
    for (const auto& [key, value] : entries)
        dictionary->send<"setObject:forKey:">(static_cast<id>(value.get()), static_cast<id>(key.get()));
    if (mutability_ != Mutability::nothing) return dictionary;
    return dictionary->send<"copy", Value>();
}

}  // namespace sim::plist
