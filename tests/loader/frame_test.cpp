// The arithmetic of compact unwind encodings. The encodings are what the compiler made of the functions
// described.
#include "loader/unwinding/frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host.h"
#include "loader/fault.h"
#include "loader/unwinding/frame_arm64.h"
#include "loader/unwinding/frame_table.h"
#include "loader/unwinding/frame_x86_64.h"

namespace {

using loader_test::message_of;
using macho::Bytes;
using macho::Frame;
using testing::ElementsAre;

constexpr uint8_t rbx = 3, rbp = 6, rsp = 7, r12 = 12, r13 = 13, r14 = 14, r15 = 15, return_address = 16;

std::optional<Frame> x86_64_frame(uint32_t encoding, const std::vector<uint8_t>& code = {}) {
    return macho::x86_64::frame(encoding, Bytes(code, "the function"));
}

std::string x86_64_refusal(uint32_t encoding, const std::vector<uint8_t>& code = {}) {
    return message_of<macho::Fault>([&] { x86_64_frame(encoding, code); });
}

TEST(X86FrameTest, AFramePointerAlone) {
    EXPECT_EQ(x86_64_frame(0x01000000), (Frame{rbp, 16, {{return_address, 1}, {rbp, 2}}}));
}

TEST(X86FrameTest, FiveRegistersBelowTheFramePointer) {
    EXPECT_EQ(
        x86_64_frame(0x010558d1),
        (Frame{rbp, 16, {{return_address, 1}, {rbp, 2}, {rbx, 7}, {r12, 6}, {r13, 5}, {r14, 4}, {r15, 3}}}));
}

TEST(X86FrameTest, PushedRegistersAreAPermutation) {
    // pushes rbp, r15, r14, r13, r12, rbx
    EXPECT_EQ(
        x86_64_frame(0x02071800),
        (Frame{rsp, 56, {{return_address, 1}, {rbx, 7}, {r12, 6}, {r13, 5}, {r14, 4}, {r15, 3}, {rbp, 2}}}));
    // pushes r13, rbx, r15, and takes 32 bytes more
    EXPECT_EQ(x86_64_frame(0x02080c51),
              (Frame{rsp, 64, {{return_address, 1}, {r15, 4}, {rbx, 3}, {r13, 2}}}));
    // the last of all 720 permutations
    EXPECT_EQ(
        x86_64_frame(0x02071800 | 719),
        (Frame{rsp, 56, {{return_address, 1}, {rbp, 7}, {r15, 6}, {r14, 5}, {r13, 4}, {r12, 3}, {rbx, 2}}}));
}

TEST(X86FrameTest, ALargeFrameHasItsSizeInTheCode) {
    // push r14; push rbx; sub rsp, 8008
    const std::vector<uint8_t> code = {0x41, 0x56, 0x53, 0x48, 0x81, 0xec, 0x48, 0x1f, 0x00, 0x00};
    EXPECT_EQ(x86_64_frame(0x03066802, code), (Frame{rsp, 8032, {{return_address, 1}, {rbx, 3}, {r14, 2}}}));
}

TEST(X86FrameTest, ALargeFrameInTooLittleCodeIsRefused) {
    EXPECT_EQ(x86_64_refusal(0x03066802, {0x41, 0x56, 0x53, 0x48, 0x81, 0xec, 0x48}),
              "a read leaves the function (found 7 bytes, expected 4 more at offset 0x6)");
}

TEST(X86FrameTest, DwarfHasTheFrameWhereTheEncodingSaysSo) {
    EXPECT_EQ(x86_64_frame(0x04000018), std::nullopt);
}

TEST(X86FrameTest, ImpossibleEncodingsAreRefused) {
    EXPECT_EQ(x86_64_refusal(0x00000001), "the unwind encoding 0x1 has an unknown mode");
    EXPECT_EQ(x86_64_refusal(0x05000000), "the unwind encoding 0x5000000 has an unknown mode");
    EXPECT_EQ(x86_64_refusal(0x01010007),
              "the unwind encoding 0x1010007 saves a register that does not exist");
    EXPECT_EQ(x86_64_refusal(0x01000001), "the unwind encoding 0x1000001 saves a register above the frame");
    EXPECT_EQ(x86_64_refusal(0x02071c00),
              "the unwind encoding 0x2071c00 saves more registers than there are");
    EXPECT_EQ(x86_64_refusal(0x02071800 | 720),
              "the unwind encoding 0x2071ad0 has no such permutation of registers");
}

constexpr uint8_t x19 = 19, x20 = 20, x27 = 27, x28 = 28, x29 = 29, x30 = 30, sp = 31, d8 = 72, d9 = 73;

std::optional<Frame> arm64_frame(uint32_t encoding) { return macho::arm64::frame(encoding); }

TEST(Arm64FrameTest, AFrameRecordAlone) {
    EXPECT_EQ(arm64_frame(0x04000000), (Frame{x29, 16, {{x30, 1}, {x29, 2}}}));
}

TEST(Arm64FrameTest, PairsBelowTheFrameRecordComeInOrder) {
    EXPECT_EQ(
        arm64_frame(0x04000111),
        (Frame{x29, 16, {{x30, 1}, {x29, 2}, {x19, 3}, {x20, 4}, {x27, 5}, {x28, 6}, {d8, 7}, {d9, 8}}}));
    const std::optional<Frame> all = arm64_frame(0x04000f1f);
    ASSERT_TRUE(all);
    EXPECT_EQ(all->saved.size(), 20u);
    EXPECT_EQ(all->saved.back(), (macho::SavedRegister{79, 20}));
}

TEST(Arm64FrameTest, AFunctionWithoutCallsKeepsItsReturnAddress) {
    EXPECT_EQ(arm64_frame(0x02003001), (Frame{sp, 48, {{x19, 1}, {x20, 2}}}));
}

TEST(Arm64FrameTest, DwarfHasTheFrameWhereTheEncodingSaysSo) {
    EXPECT_EQ(arm64_frame(0x03000014), std::nullopt);
}

TEST(Arm64FrameTest, AnUnknownModeIsRefused) {
    EXPECT_EQ(message_of<macho::Fault>([] { arm64_frame(0x01000000); }),
              "the unwind encoding 0x1000000 has an unknown mode");
}

TEST(FrameInstructionsTest, RegistersAreOffsetsInWords) {
    EXPECT_THAT(macho::instructions_for({rbp, 16, {{return_address, 1}, {rbp, 2}}}),
                ElementsAre(0x0c, 6, 16, 0x90, 1, 0x86, 2));
}

TEST(FrameInstructionsTest, LargeNumbersHaveTheirOwnForms) {
    EXPECT_THAT(macho::instructions_for({sp, 8032, {{d8, 200}}}),
                ElementsAre(0x0c, 31, 0xe0, 0x3e, 0x05, 72, 0xc8, 0x01));
}

TEST(FrameTableTest, DescriptionsBeyondAllMeasureAreRefused) {
    macho::FrameTable table;
    const macho::FrameDescription large{.kind = {.return_address = return_address},
                                        .instructions = std::vector<uint8_t>(0x2000000)};
    table.add(0x1000, 0x10, large);
    EXPECT_EQ(message_of<macho::Fault>([&] { table.add(0x1010, 0x10, large); }),
              "the frame descriptions take too much room");
}

}  // namespace
