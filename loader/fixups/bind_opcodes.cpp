#include "loader/fixups/bind_opcodes.h"

#include "loader/fault.h"
#include "loader/fixups/fixup_opcodes.h"
#include "loader/format/exports.h"

namespace macho {
namespace {

enum BindOpcode : uint8_t {
    BIND_OPCODE_DONE = 0x00,
    BIND_OPCODE_SET_DYLIB_ORDINAL_IMM = 0x10,
    BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB = 0x20,
    BIND_OPCODE_SET_DYLIB_SPECIAL_IMM = 0x30,
    BIND_OPCODE_SET_SYMBOL_TRAILING_FLAGS_IMM = 0x40,
    BIND_OPCODE_SET_TYPE_IMM = 0x50,
    BIND_OPCODE_SET_ADDEND_SLEB = 0x60,
    BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB = 0x70,
    BIND_OPCODE_ADD_ADDR_ULEB = 0x80,
    BIND_OPCODE_DO_BIND = 0x90,
    BIND_OPCODE_DO_BIND_ADD_ADDR_ULEB = 0xa0,
    BIND_OPCODE_DO_BIND_ADD_ADDR_IMM_SCALED = 0xb0,
    BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB = 0xc0,
};
constexpr uint8_t BIND_SYMBOL_FLAGS_WEAK_IMPORT = 0x1;

constexpr OpcodeNames kBindNames = {
    "BIND_OPCODE_DONE",
    "BIND_OPCODE_SET_DYLIB_ORDINAL_IMM",
    "BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB",
    "BIND_OPCODE_SET_DYLIB_SPECIAL_IMM",
    "BIND_OPCODE_SET_SYMBOL_TRAILING_FLAGS_IMM",
    "BIND_OPCODE_SET_TYPE_IMM",
    "BIND_OPCODE_SET_ADDEND_SLEB",
    "BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB",
    "BIND_OPCODE_ADD_ADDR_ULEB",
    "BIND_OPCODE_DO_BIND",
    "BIND_OPCODE_DO_BIND_ADD_ADDR_ULEB",
    "BIND_OPCODE_DO_BIND_ADD_ADDR_IMM_SCALED",
    "BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB",
};

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
        : table_(table),
          layout_(layout),
          opcodes_(opcodes, layout, name_of(table), kBindNames) {
        if (table == BindTable::weak) state_.ordinal = BIND_SPECIAL_DYLIB_WEAK_LOOKUP;
        // Linkers set no type there.
        if (table == BindTable::lazy) opcodes_.set_type(FixupOpcodes::kTypePointer);
    }

    std::vector<BindRow> read() {
        try {
            while (!opcodes_.at_end())
                if (!one(opcodes_.next())) break;
        } catch (const Fault& fault) {
            if (!has_symbol_) throw;
            refuse(std::string(fault.what()) + ", at the symbol " + std::string(c_name(state_.symbol)));
        }
        return std::move(found_);
    }

  private:
    /// Whether the table goes on.
    bool one(uint8_t opcode) {
        Cursor& operands = opcodes_.operands();
        const uint8_t immediate = opcodes_.immediate();
        switch (opcode) {
            case BIND_OPCODE_DONE: return table_ == BindTable::lazy;
            case BIND_OPCODE_SET_DYLIB_ORDINAL_IMM: set_library(immediate); break;
            case BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB: set_library(operands.uleb128()); break;
            case BIND_OPCODE_SET_DYLIB_SPECIAL_IMM: set_special_library(immediate); break;
            case BIND_OPCODE_SET_SYMBOL_TRAILING_FLAGS_IMM:
                state_.symbol = operands.text();
                state_.weak_import = (immediate & BIND_SYMBOL_FLAGS_WEAK_IMPORT) != 0;
                has_symbol_ = true;
                break;
            case BIND_OPCODE_SET_TYPE_IMM: opcodes_.set_type(immediate); break;
            case BIND_OPCODE_SET_ADDEND_SLEB: state_.addend = operands.sleb128(); break;
            case BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB: opcodes_.set_segment(); break;
            case BIND_OPCODE_ADD_ADDR_ULEB: opcodes_.advance(operands.uleb128()); break;
            case BIND_OPCODE_DO_BIND: bind(1, 0); break;
            case BIND_OPCODE_DO_BIND_ADD_ADDR_ULEB: bind(1, operands.uleb128()); break;
            case BIND_OPCODE_DO_BIND_ADD_ADDR_IMM_SCALED: bind(1, immediate * kPointerSize); break;
            case BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB: {
                const uint64_t times = operands.uleb128();
                bind(times, operands.uleb128());
                break;
            }
            default: opcodes_.refuse_unknown();
        }
        return true;
    }

    void set_library(uint64_t ordinal) {
        if (ordinal > layout_.libraries.size())
            opcodes_.refuse_opcode("no such library (found ordinal " + std::to_string(ordinal) +
                                   ", expected at most " + std::to_string(layout_.libraries.size()) + ")");
        state_.ordinal = static_cast<int64_t>(ordinal);
    }

    void set_special_library(uint8_t immediate) {
        const int64_t ordinal =
            immediate ? static_cast<int8_t>(FixupOpcodes::kOpcodeMask | immediate) : BIND_SPECIAL_DYLIB_SELF;
        if (ordinal < BIND_SPECIAL_DYLIB_FLAT_LOOKUP)
            opcodes_.refuse_opcode("unknown special ordinal (found " + std::to_string(ordinal) +
                                   ", expected -2 to 0)");
        state_.ordinal = ordinal;
    }

    void bind(uint64_t times, uint64_t skip) {
        if (!has_symbol_) opcodes_.refuse_opcode("no symbol was set");
        for (; times > 0; --times) {
            state_.address = opcodes_.take_pointer();
            found_.push_back(state_);
            opcodes_.advance(skip);
        }
    }

    BindTable table_;
    const Layout& layout_;
    FixupOpcodes opcodes_;
    BindRow state_{};
    bool has_symbol_ = false;
    std::vector<BindRow> found_;
};

}  // namespace

std::vector<BindRow> read_binds(const Bytes& opcodes, BindTable table, const Layout& layout) {
    return BindOpcodes(opcodes, table, layout).read();
}

}  // namespace macho
