// Binary property lists: a table of objects that refer to each other by number. Nothing in the file is
// trusted: every offset, count and reference is checked. References in a circle are endless nesting.
#include <bit>
#include <unordered_map>

#include "foundation/property_list/reader.h"

namespace sim::plist {
namespace {

constexpr size_t trailer_size = 32;

// Objects may lie over one another: a small file could hold many long ones.
constexpr size_t room_for_shared_bytes = 16 << 20;
// Foundation counts an object's owners up to some 16 million.
constexpr uint64_t most_references = 8 << 20;

/// The high half of an object's first byte.
enum class Kind : unsigned {
    simple,
    integer,
    real,
    date,
    data,
    ascii,
    utf16,
    uid = 8,
    array = 10,
    dictionary = 13
};

class BinaryReader {
  public:
    BinaryReader(std::string_view bytes, const ObjectMaker& maker) : bytes_(bytes), maker_(maker) {
        read_trailer();
    }

    Value root() { return object(top_object_); }

  private:
    [[noreturn]] static void fail(const char* what) {
        throw ParseError(std::string("binary property list: ") + what);
    }

    // A number of 1 to 8 bytes, big-endian.
    uint64_t number(uint64_t at, uint64_t size) const {
        if (size > 8 || at > bytes_.size() || size > bytes_.size() - at)
            fail("a number lies outside the file");
        uint64_t value = 0;
        for (uint64_t i = 0; i < size; ++i) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
        return value;
    }

    void read_trailer() {
        if (bytes_.size() < sizeof "bplist00" - 1 + trailer_size) fail("the file is cut short");
        const uint64_t trailer = bytes_.size() - trailer_size;
        offset_size_ = number(trailer + 6, 1);
        reference_size_ = number(trailer + 7, 1);
        object_count_ = number(trailer + 8, 8);
        top_object_ = number(trailer + 16, 8);
        offset_table_ = number(trailer + 24, 8);
        if (offset_size_ < 1 || offset_size_ > 8 || reference_size_ < 1 || reference_size_ > 8)
            fail("the trailer gives an impossible size of numbers");
        if (offset_table_ > trailer || object_count_ > (trailer - offset_table_) / offset_size_)
            fail("the table of objects does not fit the file");
    }

    std::string_view run(uint64_t at, uint64_t count, uint64_t size_of_each) const {
        if (at > offset_table_ || count > (offset_table_ - at) / size_of_each) fail("an object is cut short");
        return bytes_.substr(at, count * size_of_each);
    }

    /// The same of what an object is made of.
    std::string_view contents(uint64_t at, uint64_t count, uint64_t size_of_each) {
        const auto all = run(at, count, size_of_each);
        unfolded_ += all.size();
        if (unfolded_ > bytes_.size() + room_for_shared_bytes) fail("it unfolds to too many bytes");
        return all;
    }

    Value object(uint64_t index) {
        if (index >= object_count_) fail("a reference names no object");
        if (++asked_ > most_references) fail("it has too many references");
        if (auto known = known_.find(index); known != known_.end()) return known->second;
        if (depth_ == deepest) fail("it is nested too deeply");
        // Each reference takes a byte at least, so that more objects than bytes are made only where
        // containers stand in several places. A small file could unfold for ever in this way.
        if (++made_ > bytes_.size()) fail("it unfolds to too many objects");
        ++depth_;
        const uint64_t at = number(offset_table_ + index * offset_size_, offset_size_);
        if (at >= offset_table_) fail("an object lies outside the file");
        Value value = object_at(at);
        --depth_;
        // Immutable objects may stand in several places at once; others would change together.
        if (maker_.mutability() == Mutability::nothing) known_[index] = value;
        return value;
    }

    Value object_at(uint64_t at) {
        const auto marker = static_cast<unsigned char>(bytes_[at]);
        const unsigned low = marker & 0x0f;
        switch (static_cast<Kind>(marker >> 4)) {
            case Kind::simple: return simple(low);
            case Kind::integer: return integer(at + 1, low);
            case Kind::real: return real(at + 1, low);
            case Kind::date: return date(at + 1, low);
            default: break;
        }
        uint64_t count = low;
        uint64_t content = at + 1;
        if (low == 0x0f) count = long_count(content);
        switch (static_cast<Kind>(marker >> 4)) {
            case Kind::data: return maker_.data(contents(content, count, 1));
            case Kind::ascii: return ascii(contents(content, count, 1));
            case Kind::utf16: return utf16(contents(content, count, 2));
            case Kind::array: return array(contents(content, count, reference_size_), count);
            case Kind::dictionary: return dictionary(contents(content, count, 2 * reference_size_), count);
            default: fail("an object is of a kind that property lists do not have");
        }
    }

