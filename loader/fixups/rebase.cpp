#include "loader/fixups/rebase.h"

#include "loader/fixups/fixup_opcodes.h"

namespace macho {
namespace {

enum RebaseOpcode : uint8_t {
    REBASE_OPCODE_DONE = 0x00,
    REBASE_OPCODE_SET_TYPE_IMM = 0x10,
    REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB = 0x20,
    REBASE_OPCODE_ADD_ADDR_ULEB = 0x30,
    REBASE_OPCODE_ADD_ADDR_IMM_SCALED = 0x40,
    REBASE_OPCODE_DO_REBASE_IMM_TIMES = 0x50,
    REBASE_OPCODE_DO_REBASE_ULEB_TIMES = 0x60,
    REBASE_OPCODE_DO_REBASE_ADD_ADDR_ULEB = 0x70,
    REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB = 0x80,
};

constexpr OpcodeNames kRebaseNames = {
    "REBASE_OPCODE_DONE",
    "REBASE_OPCODE_SET_TYPE_IMM",
    "REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB",
    "REBASE_OPCODE_ADD_ADDR_ULEB",
    "REBASE_OPCODE_ADD_ADDR_IMM_SCALED",
    "REBASE_OPCODE_DO_REBASE_IMM_TIMES",
    "REBASE_OPCODE_DO_REBASE_ULEB_TIMES",
    "REBASE_OPCODE_DO_REBASE_ADD_ADDR_ULEB",
    "REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB",
};

}  // namespace

std::vector<uint64_t> read_rebases(const Bytes& opcodes, const Layout& layout) {
    std::vector<uint64_t> found;
    FixupOpcodes table(opcodes, layout, "the rebase table", kRebaseNames);
    Cursor& operands = table.operands();
    const auto rebase = [&](uint64_t times, uint64_t skip = 0) {
        for (; times > 0; --times) {
            found.push_back(table.take_pointer());
            table.advance(skip);
        }
    };

    while (!table.at_end()) {
        switch (table.next()) {
            case REBASE_OPCODE_DONE: return found;
            case REBASE_OPCODE_SET_TYPE_IMM: table.set_type(table.immediate()); break;
            case REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB: table.set_segment(); break;
            case REBASE_OPCODE_ADD_ADDR_ULEB: table.advance(operands.uleb128()); break;
            case REBASE_OPCODE_ADD_ADDR_IMM_SCALED: table.advance(table.immediate() * kPointerSize); break;
            case REBASE_OPCODE_DO_REBASE_IMM_TIMES: rebase(table.immediate()); break;
            case REBASE_OPCODE_DO_REBASE_ULEB_TIMES: rebase(operands.uleb128()); break;
            case REBASE_OPCODE_DO_REBASE_ADD_ADDR_ULEB: rebase(1, operands.uleb128()); break;
            case REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB: {
                const uint64_t times = operands.uleb128();
                rebase(times, operands.uleb128());
                break;
            }
            default: table.refuse_unknown();
        }
    }
    return found;
}

}  // namespace macho
