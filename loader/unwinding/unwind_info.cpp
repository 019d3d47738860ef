#include "loader/unwinding/unwind_info.h"

#include <map>

#include "loader/fault.h"

namespace macho {
namespace {

constexpr uint32_t UNWIND_SECTION_VERSION = 1;
constexpr uint32_t UNWIND_SECOND_LEVEL_REGULAR = 2, UNWIND_SECOND_LEVEL_COMPRESSED = 3;
constexpr uint64_t kIndexRowSize = 12;  // unwind_info_section_header_index_entry
constexpr uint64_t kLsdaRowSize = 8;    // unwind_info_section_header_lsda_index_entry

constexpr uint32_t UNWIND_HAS_LSDA = 0x40000000;
/// From 1; 0 without a personality. UNWIND_PERSONALITY_MASK starts at bit 28.
constexpr uint32_t personality_number(uint32_t encoding) { return (encoding >> 28) & 3; }

class UnwindPages {
  public:
    UnwindPages(const Bytes& section, uint64_t end_of_code) : section_(section), end_of_code_(end_of_code) {}

    std::vector<UnwindEntry> read() {
        if (const uint32_t version = section_.u32(0); version != UNWIND_SECTION_VERSION)
            refuse("__unwind_info has version " + std::to_string(version) + " (expected 1)");
        const uint64_t index_at = section_.u32(20), rows = section_.u32(24);
        const Bytes index = section_.part(index_at, rows * kIndexRowSize, "__unwind_info's index");
        if (rows == 0) return {};

        // The last row is a sentinel: it says where the code and the list of LSDAs end.
        const Bytes last = index.part((rows - 1) * kIndexRowSize, kIndexRowSize);
        read_lsdas(index.u32(8), last.u32(8));
        for (uint64_t row = 0; row + 1 < rows; ++row) {
            const Bytes fields = index.part(row * kIndexRowSize, kIndexRowSize);
            if (const uint32_t page = fields.u32(4)) read_page(page, fields.u32(0));
        }
        close_previous(last.u32(0));
        return std::move(found_);
    }

  private:
    void read_lsdas(uint64_t from, uint64_t to) {
        if (to < from) refuse("__unwind_info's list of LSDAs ends before it starts");
        const Bytes rows = section_.part(from, to - from, "__unwind_info's list of LSDAs");
        for (uint64_t row = 0; row < rows.size(); row += kLsdaRowSize)
            lsdas_[rows.u32(row)] = rows.u32(row + 4);
    }

    void read_page(uint64_t at, uint32_t page_start) {
        const uint32_t kind = section_.u32(at);
        const uint64_t entries = at + section_.u16(at + 4);
        const unsigned count = section_.u16(at + 6);
        if (kind == UNWIND_SECOND_LEVEL_REGULAR) {
            for (uint64_t i = 0; i < count; ++i)
                add(section_.u32(entries + 8 * i), section_.u32(entries + 8 * i + 4));
        } else if (kind == UNWIND_SECOND_LEVEL_COMPRESSED) {
            for (uint64_t i = 0; i < count; ++i) {
                const uint32_t entry = section_.u32(entries + 4 * i);
                add(uint64_t{page_start} + (entry & 0xffffff), encoding(at, entry >> 24));
            }
        } else {
            refuse("the page of __unwind_info at " + hex(at) + " has kind " + std::to_string(kind) +
                   " (expected 2 or 3)");
        }
    }

    /// Common encodings come first, then those of the page.
    uint32_t encoding(uint64_t page, uint32_t number) const {
        const uint64_t common_at = section_.u32(4);
        const uint32_t common_count = section_.u32(8);
        if (number < common_count) return section_.u32(common_at + 4 * uint64_t{number});
        number -= common_count;
        if (const unsigned count = section_.u16(page + 10); number >= count)
            refuse("the page of __unwind_info at " + hex(page) + " uses its encoding " +
                   std::to_string(number) + " (expected one below " + std::to_string(count) + ")");
        return section_.u32(page + section_.u16(page + 8) + 4 * uint64_t{number});
    }

    void add(uint64_t start, uint32_t encoding) {
        close_previous(start);
        UnwindEntry entry{.start = static_cast<uint32_t>(start),
                          .end = 0,
                          .encoding = encoding,
                          .lsda = 0,
                          .personality_slot = 0};
        if (encoding & UNWIND_HAS_LSDA) {
            const auto lsda = lsdas_.find(entry.start);
            if (lsda == lsdas_.end())
                refuse("__unwind_info has no LSDA for the code at " + hex(start) + ", though its encoding " +
                       hex(encoding) + " says so");
            entry.lsda = lsda->second;
        }
        if (const uint32_t number = personality_number(encoding)) {
            if (const uint32_t count = section_.u32(16); number > count)
                refuse("__unwind_info uses personality " + std::to_string(number) + " (expected at most " +
                       std::to_string(count) + ")");
            entry.personality_slot = section_.u32(uint64_t{section_.u32(12)} + 4 * uint64_t{number - 1});
        }
        found_.push_back(entry);
    }

    void close_previous(uint64_t at) {
        if (at > end_of_code_)
            refuse("__unwind_info leaves the code (found " + hex(at) + ", expected at most " +
                   hex(end_of_code_) + ")");
        if (found_.empty()) return;
        if (at <= found_.back().start)
            refuse("__unwind_info is not in order (found " + hex(at) + " after " + hex(found_.back().start) +
                   ")");
        found_.back().end = static_cast<uint32_t>(at);
    }

    const Bytes& section_;
    uint64_t end_of_code_;
    std::map<uint32_t, uint32_t> lsdas_;
    std::vector<UnwindEntry> found_;
};

}  // namespace

std::vector<UnwindEntry> read_unwind_info(const Bytes& section, uint64_t end_of_code) {
    return UnwindPages(section, end_of_code).read();
}

}  // namespace macho
