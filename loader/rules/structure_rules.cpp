#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "loader/fault.h"
#include "loader/format/command_names.h"
#include "loader/format/structures.h"
#include "loader/rules/rules.h"

namespace macho {
namespace {

constexpr uint32_t kMostSymbols = 0x10000000;

/// Load commands of a fixed size, which an image has once at most.
struct Form {
    uint32_t number;
    uint64_t size;
    bool required;
};
constexpr Form kForms[] = {
    {LC_SYMTAB, sizeof(symtab_command), true},
    {LC_DYSYMTAB, sizeof(dysymtab_command), true},
    {LC_UUID, sizeof(uuid_command), false},
    {LC_CODE_SIGNATURE, sizeof(linkedit_data_command), false},
    {LC_DYLD_INFO, sizeof(dyld_info_command), false},
    {LC_DYLD_INFO_ONLY, sizeof(dyld_info_command), false},
    {LC_ENCRYPTION_INFO_64, sizeof(encryption_info_command_64), false},
    {LC_SEGMENT_SPLIT_INFO, sizeof(linkedit_data_command), false},
    {LC_FUNCTION_STARTS, sizeof(linkedit_data_command), false},
    {LC_DATA_IN_CODE, sizeof(linkedit_data_command), false},
};

/// A table in __LINKEDIT: where it is, and how large.
struct Piece {
    const char* name;
    uint32_t command;
    uint64_t offset, size;
    uint64_t alignment;
};

/// The table that two fields of a load command describe; `unit` is what the size counts, in bytes.
template <class Command>
Piece piece(const char* name, uint32_t number, const Bytes& command, uint32_t Command::* offset,
            uint32_t Command::* size, uint64_t alignment = 8, uint64_t unit = 1) {
    return {name, number, command.field(offset), command.field(size) * unit, alignment};
}

[[noreturn]] void broken(const std::string& where, const std::string& what, const std::string& found,
                         const std::string& expected) {
    refuse(where + ": " + what + " (found " + found + ", expected " + expected + ")");
}

struct LoadCommand {
    uint32_t number;
    Bytes bytes;
};

struct SegmentCommand {
    Bytes bytes;
    std::string name;
    uint64_t address, size, file_offset, file_size;
    uint32_t most_access, access;

    explicit SegmentCommand(const Bytes& command)
        : bytes(command),
          name(command.padded_text(&segment_command_64::segname)),
          address(command.field(&segment_command_64::vmaddr)),
          size(command.field(&segment_command_64::vmsize)),
          file_offset(command.field(&segment_command_64::fileoff)),
          file_size(command.field(&segment_command_64::filesize)),
          most_access(command.field(&segment_command_64::maxprot)),
          access(command.field(&segment_command_64::initprot)) {}

    uint64_t file_end() const { return file_offset + file_size; }
    bool is_linkedit() const { return name == "__LINKEDIT"; }
    bool has_header() const { return file_offset == 0 && file_size != 0; }

    [[noreturn]] void broken(const std::string& what, const std::string& found,
                             const std::string& expected) const {
        macho::broken("LC_SEGMENT_64 " + name, what, found, expected);
    }
};

class StructureRules {
  public:
    StructureRules(const Bytes& slice, const Layout& layout)
        : layout_(layout),
          commands_size_(slice.field(&mach_header_64::sizeofcmds)) {
        const Bytes all = slice.part(sizeof(mach_header_64), commands_size_, "the list of load commands");
        uint64_t at = 0;
        for (uint32_t left = slice.field(&mach_header_64::ncmds); left > 0; --left) {
            commands_.push_back({all.field(&load_command::cmd, at),
                                 all.part(at, all.field(&load_command::cmdsize, at), "a load command")});
            if (commands_.back().number == LC_SEGMENT_64) segments_.emplace_back(commands_.back().bytes);
            at += commands_.back().bytes.size();
        }
    }

    void check() {
        for (const Form& form : kForms) check_form(form);
        if (layout_.type == FileType::dylib && !find(LC_ID_DYLIB))
            broken("LC_ID_DYLIB", "no install name", "nothing", "one for a dylib");
        if (layout_.libraries.empty())
            broken("LC_LOAD_DYLIB", "no libraries", "nothing", "at least libSystem");
        for (const SegmentCommand& segment : segments_) check_segment(segment);
        check_order();
        check_header();
        check_linkedit();
        check_symbols();
    }

