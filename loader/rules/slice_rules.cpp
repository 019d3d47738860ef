#include <algorithm>
#include <string>
#include <vector>

#include "loader/fault.h"
#include "loader/format/slice.h"
#include "loader/format/structures.h"
#include "loader/rules/rules.h"

namespace macho {
namespace {

constexpr uint32_t kLargestAlign = 15;      // as linkers bound it: 2^15
constexpr uint64_t kSmallestOffset = 4096;  // the system reads that much to find the slices
constexpr uint64_t kMostSlices = (kSmallestOffset - sizeof(fat_header)) / sizeof(fat_arch);

[[noreturn]] void broken(const FatArch& slice, const std::string& what, const std::string& found,
                         const std::string& expected) {
    refuse("fat_arch " + std::to_string(slice.index) + " (" + slice.processor() + "): " + what + " (found " +
           found + ", expected " + expected + ")");
}

void check_place(const FatArch& slice, const Bytes& file) {
    if (slice.align > kLargestAlign)
        broken(slice, "align", "2^" + std::to_string(slice.align),
               "at most 2^" + std::to_string(kLargestAlign));
    if (slice.offset < kSmallestOffset)
        broken(slice, "offset", hex(slice.offset), "at least " + hex(kSmallestOffset));
    if (const uint64_t unit = uint64_t{1} << slice.align; slice.offset % unit)
        broken(slice, "offset", hex(slice.offset), "a multiple of " + hex(unit) + ", its align");
    if (const uint64_t page = page_size(static_cast<Cpu>(slice.cpu)); slice.offset % page)
        broken(slice, "offset", hex(slice.offset), "a multiple of " + hex(page) + ", the size of a page");
    if (slice.size < sizeof(mach_header_64))
        broken(slice, "size", hex(slice.size),
               "at least " + hex(sizeof(mach_header_64)) + ", the size of the header");
    if (slice.end() > file.size())
        broken(slice, "end in the file", hex(slice.end()), "at most " + hex(file.size()));
}

void check_header(const FatArch& slice, const Bytes& file) {
    const Bytes header = file.part(slice.offset, sizeof(mach_header_64), "a slice's header");
    if (const uint32_t magic = header.field(&mach_header_64::magic);
        magic != MH_MAGIC_64 && magic != MH_MAGIC)
        broken(slice, "magic of its header", hex(magic), hex(MH_MAGIC_64));
    const std::string processor =
        processor_text(header.field(&mach_header_64::cputype), header.field(&mach_header_64::cpusubtype));
    if (processor != slice.processor()) broken(slice, "cputype of its header", processor, slice.processor());
}

}  // namespace

void check_slices(const Bytes& file) {
    if (!is_fat(file)) return;
    if (const uint32_t count = file.field_big_endian(&fat_header::nfat_arch); count > kMostSlices)
        refuse("fat_header: nfat_arch (found " + std::to_string(count) + ", expected at most " +
               std::to_string(kMostSlices) + ")");
    std::vector<FatArch> slices = read_fat_archs(file);
    for (const FatArch& slice : slices) {
        check_place(slice, file);
        check_header(slice, file);
    }
    std::ranges::sort(slices, {}, &FatArch::offset);
    for (size_t i = 1; i < slices.size(); ++i)
        if (slices[i].offset < slices[i - 1].end())
            broken(slices[i], "offset", hex(slices[i].offset),
                   "at least " + hex(slices[i - 1].end()) + ", where the slice before it ends");
}

}  // namespace macho
