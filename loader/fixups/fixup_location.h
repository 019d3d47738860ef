// Where the next fix-up goes: the state that rebase and bind opcodes share.
#pragma once
#include <cstdint>

#include "loader/format/layout.h"

namespace macho {

/// A place in a segment that opcodes move about. It may wander anywhere, also backwards by wrapping around;
/// only a place where a pointer is taken has to lie in the part of a writable segment that the file holds.
class FixupLocation {
  public:
    FixupLocation(const Layout& layout, const char* table);

    void enter_segment(uint8_t index, uint64_t offset);
    void advance(uint64_t by) { offset_ += by; }
    /// The address of the pointer here; steps over it. More pointers than the image has room for are a Fault,
    /// so that no count in a file, however large, costs more than the file's own size.
    uint64_t take_pointer();

  private:
    const Layout& layout_;
    const char* table_;
    const Segment* segment_ = nullptr;
    uint64_t offset_ = 0;
    uint64_t left_ = 0;
};

}  // namespace macho