  private:
    const Bytes* find(uint32_t number) const {
        const auto found = std::ranges::find(commands_, number, &LoadCommand::number);
        return found == commands_.end() ? nullptr : &found->bytes;
    }

    void check_form(const Form& form) const {
        const std::string name = name_of_command(form.number);
        const auto count = std::ranges::count(commands_, form.number, &LoadCommand::number);
        if (count > 1) broken(name, "more than one", std::to_string(count), "1");
        if (count == 0 && form.required) broken(name, "missing", "nothing", "1");
        const Bytes* command = find(form.number);
        if (command && command->size() != form.size)
            broken(name, "its size", std::to_string(command->size()), std::to_string(form.size));
    }

    void check_segment(const SegmentCommand& segment) const {
        const uint64_t expected_size = sizeof(segment_command_64) +
                                       segment.bytes.field(&segment_command_64::nsects) * sizeof(section_64);
        if (segment.bytes.size() != expected_size)
            segment.broken("its size for its number of sections", std::to_string(segment.bytes.size()),
                           std::to_string(expected_size));
        check_access(segment);
        const uint64_t page = page_size(layout_.cpu);
        if (segment.address % page)
            segment.broken("vmaddr", hex(segment.address), "a multiple of " + hex(page));
        if (segment.file_offset % page)
            segment.broken("fileoff", hex(segment.file_offset), "a multiple of " + hex(page));
        if ((segment.access & VM_PROT_EXECUTE) && segment.size != segment.file_size)
            segment.broken("filesize of an executable segment", hex(segment.file_size),
                           hex(segment.size) + ", its vmsize");
        check_sections(segment);
    }

    void check_access(const SegmentCommand& segment) const {
        constexpr uint32_t known = VM_PROT_READ | VM_PROT_WRITE | VM_PROT_EXECUTE;
        for (const auto& [field, access] :
             {std::pair{"maxprot", segment.most_access}, std::pair{"initprot", segment.access}})
            if (access & ~known) segment.broken(field, hex(access), "at most " + hex(known));
        if (segment.access && !(segment.access & VM_PROT_READ))
            segment.broken("initprot", hex(segment.access), "a readable segment");
        const auto expect = [&](uint32_t access) {
            if (segment.access != access) segment.broken("initprot", hex(segment.access), hex(access));
        };
        if (segment.name == "__TEXT") expect(VM_PROT_READ | VM_PROT_EXECUTE);
        if (segment.is_linkedit()) expect(VM_PROT_READ);
    }

    void check_sections(const SegmentCommand& segment) const {
        for (uint64_t row = sizeof(segment_command_64); row < segment.bytes.size();
             row += sizeof(section_64)) {
            const uint64_t offset = segment.bytes.field(&section_64::offset, row),
                           size = segment.bytes.field(&section_64::size, row);
            const std::string name = segment.bytes.padded_text(&section_64::sectname, row);
            if (offset == 0) continue;  // zeros, which the file does not hold
            if (offset < segment.file_offset || offset > segment.file_end() ||
                size > segment.file_end() - offset)
                segment.broken("bytes of section " + name, hex(size) + " at " + hex(offset),
                               "within " + hex(segment.file_offset) + " to " + hex(segment.file_end()));
        }
    }

    /// Segments come in the order of their addresses and of their places in the file, __LINKEDIT last.
    void check_order() const {
        const auto linkedits = std::ranges::count_if(segments_, &SegmentCommand::is_linkedit);
        if (linkedits != 1) broken("LC_SEGMENT_64 __LINKEDIT", "how many", std::to_string(linkedits), "1");
        for (size_t i = 1; i < segments_.size(); ++i) {
            const SegmentCommand &before = segments_[i - 1], &segment = segments_[i];
            if (segment.address < before.address)
                segment.broken("vmaddr out of order", hex(segment.address),
                               "at least " + hex(before.address));
            if (segment.file_size && segment.file_offset < before.file_offset)
                segment.broken("fileoff out of order", hex(segment.file_offset),
                               "at least " + hex(before.file_offset));
        }
        if (!segments_.back().is_linkedit())
            segments_.back().broken("the last segment", segments_.back().name, "__LINKEDIT");
    }

    void check_header() const {
        const auto segment = std::ranges::find_if(segments_, &SegmentCommand::has_header);
        if (segment == segments_.end()) broken("LC_SEGMENT_64", "the file's start", "no segment", "one");
        if (segment->file_size < sizeof(mach_header_64) + commands_size_)
            segment->broken("filesize, with all load commands", hex(segment->file_size),
                            "at least " + hex(sizeof(mach_header_64) + commands_size_));
        if (segment->access & VM_PROT_WRITE)
            segment->broken("initprot of the file's start", hex(segment->access), "not writable");
    }

