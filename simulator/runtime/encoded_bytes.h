// Reads the numbers and pointers of unwind tables.
#pragma once
#include <cstdint>
#include <cstring>

#include "runtime/not_modelled.h"

namespace sim {

/// Goes through a table of the process's own memory, which a linker wrote: nothing is bounded.
class EncodedBytes {
  public:
    explicit EncodedBytes(const uint8_t* at) : at_(at) {}

    static constexpr uint8_t omitted = 0xff;

    const uint8_t* at() const { return at_; }
    uint8_t byte() { return *at_++; }

    uint64_t unsigned_number() {
        uint64_t value = 0;
        for (int shift = 0;; shift += 7) {
            const uint8_t next = byte();
            value |= uint64_t{next & 0x7fu} << shift;
            if (!(next & 0x80)) return value;
        }
    }
    int64_t signed_number() {
        uint64_t value = 0;
        int shift = 0;
        uint8_t next;
        do {
            next = byte();
            value |= uint64_t{next & 0x7fu} << shift;
            shift += 7;
        } while (next & 0x80);
        if (next & 0x40 && shift < 64) value |= ~uint64_t{0} << shift;
        return static_cast<int64_t>(value);
    }

    /// A pointer in one of DWARF's encodings; 0 stays 0.
    uintptr_t pointer(uint8_t encoding) {
        const auto place = reinterpret_cast<uintptr_t>(at_);
        uintptr_t value = number(encoding & 0x0f);
        if (value == 0) return 0;
        switch (encoding & 0x70) {
            case absolute: break;
            case from_its_place: value += place; break;
            default: not_modelled("unwind tables", "a pointer from an unknown base");
        }
        return encoding & indirect ? *reinterpret_cast<const uintptr_t*>(value) : value;
    }

    /// How many bytes a pointer takes in that encoding.
    static size_t size_of(uint8_t encoding) {
        const uint8_t zeros[8]{};
        EncodedBytes reader(zeros);
        reader.number(encoding & 0x0f);
        return static_cast<size_t>(reader.at_ - zeros);
    }

  private:
    enum : uint8_t { absolute = 0x00, from_its_place = 0x10, indirect = 0x80 };

    template <class T>
    uintptr_t fixed() {
        T value;
        std::memcpy(&value, at_, sizeof value);
        at_ += sizeof value;
        return static_cast<uintptr_t>(static_cast<intptr_t>(value));
    }

    uintptr_t number(uint8_t format) {
        switch (format) {
            case 0x0: return fixed<uintptr_t>();
            case 0x1: return unsigned_number();
            case 0x3: return fixed<uint32_t>();
            case 0x4: return fixed<uint64_t>();
            case 0xb: return fixed<int32_t>();
            case 0xc: return fixed<int64_t>();
        }
        not_modelled("unwind tables", "a number in an unknown format");
    }

    const uint8_t* at_;
};

}  // namespace sim
