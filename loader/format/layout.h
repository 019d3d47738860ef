// What a dylib's load commands say: segments, sections, libraries, and where the tables are.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "loader/format/bytes.h"
#include "loader/format/format.h"

namespace macho {

/// segment_command_64. Addresses are those of the file, before the image is moved to where it is mapped.
struct Segment {
    std::string name;
    uint64_t address, size;
    uint64_t file_offset, file_size;  ///< file_size <= size; the rest is zeros
    bool readable, writable, executable;
};

/// section_64.
struct Section {
    std::string segment, name;
    uint64_t address, size;
    SectionType type;
};

/// Offset and size within the slice.
struct FileRange {
    uint32_t offset = 0, size = 0;
};

/// A library that the image asks for (dylib_command), and the oldest version that it is content with.
struct Dependency {
    std::string install_name;
    uint32_t compatibility_version;
    Command command = LC_LOAD_DYLIB;
    bool left_out = false;  ///< weak and too old: its symbols are missing

    bool is_weak() const { return command == LC_LOAD_WEAK_DYLIB; }
};

/// What LC_BUILD_VERSION says, or LC_VERSION_MIN_* of older linkers.
struct BuildVersion {
    Command command;
    uint32_t platform;        ///< a Platform, usually
    uint32_t minimum_system;  ///< 0x000c0000 is 12.0.0
};

struct Layout {
    Cpu cpu;
    bool arm64e;  ///< its fix-ups are threaded
    FileType type;
    std::vector<Segment> segments;  ///< in file order, which the fix-up opcodes count by
    std::vector<Section> sections;
    std::vector<Dependency> libraries;  ///< in file order, which binds count by, from 1
    std::string install_name;
    std::vector<BuildVersion> build_versions;  ///< usually one
    FileRange rebase, bind, weak_bind, lazy_bind, exports;
    bool position_independent = false;
    std::string dynamic_linker;     ///< of a main executable
    std::optional<uint64_t> entry;  ///< of a main executable: its first instruction, from the header
    FileRange signature;            ///< empty where there is none; nothing of it is checked here
    uint64_t header_address = 0;    ///< where the Mach-O header is: exports and unwind offsets count from it

    uint64_t start = 0;   ///< the lowest segment's address
    uint64_t extent = 0;  ///< from there to the highest segment's end

    /// The first section of that name, in whatever segment, or null.
    const Section* section(std::string_view name) const;
};

/// Reads and checks the load commands of a slice. Segments neither overlap nor leave the file, sections lie
/// in their segments, and the whole is at most kLargestImage bytes.
Layout read_layout(const Bytes& slice);

inline constexpr uint64_t kLargestImage = 64 << 20;

}  // namespace macho
