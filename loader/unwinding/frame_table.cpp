#include "loader/unwinding/frame_table.h"

#include <string_view>

#include "loader/fault.h"
#include "loader/unwinding/pointer_encoding.h"

extern "C" void __register_frame(void*);
extern "C" void __deregister_frame(void*);

namespace macho {
namespace {

enum CallFrameInstruction : uint8_t {
    DW_CFA_nop = 0x00,
    DW_CFA_offset_extended = 0x05,
    DW_CFA_def_cfa = 0x0c,
    DW_CFA_offset = 0x80,  // with the register's number in the lower six bits
};
constexpr uint8_t kVersion = 1;

// Entries of a damaged file may overlap, and so add up to much more than the file.
constexpr size_t kLargestTable = 64 << 20;

class Writer {
  public:
    void u8(uint8_t value) { bytes_.push_back(value); }
    void u32(uint32_t value) { little_endian(value, 4); }
    void u64(uint64_t value) { little_endian(value, 8); }
    void uleb128(uint64_t value) {
        for (; value > 0x7f; value >>= 7) u8(static_cast<uint8_t>(value | 0x80));
        u8(static_cast<uint8_t>(value));
    }
    void sleb128(int64_t value) {
        for (; value < -0x40 || value > 0x3f; value >>= 7) u8(static_cast<uint8_t>(value | 0x80));
        u8(static_cast<uint8_t>(value & 0x7f));
    }
    void text(std::string_view text) {
        bytes_.insert(bytes_.end(), text.begin(), text.end());
        u8(0);
    }
    void bytes(const std::vector<uint8_t>& more) { bytes_.insert(bytes_.end(), more.begin(), more.end()); }

    std::vector<uint8_t> take() { return std::move(bytes_); }

  private:
    void little_endian(uint64_t value, int size) {
        for (int i = 0; i < size; ++i) u8(static_cast<uint8_t>(value >> (8 * i)));
    }
    std::vector<uint8_t> bytes_;
};

}  // namespace

std::vector<uint8_t> instructions_for(const Frame& frame) {
    Writer writer;
    writer.u8(DW_CFA_def_cfa);
    writer.uleb128(frame.base_register);
    writer.uleb128(frame.offset);
    for (const auto [number, words_below] : frame.saved) {
        if (number < 0x40) {
            writer.u8(DW_CFA_offset | number);
        } else {
            writer.u8(DW_CFA_offset_extended);
            writer.uleb128(number);
        }
        writer.uleb128(words_below);
    }
    return writer.take();
}

FrameTable::~FrameTable() {
    if (published_) __deregister_frame(table_.data());
}

void FrameTable::add(uintptr_t start, uint64_t size, const FrameDescription& description) {
    const uint64_t common = common_entry(description.kind);
    Writer writer;
    writer.u32(static_cast<uint32_t>(table_.size() + 4 - common));  // back from this very field
    writer.u64(start);
    writer.u64(size);
    if (description.kind.personality) {
        writer.uleb128(8);
        writer.u64(description.lsda);
    } else {
        writer.uleb128(0);
    }
    writer.bytes(description.instructions);
    append(writer.take());
}

uint64_t FrameTable::common_entry(const FrameKind& kind) {
    const auto [known, is_new] = common_entries_.try_emplace(kind, table_.size());
    if (!is_new) return known->second;

    Writer writer;
    writer.u32(0);  // CIE_id: an FDE has a distance here
    writer.u8(kVersion);
    writer.text(kind.personality ? "zPLR" : "zR");
    writer.uleb128(kind.code_alignment);
    writer.sleb128(kind.data_alignment);
    writer.u8(kind.return_address);
    if (kind.personality) {
        writer.uleb128(1 + 8 + 1 + 1);
        writer.u8(DW_EH_PE_absptr);
        writer.u64(kind.personality);
        writer.u8(DW_EH_PE_absptr);
        writer.u8(DW_EH_PE_absptr);
    } else {
        writer.uleb128(1);
        writer.u8(DW_EH_PE_absptr);
    }
    writer.bytes(kind.instructions);
    append(writer.take());
    return known->second;
}

void FrameTable::append(std::vector<uint8_t> entry) {
    while ((entry.size() + 4) % 8) entry.push_back(DW_CFA_nop);
    Writer length;
    length.u32(static_cast<uint32_t>(entry.size()));
    if (entry.size() > kLargestTable - table_.size()) refuse("the frame descriptions take too much room");
    for (const auto& part : {length.take(), std::move(entry)})
        table_.insert(table_.end(), part.begin(), part.end());
}

void FrameTable::publish() {
    if (table_.empty()) return;
    table_.insert(table_.end(), 4, 0);  // the end
    __register_frame(table_.data());
    published_ = true;
}

}  // namespace macho
