// The binary form of property lists: a table of objects that refer to each other by number, equal leaves
// written once.
#include <algorithm>
#include <bit>
#include <unordered_map>
#include <vector>

#include "foundation/property_list/kinds.h"
#include "foundation/property_list/writer.h"
#include "foundation/text.h"

namespace sim::plist {
namespace {

/// The high half of an object's first byte.
enum Marker : unsigned {
    marker_false = 0x08,
    marker_true = 0x09,
    marker_integer = 0x10,
    marker_single_real = 0x22,
    marker_real = 0x23,
    marker_date = 0x33,
    marker_data = 0x40,
    marker_ascii = 0x50,
    marker_utf16 = 0x60,
    marker_array = 0xa0,
    marker_dictionary = 0xd0,
};

/// The number in `size` bytes, the highest first.
std::string big_endian(uint64_t value, unsigned size) {
    std::string bytes(size, '\0');
    for (unsigned i = size; i-- > 0; value >>= 8) bytes[i] = static_cast<char>(value);
    return bytes;
}

/// The fewest bytes, of 1, 2, 4 and 8, that hold the number.
unsigned size_of(uint64_t value) {
    for (unsigned size : {1, 2, 4})
        if (value >> (8 * size) == 0) return size;
    return 8;
}

std::string byte(unsigned value) { return std::string(1, static_cast<char>(value)); }

std::string integer(uint64_t magnitude) {
    // Eight bytes are read with a sign, so that larger ones take sixteen.
    if (magnitude > INT64_MAX) return byte(marker_integer | 4) + big_endian(0, 8) + big_endian(magnitude, 8);
    const unsigned size = size_of(magnitude);
    return byte(marker_integer | static_cast<unsigned>(std::countr_zero(size))) + big_endian(magnitude, size);
}

std::string negative_integer(long long value) {
    return byte(marker_integer | 3) + big_endian(static_cast<uint64_t>(value), 8);
}

std::string real(unsigned marker, double value) {
    return byte(marker) + big_endian(std::bit_cast<uint64_t>(value), 8);
}

/// The marker with a count in its low half, or behind it as an integer.
std::string counted(unsigned marker, uint64_t count) {
    return count < 15 ? byte(marker | static_cast<unsigned>(count)) : byte(marker | 15) + integer(count);
}

std::string number(id object) {
    switch (number_kind(object)) {
        case NumberKind::boolean:
            return byte(objc::send<"boolValue", bool>(object) ? marker_true : marker_false);
        case NumberKind::single_real:
            return byte(marker_single_real) +
                   big_endian(std::bit_cast<uint32_t>(objc::send<"floatValue", float>(object)), 4);
        case NumberKind::real: return real(marker_real, objc::send<"doubleValue", double>(object));
        case NumberKind::unsigned_integer:
            return integer(objc::send<"unsignedLongLongValue", unsigned long long>(object));
        case NumberKind::integer: break;
    }
    const long long value = objc::send<"longLongValue", long long>(object);
    return value < 0 ? negative_integer(value) : integer(static_cast<uint64_t>(value));
}

std::string string(id object) {
    const std::u16string units = units_of(static_cast<NSString*>(object));
    const bool is_ascii = std::all_of(units.begin(), units.end(), [](char16_t unit) { return unit < 0x80; });
    std::string bytes = counted(is_ascii ? marker_ascii : marker_utf16, units.size());
    for (char16_t unit : units) bytes += is_ascii ? byte(unit) : big_endian(unit, 2);
    return bytes;
}

std::string leaf(id object) {
    if (is_kind(object, "NSString")) return string(object);
    if (is_kind(object, "NSNumber")) return number(object);
    if (is_kind(object, "NSDate"))
        return real(marker_date, objc::send<"timeIntervalSinceReferenceDate", double>(object));
    auto* data = static_cast<NSData*>(object);
    return counted(marker_data, data->length()) +
           std::string(static_cast<const char*>(data->bytes()), data->length());
}

class BinaryWriter {
  public:
    std::string document(id root) {
        add(root);
        const unsigned reference_size = size_of(objects_.size());
        std::string bytes = "bplist00";
        std::vector<uint64_t> offsets;
        for (const Object& object : objects_) {
            offsets.push_back(bytes.size());
            bytes += object.bytes;
            for (size_t reference : object.references) bytes += big_endian(reference, reference_size);
        }
        const uint64_t table_offset = bytes.size();
        const unsigned offset_size = size_of(table_offset);
        for (uint64_t offset : offsets) bytes += big_endian(offset, offset_size);
        bytes += std::string(6, '\0') + byte(offset_size) + byte(reference_size);
        for (uint64_t value : {uint64_t{objects_.size()}, uint64_t{0}, table_offset})
            bytes += big_endian(value, 8);
        return bytes;
    }

  private:
    struct Object {
        std::string bytes;
        std::vector<size_t> references;
    };

    size_t add(id object) {
        if (is_kind(object, "NSArray")) return add_container(marker_array, elements_of(object));
        if (is_kind(object, "NSDictionary")) {
            std::vector<id> content = sorted_keys_of(object);
            const size_t count = content.size();
            for (size_t i = 0; i < count; ++i)
                content.push_back(
                    static_cast<NSDictionary*>(object)->objectForKey(static_cast<NSString*>(content[i])));
            return add_container(marker_dictionary, content);
        }
        std::string bytes = leaf(object);
        const auto [place, is_new] = leaves_.try_emplace(bytes, objects_.size());
        if (is_new) objects_.push_back({std::move(bytes), {}});
        return place->second;
    }

    size_t add_container(unsigned marker, const std::vector<id>& content) {
        const size_t index = objects_.size();
        const size_t count = marker == marker_dictionary ? content.size() / 2 : content.size();
        objects_.push_back({counted(marker, count), {}});
        std::vector<size_t> references;
        for (id each : content) references.push_back(add(each));
        objects_[index].references = std::move(references);
        return index;
    }

    std::vector<Object> objects_;
    std::unordered_map<std::string, size_t> leaves_;
};

}  // namespace

std::string binary_of(id object) { return BinaryWriter().document(object); }

}  // namespace sim::plist
