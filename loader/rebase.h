// Rebase opcodes: which pointers move with the image.
#pragma once
#include <vector>

#include "loader/bytes.h"
#include "loader/layout.h"

namespace macho {

/// The addresses, as in the file, of all pointers that point into the image itself.
std::vector<uint64_t> read_rebases(const Bytes& opcodes, const Layout& layout);

}  // namespace macho
