#include "loader/unwinding/frame_x86_64.h"

#include <array>

#include "loader/fault.h"

namespace macho::x86_64 {
namespace {

enum Mode : uint32_t {
    UNWIND_X86_64_MODE_MASK = 0x0f000000,
    UNWIND_X86_64_MODE_RBP_FRAME = 0x01000000,
    UNWIND_X86_64_MODE_STACK_IMMD = 0x02000000,
    UNWIND_X86_64_MODE_STACK_IND = 0x03000000,
    UNWIND_X86_64_MODE_DWARF = 0x04000000,
};
// The other fields, whose masks start at these bits.
constexpr unsigned kRbpFrameOffset = 16, kStackSize = 16, kStackAdjust = 13, kStackRegCount = 10;
constexpr uint32_t UNWIND_X86_64_FRAMELESS_STACK_REG_PERMUTATION = 0x3ff;
constexpr uint64_t kWord = 8;

constexpr uint8_t kRbp = 6, kRsp = 7;  // DWARF's numbers
// DWARF's numbers of UNWIND_X86_64_REG_NONE, RBX, R12, R13, R14, R15 and RBP.
constexpr unsigned kRegisterCount = 6;
constexpr std::array<uint8_t, kRegisterCount + 1> kRegisters = {0, 3, 12, 13, 14, 15, kRbp};

[[noreturn]] void malformed(uint32_t encoding, const char* why) {
    refuse("the unwind encoding " + hex(encoding) + " " + why);
}

/// push rbp; mov rbp, rsp; and up to five registers stored below, a 3-bit number each.
Frame framed(uint32_t encoding) {
    Frame frame{.base_register = kRbp, .offset = 16, .saved = {{kReturnAddress, 1}, {kRbp, 2}}};
    const uint32_t lowest = (encoding >> kRbpFrameOffset) & 0xff;  // in words below the saved rbp
    for (uint32_t i = 0; i < 5; ++i) {
        const uint32_t number = (encoding >> (3 * i)) & 7;
        if (number == 0) continue;
        if (number > kRegisterCount) malformed(encoding, "saves a register that does not exist");
        if (lowest <= i) malformed(encoding, "saves a register above the frame");
        frame.saved.push_back({kRegisters[number], lowest - i + 2});
    }
    return frame;
}

/// Up to six pushed registers, as the number of their permutation: in a mixed radix, each digit counts
/// among the registers not used yet.
Frame frameless(uint32_t encoding, uint64_t size) {
    Frame frame{.base_register = kRsp, .offset = size, .saved = {{kReturnAddress, 1}}};
    const uint32_t count = (encoding >> kStackRegCount) & 7;
    if (count > kRegisterCount) malformed(encoding, "saves more registers than there are");
    uint32_t permutation = encoding & UNWIND_X86_64_FRAMELESS_STACK_REG_PERMUTATION;
    std::array<bool, kRegisterCount + 1> used{};
    for (uint32_t i = 0; i < count; ++i) {
        uint32_t radix = 1;
        for (uint32_t later = i + 1; later < count; ++later) radix *= kRegisterCount - later;
        uint32_t digit = permutation / radix;
        permutation %= radix;
        if (digit >= kRegisterCount - i) malformed(encoding, "has no such permutation of registers");
        unsigned number = 1;
        while (used[number] || digit-- > 0) ++number;
        used[number] = true;
        frame.saved.push_back({kRegisters[number], count - i + 1});
    }
    return frame;
}

}  // namespace

std::optional<Frame> frame(uint32_t encoding, const Bytes& code) {
    switch (encoding & UNWIND_X86_64_MODE_MASK) {
        case UNWIND_X86_64_MODE_RBP_FRAME: return framed(encoding);
        case UNWIND_X86_64_MODE_STACK_IMMD:
            return frameless(encoding, ((encoding >> kStackSize) & 0xff) * kWord);
        case UNWIND_X86_64_MODE_STACK_IND: {
            // The operand of `sub rsp, n` in the prologue, and what is pushed besides.
            const uint64_t subtracted = code.u32((encoding >> kStackSize) & 0xff);
            return frameless(encoding, subtracted + ((encoding >> kStackAdjust) & 7) * kWord);
        }
        case UNWIND_X86_64_MODE_DWARF: return std::nullopt;
        default: malformed(encoding, "has an unknown mode");
    }
}

}  // namespace macho::x86_64
