// Finding and changing places in an image.
#include "draft.h"

#include <cstring>
#include <stdexcept>

#include "host.h"
#include "loader/format/structures.h"

namespace loader_test {
namespace {

using macho::mach_header_64, macho::section_64, macho::segment_command_64;

template <class T>
T get(const std::vector<uint8_t>& bytes, size_t at) {
    T value;
    std::memcpy(&value, &bytes.at(at + sizeof value - 1) - (sizeof value - 1), sizeof value);
    return value;
}

template <class T>
void put(std::vector<uint8_t>& bytes, size_t at, T value) {
    std::memcpy(&bytes.at(at + sizeof value - 1) - (sizeof value - 1), &value, sizeof value);
}

}  // namespace

Draft::Draft(const std::string& image) : name_(image + ".dylib"), bytes_(image_bytes(image)) {}

uint32_t Draft::u32(size_t at) const { return get<uint32_t>(bytes_, at); }
uint64_t Draft::u64(size_t at) const { return get<uint64_t>(bytes_, at); }

Draft& Draft::set8(size_t at, uint8_t value) { return put(bytes_, at, value), *this; }
Draft& Draft::set16(size_t at, uint16_t value) { return put(bytes_, at, value), *this; }
Draft& Draft::set32(size_t at, uint32_t value) { return put(bytes_, at, value), *this; }
Draft& Draft::set64(size_t at, uint64_t value) { return put(bytes_, at, value), *this; }

Draft& Draft::set_text(size_t at, std::string_view text) {
    for (const char letter : text) set8(at++, static_cast<uint8_t>(letter));
    return set8(at, 0);
}

size_t Draft::find_command(uint32_t number, std::string_view segment) const {
    size_t at = sizeof(mach_header_64);
    for (uint32_t left = u32(16); left > 0; --left) {
        const char* name = reinterpret_cast<const char*>(&bytes_.at(at + 8));
        if (u32(at) == number && (segment.empty() || segment == std::string(name, strnlen(name, 16))))
            return at;
        at += u32(at + 4);
    }
    throw std::runtime_error(name_ + " has no load command " + std::to_string(number) + " " +
                             std::string(segment));
}

size_t Draft::command(macho::Command command) const {
    return find_command(static_cast<uint32_t>(command), "");
}

size_t Draft::segment(std::string_view name) const { return find_command(macho::LC_SEGMENT_64, name); }

size_t Draft::section(std::string_view name) const {
    for (const char* segment : {"__TEXT", "__DATA"}) {
        const size_t head = this->segment(segment);
        for (uint32_t i = 0; i < u32(head + 64); ++i) {
            const size_t row = head + sizeof(segment_command_64) + i * sizeof(section_64);
            const char* found = reinterpret_cast<const char*>(&bytes_.at(row));
            if (name == std::string(found, strnlen(found, 16))) return row;
        }
    }
    throw std::runtime_error(name_ + " has no section " + std::string(name));
}

size_t Draft::content(std::string_view section) const { return u32(this->section(section) + 48); }

size_t Draft::at_address(uint64_t address) const {
    for (const char* name : {"__TEXT", "__DATA"}) {
        const size_t head = segment(name);
        const uint64_t start = u64(head + 24), size = u64(head + 48);
        if (address >= start && address - start < size) return u64(head + 40) + address - start;
    }
    throw std::runtime_error(name_ + " has nothing at the address " + std::to_string(address));
}

Draft& Draft::set_table(Table table, const std::vector<uint8_t>& bytes) {
    const size_t info = command(macho::LC_DYLD_INFO_ONLY);
    set32(info + table, static_cast<uint32_t>(bytes_.size()));
    set32(info + table + 4, static_cast<uint32_t>(bytes.size()));
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
}

macho::Image Draft::load() const { return load(macho::no_rules()); }

macho::Image Draft::load(const macho::Rules& rules) const {
    return macho::Image::load_bytes(bytes_, name_, host_symbol, rules);
}

std::string Draft::load_error() const { return load_error(macho::no_rules()); }

std::string Draft::load_error(const macho::Rules& rules) const {
    return message_of<macho::Error>([&] { load(rules); });
}

}  // namespace loader_test
