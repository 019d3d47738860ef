// The image in memory.
#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/layout.h"

namespace macho {

/// Owns the pages that hold an image's segments; unmaps them when destroyed. All addresses are of this
/// process unless said otherwise. Until protect(), everything is writable and nothing can run.
///
/// What the image's own pointers lead to is only ever read through here: a pointer in a damaged file may
/// point anywhere.
class Mapping {
  public:
    /// Reserves the memory and copies the segments there.
    Mapping(const Layout& layout, const Bytes& slice);
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;

    /// Gives every segment the access that the file asks for.
    void protect();

    /// Added to an address as in the file, gives the address in this process.
    uintptr_t slide() const { return slide_; }
    uintptr_t address_of(uint64_t file_address) const { return slide_ + file_address; }

    bool contains(uintptr_t address) const { return find(address, 1) != nullptr; }
    /// Whether that is code which the file itself holds.
    bool is_code(uintptr_t address, uint64_t size = 1) const;
    /// Whether that is in one segment that can be written.
    bool is_writable(uintptr_t address, uint64_t size) const;

    /// Bytes of one readable segment. `what` names them in the Fault that anything else is, and in later
    /// ones.
    Bytes read(uintptr_t address, uint64_t size, std::string_view what) const;
    /// From there to the segment's end.
    Bytes read_onwards(uintptr_t address, std::string_view what) const;
    Bytes read(const Section& section, std::string_view what) const;
    /// Where the pointers are that a section consists of.
    std::vector<uintptr_t> pointers_in(const Section& section) const;
    uintptr_t read_pointer(uintptr_t address, std::string_view what) const;
    /// A text that ends with a zero byte; it stays valid as long as the mapping.
    const char* text(uintptr_t address, std::string_view what) const;

    /// A Fault if that is not in one writable segment, as all that is written must be.
    void require_writable(uintptr_t address, uint64_t size, std::string_view what) const;
    void write_pointer(uintptr_t address, uintptr_t value, std::string_view what);
    void write_int32(uintptr_t address, int32_t value, std::string_view what);

  private:
    struct Reservation {
        explicit Reservation(uint64_t wanted);
        ~Reservation();
        Reservation(const Reservation&) = delete;
        Reservation& operator=(const Reservation&) = delete;

        void* pages;
        uint64_t size;
    };

    const Segment* find(uintptr_t address, uint64_t size) const;
    void write(uintptr_t address, const void* value, uint64_t size, std::string_view what);

    std::vector<Segment> segments_;
    Reservation reservation_;
    uintptr_t slide_;
};

}  // namespace macho
