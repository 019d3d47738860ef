// Bind opcodes: which pointers point to symbols of other libraries.
#pragma once
#include <string_view>
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/layout.h"

namespace macho {

enum class BindTable {
    regular,
    lazy,  ///< calls, which the device binds at the first one and we at load
    weak,  ///< C++ definitions of which the whole process should use one
};

/// Special ordinals.
enum SpecialOrdinal : int64_t {
    BIND_SPECIAL_DYLIB_SELF = 0,
    BIND_SPECIAL_DYLIB_MAIN_EXECUTABLE = -1,
    BIND_SPECIAL_DYLIB_FLAT_LOOKUP = -2,
    BIND_SPECIAL_DYLIB_WEAK_LOOKUP = -3,
};

struct BindRow {
    std::string_view symbol;  ///< as in the file, with the leading underscore
    int64_t ordinal;          ///< from 1 an index into Layout::libraries, otherwise a SpecialOrdinal
    bool weak_import;         ///< may be missing
    uint64_t address;         ///< of the pointer, as in the file
    int64_t addend;
};

std::vector<BindRow> read_binds(const Bytes& opcodes, BindTable table, const Layout& layout);

}  // namespace macho
