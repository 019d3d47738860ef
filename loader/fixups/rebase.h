// Rebase opcodes: which pointers move with the image.
#pragma once
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/layout.h"

namespace macho {

/// The addresses, as in the file, of all pointers that point into the image itself.
std::vector<uint64_t> read_rebases(const Bytes& opcodes, const Layout& layout);

}  // namespace macho
