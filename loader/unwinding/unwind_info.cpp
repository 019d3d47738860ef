#include "loader/unwinding/unwind_info.h"

#include <map>

#include "loader/fault.h"
#include "loader/format/structures.h"

namespace macho {
namespace {

constexpr uint32_t UNWIND_SECTION_VERSION = 1;
constexpr uint32_t UNWIND_SECOND_LEVEL_REGULAR = 2, UNWIND_SECOND_LEVEL_COMPRESSED = 3;

using SectionHeader = unwind_info_section_header;
using IndexRow = unwind_info_section_header_index_entry;
using LsdaRow = unwind_info_section_header_lsda_index_entry;
using RegularPage = unwind_info_regular_second_level_page_header;
using RegularEntry = unwind_info_regular_second_level_entry;
using CompressedPage = unwind_info_compressed_second_level_page_header;

constexpr uint32_t UNWIND_HAS_LSDA = 0x40000000;
/// From 1; 0 without a personality. UNWIND_PERSONALITY_MASK starts at bit 28.
constexpr uint32_t personality_number(uint32_t encoding) { return (encoding >> 28) & 3; }

class UnwindPages {
  public:
    UnwindPages(const Bytes& section, uint64_t end_of_code) : section_(section), end_of_code_(end_of_code) {}

    std::vector<UnwindEntry> read() {
        if (const uint32_t version = section_.field(&SectionHeader::version);
            version != UNWIND_SECTION_VERSION)
            refuse("__unwind_info has version " + std::to_string(version) + " (expected 1)");
        const uint64_t rows = section_.field(&SectionHeader::indexCount);
        const Bytes index = section_.part(section_.field(&SectionHeader::indexSectionOffset),
                                          rows * sizeof(IndexRow), "__unwind_info's index");
        if (rows == 0) return {};

        // The last row is a sentinel: it says where the code and the list of LSDAs end.
        const uint64_t last = (rows - 1) * sizeof(IndexRow);
        read_lsdas(index.field(&IndexRow::lsdaIndexArraySectionOffset),
                   index.field(&IndexRow::lsdaIndexArraySectionOffset, last));
        for (uint64_t row = 0; row < last; row += sizeof(IndexRow))
            if (const uint32_t page = index.field(&IndexRow::secondLevelPagesSectionOffset, row))
                read_page(page, index.field(&IndexRow::functionOffset, row));
        close_previous(index.field(&IndexRow::functionOffset, last));
        return std::move(found_);
    }

  private:
    void read_lsdas(uint64_t from, uint64_t to) {
        if (to < from) refuse("__unwind_info's list of LSDAs ends before it starts");
        const Bytes rows = section_.part(from, to - from, "__unwind_info's list of LSDAs");
        for (uint64_t row = 0; row < rows.size(); row += sizeof(LsdaRow))
            lsdas_[rows.field(&LsdaRow::functionOffset, row)] = rows.field(&LsdaRow::lsdaOffset, row);
    }

    void read_page(uint64_t at, uint32_t page_start) {
        const uint32_t kind = section_.field(&RegularPage::kind, at);
        const uint64_t entries = at + section_.field(&RegularPage::entryPageOffset, at);
        const unsigned count = section_.field(&RegularPage::entryCount, at);
        if (kind == UNWIND_SECOND_LEVEL_REGULAR) {
            for (uint64_t i = 0; i < count; ++i) {
                const uint64_t entry = entries + i * sizeof(RegularEntry);
                add(section_.field(&RegularEntry::functionOffset, entry),
                    section_.field(&RegularEntry::encoding, entry));
            }
        } else if (kind == UNWIND_SECOND_LEVEL_COMPRESSED) {
            for (uint64_t i = 0; i < count; ++i) {
                const uint32_t entry = section_.u32(entries + i * sizeof entry);
                add(uint64_t{page_start} + (entry & 0xffffff), encoding(at, entry >> 24));
            }
        } else {
            refuse("the page of __unwind_info at " + hex(at) + " has kind " + std::to_string(kind) +
                   " (expected 2 or 3)");
        }
    }

    /// Common encodings come first, then those of the page.
    uint32_t encoding(uint64_t page, uint32_t number) const {
        const uint64_t common_at = section_.field(&SectionHeader::commonEncodingsArraySectionOffset);
        const uint32_t common_count = section_.field(&SectionHeader::commonEncodingsArrayCount);
        if (number < common_count) return encoding_in(common_at, number);
        number -= common_count;
        if (const unsigned count = section_.field(&CompressedPage::encodingsCount, page); number >= count)
            refuse("the page of __unwind_info at " + hex(page) + " uses its encoding " +
                   std::to_string(number) + " (expected one below " + std::to_string(count) + ")");
        return encoding_in(page + section_.field(&CompressedPage::encodingsPageOffset, page), number);
    }
    uint32_t encoding_in(uint64_t list, uint32_t number) const {
        return section_.u32(list + sizeof(uint32_t) * uint64_t{number});
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
            if (const uint32_t count = section_.field(&SectionHeader::personalityArrayCount); number > count)
                refuse("__unwind_info uses personality " + std::to_string(number) + " (expected at most " +
                       std::to_string(count) + ")");
            const uint64_t personalities = section_.field(&SectionHeader::personalityArraySectionOffset);
            entry.personality_slot = section_.u32(personalities + sizeof(uint32_t) * uint64_t{number - 1});
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
