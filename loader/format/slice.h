// Finds the part of a file that is meant for a processor.
#pragma once
#include "loader/format/bytes.h"
#include "loader/format/format.h"

namespace macho {

/// The Mach-O dylib or main executable for `cpu` inside `file`: the file itself, or one slice of a fat file.
/// Its magic number, processor and file type are what they should be.
Bytes choose_slice(const Bytes& file, Cpu cpu, FileType type = FileType::dylib,
                   Process process = Process::arm64);

}  // namespace macho
