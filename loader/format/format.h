// The numbers of the Mach-O file format that the loader knows.
#pragma once
#include <cstdint>

namespace macho {

inline constexpr uint32_t MH_MAGIC_64 = 0xfeedfacf;  // 64 bits, little-endian
inline constexpr uint32_t MH_MAGIC = 0xfeedface;     // 32 bits
inline constexpr uint32_t FAT_MAGIC = 0xcafebabe;    // read big-endian, as all of the fat header is

inline constexpr uint64_t kPointerSize = 8;

enum class Cpu : uint32_t { x86_64 = 0x01000007, arm64 = 0x0100000c };
#if defined(__aarch64__)
inline constexpr Cpu kThisCpu = Cpu::arm64;
#else
inline constexpr Cpu kThisCpu = Cpu::x86_64;
#endif
/// Code pages are 16 KiB on arm64, and 4 KiB in the iOS simulator.
constexpr uint64_t page_size(Cpu cpu) { return cpu == Cpu::arm64 ? 0x4000 : 0x1000; }
inline constexpr uint32_t kSubtypeMask = 0x00ffffff;  // without capability bits
inline constexpr uint32_t CPU_SUBTYPE_ARM64E = 2;

/// What an image is loaded into.
enum class Process {
    arm64,         ///< on a processor up to the A11
    arm64_on_a12,  ///< an application there: of a file it gets the arm64e slice first
    arm64e,        ///< the system's own on an A12: it takes arm64e alone
};

enum class FileType : uint32_t { executable = 2, dylib = 6 };  // MH_EXECUTE, MH_DYLIB
inline constexpr uint32_t MH_PIE = 0x200000;

enum Command : uint32_t {
    LC_SEGMENT = 0x1,
    LC_SYMTAB = 0x2,
    LC_SYMSEG = 0x3,
    LC_THREAD = 0x4,
    LC_UNIXTHREAD = 0x5,
    LC_LOADFVMLIB = 0x6,
    LC_IDFVMLIB = 0x7,
    LC_IDENT = 0x8,
    LC_FVMFILE = 0x9,
    LC_PREPAGE = 0xa,
    LC_DYSYMTAB = 0xb,
    LC_LOAD_DYLIB = 0xc,
    LC_ID_DYLIB = 0xd,
    LC_LOAD_DYLINKER = 0xe,
    LC_ID_DYLINKER = 0xf,
    LC_PREBOUND_DYLIB = 0x10,
    LC_ROUTINES = 0x11,
    LC_SUB_FRAMEWORK = 0x12,
    LC_SUB_UMBRELLA = 0x13,
    LC_SUB_CLIENT = 0x14,
    LC_SUB_LIBRARY = 0x15,
    LC_TWOLEVEL_HINTS = 0x16,
    LC_PREBIND_CKSUM = 0x17,
    LC_LOAD_WEAK_DYLIB = 0x80000018,
    LC_SEGMENT_64 = 0x19,
    LC_ROUTINES_64 = 0x1a,
    LC_UUID = 0x1b,
    LC_RPATH = 0x8000001c,
    LC_CODE_SIGNATURE = 0x1d,
    LC_SEGMENT_SPLIT_INFO = 0x1e,
    LC_REEXPORT_DYLIB = 0x8000001f,
    LC_LAZY_LOAD_DYLIB = 0x20,
    LC_ENCRYPTION_INFO = 0x21,
    LC_DYLD_INFO = 0x22,
    LC_DYLD_INFO_ONLY = 0x80000022,
    LC_LOAD_UPWARD_DYLIB = 0x80000023,
    LC_VERSION_MIN_MACOSX = 0x24,
    LC_VERSION_MIN_IPHONEOS = 0x25,
    LC_FUNCTION_STARTS = 0x26,
    LC_DYLD_ENVIRONMENT = 0x27,
    LC_MAIN = 0x80000028,
    LC_DATA_IN_CODE = 0x29,
    LC_SOURCE_VERSION = 0x2a,
    LC_DYLIB_CODE_SIGN_DRS = 0x2b,
    LC_ENCRYPTION_INFO_64 = 0x2c,
    LC_LINKER_OPTION = 0x2d,
    LC_LINKER_OPTIMIZATION_HINT = 0x2e,
    LC_VERSION_MIN_TVOS = 0x2f,
    LC_VERSION_MIN_WATCHOS = 0x30,
    LC_NOTE = 0x31,
    LC_BUILD_VERSION = 0x32,
    LC_DYLD_EXPORTS_TRIE = 0x80000033,
    LC_DYLD_CHAINED_FIXUPS = 0x80000034,
    LC_FILESET_ENTRY = 0x80000035,
    LC_ATOM_INFO = 0x36,
};
inline constexpr uint32_t LC_REQ_DYLD = 0x80000000;  // a loader that does not know the command must refuse

enum Platform : uint32_t {
    PLATFORM_MACOS = 1,
    PLATFORM_IOS = 2,
    PLATFORM_TVOS = 3,
    PLATFORM_WATCHOS = 4,
    PLATFORM_IOSSIMULATOR = 7,
    PLATFORM_TVOSSIMULATOR = 8,
    PLATFORM_WATCHOSSIMULATOR = 9,
};

inline constexpr uint32_t VM_PROT_READ = 1, VM_PROT_WRITE = 2, VM_PROT_EXECUTE = 4;

enum SectionType : uint8_t {
    S_REGULAR = 0x00,
    S_ZEROFILL = 0x01,
    S_MOD_INIT_FUNC_POINTERS = 0x09,
    S_MOD_TERM_FUNC_POINTERS = 0x0a,
    S_GB_ZEROFILL = 0x0c,
    S_INTERPOSING = 0x0d,
    S_LAZY_DYLIB_SYMBOL_POINTERS = 0x10,
    S_THREAD_LOCAL_REGULAR = 0x11,
    S_THREAD_LOCAL_ZEROFILL = 0x12,
    S_THREAD_LOCAL_VARIABLES = 0x13,
    S_THREAD_LOCAL_VARIABLE_POINTERS = 0x14,
    S_THREAD_LOCAL_INIT_FUNCTION_POINTERS = 0x15,
    S_INIT_FUNC_OFFSETS = 0x16,
};
inline constexpr uint32_t SECTION_TYPE = 0x000000ff;  // of a section's flags
inline constexpr SectionType kLastSectionType = S_INIT_FUNC_OFFSETS;

}  // namespace macho
