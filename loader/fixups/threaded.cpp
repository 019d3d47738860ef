// The stream of opcodes, and the chains.
#include "loader/fixups/threaded.h"

#include <algorithm>
#include <string>

#include "loader/fault.h"
#include "loader/format/cursor.h"
#include "loader/format/exports.h"

namespace macho {
namespace {

enum ThreadedOpcode : uint8_t {
    kDone = 0x00,
    kSetLibrary = 0x10,
    kSetLibraryLarge = 0x20,
    kSetScope = 0x30,
    kSetSymbol = 0x40,
    kSetType = 0x50,
    kSetSegment = 0x70,
    kBind = 0x90,
    kThreaded = 0xd0,
};
enum ThreadedKind : uint8_t { kTableSize = 0, kApply = 1 };
constexpr uint8_t kTypePointer = 1, kWeakImport = 1;
constexpr uint8_t kBegin = 0xd0;  // kThreaded with kTableSize
constexpr uint64_t kMostRows = 0x10000;
constexpr uint64_t kChainPage = 0x1000;

/// The bits [low, low + count) of a pointer.
constexpr uint64_t bits(uint64_t value, unsigned low, unsigned count) {
    return value >> low & ((uint64_t{1} << count) - 1);
}
constexpr unsigned kBound = 62, kSigned = 63;

class ThreadedReader {
  public:
    ThreadedReader(const Bytes& slice, const Layout& layout)
        : slice_(slice),
          layout_(layout),
          cursor_(slice.part(layout.bind.offset, layout.bind.size, "the bind table")) {
        for (const Segment& segment : layout.segments)
            if (segment.writable) chains_left_ += (segment.file_size + kChainPage - 1) / kChainPage;
    }

    ThreadedFixups read() {
        constexpr std::pair<FileRange Layout::*, const char*> must_be_empty[] = {
            {&Layout::rebase, "rebase"},
            {&Layout::weak_bind, "weak bind"},
            {&Layout::lazy_bind, "lazy bind"}};
        for (const auto& [range, name] : must_be_empty)
            if ((layout_.*range).size != 0)
                refuse(std::string("classic fix-ups in an arm64e image (found ") +
                       std::to_string((layout_.*range).size) + " bytes of " + name +
                       " opcodes, expected none beside threaded ones)");
        while (!cursor_.at_end())
            if (!one(cursor_.u8())) break;
        if (table_size_ && found_.rows.size() != *table_size_) wrong_number_of_rows();
        check_for_overlaps();
        return std::move(found_);
    }

  private:
    bool one(uint8_t byte) {
        const uint8_t immediate = byte & 0x0f;
        if (byte != kDone && byte != kBegin && !table_size_)
            refuse("classic fix-ups in an arm64e image (found the bind opcode " + hex(byte) +
                   ", expected 0xd0 first)");
        switch (byte & 0xf0) {
            case kDone: return false;
            case kSetLibrary: set_library(immediate); break;
            case kSetLibraryLarge: set_library(cursor_.uleb128()); break;
            case kSetScope: set_scope(immediate); break;
            case kSetSymbol:
                row_.symbol = cursor_.text();
                row_.weak_import = (immediate & kWeakImport) != 0;
                break;
            case kSetType:
                if (immediate != kTypePointer)
                    refuse("the bind table has type " + std::to_string(immediate) +
                           " (expected 1, a pointer)");
                break;
            case kSetSegment: set_segment(immediate, cursor_.uleb128()); break;
            case kBind:
                if (immediate) unknown(byte);
                if (row_.symbol.empty()) refuse("the bind table has a row without a symbol");
                found_.rows.push_back(row_);
                if (found_.rows.size() > *table_size_) wrong_number_of_rows();
                break;
            case kThreaded:
                if (immediate == kTableSize)
                    set_table_size(cursor_.uleb128());
                else if (immediate == kApply)
                    follow_chain();
                else
                    unknown(byte);
                break;
            default: unknown(byte);
        }
        return true;
    }

    [[noreturn]] static void unknown(uint8_t byte) {
        refuse("the threaded bind table has the unknown opcode " + hex(byte));
    }
    [[noreturn]] void wrong_number_of_rows() const {
        refuse("the threaded bind table has another number of rows than it says (found " +
               std::to_string(found_.rows.size()) + ", expected " + std::to_string(*table_size_) + ")");
    }

    void set_table_size(uint64_t rows) {
        if (table_size_) refuse("the threaded bind table says its size twice");
        if (rows > kMostRows)
            refuse("the threaded bind table is too large (found " + std::to_string(rows) +
                   " rows, expected at most " + std::to_string(kMostRows) + ")");
        table_size_ = rows;
    }

