// Seeded damage to an image.
#include "mutation.h"

#include <algorithm>
#include <cstring>

#include "loader/format/format.h"
#include "loader/format/structures.h"

namespace loader_test {
namespace {

template <class T>
T read(const std::vector<uint8_t>& bytes, size_t at) {
    T value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

using macho::mach_header_64, macho::section_64, macho::segment_command_64;

size_t unit_of(const std::string& section) {
    if (section == "__unwind_info" || section == "__eh_frame" || section == "__gcc_except_tab") return 4;
    const bool is_text = section == "__cstring" || section == "__text" ||
                         section.find("name") != section.npos || section.find("methtype") != section.npos;
    return is_text ? 1 : 8;
}

}  // namespace

std::vector<Region> regions_of(const std::vector<uint8_t>& image) {
    std::vector<Region> found{{"header", 0, sizeof(mach_header_64), 4}};
    const auto add = [&](const std::string& name, size_t begin, size_t size, size_t unit) {
        if (size) found.push_back({name, begin, begin + size, unit});
    };
    size_t at = sizeof(mach_header_64);
    for (uint32_t left = read<uint32_t>(image, 16); left > 0; --left) {
        const auto command = read<uint32_t>(image, at), size = read<uint32_t>(image, at + 4);
        if (command == macho::LC_SEGMENT_64) {
            add("segment", at, sizeof(segment_command_64), 8);
            add("segment", at, sizeof(segment_command_64), 4);
            for (uint32_t i = 0; i < read<uint32_t>(image, at + 64); ++i) {
                const size_t row = at + sizeof(segment_command_64) + i * sizeof(section_64);
                const auto* text = reinterpret_cast<const char*>(image.data() + row);
                const std::string name(text, strnlen(text, 16));
                add("section row", row, 32, 1);
                add("section row", row + 32, sizeof(section_64) - 32, 8);
                add("section row", row + 48, sizeof(section_64) - 48, 4);
                if (const auto offset = read<uint32_t>(image, row + 48))
                    add(name, offset, read<uint64_t>(image, row + 40), unit_of(name));
            }
        } else {
            add("load command", at, size, 4);
            if (command == macho::LC_DYLD_INFO_ONLY)
                for (size_t table = at + 8; table < at + 48; table += 8)
                    add("fix-ups", read<uint32_t>(image, table), read<uint32_t>(image, table + 4), 1);
            if (command == macho::LC_SYMTAB) {
                add("symbols", read<uint32_t>(image, at + 8), 16 * read<uint32_t>(image, at + 12), 4);
                add("symbol names", read<uint32_t>(image, at + 16), read<uint32_t>(image, at + 20), 1);
            }
        }
        at += size;
    }
    return found;
}

std::vector<uint8_t> Mutator::mutated(uint32_t seed) {
    random_.seed(seed);
    bytes_ = intact_;
    for (uint32_t left = 1 + below(3); left > 0; --left) seed % 2 ? change_in_a_region() : change_anywhere();
    return bytes_;
}

uint64_t Mutator::number() {
    constexpr uint64_t extremes[] = {0,
                                     1,
                                     7,
                                     0x7f,
                                     0x80,
                                     0xff,
                                     0xffff,
                                     0x7fffffff,
                                     0x80000000,
                                     0xffffffff,
                                     0xfffffff8,
                                     uint64_t{1} << 60,
                                     ~uint64_t{0},
                                     ~uint64_t{7},
                                     uint64_t{1} << 63};
    return extremes[below(std::size(extremes))];
}

/// Bytes that are zero are mostly padding: places that hold something are preferred.
size_t Mutator::place() {
    size_t at = 0;
    for (int tries = 0; tries < 50 && bytes_[at = below(bytes_.size())] == 0; ++tries) {
    }
    return at;
}

void Mutator::put(size_t at, uint64_t value, size_t width) {
    for (size_t i = 0; i < width && at + i < bytes_.size(); ++i)
        bytes_[at + i] = static_cast<uint8_t>(value >> (8 * i));
}

uint64_t Mutator::get(size_t at, size_t width) const {
    uint64_t value = 0;
    for (size_t i = 0; i < width && at + i < bytes_.size(); ++i) value |= uint64_t{bytes_[at + i]} << (8 * i);
    return value;
}

void Mutator::change_anywhere() {
    const size_t at = place();
    switch (below(6)) {
        case 0: bytes_[at] ^= static_cast<uint8_t>(1 << below(8)); break;
        case 1: bytes_[at] = static_cast<uint8_t>(below(256)); break;
        case 2: put(at, number(), 4); break;
        case 3: put(at, number(), 8); break;
        case 4:
            for (size_t i = 0, from = place(); i < 8 && std::max(at, from) + i < bytes_.size(); ++i)
                bytes_[at + i] = bytes_[from + i];
            break;
        case 5:
            if (below(8) == 0) bytes_.resize(1 + at);
            break;
    }
}

void Mutator::change_in_a_region() {
    const Region& region = regions_[below(regions_.size())];
    region.unit == 1 ? change_text(region) : change_word(region);
}

void Mutator::change_word(const Region& region) {
    const size_t count = (region.end - region.begin) / region.unit;
    if (count == 0) return;
    const auto word = [&] { return region.begin + region.unit * below(count); };
    const size_t at = word();
    const uint64_t value = get(at, region.unit);
    switch (below(7)) {
        case 0: put(at, number(), region.unit); break;
        case 1: put(at, value + (below(2) ? 1 : ~uint64_t{0}) * (1 + below(16)), region.unit); break;
        case 2: put(at, value ^ (uint64_t{1} << below(8 * region.unit)), region.unit); break;
        case 3: put(at, get(word(), region.unit), region.unit); break;  // another's value
        case 4: {
            const size_t other = word();
            put(at, get(other, region.unit), region.unit);
            put(other, value, region.unit);
            break;
        }
        case 5: {  // a value of another kind: an address for a count, a name for a list
            const Region& other = regions_[below(regions_.size())];
            put(at, get(other.begin + below(other.end - other.begin), region.unit), region.unit);
            break;
        }
        case 6: put(at, below(0x10000), region.unit); break;
    }
}

void Mutator::change_text(const Region& region) {
    constexpr char letters[] =
        "\0\0\n\x1b\x7f\xff"
        "A@\":{[(^_%$/ 0";
    const size_t size = region.end - region.begin;
    const size_t at = region.begin + below(size);
    switch (below(5)) {
        case 0: put(at, static_cast<uint8_t>(letters[below(sizeof letters)]), 1); break;
        case 1: bytes_[at] ^= static_cast<uint8_t>(1 << below(8)); break;
        case 2: bytes_[at] = static_cast<uint8_t>(below(256)); break;
        case 3:  // one text over another
            for (size_t i = 0, from = region.begin + below(size); i < 12; ++i)
                if (std::max(at, from) + i < region.end) bytes_[at + i] = bytes_[from + i];
            break;
        case 4:  // no end for a while
            for (size_t i = at; i < region.end && i < at + 40; ++i)
                if (bytes_[i] == 0) bytes_[i] = 'x';
            break;
    }
}

}  // namespace loader_test
