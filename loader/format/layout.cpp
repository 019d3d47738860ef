#include "loader/format/layout.h"

#include <algorithm>

#include "loader/fault.h"
#include "loader/format/command_names.h"
#include "loader/format/structures.h"

namespace macho {
namespace {

struct Unsupported {
    SectionType type;
    const char* what;
};

constexpr Unsupported kUnsupported[] = {
    {S_MOD_TERM_FUNC_POINTERS, "terminators"},
    {S_INTERPOSING, "interposed functions"},
    {S_LAZY_DYLIB_SYMBOL_POINTERS, "pointers into lazily loaded libraries"},
    {S_INIT_FUNC_OFFSETS, "initialisers by offset"},
    {S_THREAD_LOCAL_REGULAR, "thread-local variables"},
    {S_THREAD_LOCAL_ZEROFILL, "thread-local variables"},
    {S_THREAD_LOCAL_VARIABLES, "thread-local variables"},
    {S_THREAD_LOCAL_VARIABLE_POINTERS, "thread-local variables"},
    {S_THREAD_LOCAL_INIT_FUNCTION_POINTERS, "thread-local variables"},
};

bool has_no_bytes(SectionType type) { return type == S_ZEROFILL || type == S_GB_ZEROFILL; }

/// Whether [at, at + size) lies in [outer_at, outer_at + outer_size), in numbers that may be anything.
bool inside(uint64_t at, uint64_t size, uint64_t outer_at, uint64_t outer_size) {
    return at >= outer_at && at - outer_at <= outer_size && size <= outer_size - (at - outer_at);
}

std::string range(uint64_t at, uint64_t size) { return hex(size) + " bytes at " + hex(at); }

Section read_section(const Bytes& row, const Segment& segment) {
    const Section section{.segment = row.padded_text(&section_64::segname),
                          .name = row.padded_text(&section_64::sectname),
                          .address = row.field(&section_64::addr),
                          .size = row.field(&section_64::size),
                          .type = static_cast<SectionType>(row.field(&section_64::flags) & SECTION_TYPE)};
    const std::string subject = "section " + section.name;
    for (const auto& [type, what] : kUnsupported)
        if (section.type == type) refuse(subject + " holds " + what + ", which are not supported");
    const uint64_t room = has_no_bytes(section.type) ? segment.size : segment.file_size;
    if (section.type > kLastSectionType) refuse(subject + " has the unknown type " + hex(section.type));
    if (!inside(section.address, section.size, segment.address, room))
        refuse(subject + " leaves segment " + segment.name + " (found " +
               range(section.address, section.size) + ", expected within " + range(segment.address, room) +
               ")");
    return section;
}

class LoadCommands {
  public:
    explicit LoadCommands(const Bytes& slice) : slice_(slice) {
        layout_.cpu = static_cast<Cpu>(slice.field(&mach_header_64::cputype));
        layout_.arm64e =
            layout_.cpu == Cpu::arm64 && slice.field(&mach_header_64::cpusubtype) == CPU_SUBTYPE_ARM64E;
        layout_.type = static_cast<FileType>(slice.field(&mach_header_64::filetype));
        layout_.position_independent = (slice.field(&mach_header_64::flags) & MH_PIE) != 0;
    }

    Layout read() {
        const uint32_t count = slice_.field(&mach_header_64::ncmds);
        const Bytes all = slice_.part(sizeof(mach_header_64), slice_.field(&mach_header_64::sizeofcmds),
                                      "the list of load commands");
        uint64_t at = 0;
        for (uint32_t i = 0; i < count; ++i) {
            const uint32_t number = all.field(&load_command::cmd, at),
                           size = all.field(&load_command::cmdsize, at);
            if (size < sizeof(load_command) || size % 8)
                refuse("load command " + std::to_string(i) + " (" + name_of_command(number) + ") has size " +
                       std::to_string(size) + ", expected a multiple of 8");
            // The views of its bytes name it while it is read.
            const std::string name = "load command " + name_of_command(number);
            one(number, all.part(at, size, name));
            at += size;
        }
        if (is_executable() && !layout_.entry) refuse("no entry point (expected the load command LC_MAIN)");
        if (!has_tables_) refuse("no fix-up tables (expected the load command LC_DYLD_INFO_ONLY)");
        check_segments();
        check_entry();
        return std::move(layout_);
    }

