#include "loader/unwinding/frame_arm64.h"

#include "loader/fault.h"

namespace macho::arm64 {
namespace {

enum Mode : uint32_t {
    UNWIND_ARM64_MODE_MASK = 0x0f000000,
    UNWIND_ARM64_MODE_FRAMELESS = 0x02000000,
    UNWIND_ARM64_MODE_DWARF = 0x03000000,
    UNWIND_ARM64_MODE_FRAME = 0x04000000,
};
constexpr uint32_t UNWIND_ARM64_FRAME_X19_X20_PAIR = 0x001, UNWIND_ARM64_FRAME_D8_D9_PAIR = 0x100;
constexpr unsigned kFramelessStackSize = 12;  // where its mask starts
constexpr uint64_t kUnit = 16;                // that stack sizes are counted in

constexpr uint8_t kX19 = 19, kFramePointerRegister = 29, kStackPointer = 31, kD8 = 72;

/// Saved registers come in pairs, one bit each and the highest address first: x19 with x20 up to x27 with
/// x28, then d8 with d9 up to d14 with d15.
void add_pairs(Frame& frame, uint32_t encoding, uint32_t words_below) {
    const auto pair = [&](unsigned first) {
        frame.saved.push_back({static_cast<uint8_t>(first), words_below++});
        frame.saved.push_back({static_cast<uint8_t>(first + 1), words_below++});
    };
    for (unsigned i = 0; i < 5; ++i)
        if (encoding & (UNWIND_ARM64_FRAME_X19_X20_PAIR << i)) pair(kX19 + 2 * i);
    for (unsigned i = 0; i < 4; ++i)
        if (encoding & (UNWIND_ARM64_FRAME_D8_D9_PAIR << i)) pair(kD8 + 2 * i);
}

}  // namespace

std::optional<Frame> frame(uint32_t encoding) {
    switch (encoding & UNWIND_ARM64_MODE_MASK) {
        case UNWIND_ARM64_MODE_FRAME: {
            Frame frame{.base_register = kFramePointerRegister,
                        .offset = 16,
                        .saved = {{kReturnAddress, 1}, {kFramePointerRegister, 2}}};
            add_pairs(frame, encoding, 3);
            return frame;
        }
        case UNWIND_ARM64_MODE_FRAMELESS: {  // makes no calls: the return address is still in its register
            Frame frame{.base_register = kStackPointer,
                        .offset = ((encoding >> kFramelessStackSize) & 0xfff) * kUnit,
                        .saved = {}};
            add_pairs(frame, encoding, 1);
            return frame;
        }
        case UNWIND_ARM64_MODE_DWARF: return std::nullopt;
        default: refuse("the unwind encoding " + hex(encoding) + " has an unknown mode");
    }
}

}  // namespace macho::arm64
