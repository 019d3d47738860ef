#include "loader/format/slice.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "loader/fault.h"
#include "loader/format/structures.h"

namespace macho {
namespace {

std::string first_bytes(const Bytes& bytes) {
    if (bytes.size() == 0) return "an empty file";
    std::string found;
    for (uint64_t i = 0; i < bytes.size() && i < 4; ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%s%02x", i ? " " : "", bytes.u8(i));
        found += digits;
    }
    return found;
}

/// What a process takes on its processor, the best first.
std::vector<std::string> taken_by(Process process, Cpu cpu) {
    if (cpu != Cpu::arm64) return {processor_text(static_cast<uint32_t>(cpu), 0)};
    switch (process) {
        case Process::arm64: return {"arm64"};
        case Process::arm64_on_a12: return {"arm64e", "arm64"};
        case Process::arm64e: return {"arm64e"};
    }
    __builtin_unreachable();
}

std::string all_of(const std::vector<std::string>& processors) {
    std::string text;
    for (const std::string& each : processors) text += (text.empty() ? "" : " or ") + each;
    return text;
}

Bytes slice_of_fat_file(const Bytes& file, const std::vector<std::string>& wanted) {
    const std::vector<FatArch> slices = read_fat_archs(file);
    for (const std::string& best : wanted)
        for (const FatArch& slice : slices)
            if (slice.processor() == best) return file.part(slice.offset, slice.size, "the slice");
    std::string found;
    for (const FatArch& slice : slices) found += (found.empty() ? "" : ", ") + slice.processor();
    refuse("no slice for this processor (found " + (found.empty() ? "none" : found) + ", expected " +
           all_of(wanted) + ")");
}

}  // namespace

std::string processor_text(uint32_t type, uint32_t subtype) {
    if (type == static_cast<uint32_t>(Cpu::x86_64)) return "x86_64";
    if (type != static_cast<uint32_t>(Cpu::arm64)) return "processor " + hex(type);
    if ((subtype & kSubtypeMask) != CPU_SUBTYPE_ARM64E) return "arm64";
    // With more in its upper byte it is of later systems, and nothing that these know.
    return subtype == CPU_SUBTYPE_ARM64E ? "arm64e" : "arm64e of subtype " + hex(subtype);
}

std::string FatArch::processor() const { return processor_text(cpu, subtype); }

bool is_fat(const Bytes& file) {
    return file.size() >= sizeof(fat_header) && file.field_big_endian(&fat_header::magic) == FAT_MAGIC;
}

std::vector<FatArch> read_fat_archs(const Bytes& file) {
    const uint64_t count = file.field_big_endian(&fat_header::nfat_arch);
    const Bytes rows = file.part(sizeof(fat_header), count * sizeof(fat_arch), "the fat header");
    std::vector<FatArch> found;
    for (uint64_t row = 0; row < rows.size(); row += sizeof(fat_arch))
        found.push_back({.index = found.size(),
                         .cpu = rows.field_big_endian(&fat_arch::cputype, row),
                         .subtype = rows.field_big_endian(&fat_arch::cpusubtype, row),
                         .offset = rows.field_big_endian(&fat_arch::offset, row),
                         .size = rows.field_big_endian(&fat_arch::size, row),
                         .align = rows.field_big_endian(&fat_arch::align, row)});
    return found;
}

Bytes choose_slice(const Bytes& file, Cpu cpu, FileType type, Process process) {
    const std::vector<std::string> wanted = taken_by(process, cpu);
    const Bytes slice = is_fat(file) ? slice_of_fat_file(file, wanted) : file;

    if (slice.size() < 4 || slice.field(&mach_header_64::magic) != MH_MAGIC_64)
        refuse("not a Mach-O file (found " + first_bytes(slice) + ", expected cf fa ed fe)");
    const std::string found =
        processor_text(slice.field(&mach_header_64::cputype), slice.field(&mach_header_64::cpusubtype));
    if (std::ranges::find(wanted, found) == wanted.end())
        refuse("built for another processor (found " + found + ", expected " + all_of(wanted) + ")");
    const auto expected = static_cast<uint32_t>(type);
    if (const uint32_t number = slice.field(&mach_header_64::filetype); number != expected)
        refuse(std::string(type == FileType::dylib ? "not a dynamic library" : "not a main executable") +
               " (found file type " + std::to_string(number) + ", expected " + std::to_string(expected) +
               ")");
    return slice;
}

}  // namespace macho
