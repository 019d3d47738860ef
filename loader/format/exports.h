// The export trie: what the image offers by name.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "loader/format/bytes.h"

namespace macho {

struct Export {
    uint64_t value;  ///< counted from the image's header, or an address that does not move
    bool absolute;
};

/// By name as in the file, with the leading underscore.
using ExportTable = std::map<std::string, Export, std::less<>>;

ExportTable read_exports(const Bytes& trie);

/// A symbol as a C programmer writes it: the file puts an underscore before it.
inline std::string_view c_name(std::string_view symbol) {
    return symbol.starts_with('_') ? symbol.substr(1) : symbol;
}

}  // namespace macho
