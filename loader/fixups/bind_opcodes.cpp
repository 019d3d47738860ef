// Bind opcodes.
#include "loader/fixups/bind_opcodes.h"

#include "loader/fault.h"
#include "loader/fixups/fixup_location.h"
#include "loader/format/cursor.h"
#include "loader/format/exports.h"

namespace macho {
namespace {

enum Opcode : uint8_t {
    kDone = 0x00,
    kSetLibrary = 0x10,
    kSetLibraryLarge = 0x20,
    kSetScope = 0x30,
    kSetSymbol = 0x40,
    kSetType = 0x50,
    kSetAddend = 0x60,
    kSetSegment = 0x70,
    kAdvance = 0x80,
    kBind = 0x90,
    kBindAndAdvance = 0xa0,
    kBindAndAdvancePointers = 0xb0,
    kBindManySkipping = 0xc0,
};
constexpr uint8_t kTypePointer = 1;
constexpr uint8_t kWeakImport = 1;

constexpr const char* name_of(BindTable table) {
    switch (table) {
        case BindTable::regular: return "the bind table";
        case BindTable::lazy: return "the lazy bind table";
        case BindTable::weak: return "the weak bind table";
    }
    __builtin_unreachable();
}

class BindOpcodes {
  public:
    BindOpcodes(const Bytes& opcodes, BindTable table, const Layout& layout)
        : cursor_(opcodes),
          table_(table),
          layout_(layout),
          location_(layout, name_of(table)) {
        if (table == BindTable::weak) state_.ordinal = kScopeCoalesced;
    }

    std::vector<BindRow> read() {
        try {
            while (!cursor_.at_end())
                if (!one(cursor_.u8())) break;
        } catch (const Fault& fault) {
            if (!has_symbol_) throw;
            refuse(std::string(fault.what()) + ", at the symbol " + std::string(c_name(state_.symbol)));
        }
        return std::move(found_);
    }

  private:
    /// False at the end of the table, which in the lazy one is only the end of an entry.
    bool one(uint8_t byte) {
        const uint8_t immediate = byte & 0x0f;
        switch (byte & 0xf0) {
            case kDone: return table_ == BindTable::lazy;
            case kSetLibrary: set_library(immediate); break;
            case kSetLibraryLarge: set_library(cursor_.uleb128()); break;
            case kSetScope: set_scope(immediate); break;
            case kSetSymbol:
                state_.symbol = cursor_.text();
                state_.weak_import = (immediate & kWeakImport) != 0;
                has_symbol_ = true;
                break;
            case kSetType:
                if (immediate != kTypePointer)
                    refuse(table_name() + " has type " + std::to_string(immediate) +
                           " (expected 1, a pointer)");
                break;
            case kSetAddend: state_.addend = cursor_.sleb128(); break;
            case kSetSegment: location_.enter_segment(immediate, cursor_.uleb128()); break;
            case kAdvance: location_.advance(cursor_.uleb128()); break;
            case kBind: bind(1, 0); break;
            case kBindAndAdvance: bind(1, cursor_.uleb128()); break;
            case kBindAndAdvancePointers: bind(1, immediate * kPointerSize); break;
            case kBindManySkipping: {
                const uint64_t times = cursor_.uleb128();
                bind(times, cursor_.uleb128());
                break;
            }
            default: refuse(table_name() + " has the unknown opcode " + hex(byte));
        }
        return true;
    }

    void set_library(uint64_t ordinal) {
        if (ordinal > layout_.libraries.size())
            refuse(table_name() + " names library " + std::to_string(ordinal) + " (expected at most " +
                   std::to_string(layout_.libraries.size()) + ")");
        state_.ordinal = static_cast<int64_t>(ordinal);
    }

    void set_scope(uint8_t immediate) {
        const int64_t scope = immediate ? static_cast<int8_t>(0xf0 | immediate) : kScopeSelf;
        if (scope < kScopeEverywhere)
            refuse(table_name() + " has the unknown scope " + std::to_string(scope) +
                   " (found in BIND_OPCODE_SET_DYLIB_SPECIAL_IMM, expected -2 to 0)");
        state_.ordinal = scope;
    }

    void bind(uint64_t times, uint64_t skip) {
        if (!has_symbol_) refuse(table_name() + " binds a pointer before it names a symbol");
        for (; times > 0; --times) {
            state_.address = location_.take_pointer();
            found_.push_back(state_);
            location_.advance(skip);
        }
    }

    std::string table_name() const { return name_of(table_); }

    Cursor cursor_;
    BindTable table_;
    const Layout& layout_;
    FixupLocation location_;
    BindRow state_{};
    bool has_symbol_ = false;
    std::vector<BindRow> found_;
};

}  // namespace

std::vector<BindRow> read_binds(const Bytes& opcodes, BindTable table, const Layout& layout) {
    return BindOpcodes(opcodes, table, layout).read();
}

}  // namespace macho
