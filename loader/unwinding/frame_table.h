// Registers the frames of loaded code with the process's unwinder.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "loader/unwinding/frame.h"

namespace macho {

/// What functions of one kind share: a CIE of DWARF.
struct FrameKind {
    uint8_t return_address;  ///< the register column
    uint64_t code_alignment = 1;
    int64_t data_alignment = -8;
    uintptr_t personality = 0;  ///< 0 if the function has no clean-ups
    std::vector<uint8_t> instructions = {};
    auto operator<=>(const FrameKind&) const = default;
};

struct FrameDescription {
    FrameKind kind;
    uintptr_t lsda = 0;  ///< the language-specific data area
    std::vector<uint8_t> instructions;
};

/// The DWARF instructions for a frame, in words as the default FrameKind has them.
std::vector<uint8_t> instructions_for(const Frame& frame);

/// DWARF tables in memory of their own, which the unwinder reads for as long as this object lives.
class FrameTable {
  public:
    FrameTable() = default;
    ~FrameTable();
    FrameTable(const FrameTable&) = delete;
    FrameTable& operator=(const FrameTable&) = delete;

    void add(uintptr_t start, uint64_t size, const FrameDescription& description);
    /// Registers the table with the unwinder. Nothing may be added afterwards.
    void publish();

  private:
    uint64_t common_entry(const FrameKind& kind);
    void append(std::vector<uint8_t> entry);

    std::vector<uint8_t> table_;
    std::map<FrameKind, uint64_t> common_entries_;  // offsets in the table
    bool published_ = false;
};

}  // namespace macho
