#include "loader/fixups/fixup_opcodes.h"

#include "loader/fault.h"

namespace macho {

FixupOpcodes::FixupOpcodes(const Bytes& opcodes, const Layout& layout, const char* table,
                           const OpcodeNames& names)
    : cursor_(opcodes),
      layout_(layout),
      table_(table),
      names_(names) {
    for (const Segment& segment : layout.segments)
        if (segment.writable) left_ += segment.file_size / kPointerSize;
}

uint8_t FixupOpcodes::next() {
    at_ = cursor_.position();
    byte_ = cursor_.u8();
    return byte_ & kOpcodeMask;
}

void FixupOpcodes::set_segment() {
    const uint8_t index = immediate();
    if (index >= layout_.segments.size())
        refuse_opcode("no such segment (found " + std::to_string(index) + ", expected less than " +
                      std::to_string(layout_.segments.size()) + ")");
    segment_ = &layout_.segments[index];
    offset_ = cursor_.uleb128();
}

uint64_t FixupOpcodes::take_pointer() {
    if (type_ != kTypePointer)
        refuse_opcode("unsupported fix-up type (found " + std::to_string(type_) +
                      (type_ ? "" : ", no type was set") + ", expected 1, a pointer)");
    if (!segment_) refuse_opcode("no segment was set");
    if (!segment_->writable) refuse_opcode("segment " + segment_->name + " is not writable");
    if (segment_->file_size < kPointerSize || offset_ > segment_->file_size - kPointerSize)
        refuse_opcode("the pointer leaves segment " + segment_->name + " (found offset " + hex(offset_) +
                      ", expected a pointer within " + hex(segment_->file_size) + " bytes)");
    if (left_-- == 0) refuse_opcode("more fix-ups than the image has pointers");
    const uint64_t address = segment_->address + offset_;
    offset_ += kPointerSize;
    return address;
}

void FixupOpcodes::refuse_opcode(const std::string& what) const {
    const char* name = names_[byte_ >> 4];
    refuse((name ? std::string(name) : hex(byte_)) + " at " + hex(at_) + " in " + table_ + ": " + what);
}

void FixupOpcodes::refuse_unknown() const { refuse_opcode("unknown opcode"); }

}  // namespace macho
