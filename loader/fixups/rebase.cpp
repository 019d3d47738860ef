// Rebase opcodes.
#include "loader/fixups/rebase.h"

#include "loader/fault.h"
#include "loader/fixups/fixup_location.h"
#include "loader/format/cursor.h"

namespace macho {
namespace {

enum Opcode : uint8_t {
    kDone = 0x00,
    kSetType = 0x10,
    kSetSegment = 0x20,
    kAdvance = 0x30,
    kAdvancePointers = 0x40,
    kRebaseFew = 0x50,
    kRebaseMany = 0x60,
    kRebaseAndAdvance = 0x70,
    kRebaseManySkipping = 0x80,
};
constexpr uint8_t kTypePointer = 1;

}  // namespace

std::vector<uint64_t> read_rebases(const Bytes& opcodes, const Layout& layout) {
    std::vector<uint64_t> found;
    FixupLocation location(layout, "the rebase table");
    const auto rebase = [&](uint64_t times, uint64_t skip = 0) {
        for (; times > 0; --times) {
            found.push_back(location.take_pointer());
            location.advance(skip);
        }
    };

    Cursor cursor(opcodes);
    while (!cursor.at_end()) {
        const uint8_t byte = cursor.u8();
        const uint8_t immediate = byte & 0x0f;
        switch (byte & 0xf0) {
            case kDone: return found;
            case kSetType:
                if (immediate != kTypePointer)
                    refuse("the rebase table has type " + std::to_string(immediate) +
                           " (expected 1, a pointer)");
                break;
            case kSetSegment: location.enter_segment(immediate, cursor.uleb128()); break;
            case kAdvance: location.advance(cursor.uleb128()); break;
            case kAdvancePointers: location.advance(immediate * kPointerSize); break;
            case kRebaseFew: rebase(immediate); break;
            case kRebaseMany: rebase(cursor.uleb128()); break;
            case kRebaseAndAdvance: rebase(1, cursor.uleb128()); break;
            case kRebaseManySkipping: {
                const uint64_t times = cursor.uleb128();
                rebase(times, cursor.uleb128());
                break;
            }
            default: refuse("the rebase table has the unknown opcode " + hex(byte));
        }
    }
    return found;
}

}  // namespace macho
