// Reads a run of bytes from front to back.
#pragma once
#include <cstdint>
#include <string_view>

#include "loader/format/bytes.h"

namespace macho {

/// A position in Bytes, and the variable-length forms that only make sense one after the other.
class Cursor {
  public:
    explicit Cursor(Bytes bytes, uint64_t position = 0) : bytes_(bytes), position_(position) {}

    bool at_end() const { return position_ >= bytes_.size(); }
    uint64_t position() const { return position_; }

    uint8_t u8() { return bytes_.u8(position_++); }
    uint32_t u32();
    uint64_t u64();
    /// An unsigned or signed LEB128 number; more than 64 bits of it are a Fault.
    uint64_t uleb128();
    int64_t sleb128();
    std::string_view text();
    /// The next `size` bytes, stepping over them.
    Bytes take(uint64_t size);
    /// All that is left.
    Bytes rest() const { return bytes_.part(position_, bytes_.size() - position_); }

  private:
    Bytes bytes_;
    uint64_t position_;
};

}  // namespace macho