  private:
    bool is_executable() const { return layout_.type == FileType::executable; }
    /// A main executable reserves the addresses that are not pointers by mistake: nothing is to be mapped.
    bool only_reserves(const Segment& segment) const {
        return is_executable() && segment.file_size == 0 && !segment.readable && !segment.writable &&
               !segment.executable;
    }

    void check_entry() const {
        if (!layout_.entry) return;
        const auto begins_in = [at = layout_.header_address + *layout_.entry](const Segment& segment) {
            return segment.executable && at >= segment.address && at - segment.address < segment.file_size;
        };
        if (std::ranges::none_of(layout_.segments, begins_in))
            refuse("LC_MAIN: the entry point is not code of the image (found " + hex(*layout_.entry) + ")");
    }

    void one(uint32_t number, const Bytes& command) {
        switch (number) {
            case LC_SEGMENT_64: return segment(command);
            case LC_LOAD_DYLIB:
            case LC_LOAD_WEAK_DYLIB:
            case LC_REEXPORT_DYLIB:
            case LC_LOAD_UPWARD_DYLIB:
            case LC_LAZY_LOAD_DYLIB:
                layout_.libraries.push_back(
                    {.install_name = std::string(command.text(command.field(&dylib_command::name))),
                     .compatibility_version = command.field(&dylib_command::compatibility_version),
                     .command = static_cast<Command>(number)});
                return;
            case LC_ID_DYLIB:
                layout_.install_name = command.text(command.field(&dylib_command::name));
                return;
            case LC_DYLD_INFO:
            case LC_DYLD_INFO_ONLY: return tables(command);
            case LC_BUILD_VERSION:
                layout_.build_versions.push_back({LC_BUILD_VERSION,
                                                  command.field(&build_version_command::platform),
                                                  command.field(&build_version_command::minos)});
                return;
            case LC_VERSION_MIN_MACOSX: return version_min(command, LC_VERSION_MIN_MACOSX, PLATFORM_MACOS);
            case LC_VERSION_MIN_IPHONEOS:
                return version_min(command, LC_VERSION_MIN_IPHONEOS,
                                   is_for_simulator() ? PLATFORM_IOSSIMULATOR : PLATFORM_IOS);
            case LC_VERSION_MIN_TVOS:
                return version_min(command, LC_VERSION_MIN_TVOS,
                                   is_for_simulator() ? PLATFORM_TVOSSIMULATOR : PLATFORM_TVOS);
            case LC_VERSION_MIN_WATCHOS:
                return version_min(command, LC_VERSION_MIN_WATCHOS,
                                   is_for_simulator() ? PLATFORM_WATCHOSSIMULATOR : PLATFORM_WATCHOS);
            case LC_SEGMENT:
            case LC_THREAD:
            case LC_UNIXTHREAD:
            case LC_LOADFVMLIB:
            case LC_IDFVMLIB:
            case LC_FVMFILE:
            case LC_ROUTINES:
            case LC_ROUTINES_64: refuse(std::string(command.name()) + " is not supported in a library");
            case LC_ENCRYPTION_INFO:
            case LC_ENCRYPTION_INFO_64:
                if (const uint32_t scheme = command.field(&encryption_info_command_64::cryptid))
                    refuse("the file is encrypted (found scheme " + std::to_string(scheme) + ", expected 0)");
                return;
            case LC_DYLD_CHAINED_FIXUPS:
            case LC_DYLD_EXPORTS_TRIE:
                refuse("linked with chained fix-ups, which iOS 12 cannot load either (found load command " +
                       name_of_command(number) + ", expected LC_DYLD_INFO_ONLY)");
            case LC_LOAD_DYLINKER:
                layout_.dynamic_linker = command.text(command.field(&dylinker_command::name));
                return;
            case LC_MAIN:
                if (!is_executable()) refuse(std::string(command.name()) + " is not supported in a library");
                layout_.entry = command.field(&entry_point_command::entryoff);
                return;
            case LC_CODE_SIGNATURE:
                layout_.signature = {command.field(&linkedit_data_command::dataoff),
                                     command.field(&linkedit_data_command::datasize)};
                return;
            case LC_RPATH: return;
            default: break;
        }
        if (number & LC_REQ_DYLD)
            refuse(std::string(command.name()) + " is required by LC_REQ_DYLD, but not supported");
    }

    /// LC_VERSION_MIN_* name no simulator: x86-64 says so.
    bool is_for_simulator() const { return layout_.cpu == Cpu::x86_64; }

    void version_min(const Bytes& command, Command number, Platform platform) {
        layout_.build_versions.push_back({number, platform, command.field(&version_min_command::version)});
    }

