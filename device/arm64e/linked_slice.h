// A linked arm64 slice, as the conversion finds it: where its load commands are, and every pointer that is
// fixed up.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "loader/format/layout.h"

namespace arm64e {

using Data = std::vector<uint8_t>;

/// What a pointer is bound to.
struct Symbol {
    int64_t ordinal;
    std::string name;  ///< as in the file, with the leading underscore
    bool weak_import;

    friend auto operator<=>(const Symbol&, const Symbol&) = default;
};

struct Pointer {
    std::optional<Symbol> symbol;  ///< otherwise it points into the slice
    uint64_t target = 0;           ///< in the slice
    int64_t addend = 0;            ///< with a symbol
};

struct LinkedSlice {
    macho::Layout layout;
    std::map<uint64_t, Pointer> pointers;  ///< by their own addresses
    /// Offsets of load commands in the file; 0 where there is none.
    uint64_t fix_up_command = 0, symbol_command = 0, dynamic_symbol_command = 0, uuid_command = 0;

    const macho::Section* section_at(uint64_t address) const;
    bool is_code(uint64_t address) const;
    /// Where an address of a segment is in the file.
    uint64_t file_offset(uint64_t address) const;

    std::vector<macho::FileRange>
        code;  ///< sections of instructions: addresses of a slice that is below 4 GiB
};

/// What a lazy pointer was bound by, before it is bound at once like the others.
inline constexpr const char* stub_binder = "dyld_stub_binder";

/// Throws a macho::Fault for what is not a linked arm64 slice.
LinkedSlice read_linked_slice(const Data& slice);

uint32_t word(const Data& slice, uint64_t at);
uint64_t double_word(const Data& slice, uint64_t at);
void put(Data& slice, uint64_t at, uint32_t value);
void put(Data& slice, uint64_t at, uint64_t value);

}  // namespace arm64e
