// The numbers of the Mach-O file format that the loader knows.
#pragma once
#include <cstdint>

namespace macho {

inline constexpr uint32_t kMagic = 0xfeedfacf;     // 64 bits, little-endian
inline constexpr uint32_t kFatMagic = 0xcafebabe;  // read big-endian, as all of the fat header is

inline constexpr uint64_t kPointerSize = 8;

enum class Cpu : uint32_t { x86_64 = 0x01000007, arm64 = 0x0100000c };
#if defined(__aarch64__)
inline constexpr Cpu kThisCpu = Cpu::arm64;
#else
inline constexpr Cpu kThisCpu = Cpu::x86_64;
#endif
inline constexpr uint32_t kSubtypeMask = 0x00ffffff;  // what is left are capability bits
inline constexpr uint32_t kSubtypeArm64e = 2;

/// What an image is loaded into.
enum class Process {
    arm64,         ///< on a processor up to the A11
    arm64_on_a12,  ///< an application there: of a file it gets the arm64e slice first
    arm64e,        ///< the system's own on an A12: it takes arm64e alone
};

enum class FileType : uint32_t { executable = 2, dylib = 6 };
inline constexpr uint32_t kFlagPositionIndependent = 0x200000;

enum class Command : uint32_t {
    segment = 0x1,
    thread = 0x4,
    unix_thread = 0x5,
    load_fixed_library = 0x6,
    id_fixed_library = 0x7,
    fixed_file = 0x9,
    load_dylib = 0xc,
    id_dylib = 0xd,
    load_dynamic_linker = 0xe,
    routines = 0x11,
    segment_64 = 0x19,
    routines_64 = 0x1a,
    code_signature = 0x1d,
    lazy_load_dylib = 0x20,
    encryption_info = 0x21,
    dyld_info = 0x22,
    version_min_iphoneos = 0x25,
    encryption_info_64 = 0x2c,
    build_version = 0x32,
    load_weak_dylib = 0x80000018,
    rpath = 0x8000001c,
    reexport_dylib = 0x8000001f,
    dyld_info_only = 0x80000022,
    load_upward_dylib = 0x80000023,
    main = 0x80000028,
    dyld_exports_trie = 0x80000033,
    dyld_chained_fixups = 0x80000034,
};
inline constexpr uint32_t kRequiredByDyld =
    0x80000000;  // a loader that does not know the command must refuse

inline constexpr uint32_t kPlatformIos = 2;

enum class SectionType : uint8_t {
    regular = 0x00,
    zero_fill = 0x01,
    initialisers = 0x09,
    terminators = 0x0a,
    large_zero_fill = 0x0c,
    interposing = 0x0d,
    lazy_library_pointers = 0x10,
    thread_local_regular = 0x11,
    thread_local_zero_fill = 0x12,
    thread_local_variables = 0x13,
    thread_local_pointers = 0x14,
    thread_local_initialisers = 0x15,
    initialiser_offsets = 0x16,
};
inline constexpr SectionType kLastSectionType = SectionType::initialiser_offsets;

}  // namespace macho
