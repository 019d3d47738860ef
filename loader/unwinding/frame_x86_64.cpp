// Compact unwind encodings of x86-64.
#include "loader/unwinding/frame_x86_64.h"

#include <array>

#include "loader/fault.h"

namespace macho::x86_64 {
namespace {

enum Mode : uint32_t {
    kFramePointer = 0x01000000,
    kFrameless = 0x02000000,
    kFramelessLarge = 0x03000000,
    kDwarf = 0x04000000,
};
constexpr uint32_t kModeMask = 0x0f000000;
constexpr uint64_t kWord = 8;

constexpr uint8_t kRbp = 6, kRsp = 7;
// By their numbers in an encoding, of which 0 is none: rbx, r12, r13, r14, r15, rbp.
constexpr unsigned kRegisterCount = 6;
constexpr std::array<uint8_t, kRegisterCount + 1> kRegisters = {0, 3, 12, 13, 14, 15, kRbp};

[[noreturn]] void malformed(uint32_t encoding, const char* why) {
    refuse("the unwind encoding " + hex(encoding) + " " + why);
}

/// push rbp; mov rbp, rsp; and up to five registers stored below, a 3-bit number each.
Frame framed(uint32_t encoding) {
    Frame frame{.base_register = kRbp, .offset = 16, .saved = {{kReturnAddress, 1}, {kRbp, 2}}};
    const uint32_t lowest = (encoding >> 16) & 0xff;  // in words below the saved rbp
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
    const uint32_t count = (encoding >> 10) & 7;
    if (count > kRegisterCount) malformed(encoding, "saves more registers than there are");
    uint32_t permutation = encoding & 0x3ff;
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
    switch (encoding & kModeMask) {
        case kFramePointer: return framed(encoding);
        case kFrameless: return frameless(encoding, ((encoding >> 16) & 0xff) * kWord);
        case kFramelessLarge: {
            // The operand of `sub rsp, n` in the prologue, and what is pushed besides.
            const uint64_t subtracted = code.u32((encoding >> 16) & 0xff);
            return frameless(encoding, subtracted + ((encoding >> 13) & 7) * kWord);
        }
        case kDwarf: return std::nullopt;
        default: malformed(encoding, "has an unknown mode");
    }
}

}  // namespace macho::x86_64
