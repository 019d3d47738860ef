#include "loader/format/cursor.h"

#include "loader/fault.h"

namespace macho {
namespace {

constexpr uint8_t kMore = 0x80;
constexpr uint8_t kDigits = 0x7f;
constexpr uint8_t kSign = 0x40;

[[noreturn]] void too_wide(const Bytes& bytes, uint64_t at) {
    refuse("a number in " + std::string(bytes.name()) + " has more than 64 bits (found its start at offset " +
           hex(at) + ")");
}

}  // namespace

uint32_t Cursor::u32() {
    const uint32_t value = bytes_.u32(position_);
    position_ += 4;
    return value;
}

uint64_t Cursor::u64() {
    const uint64_t value = bytes_.u64(position_);
    position_ += 8;
    return value;
}

uint64_t Cursor::uleb128() {
    const uint64_t start = position_;
    uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
        const uint8_t byte = u8();
        const uint64_t digits = byte & kDigits;
        if (shift > 63 || (shift == 63 && digits > 1)) too_wide(bytes_, start);
        value |= digits << shift;
        if (!(byte & kMore)) return value;
    }
}

int64_t Cursor::sleb128() {
    const uint64_t start = position_;
    uint64_t value = 0;
    for (unsigned shift = 0;;) {
        const uint8_t byte = u8();
        const uint64_t digits = byte & kDigits;
        if (shift > 63 || (shift == 63 && digits != 0 && digits != kDigits)) too_wide(bytes_, start);
        value |= digits << shift;
        shift += 7;
        if (byte & kMore) continue;
        if (shift < 64 && (byte & kSign)) value |= ~uint64_t{0} << shift;
        return static_cast<int64_t>(value);
    }
}

std::string_view Cursor::text() {
    const std::string_view found = bytes_.text(position_);
    position_ += found.size() + 1;
    return found;
}

Bytes Cursor::take(uint64_t size) {
    const Bytes taken = bytes_.part(position_, size);
    position_ += size;
    return taken;
}

}  // namespace macho
