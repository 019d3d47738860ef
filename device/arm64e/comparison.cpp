// Comparing a slice with what it was made of.
#include "arm64e/comparison.h"

#include <algorithm>
#include <tuple>

#include "loader/fault.h"
#include "loader/fixups/rebase.h"
#include "loader/fixups/threaded.h"

namespace arm64e {
namespace {

using macho::Bytes;
using macho::hex;
using macho::refuse;

/// Where a pointer leads, in either kind of slice.
struct Destination {
    uint64_t target = 0;
    std::string symbol;
    int64_t ordinal = 0, addend = 0;
    bool weak_import = false;

    friend bool operator==(const Destination&, const Destination&) = default;
};
using Destinations = std::map<uint64_t, Destination>;

uint64_t offset_in_file(const macho::Layout& layout, uint64_t address) {
    for (const macho::Segment& segment : layout.segments)
        if (address >= segment.address && address - segment.address < segment.file_size)
            return segment.file_offset + (address - segment.address);
    refuse("an address lies outside the file (found " + hex(address) + ")");
}

Destination bound_to(const macho::BindRow& row, int64_t addend) {
    return {.target = 0,
            .symbol = std::string(row.symbol),
            .ordinal = row.ordinal,
            .addend = addend,
            .weak_import = row.weak_import};
}

Destinations classic(const Bytes& slice, const macho::Layout& layout) {
    const auto table = [&](macho::FileRange range) {
        return slice.part(range.offset, range.size, "a table");
    };
    Destinations found;
    for (const uint64_t address : macho::read_rebases(table(layout.rebase), layout))
        found[address] = {.target = slice.u64(offset_in_file(layout, address)), .symbol = {}};
    for (const macho::BindRow& row : macho::read_binds(table(layout.bind), macho::BindTable::regular, layout))
        found[row.address] = bound_to(row, row.addend);
    for (const macho::BindRow& row :
         macho::read_binds(table(layout.lazy_bind), macho::BindTable::lazy, layout))
        found[row.address] = bound_to(row, row.addend);
    std::erase_if(found, [](const auto& each) { return each.second.symbol == "dyld_stub_binder"; });
    return found;
}

[[noreturn]] void differs(const std::string& what, uint64_t at) {
    refuse("the arm64e slice is not what it was made of: " + what + " (found at " + hex(at) + ")");
}

/// The sections whose pointers into the image's code other code calls.
bool holds_what_others_call(const macho::Layout& layout, uint64_t address) {
    for (const char* name : {"__objc_const", "__block_desc"})
        if (const macho::Section* section = layout.section(name))
            if (address >= section->address && address - section->address < section->size) return true;
    return false;
}

void compare_signature(const macho::ThreadedPointer& pointer, const macho::Layout& layout) {
    const macho::Section* code = layout.section("__text");
    const bool is_code = !pointer.row && code && pointer.target >= code->address &&
                         pointer.target - code->address < code->size;
    if (!is_code || !holds_what_others_call(layout, pointer.address)) {
        if (pointer.signature) differs("a pointer is signed that is to be plain", pointer.address);
        return;
    }
    constexpr macho::PointerSignature expected{
        .key = macho::PointerSignature::kInstructionA, .address_mixed_in = true, .discriminator = 0};
    if (pointer.signature != expected)
        differs("a function that others call is not signed for its place", pointer.address);
}

void compare_pointers(Destinations expected, const Bytes& slice, const macho::Layout& layout) {
    const macho::ThreadedFixups found = macho::read_threaded(slice, layout);
    for (const macho::ThreadedPointer& pointer : found.pointers) {
        const auto same = expected.find(pointer.address);
        if (same == expected.end()) differs("a pointer too many", pointer.address);
        const Destination destination = pointer.row ? bound_to(found.rows[*pointer.row], pointer.addend)
                                                    : Destination{.target = pointer.target, .symbol = {}};
        if (destination != same->second) differs("a pointer leads elsewhere", pointer.address);
        compare_signature(pointer, layout);
        expected.erase(same);
    }
    if (!expected.empty()) differs("a pointer is missing", expected.begin()->first);
}

/// Up to __LINKEDIT, and without load commands and pointers: above all, every instruction.
void compare_bytes(const Data& before, const Data& after, const macho::Layout& layout,
                   const Destinations& pointers) {
    std::vector<bool> may_differ(before.size());
    const auto exempt = [&](uint64_t at, uint64_t size) {
        for (uint64_t i = 0; i < size && at + i < may_differ.size(); ++i) may_differ[at + i] = true;
    };
    for (const auto& [address, destination] : pointers) exempt(offset_in_file(layout, address), 8);
    exempt(0, 32 + uint64_t{word(before, 20)});
    for (const macho::Segment& segment : layout.segments)
        if (segment.name == "__LINKEDIT") exempt(segment.file_offset, segment.file_size);
    for (size_t at = 0; at < before.size(); ++at)
        if (!may_differ[at] && before[at] != after[at]) differs("a byte", at);
}

}  // namespace

void compare(const Data& arm64_slice, const Data& arm64e_slice) {
    if (arm64_slice.size() != arm64e_slice.size()) differs("its size", arm64e_slice.size());
    const Bytes before(arm64_slice, "the arm64 slice"), after(arm64e_slice, "the arm64e slice");
    if (after.u32(4) != before.u32(4) || after.u32(8) != 2) differs("its processor", 4);
    const macho::Layout layout = macho::read_layout(before);
    const Destinations expected = classic(before, layout);
    compare_pointers(expected, after, macho::read_layout(after));
    compare_bytes(arm64_slice, arm64e_slice, layout, expected);
}

}  // namespace arm64e