    /// A count of 15 or more stands behind the marker, as an integer object; steps over it.
    uint64_t long_count(uint64_t& content) const {
        const auto marker = static_cast<unsigned char>(run(content, 1, 1)[0]);
        if (static_cast<Kind>(marker >> 4) != Kind::integer || (marker & 0x0f) > 3)
            fail("a count is not a number");
        const uint64_t size = uint64_t{1} << (marker & 0x0f);
        run(content + 1, size, 1);
        const uint64_t count = number(content + 1, size);
        content += 1 + size;
        return count;
    }

    Value simple(unsigned low) const {
        switch (low) {
            case 0: return maker_.null();
            case 8: return maker_.boolean(false);
            case 9: return maker_.boolean(true);
            default: fail("an object is of a kind that property lists do not have");
        }
    }

    Value integer(uint64_t at, unsigned log2_size) const {
        if (log2_size > 4) fail("an integer is too large");
        const uint64_t size = uint64_t{1} << log2_size;
        run(at, size, 1);
        if (size < 8)
            return maker_.integer(static_cast<int64_t>(number(at, size)));  // shorter ones have no sign
        if (size == 8) return maker_.integer(static_cast<int64_t>(number(at, 8)));
        if (number(at, 8) != 0) fail("an integer is too large");
        return maker_.unsigned_integer(number(at + 8, 8));
    }

    Value real(uint64_t at, unsigned log2_size) const {
        if (log2_size == 2) {
            run(at, 4, 1);
            return maker_.single_real(std::bit_cast<float>(static_cast<uint32_t>(number(at, 4))));
        }
        if (log2_size != 3) fail("a real number has an impossible size");
        run(at, 8, 1);
        return maker_.real(std::bit_cast<double>(number(at, 8)));
    }

    Value date(uint64_t at, unsigned log2_size) const {
        if (log2_size != 3) fail("a date has an impossible size");
        run(at, 8, 1);
        return maker_.date(std::bit_cast<double>(number(at, 8)));
    }

    Value ascii(std::string_view characters) const {
        for (char c : characters)
            if (static_cast<unsigned char>(c) >= 0x80) fail("an ASCII string holds other characters");
        return maker_.text(characters);
    }

    Value utf16(std::string_view bytes) const {
        std::u16string units(bytes.size() / 2, u'\0');
        for (size_t i = 0; i < units.size(); ++i)
            units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) << 8 |
                                             static_cast<unsigned char>(bytes[2 * i + 1]));
        return maker_.text(units);
    }

    uint64_t reference(std::string_view references, uint64_t index) const {
        return number(static_cast<uint64_t>(references.data() - bytes_.data()) + index * reference_size_,
                      reference_size_);
    }

    Value array(std::string_view references, uint64_t count) {
        std::vector<Value> values;
        for (uint64_t i = 0; i < count; ++i) values.push_back(object(reference(references, i)));
        return maker_.array(values);
    }

    Value dictionary(std::string_view references, uint64_t count) {
        std::vector<std::pair<Value, Value>> entries;
        for (uint64_t i = 0; i < count; ++i) {
            Value key = object(reference(references, i));
            if (!key->isKindOfClass(NSString::class_object()))
                fail("a dictionary has a key that is not a string");
            Value value = object(reference(references, count + i));
            entries.emplace_back(std::move(key), std::move(value));
        }
        return maker_.dictionary(entries);
    }

    std::string_view bytes_;
    const ObjectMaker& maker_;
    uint64_t offset_size_ = 0, reference_size_ = 0, object_count_ = 0, top_object_ = 0, offset_table_ = 0;
    std::unordered_map<uint64_t, Value> known_;
    uint64_t made_ = 0, asked_ = 0, unfolded_ = 0;
    int depth_ = 0;
};

}  // namespace

Value read_binary(std::string_view bytes, const ObjectMaker& maker) {
    return BinaryReader(bytes, maker).root();
}

}  // namespace sim::plist