    /// In the order in which they lie there; those whose load command is missing are left out.
    std::vector<Piece> pieces() const {
        std::vector<Piece> found;
        const auto add = [&](const char* name, uint32_t number, auto offset, auto size, auto... units) {
            if (const Bytes* command = find(number))
                found.push_back(piece(name, number, *command, offset, size, units...));
        };
        using info = dyld_info_command;
        using data = linkedit_data_command;
        using symbols = symtab_command;
        using indirect = dysymtab_command;
        add("rebase opcodes", LC_DYLD_INFO_ONLY, &info::rebase_off, &info::rebase_size);
        add("bind opcodes", LC_DYLD_INFO_ONLY, &info::bind_off, &info::bind_size);
        add("weak bind opcodes", LC_DYLD_INFO_ONLY, &info::weak_bind_off, &info::weak_bind_size);
        add("lazy bind opcodes", LC_DYLD_INFO_ONLY, &info::lazy_bind_off, &info::lazy_bind_size);
        add("export trie", LC_DYLD_INFO_ONLY, &info::export_off, &info::export_size);
        add("split info", LC_SEGMENT_SPLIT_INFO, &data::dataoff, &data::datasize);
        add("function starts", LC_FUNCTION_STARTS, &data::dataoff, &data::datasize);
        add("data in code", LC_DATA_IN_CODE, &data::dataoff, &data::datasize);
        add("symbols", LC_SYMTAB, &symbols::symoff, &symbols::nsyms, 8, sizeof(nlist_64));
        add("indirect symbols", LC_DYSYMTAB, &indirect::indirectsymoff, &indirect::nindirectsyms, 4,
            sizeof(uint32_t));
        add("symbol names", LC_SYMTAB, &symbols::stroff, &symbols::strsize, 1);
        add("signature", LC_CODE_SIGNATURE, &data::dataoff, &data::datasize);
        return found;
    }

    void check_linkedit() const {
        const SegmentCommand& linkedit = segments_.back();
        uint64_t free = linkedit.file_offset;  // from there on nothing is taken yet
        for (const Piece& piece : pieces()) {
            if (piece.size == 0) continue;
            const std::string where = name_of_command(piece.command) + ", " + piece.name;
            if (piece.offset < free)
                broken(where, "its place in __LINKEDIT", hex(piece.offset),
                       "at least " + hex(free) + ", where the table before it ends");
            if (piece.offset % piece.alignment)
                broken(where, "its place in __LINKEDIT", hex(piece.offset),
                       "a multiple of " + std::to_string(piece.alignment));
            free = piece.offset + piece.size;
            if (free > linkedit.file_end())
                broken(where, "its end in __LINKEDIT", hex(free), "at most " + hex(linkedit.file_end()));
        }
    }

    void check_symbols() const {
        const Bytes& symbols = *find(LC_SYMTAB);
        const Bytes& ranges = *find(LC_DYSYMTAB);
        const uint32_t count = symbols.field(&symtab_command::nsyms);
        if (count > kMostSymbols)
            broken("LC_SYMTAB", "nsyms", std::to_string(count), "at most " + std::to_string(kMostSymbols));
        using table = dysymtab_command;
        struct Range {
            const char* name;
            uint32_t table::*first, table::*length;
        };
        for (const auto& [name, first, length] :
             {Range{"local symbols", &table::ilocalsym, &table::nlocalsym},
              Range{"exported symbols", &table::iextdefsym, &table::nextdefsym},
              Range{"undefined symbols", &table::iundefsym, &table::nundefsym}})
            if (const uint64_t end = uint64_t{ranges.field(first)} + ranges.field(length); end > count)
                broken("LC_DYSYMTAB, " + std::string(name), "the last of them", std::to_string(end),
                       "at most " + std::to_string(count) + ", the number of symbols");
        if (const uint32_t relocations = ranges.field(&table::nlocrel))
            broken("LC_DYSYMTAB", "nlocrel", std::to_string(relocations), "0 beside LC_DYLD_INFO_ONLY");
    }

    const Layout& layout_;
    const uint64_t commands_size_;
    std::vector<LoadCommand> commands_;
    std::vector<SegmentCommand> segments_;
};

}  // namespace

void check_structure(const Bytes& slice, const Layout& layout) { StructureRules(slice, layout).check(); }

}  // namespace macho
