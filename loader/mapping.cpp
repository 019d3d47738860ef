#include "loader/mapping.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "loader/fault.h"

// With the leak checker in the process, what only the image's variables point to is not a leak.
extern "C" [[gnu::weak]] void __lsan_register_root_region(const void*, size_t);
extern "C" [[gnu::weak]] void __lsan_unregister_root_region(const void*, size_t);

namespace macho {
namespace {

// Code finds its data by distance in pages, and the device's pages are 16 KiB.
constexpr uint64_t kAlignment = 0x4000;

constexpr uint64_t rounded_up(uint64_t value, uint64_t unit) { return (value + unit - 1) / unit * unit; }

void set_access(void* at, uint64_t size, int access, const std::string& subject) {
    if (mprotect(at, size, access) != 0)
        refuse("cannot set the access of " + subject + ": " + strerror(errno));
}

int access_of(const Segment& segment) {
    return (segment.readable ? PROT_READ : 0) | (segment.writable ? PROT_WRITE : 0) |
           (segment.executable ? PROT_EXEC : 0);
}

}  // namespace

Mapping::Reservation::Reservation(uint64_t wanted)
    : pages(mmap(nullptr, wanted, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)),
      size(wanted) {
    if (pages == MAP_FAILED) refuse("cannot reserve " + std::to_string(size) + " bytes: " + strerror(errno));
    if (__lsan_register_root_region) __lsan_register_root_region(pages, size);
}

Mapping::Reservation::~Reservation() {
    if (__lsan_unregister_root_region) __lsan_unregister_root_region(pages, size);
    munmap(pages, size);
}

Mapping::Mapping(const Layout& layout, const Bytes& slice)
    : segments_(layout.segments),
      reservation_(rounded_up(layout.extent, kAlignment) + kAlignment),
      slide_(rounded_up(reinterpret_cast<uintptr_t>(reservation_.pages), kAlignment) - layout.start) {
    const uint64_t page = static_cast<uint64_t>(sysconf(_SC_PAGESIZE));
    for (const Segment& segment : segments_) {
        if (segment.address % page)
            refuse("segment " + segment.name + " starts at " + hex(segment.address) +
                   " (expected a multiple of " + std::to_string(page) + ", the size of a page)");
        if (segment.size == 0) continue;
        auto* at = reinterpret_cast<uint8_t*>(address_of(segment.address));
        set_access(at, segment.size, PROT_READ | PROT_WRITE, "segment " + segment.name);
        const Bytes bytes = slice.part(segment.file_offset, segment.file_size, "a segment");
        std::memcpy(at, bytes.data(), bytes.size());
    }
}

void Mapping::protect() {
    for (const Segment& segment : segments_) {
        if (segment.size == 0) continue;
        auto* at = reinterpret_cast<char*>(address_of(segment.address));
        if (segment.executable) __builtin___clear_cache(at, at + segment.size);
        set_access(at, segment.size, access_of(segment), "segment " + segment.name);
    }
}

const Segment* Mapping::find(uintptr_t address, uint64_t size) const {
    for (const Segment& segment : segments_) {
        const uintptr_t offset = address - address_of(segment.address);
        if (offset < segment.size && size <= segment.size - offset) return &segment;
    }
    return nullptr;
}

bool Mapping::is_code(uintptr_t address, uint64_t size) const {
    const Segment* segment = find(address, size);
    return segment && segment->executable &&
           address - address_of(segment->address) + size <= segment->file_size;
}

bool Mapping::is_writable(uintptr_t address, uint64_t size) const {
    const Segment* segment = find(address, size);
    return segment && segment->writable;
}

Bytes Mapping::read(uintptr_t address, uint64_t size, std::string_view what) const {
    const Segment* segment = find(address, size);
    if (!segment || !segment->readable)
        refuse(std::string(what) + " lies outside the image (found " + std::to_string(size) + " bytes at " +
               hex(address - slide_) + ")");
    return {{reinterpret_cast<const uint8_t*>(address), size}, what};
}

Bytes Mapping::read(const Section& section, std::string_view what) const {
    if (section.size == 0) return {{}, what};  // which may be just behind its segment
    return read(address_of(section.address), section.size, what);
}

Bytes Mapping::read_onwards(uintptr_t address, std::string_view what) const {
    const Segment* segment = find(address, 1);
    return read(address, segment ? address_of(segment->address) + segment->size - address : 1, what);
}

std::vector<uintptr_t> Mapping::pointers_in(const Section& section) const {
    if (section.size % kPointerSize)
        refuse("section " + section.name + " has " + std::to_string(section.size) +
               " bytes (expected a multiple of " + std::to_string(kPointerSize) + ")");
    std::vector<uintptr_t> found;
    for (uint64_t at = 0; at < section.size; at += kPointerSize)
        found.push_back(address_of(section.address + at));
    return found;
}

uintptr_t Mapping::read_pointer(uintptr_t address, std::string_view what) const {
    return read(address, sizeof(uintptr_t), what).u64(0);
}

const char* Mapping::text(uintptr_t address, std::string_view what) const {
    return read_onwards(address, what).text(0).data();
}

void Mapping::require_writable(uintptr_t address, uint64_t size, std::string_view what) const {
    if (!is_writable(address, size))
        refuse(std::string(what) + " is not in a writable part of the image (found " + hex(address - slide_) +
               ")");
}

void Mapping::write(uintptr_t address, const void* value, uint64_t size, std::string_view what) {
    require_writable(address, size, what);
    std::memcpy(reinterpret_cast<void*>(address), value, size);
}

void Mapping::write_pointer(uintptr_t address, uintptr_t value, std::string_view what) {
    write(address, &value, sizeof value, what);
}

void Mapping::write_int32(uintptr_t address, int32_t value, std::string_view what) {
    write(address, &value, sizeof value, what);
}

}  // namespace macho
