// Reads the numbers and pointers of unwind tables.
#pragma once
#include <cstdint>
#include <cstring>

#include "runtime/not_modelled.h"

namespace sim {

/// How a pointer is encoded: its format in the lower four bits, what it counts from in the next three.
enum : uint8_t {
    DW_EH_PE_absptr = 0x00,
    DW_EH_PE_uleb128 = 0x01,
    DW_EH_PE_udata4 = 0x03,
    DW_EH_PE_udata8 = 0x04,
    DW_EH_PE_sdata4 = 0x0b,
    DW_EH_PE_sdata8 = 0x0c,
    DW_EH_PE_pcrel = 0x10,
    DW_EH_PE_indirect = 0x80,
    DW_EH_PE_omit = 0xff,
};
constexpr uint8_t encoding_format_mask = 0x0f, encoding_base_mask = 0x70;

/// Goes through a table of the process's own memory, which a linker wrote: nothing is bounded.
class EncodedBytes {
  public:
    explicit EncodedBytes(const uint8_t* at) : at_(at) {}

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
        uintptr_t value = number(encoding & encoding_format_mask);
        if (value == 0) return 0;
        switch (encoding & encoding_base_mask) {
            case DW_EH_PE_absptr: break;
            case DW_EH_PE_pcrel: value += place; break;
            default: not_modelled("unwind tables", "a pointer from an unknown base");
        }
        return encoding & DW_EH_PE_indirect ? *reinterpret_cast<const uintptr_t*>(value) : value;
    }

    /// How many bytes a pointer takes in that encoding.
    static size_t size_of(uint8_t encoding) {
        const uint8_t zeros[8]{};
        EncodedBytes reader(zeros);
        reader.number(encoding & encoding_format_mask);
        return static_cast<size_t>(reader.at_ - zeros);
    }

  private:
    template <class T>
    uintptr_t fixed() {
        T value;
        std::memcpy(&value, at_, sizeof value);
        at_ += sizeof value;
        return static_cast<uintptr_t>(static_cast<intptr_t>(value));
    }

    uintptr_t number(uint8_t format) {
        switch (format) {
            case DW_EH_PE_absptr: return fixed<uintptr_t>();
            case DW_EH_PE_uleb128: return unsigned_number();
            case DW_EH_PE_udata4: return fixed<uint32_t>();
            case DW_EH_PE_udata8: return fixed<uint64_t>();
            case DW_EH_PE_sdata4: return fixed<int32_t>();
            case DW_EH_PE_sdata8: return fixed<int64_t>();
        }
        not_modelled("unwind tables", "a number in an unknown format");
    }

    const uint8_t* at_;
};

}  // namespace sim
