#include "loader/unwinding/eh_frame.h"

#include "loader/fault.h"
#include "loader/format/cursor.h"
#include "loader/unwinding/pointer_encoding.h"

namespace macho {
namespace {

constexpr std::string_view kName = "__eh_frame";
constexpr uint32_t kExtendedLength = 0xffffffff;

struct CommonEntry {
    FrameKind kind;
    uint8_t pointer_encoding = DW_EH_PE_absptr;
    uint8_t lsda_encoding = DW_EH_PE_omit;
};

class EhFrame {
  public:
    EhFrame(const Mapping& mapping, const Section& section)
        : mapping_(mapping),
          section_(mapping.read(section, kName)) {}

    FrameDescription read(uint64_t offset, uintptr_t function) const {
        const Bytes entry = entry_at(offset);
        Cursor cursor(entry);
        const uint32_t back = cursor.u32();
        if (back == 0) refuse("__eh_frame has no function's entry at " + hex(offset));
        const CommonEntry common = common_entry(offset + 4 - back);

        if (const uintptr_t start = pointer(cursor, common.pointer_encoding); start != function)
            refuse("__eh_frame's entry at " + hex(offset) + " is about the code at " +
                   hex(start - mapping_.slide()) + " (expected " + hex(function - mapping_.slide()) + ")");
        value(cursor, common.pointer_encoding);  // the code's size, which __unwind_info has, too
        FrameDescription found{.kind = common.kind, .instructions = {}};
        Cursor augmentation(cursor.take(cursor.uleb128()));
        if (common.lsda_encoding != DW_EH_PE_omit) found.lsda = pointer(augmentation, common.lsda_encoding);
        found.instructions = all(cursor.rest());
        return found;
    }

  private:
    /// An entry's bytes, without the length before it.
    Bytes entry_at(uint64_t offset) const {
        const uint32_t size = section_.u32(offset);
        if (size == kExtendedLength) refuse("__eh_frame's entry at " + hex(offset) + " has a 64-bit length");
        return section_.part(offset + 4, size);
    }

    CommonEntry common_entry(uint64_t offset) const {
        Cursor cursor(entry_at(offset));
        if (const uint32_t id = cursor.u32(); id != 0)
            refuse("__eh_frame's entry at " + hex(offset) + " has id " + hex(id) + " (expected 0)");
        if (const uint8_t version = cursor.u8(); version != 1)
            refuse("__eh_frame's entry at " + hex(offset) + " has version " + std::to_string(version) +
                   " (expected 1)");
        const std::string_view letters = cursor.text();
        if (!letters.starts_with('z')) unknown_letters(letters);

        CommonEntry common{.kind = {.return_address = 0}};
        common.kind.code_alignment = cursor.uleb128();
        common.kind.data_alignment = cursor.sleb128();
        common.kind.return_address = cursor.u8();
        Cursor augmentation(cursor.take(cursor.uleb128()));
        for (const char letter : letters.substr(1)) {
            switch (letter) {
                case 'R': common.pointer_encoding = augmentation.u8(); break;
                case 'L': common.lsda_encoding = augmentation.u8(); break;
                case 'P': {
                    const uint8_t encoding = augmentation.u8();
                    common.kind.personality = pointer(augmentation, encoding);
                    break;
                }
                default: unknown_letters(letters);
            }
        }
        common.kind.instructions = all(cursor.rest());
        return common;
    }

    [[noreturn]] static void unknown_letters(std::string_view letters) {
        refuse("__eh_frame has the augmentation \"" + std::string(letters) +
               "\" (expected z and any of RLP)");
    }

    uint64_t value(Cursor& cursor, uint8_t encoding) const {
        switch (encoding & kEncodingFormatMask) {
            case DW_EH_PE_absptr:
            case DW_EH_PE_udata8:
            case DW_EH_PE_sdata8: return cursor.u64();
            case DW_EH_PE_udata4: return cursor.u32();
            case DW_EH_PE_sdata4: return static_cast<uint64_t>(int64_t{static_cast<int32_t>(cursor.u32())});
            default: refuse("__eh_frame has the unknown pointer encoding " + hex(encoding));
        }
    }

    uintptr_t pointer(Cursor& cursor, uint8_t encoding) const {
        const auto field = reinterpret_cast<uintptr_t>(cursor.rest().data());
        uintptr_t found = value(cursor, encoding);
        if (found == 0) return 0;
        if (const uint8_t base = encoding & kEncodingBaseMask; base == DW_EH_PE_pcrel)
            found += field;
        else if (base != DW_EH_PE_absptr)
            refuse("__eh_frame has the unknown pointer encoding " + hex(encoding));
        return encoding & DW_EH_PE_indirect
                   ? mapping_.read_pointer(found, "a pointer that __eh_frame refers to")
                   : found;
    }

    static std::vector<uint8_t> all(const Bytes& bytes) {
        return {bytes.data(), bytes.data() + bytes.size()};
    }

    const Mapping& mapping_;
    Bytes section_;
};

}  // namespace

FrameDescription read_eh_frame(const Mapping& mapping, const Section& section, uint64_t offset,
                               uintptr_t function) {
    return EhFrame(mapping, section).read(offset, function);
}

}  // namespace macho