    void segment(const Bytes& command) {
        const uint32_t protection = command.field(&segment_command_64::initprot);
        Segment segment{.name = command.padded_text(&segment_command_64::segname),
                        .address = command.field(&segment_command_64::vmaddr),
                        .size = command.field(&segment_command_64::vmsize),
                        .file_offset = command.field(&segment_command_64::fileoff),
                        .file_size = command.field(&segment_command_64::filesize),
                        .readable = (protection & VM_PROT_READ) != 0,
                        .writable = (protection & VM_PROT_WRITE) != 0,
                        .executable = (protection & VM_PROT_EXECUTE) != 0};
        const std::string subject = "segment " + segment.name;
        if (!inside(segment.file_offset, segment.file_size, 0, slice_.size()))
            refuse(subject + " leaves the file (found " + range(segment.file_offset, segment.file_size) +
                   ", expected within " + hex(slice_.size()) + " bytes)");
        if (segment.file_size > segment.size)
            refuse(subject + " has more bytes in the file than in memory (found " + hex(segment.file_size) +
                   ", expected at most " + hex(segment.size) + ")");
        if (segment.writable && segment.executable)
            refuse(subject + " is both writable and executable, which the device does not allow");

        if (only_reserves(segment)) segment.size = 0;

        const uint64_t count = command.field(&segment_command_64::nsects);
        const Bytes rows = command.part(sizeof(segment_command_64), count * sizeof(section_64),
                                        "a segment's list of sections");
        for (uint64_t row = 0; row < rows.size(); row += sizeof(section_64))
            layout_.sections.push_back(read_section(rows.part(row, sizeof(section_64)), segment));
        layout_.segments.push_back(segment);
    }

    void tables(const Bytes& command) {
        using info = dyld_info_command;
        const auto range = [&](uint32_t info::* offset, uint32_t info::* size) {
            return FileRange{command.field(offset), command.field(size)};
        };
        layout_.rebase = range(&info::rebase_off, &info::rebase_size);
        layout_.bind = range(&info::bind_off, &info::bind_size);
        layout_.weak_bind = range(&info::weak_bind_off, &info::weak_bind_size);
        layout_.lazy_bind = range(&info::lazy_bind_off, &info::lazy_bind_size);
        layout_.exports = range(&info::export_off, &info::export_size);
        has_tables_ = true;
    }

    void check_segments() {
        std::vector<const Segment*> sorted;
        for (const Segment& segment : layout_.segments)
            if (!only_reserves(segment)) sorted.push_back(&segment);
        if (sorted.empty()) refuse("no segments");

        std::ranges::sort(sorted, {}, &Segment::address);
        layout_.start = sorted.front()->address;
        uint64_t mapped = 0;  // from the start, so that no sum can wrap around
        for (const Segment* segment : sorted) {
            const uint64_t at = segment->address - layout_.start;
            if (at < mapped)
                refuse("segment " + segment->name + " overlaps another in memory (found " +
                       hex(segment->address) + ", expected at least " + hex(layout_.start + mapped) + ")");
            if (at > kLargestImage || segment->size > kLargestImage - at)
                refuse("segment " + segment->name + " makes the image too large (found " +
                       range(segment->address, segment->size) + ", expected within " + hex(kLargestImage) +
                       " of " + hex(layout_.start) + ")");
            mapped = at + segment->size;
        }
        layout_.extent = mapped;

        // No byte of the file is mapped twice, so that all later tables are bounded by the file's size.
        std::erase_if(sorted, [](const Segment* segment) { return segment->file_size == 0; });
        std::ranges::sort(sorted, {}, &Segment::file_offset);
        uint64_t taken = 0;
        for (const Segment* segment : sorted) {
            if (segment->file_offset < taken)
                refuse("segment " + segment->name + " overlaps another in the file (found offset " +
                       hex(segment->file_offset) + ", expected at least " + hex(taken) + ")");
            taken = segment->file_offset + segment->file_size;
        }
        if (sorted.empty() || sorted.front()->file_offset != 0) refuse("no segment maps the file's header");
        layout_.header_address = sorted.front()->address;
    }

    const Bytes& slice_;
    Layout layout_{};
    bool has_tables_ = false;
};

}  // namespace

const Section* Layout::section(std::string_view name) const {
    const auto found = std::ranges::find(sections, name, &Section::name);
    return found == sections.end() ? nullptr : &*found;
}

Layout read_layout(const Bytes& slice) { return LoadCommands(slice).read(); }

}  // namespace macho