    void set_library(uint64_t ordinal) {
        if (ordinal > layout_.libraries.size())
            refuse("the bind table names library " + std::to_string(ordinal) + " (expected at most " +
                   std::to_string(layout_.libraries.size()) + ")");
        row_.ordinal = static_cast<int64_t>(ordinal);
    }
    void set_scope(uint8_t immediate) {
        const int64_t scope = immediate ? static_cast<int8_t>(0xf0 | immediate) : BIND_SPECIAL_DYLIB_SELF;
        if (scope < BIND_SPECIAL_DYLIB_FLAT_LOOKUP)
            refuse("the bind table has the unknown scope " + std::to_string(scope) + " (expected -2 to 0)");
        row_.ordinal = scope;
    }
    void set_segment(uint8_t index, uint64_t offset) {
        if (index >= layout_.segments.size())
            refuse("the bind table names segment " + std::to_string(index) + " (expected one below " +
                   std::to_string(layout_.segments.size()) + ")");
        segment_ = &layout_.segments[index];
        offset_ = offset;
    }

    void follow_chain() {
        if (!segment_) refuse("a chain of pointers begins before a segment is named");
        if (!segment_->writable)
            refuse("a chain of pointers is in segment " + segment_->name + ", which is not writable");
        if (chains_left_-- == 0)
            refuse("more chains of pointers than the device has room for (expected one for each " +
                   std::to_string(kChainPage) + " bytes that are writable, and one more)");
        for (uint64_t at = offset_;;) {
            const uint64_t distance = take_pointer(at);
            if (!distance) return;
            at += distance;
        }
    }

    /// Returns the distance to the next one.
    uint64_t take_pointer(uint64_t at) {
        if (at % kPointerSize)
            refuse("a chained pointer is not aligned (found offset " + hex(at) + " in segment " +
                   segment_->name + ")");
        if (segment_->file_size < kPointerSize || at > segment_->file_size - kPointerSize)
            refuse("a chain of pointers leaves segment " + segment_->name + " (found offset " + hex(at) +
                   ", expected a pointer within " + hex(segment_->file_size) + " bytes)");
        const uint64_t value = slice_.u64(segment_->file_offset + at);
        ThreadedPointer pointer{
            .address = segment_->address + at, .row = {}, .target = 0, .addend = 0, .signature = {}};
        const bool is_signed = bits(value, kSigned, 1);
        if (is_signed)
            pointer.signature = PointerSignature{.key = static_cast<uint8_t>(bits(value, 49, 2)),
                                                 .address_mixed_in = bits(value, 48, 1) != 0,
                                                 .discriminator = static_cast<uint16_t>(bits(value, 32, 16))};
        if (bits(value, kBound, 1)) {
            pointer.row = bits(value, 0, 16);
            if (*pointer.row >= found_.rows.size())
                refuse("a chained pointer names row " + std::to_string(*pointer.row) +
                       " of the bind table (expected one below " + std::to_string(found_.rows.size()) + ")");
            if (!is_signed) {
                constexpr unsigned addend_bits = 19, unused = 64 - addend_bits;
                pointer.addend = static_cast<int64_t>(bits(value, 32, addend_bits) << unused) >> unused;
            }
        } else if (is_signed) {
            pointer.target = layout_.header_address + bits(value, 0, 32);
        } else {
            pointer.target = bits(value, 0, 43) | bits(value, 43, 8) << 56;
        }
        found_.pointers.push_back(pointer);
        return bits(value, 51, 11) * kPointerSize;
    }

    /// A pointer that is in two chains would be fixed up twice.
    void check_for_overlaps() {
        std::ranges::sort(found_.pointers, {}, &ThreadedPointer::address);
        const auto twice = std::ranges::adjacent_find(found_.pointers, {}, &ThreadedPointer::address);
        if (twice != found_.pointers.end())
            refuse("a pointer is in two chains (found at " + hex(twice->address) + ")");
    }

    const Bytes& slice_;
    const Layout& layout_;
    Cursor cursor_;
    std::optional<uint64_t> table_size_;
    BindRow row_{};
    const Segment* segment_ = nullptr;
    uint64_t offset_ = 0;
    uint64_t chains_left_ = 1;
    ThreadedFixups found_;
};

}  // namespace

ThreadedFixups read_threaded(const Bytes& slice, const Layout& layout) {
    return ThreadedReader(slice, layout).read();
}

}  // namespace macho
