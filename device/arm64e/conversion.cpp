// Writing threaded fix-ups in place of the classic ones.
#include "arm64e/conversion.h"

#include <algorithm>
#include <cstring>

#include "arm64e/rule.h"
#include "loader/fault.h"

namespace arm64e {
namespace {

using macho::FileRange;
using macho::hex;
using macho::refuse;

constexpr uint32_t subtype_arm64e = 2;  // the whole word: later systems' bits are refused by iOS 12
constexpr size_t most_rows = 0x10000;
constexpr uint64_t chain_page = 0x1000;  // a chain begins in each, as the vendor's linker has it

// Bits of a pointer in a chain.
constexpr uint64_t signed_bit = uint64_t{1} << 63, bound_bit = uint64_t{1} << 62,
                   mixed_with_address_bit = uint64_t{1} << 48;
constexpr unsigned distance_at = 51, addend_at = 32, top_byte_at = 43;

/// The opcodes that stand in the bind part.
class Stream {
  public:
    void table_size(size_t rows) {
        byte(0xd0);
        number(rows);
    }
    void row(const Symbol& symbol) {
        if (symbol.ordinal != ordinal_ || first_) library(symbol.ordinal);
        byte(static_cast<uint8_t>(0x40 | (symbol.weak_import ? 1 : 0)));
        bytes_.insert(bytes_.end(), symbol.name.begin(), symbol.name.end());
        byte(0);
        if (first_) byte(0x51);  // a pointer, as all of them are
        byte(0x90);
        ordinal_ = symbol.ordinal;
        first_ = false;
    }
    void chain(size_t segment, uint64_t offset) {
        byte(static_cast<uint8_t>(0x70 | segment));
        number(offset);
        byte(0xd1);
    }
    Data finished() {
        byte(0);
        bytes_.resize((bytes_.size() + 7) / 8 * 8);
        return std::move(bytes_);
    }

  private:
    void byte(uint8_t value) { bytes_.push_back(value); }
    void number(uint64_t value) {
        for (; value > 0x7f; value >>= 7) byte(static_cast<uint8_t>(0x80 | (value & 0x7f)));
        byte(static_cast<uint8_t>(value));
    }
    void library(int64_t ordinal) {
        if (ordinal > 0x0f) {
            byte(0x20);
            number(static_cast<uint64_t>(ordinal));
        } else {
            byte(static_cast<uint8_t>((ordinal > 0 ? 0x10 : 0x30) | (ordinal & 0x0f)));
        }
    }

    Data bytes_;
    int64_t ordinal_ = 0;
    bool first_ = true;
};

class Converter {
  public:
    explicit Converter(const Data& arm64_slice) : linked_(read_linked_slice(arm64_slice)) {
        result_ = {.slice = arm64_slice, .pointers = 0, .signed_pointers = 0, .rows = 0, .chains = 0};
    }

    Conversion run() {
        number_rows();
        write_chains();
        write_stream();
        drop_stub_binder();
        put(result_.slice, 8, subtype_arm64e);
        // Another image has another name. Out of the first one's, so that one slice gives one.
        if (linked_.uuid_command) result_.slice[linked_.uuid_command + 8 + 15] ^= subtype_arm64e;
        return std::move(result_);
    }

  private:
    void number_rows() {
        for (const auto& [address, pointer] : linked_.pointers)
            if (pointer.symbol) rows_.emplace(*pointer.symbol, 0);
        if (rows_.size() > most_rows)
            refuse("too many symbols for one table of threaded fix-ups (found " +
                   std::to_string(rows_.size()) + ", expected at most " + std::to_string(most_rows) + ")");
        stream_.table_size(rows_.size());
        size_t next = 0;
        for (auto& [symbol, number] : rows_) {
            number = next++;
            stream_.row(symbol);
        }
        result_.rows = rows_.size();
    }

    void write_chains() {
        constexpr size_t most_segments = 16;
        for (size_t index = 0; index < linked_.layout.segments.size(); ++index) {
            const macho::Segment& segment = linked_.layout.segments[index];
            const auto end = linked_.pointers.lower_bound(segment.address + segment.size);
            uint64_t page = ~uint64_t{0};
            for (auto each = linked_.pointers.lower_bound(segment.address); each != end; ++each) {
                const uint64_t offset = each->first - segment.address;
                if (offset / chain_page != page) {
                    if (index >= most_segments) refuse("more segments than an opcode can name");
                    page = offset / chain_page;
                    stream_.chain(index, offset);
                    ++result_.chains;
                }
                const auto next = std::next(each);
                const bool goes_on = next != end && (next->first - segment.address) / chain_page == page;
                write_pointer(each->first, each->second, goes_on ? next->first - each->first : 0);
            }
        }
    }

