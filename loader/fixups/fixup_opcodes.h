// The form that rebase and bind opcodes share: the opcode in a byte's upper four bits, an immediate in the
// lower four, then LEB128 operands.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "loader/format/cursor.h"
#include "loader/format/layout.h"

namespace macho {

/// The standard names of a table's opcodes by their upper four bits; null where there is no opcode.
using OpcodeNames = std::array<const char*, 16>;

/// Reads a table's opcodes and keeps what both tables have: the type and the place of the next fix-up. The
/// place may wander anywhere, also backwards by wrapping around; only a pointer that is taken must lie in
/// what the file holds of a writable segment.
class FixupOpcodes {
  public:
    static constexpr uint8_t kOpcodeMask = 0xf0, kImmediateMask = 0x0f;
    /// REBASE_TYPE_POINTER and BIND_TYPE_POINTER, the only type of 64-bit images.
    static constexpr uint8_t kTypePointer = 1;

    /// `table` names the table in refusals.
    FixupOpcodes(const Bytes& opcodes, const Layout& layout, const char* table, const OpcodeNames& names);

    bool at_end() const { return cursor_.at_end(); }
    /// Reads the next byte and returns its opcode.
    uint8_t next();
    uint8_t immediate() const { return byte_ & kImmediateMask; }
    Cursor& operands() { return cursor_; }

    void set_type(uint8_t type) { type_ = type; }
    void set_segment();
    void advance(uint64_t by) { offset_ += by; }
    /// The address of the pointer here; steps over it. More pointers than the image has room for are a Fault,
    /// so that no count in a file, however large, costs more than the file's own size.
    uint64_t take_pointer();

    /// Refuses the opcode at hand, by its name, offset and table.
    [[noreturn]] void refuse_opcode(const std::string& what) const;
    [[noreturn]] void refuse_unknown() const;

  private:
    Cursor cursor_;
    const Layout& layout_;
    const char* table_;
    const OpcodeNames& names_;
    uint64_t at_ = 0;  // of byte_ in the table
    uint8_t byte_ = 0;
    uint8_t type_ = 0;
    const Segment* segment_ = nullptr;
    uint64_t offset_ = 0;
    uint64_t left_ = 0;
};

}  // namespace macho
