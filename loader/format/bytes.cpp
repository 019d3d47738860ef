#include "loader/format/bytes.h"

#include <cstring>

#include "loader/fault.h"

namespace macho {
namespace {

template <class T>
T copied(const uint8_t* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

}  // namespace

const uint8_t* Bytes::checked(uint64_t at, uint64_t size) const {
    if (at > data_.size() || size > data_.size() - at)
        refuse("a read leaves " + std::string(name_) + " (found " + std::to_string(data_.size()) +
               " bytes, expected " + std::to_string(size) + " more at offset " + hex(at) + ")");
    return data_.data() + at;
}

uint16_t Bytes::u16(uint64_t at) const { return copied<uint16_t>(checked(at, 2)); }
uint32_t Bytes::u32(uint64_t at) const { return copied<uint32_t>(checked(at, 4)); }
uint64_t Bytes::u64(uint64_t at) const { return copied<uint64_t>(checked(at, 8)); }

std::string_view Bytes::text(uint64_t at) const {
    const uint8_t* start = checked(at, 1);
    const auto* end = static_cast<const uint8_t*>(std::memchr(start, 0, data_.size() - at));
    if (!end)
        refuse("a text in " + std::string(name_) + " does not end (found its start at offset " + hex(at) +
               ")");
    return {reinterpret_cast<const char*>(start), static_cast<size_t>(end - start)};
}

std::string Bytes::padded_text(uint64_t at, uint64_t width) const {
    const auto* start = reinterpret_cast<const char*>(checked(at, width));
    return {start, strnlen(start, width)};
}

Bytes Bytes::part(uint64_t at, uint64_t size, std::string_view name) const {
    return {{checked(at, size), size}, name};
}

}  // namespace macho
