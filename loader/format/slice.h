// Fat files, and the part that is meant for a processor.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/format.h"

namespace macho {

/// A row of a fat file's header.
struct FatArch {
    size_t index;
    uint32_t cpu, subtype, offset, size;
    uint32_t align;  ///< the power of two that `offset` is a multiple of

    uint64_t end() const { return uint64_t{offset} + size; }
    std::string processor() const;
};

bool is_fat(const Bytes& file);
std::vector<FatArch> read_fat_archs(const Bytes& file);

/// "x86_64", "arm64", "arm64e", "arm64e of subtype 0x80000002", "processor 0x7".
std::string processor_text(uint32_t type, uint32_t subtype);

/// The Mach-O dylib or main executable for `cpu` inside `file`: the file itself, or one slice of a fat file.
/// Its magic number, processor and file type are what they should be.
Bytes choose_slice(const Bytes& file, Cpu cpu, FileType type = FileType::dylib,
                   Process process = Process::arm64);

}  // namespace macho
