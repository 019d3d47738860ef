// A named run of bytes in which every read is checked.
#pragma once
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace macho {

/// A view of little-endian bytes. A read that would cross the end throws a Fault with the view's name, which
/// must outlive the view (a literal, usually).
class Bytes {
  public:
    Bytes(std::span<const uint8_t> data, std::string_view name) : data_(data), name_(name) {}

    uint64_t size() const { return data_.size(); }
    std::string_view name() const { return name_; }
    const uint8_t* data() const { return data_.data(); }

    uint8_t u8(uint64_t at) const { return *checked(at, 1); }
    uint16_t u16(uint64_t at) const;
    uint32_t u32(uint64_t at) const;
    uint64_t u64(uint64_t at) const;

    /// A field of the structure at `at`; no more of that has to be inside the view.
    template <class Structure, class T>
    T field(T Structure::* member, uint64_t at = 0) const {
        T value;
        std::memcpy(&value, checked(at + offset_of(member), sizeof value), sizeof value);
        return value;
    }
    template <class Structure>
    uint32_t field_big_endian(uint32_t Structure::* member, uint64_t at = 0) const {
        return __builtin_bswap32(field(member, at));
    }

    /// The text at `at`, which ends with a zero byte inside the view.
    std::string_view text(uint64_t at) const;
    /// The text in a field of a fixed width, zero-terminated only where it is shorter.
    std::string padded_text(uint64_t at, uint64_t width) const;
    template <class Structure, size_t width>
    std::string padded_text(char (Structure::*member)[width], uint64_t at = 0) const {
        return padded_text(at + offset_of(member), width);
    }

    Bytes part(uint64_t at, uint64_t size, std::string_view name) const;
    Bytes part(uint64_t at, uint64_t size) const { return part(at, size, name_); }

  private:
    template <class Structure, class T>
    static uint64_t offset_of(T Structure::* member) {
        static constexpr Structure any{};
        return static_cast<uint64_t>(reinterpret_cast<const char*>(&(any.*member)) -
                                     reinterpret_cast<const char*>(&any));
    }

    const uint8_t* checked(uint64_t at, uint64_t size) const;

    std::span<const uint8_t> data_;
    std::string_view name_;
};

}  // namespace macho