    void write_pointer(uint64_t address, const Pointer& pointer, uint64_t distance) {
        if (address % macho::kPointerSize) {
            const macho::Section* section = linked_.section_at(address);
            refuse("a pointer is not aligned to 8 bytes (found in section " +
                   (section ? section->name : std::string("(none)")) + " at " + hex(address) + ")");
        }
        uint64_t value = distance / macho::kPointerSize << distance_at;
        const bool to_be_signed = is_signed(linked_, address, pointer);
        if (to_be_signed) value |= signed_bit | mixed_with_address_bit;
        if (pointer.symbol)
            value |= bound_bit | rows_.at(*pointer.symbol) | addend_bits(pointer.addend, address);
        else if (to_be_signed)
            value |= pointer.target;  // from the header, which is at 0
        else
            value |= target_bits(pointer.target, address);
        put(result_.slice, linked_.file_offset(address), value);
        ++result_.pointers;
        if (to_be_signed) ++result_.signed_pointers;
    }

    static uint64_t addend_bits(int64_t addend, uint64_t address) {
        constexpr int64_t limit = 1 << 18;
        if (addend < -limit || addend >= limit)
            refuse("an addend does not fit (found " + std::to_string(addend) + " at " + hex(address) +
                   ", expected 19 bits)");
        return (static_cast<uint64_t>(addend) & ((1 << 19) - 1)) << addend_at;
    }

    static uint64_t target_bits(uint64_t target, uint64_t address) {
        constexpr uint64_t low = (uint64_t{1} << top_byte_at) - 1, top = uint64_t{0xff} << 56;
        if (target & ~(low | top))
            refuse("a pointer's target does not fit (found " + hex(target) + " at " + hex(address) + ")");
        return (target & low) | (target >> 56) << top_byte_at;
    }

    /// Into the room of the classic opcodes, all of which go.
    void write_stream() {
        const macho::Layout& layout = linked_.layout;
        uint64_t begin = ~uint64_t{0}, end = 0, used = 0;
        for (const FileRange& range : {layout.rebase, layout.bind, layout.lazy_bind}) {
            if (!range.size) continue;
            begin = std::min<uint64_t>(begin, range.offset);
            end = std::max(end, uint64_t{range.offset} + range.size);
            used += range.size;
        }
        if (!used) refuse("no classic fix-ups to convert");
        constexpr uint64_t alignment = 8;
        if (end - begin > used + 2 * alignment)
            refuse("the fix-up tables do not lie side by side (found " + std::to_string(used) + " bytes in " +
                   std::to_string(end - begin) + ")");
        const Data stream = stream_.finished();
        if (stream.size() > end - begin)
            refuse("no room for the threaded fix-ups (found " + std::to_string(end - begin) +
                   " bytes of classic ones, expected at least " + std::to_string(stream.size()) + ")");
        std::ranges::fill(result_.slice.begin() + static_cast<ptrdiff_t>(begin),
                          result_.slice.begin() + static_cast<ptrdiff_t>(end), uint8_t{0});
        std::ranges::copy(stream, result_.slice.begin() + static_cast<ptrdiff_t>(begin));
        const uint32_t fields[] = {
            0, 0, static_cast<uint32_t>(begin), static_cast<uint32_t>(stream.size()), 0, 0, 0, 0};
        for (size_t i = 0; i < std::size(fields); ++i)
            put(result_.slice, linked_.fix_up_command + 8 + 4 * i, fields[i]);
    }

    /// Out of the table of symbols, and of the indirect one, which counts by the other's rows.
    void drop_stub_binder() {
        constexpr uint64_t row_size = 16;
        constexpr uint32_t absolute = 0x40000000, not_an_index = 0xc0000000;
        Data& slice = result_.slice;
        const uint64_t symbols = linked_.symbol_command, dynamic = linked_.dynamic_symbol_command;
        if (!symbols || !dynamic) return;
        const uint32_t at = word(slice, symbols + 8), count = word(slice, symbols + 12),
                       names = word(slice, symbols + 16);
        macho::Bytes(slice, "the slice").part(at, count * row_size, "the table of symbols");
        uint32_t row = 0;
        while (row < count && name_at(names + word(slice, at + row * row_size)) != stub_binder) ++row;
        if (row == count) return;

        const uint64_t name = names + word(slice, at + row * row_size);
        std::fill_n(slice.begin() + static_cast<ptrdiff_t>(name), std::strlen(stub_binder), uint8_t{0});
        const auto place = [&](uint32_t index) {
            return slice.begin() + static_cast<ptrdiff_t>(at + index * row_size);
        };
        std::copy(place(row + 1), place(count), place(row));
        std::fill(place(count - 1), place(count), uint8_t{0});
        put(slice, symbols + 12, count - 1);
        put(slice, dynamic + 28, word(slice, dynamic + 28) - 1);  // of undefined ones, which it was

        const uint32_t indirect = word(slice, dynamic + 56), indirect_count = word(slice, dynamic + 60);
        for (uint32_t i = 0; i < indirect_count; ++i) {
            const uint32_t index = word(slice, indirect + 4 * i);
            if (index & not_an_index || index < row) continue;
            put(slice, indirect + 4 * i, index == row ? absolute : index - 1);
        }
    }

    std::string_view name_at(uint64_t offset) const {
        return macho::Bytes(result_.slice, "the symbols' names").text(offset);
    }

    const LinkedSlice linked_;
    std::map<Symbol, size_t> rows_;
    Stream stream_;
    Conversion result_;
};

}  // namespace

Conversion convert(const Data& arm64_slice) { return Converter(arm64_slice).run(); }

}  // namespace arm64e
