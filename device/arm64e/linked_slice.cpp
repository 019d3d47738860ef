// Reading a linked slice: the loader's readers for the fix-ups, and what these do not say.
#include "arm64e/linked_slice.h"

#include <algorithm>
#include <cstring>

#include "loader/fault.h"
#include "loader/fixups/bind_opcodes.h"
#include "loader/fixups/rebase.h"

namespace arm64e {
namespace {

using macho::Bytes;
using macho::hex;
using macho::refuse;

constexpr uint64_t header_size = 32;
constexpr uint32_t only_instructions = 0x80000000, some_instructions = 0x400;

Bytes view(const Data& slice) { return {slice, "the slice"}; }

void check_header(const Data& slice) {
    const Bytes bytes = view(slice);
    if (slice.size() < header_size || bytes.u32(0) != macho::MH_MAGIC_64)
        refuse("not a 64-bit Mach-O slice (found " + std::to_string(slice.size()) +
               " bytes that begin with " + (slice.size() < 4 ? "nothing" : hex(bytes.u32(0))) +
               ", expected " + hex(macho::MH_MAGIC_64) + ")");
    if (bytes.u32(4) != static_cast<uint32_t>(macho::Cpu::arm64))
        refuse("built for another processor (found " + hex(bytes.u32(4)) + ", expected " +
               hex(static_cast<uint32_t>(macho::Cpu::arm64)) + ", arm64)");
    const uint32_t subtype = bytes.u32(8) & macho::kSubtypeMask;
    if (subtype == macho::CPU_SUBTYPE_ARM64E) refuse("an arm64e slice already (expected one for arm64)");
    if (subtype != 0)
        refuse("of an unknown subtype (found " + std::to_string(subtype) + ", expected 0, all arm64)");
    if (bytes.u32(12) != static_cast<uint32_t>(macho::FileType::dylib))
        refuse("not a dynamic library (found file type " + std::to_string(bytes.u32(12)) + ", expected 6)");
}

void find_commands(const Data& slice, LinkedSlice& found) {
    const Bytes bytes = view(slice);
    uint64_t at = header_size;
    for (uint32_t left = bytes.u32(16); left > 0; --left) {
        switch (bytes.u32(at)) {
            case macho::LC_DYLD_INFO_ONLY: found.fix_up_command = at; break;
            case macho::LC_SYMTAB: found.symbol_command = at; break;
            case macho::LC_DYSYMTAB: found.dynamic_symbol_command = at; break;
            case macho::LC_UUID: found.uuid_command = at; break;
            case macho::LC_SEGMENT_64:
                for (uint32_t i = 0; i < bytes.u32(at + 64); ++i) {
                    const uint64_t row = at + 72 + uint64_t{i} * 80;
                    if (bytes.u32(row + 64) & (only_instructions | some_instructions))
                        found.code.push_back({static_cast<uint32_t>(bytes.u64(row + 32)),
                                              static_cast<uint32_t>(bytes.u64(row + 40))});
                }
                break;
            default: break;
        }
        at += bytes.u32(at + 4);
    }
    if (!found.fix_up_command) refuse("no LC_DYLD_INFO_ONLY (expected one with classic fix-ups)");
}

}  // namespace

uint32_t word(const Data& slice, uint64_t at) { return view(slice).u32(at); }
uint64_t double_word(const Data& slice, uint64_t at) { return view(slice).u64(at); }
void put(Data& slice, uint64_t at, uint32_t value) {
    view(slice).u32(at);
    std::memcpy(slice.data() + at, &value, sizeof value);
}
void put(Data& slice, uint64_t at, uint64_t value) {
    view(slice).u64(at);
    std::memcpy(slice.data() + at, &value, sizeof value);
}

const macho::Section* LinkedSlice::section_at(uint64_t address) const {
    const auto holds = [address](const macho::Section& section) {
        return address >= section.address && address - section.address < section.size;
    };
    const auto found = std::ranges::find_if(layout.sections, holds);
    return found == layout.sections.end() ? nullptr : &*found;
}

bool LinkedSlice::is_code(uint64_t address) const {
    return std::ranges::any_of(code, [address](const macho::FileRange& section) {
        return address >= section.offset && address - section.offset < section.size;
    });
}

uint64_t LinkedSlice::file_offset(uint64_t address) const {
    for (const macho::Segment& segment : layout.segments)
        if (address >= segment.address && address - segment.address < segment.file_size)
            return segment.file_offset + (address - segment.address);
    refuse("an address lies outside the file (found " + hex(address) + ")");
}

LinkedSlice read_linked_slice(const Data& slice) {
    check_header(slice);
    const Bytes bytes = view(slice);
    LinkedSlice found{.layout = macho::read_layout(bytes), .pointers = {}, .code = {}};
    find_commands(slice, found);
    if (found.layout.extent > UINT32_MAX || found.layout.header_address != 0)
        refuse("the slice is not one that starts at address 0 and ends below 4 GiB (found " +
               hex(found.layout.header_address) + " and " + hex(found.layout.extent) + ")");
    if (found.layout.weak_bind.size)
        refuse("definitions that processes share are not supported (found " +
               std::to_string(found.layout.weak_bind.size) + " bytes of weak bind opcodes, expected none)");

    const auto table = [&](macho::FileRange range) {
        return bytes.part(range.offset, range.size, "a fix-up table");
    };
    for (const uint64_t address : macho::read_rebases(table(found.layout.rebase), found.layout))
        found.pointers[address] = {.symbol = {}, .target = bytes.u64(found.file_offset(address))};
    using macho::BindTable;
    for (const auto& [range, kind] : {std::pair{found.layout.bind, BindTable::regular},
                                      std::pair{found.layout.lazy_bind, BindTable::lazy}})
        for (const macho::BindRow& row : macho::read_binds(table(range), kind, found.layout))
            found.pointers[row.address] = {
                .symbol = Symbol{row.ordinal, std::string(row.symbol), row.weak_import},
                .addend = row.addend};
    // Nothing is bound lazily any more.
    std::erase_if(found.pointers, [](const auto& each) {
        return each.second.symbol && each.second.symbol->name == stub_binder;
    });
    return found;
}

}  // namespace arm64e
