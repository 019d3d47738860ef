// The signature at the end of a dylib: hashes of all its pages, which the system compares when it reads one.
#pragma once
#include <cstddef>

#include "loader/bytes.h"
#include "loader/layout.h"

namespace command {

/// Hashes every page of the slice and holds it against the signature. Returns the number of pages; throws
/// macho::Fault for what is no sound ad-hoc signature.
size_t verify_signature(const macho::Bytes& slice, const macho::Layout& layout);

}  // namespace command
