#include "loader/fixups/rebase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"
#include "opcodes.h"

namespace {

using loader_test::back;
using loader_test::Draft;
using loader_test::huge;
using loader_test::joined;
using loader_test::message_of;
using loader_test::Opcodes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Opcodes kPointer = {0x11};
const Opcodes kSecondSegment = {0x21, 0x10};  // segment 1, offset 0x10

std::vector<uint64_t> rebases(const Opcodes& opcodes) {
    return macho::read_rebases(macho::Bytes(opcodes, "the rebase table"), loader_test::two_segments());
}

std::string rebase_refusal(const Opcodes& opcodes) {
    return message_of<macho::Fault>([&] { rebases(opcodes); });
}

TEST(RebaseTest, AnEmptyTableRebasesNothing) {
    EXPECT_THAT(rebases({}), IsEmpty());
    EXPECT_THAT(rebases({0x00, 0xff}), IsEmpty());
}

TEST(RebaseTest, EveryOpcodeMovesOn) {
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x52}})), ElementsAre(0x1010, 0x1018));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x60, 0x03}})),
                ElementsAre(0x1010, 0x1018, 0x1020));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x30, 0x08, 0x51}})), ElementsAre(0x1018));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x31, 0x08, 0x51}})), ElementsAre(0x1018));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x42, 0x51}})), ElementsAre(0x1020));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x70, 0x10, 0x51}})), ElementsAre(0x1010, 0x1028));
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x80, 0x03, 0x08}})),
                ElementsAre(0x1010, 0x1020, 0x1030));
}

TEST(RebaseTest, APlaceMayBeReachedBackwards) {
    EXPECT_THAT(rebases(joined({kPointer, kSecondSegment, {0x30}, back, {0x51}})), ElementsAre(0x1008));
}

TEST(RebaseTest, AnotherTypeThanAPointerIsRefused) {
    EXPECT_EQ(
        rebase_refusal(joined({{0x12}, kSecondSegment, {0x51}})),
        "REBASE_OPCODE_DO_REBASE_IMM_TIMES at 0x3 in the rebase table: unsupported fix-up type (found 2, "
        "expected 1, a pointer)");
}

TEST(RebaseTest, ARebaseWithoutATypeIsRefused) {
    EXPECT_EQ(
        rebase_refusal(joined({kSecondSegment, {0x51}})),
        "REBASE_OPCODE_DO_REBASE_IMM_TIMES at 0x2 in the rebase table: unsupported fix-up type (found 0, "
        "no type was set, expected 1, a pointer)");
}

TEST(RebaseTest, AnUnknownOpcodeIsRefused) {
    EXPECT_EQ(rebase_refusal({0x93}), "0x93 at 0x0 in the rebase table: unknown opcode");
}

TEST(RebaseTest, ASegmentThatDoesNotExistIsRefused) {
    EXPECT_EQ(
        rebase_refusal({0x22, 0x00}),
        "REBASE_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB at 0x0 in the rebase table: no such segment (found 2, "
        "expected less than 2)");
}

TEST(RebaseTest, APointerBeforeAnySegmentIsRefused) {
    EXPECT_EQ(rebase_refusal(joined({kPointer, {0x51}})),
              "REBASE_OPCODE_DO_REBASE_IMM_TIMES at 0x1 in the rebase table: no segment was set");
}

TEST(RebaseTest, APointerInAReadOnlySegmentIsRefused) {
    EXPECT_EQ(rebase_refusal({0x11, 0x20, 0x10, 0x51}),
              "REBASE_OPCODE_DO_REBASE_IMM_TIMES at 0x3 in the rebase table: segment __TEXT is not writable");
}

TEST(RebaseTest, APointerAcrossTheSegmentsEndInTheFileIsRefused) {
    EXPECT_THAT(rebases({0x11, 0x21, 0xf8, 0x01, 0x51}), ElementsAre(0x10f8));
    EXPECT_EQ(rebase_refusal({0x11, 0x21, 0xf9, 0x01, 0x51}),
              "REBASE_OPCODE_DO_REBASE_IMM_TIMES at 0x4 in the rebase table: the pointer leaves segment "
              "__DATA (found "
              "offset 0xf9, expected a pointer within 0x100 bytes)");
    EXPECT_THAT(rebase_refusal(joined({kPointer, kSecondSegment, {0x30}, huge, {0x51}})),
                HasSubstr("leaves segment __DATA"));
}

TEST(RebaseTest, ACountBeyondTheSegmentIsRefused) {
    EXPECT_THAT(rebase_refusal(joined({kPointer, kSecondSegment, {0x60}, huge})),
                HasSubstr("leaves segment __DATA (found offset 0x100,"));
}

TEST(RebaseTest, ACountWithoutEndInOnePlaceIsRefused) {
    EXPECT_EQ(
        rebase_refusal(joined({kPointer, kSecondSegment, {0x80}, huge, back})),
        "REBASE_OPCODE_DO_REBASE_ULEB_TIMES_SKIPPING_ULEB at 0x3 in the rebase table: more fix-ups than the "
        "image has pointers");
}

TEST(RebaseTest, ATableCutShortIsRefused) {
    EXPECT_EQ(rebase_refusal({0x21}),
              "a read leaves the rebase table (found 1 bytes, expected 1 more at offset 0x1)");
}

TEST(RebaseTest, ATableOutsideTheFileIsRefused) {
    Draft draft("plain");
    draft.set32(draft.command(macho::LC_DYLD_INFO_ONLY) + Draft::rebase, 0xfffffff0);
    EXPECT_THAT(draft.load_error(), HasSubstr("plain.dylib: cannot load: a read leaves the file"));
}

}  // namespace
