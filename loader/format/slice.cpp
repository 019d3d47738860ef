// Fat headers, and the first fields of the Mach-O header.
#include "loader/format/slice.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "loader/fault.h"

namespace macho {
namespace {

/// An arm64e subtype with more in its upper byte is of later systems, and nothing that these know.
std::string processor(uint32_t type, uint32_t subtype) {
    if (type == static_cast<uint32_t>(Cpu::x86_64)) return "x86_64";
    if (type == static_cast<uint32_t>(Cpu::arm64))
        return subtype == kSubtypeArm64e                    ? "arm64e"
               : (subtype & kSubtypeMask) == kSubtypeArm64e ? "arm64e of subtype " + hex(subtype)
                                                            : "arm64";
    return "processor " + hex(type);
}

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
    if (cpu != Cpu::arm64) return {processor(static_cast<uint32_t>(cpu), 0)};
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
    constexpr uint64_t header_size = 8, row_size = 20;
    const uint64_t count = file.u32_big_endian(4);
    const Bytes rows = file.part(header_size, count * row_size, "the fat header");
    std::string found;
    for (const std::string& best : wanted) {
        found.clear();
        for (uint64_t row = 0; row < rows.size(); row += row_size) {
            const std::string offered = processor(rows.u32_big_endian(row), rows.u32_big_endian(row + 4));
            if (offered == best)
                return file.part(rows.u32_big_endian(row + 8), rows.u32_big_endian(row + 12), "the slice");
            found += (found.empty() ? "" : ", ") + offered;
        }
    }
    refuse("no slice for this processor (found " + (found.empty() ? "none" : found) + ", expected " +
           all_of(wanted) + ")");
}

}  // namespace

Bytes choose_slice(const Bytes& file, Cpu cpu, FileType type, Process process) {
    const std::vector<std::string> wanted = taken_by(process, cpu);
    const bool fat = file.size() >= 8 && file.u32_big_endian(0) == kFatMagic;
    const Bytes slice = fat ? slice_of_fat_file(file, wanted) : file;

    if (slice.size() < 4 || slice.u32(0) != kMagic)
        refuse("not a Mach-O file (found " + first_bytes(slice) + ", expected cf fa ed fe)");
    const std::string found = processor(slice.u32(4), slice.u32(8));
    if (std::ranges::find(wanted, found) == wanted.end())
        refuse("built for another processor (found " + found + ", expected " + all_of(wanted) + ")");
    const auto expected = static_cast<uint32_t>(type);
    if (const uint32_t number = slice.u32(12); number != expected)
        refuse(std::string(type == FileType::dylib ? "not a dynamic library" : "not a main executable") +
               " (found file type " + std::to_string(number) + ", expected " + std::to_string(expected) +
               ")");
    return slice;
}

}  // namespace macho
