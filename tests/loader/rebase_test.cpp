// Rebase opcodes.
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
const Opcodes kData = {0x21, 0x10};  // segment 1, offset 0x10

std::vector<uint64_t> rebases(const Opcodes& opcodes) {
    return macho::read_rebases(macho::Bytes(opcodes, "the rebase table"), loader_test::two_segments());
}

std::string refusal(const Opcodes& opcodes) {
    return message_of<macho::Fault>([&] { rebases(opcodes); });
}

TEST(RebaseTest, AnEmptyTableRebasesNothing) {
    EXPECT_THAT(rebases({}), IsEmpty());
    EXPECT_THAT(rebases({0x00, 0xff}), IsEmpty());
}

TEST(RebaseTest, EveryOpcodeMovesOn) {
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x52}})), ElementsAre(0x1010, 0x1018));
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x60, 0x03}})), ElementsAre(0x1010, 0x1018, 0x1020));
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x30, 0x08, 0x51}})), ElementsAre(0x1018));
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x42, 0x51}})), ElementsAre(0x1020));
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x70, 0x10, 0x51}})), ElementsAre(0x1010, 0x1028));
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x80, 0x03, 0x08}})), ElementsAre(0x1010, 0x1020, 0x1030));
}

TEST(RebaseTest, APlaceMayBeReachedBackwards) {
    EXPECT_THAT(rebases(joined({kPointer, kData, {0x30}, back, {0x51}})), ElementsAre(0x1008));
}

TEST(RebaseTest, AnotherTypeThanAPointerIsRefused) {
    EXPECT_EQ(refusal({0x12}), "the rebase table has type 2 (expected 1, a pointer)");
}

TEST(RebaseTest, AnUnknownOpcodeIsRefused) {
    EXPECT_EQ(refusal({0x93}), "the rebase table has the unknown opcode 0x93");
}

TEST(RebaseTest, ASegmentThatDoesNotExistIsRefused) {
    EXPECT_EQ(refusal({0x22, 0x00}), "the rebase table names segment 2 (expected one below 2)");
}

TEST(RebaseTest, APointerBeforeAnySegmentIsRefused) {
    EXPECT_EQ(refusal({0x51}), "the rebase table fixes a pointer up before it names a segment");
}

TEST(RebaseTest, APointerInAReadOnlySegmentIsRefused) {
    EXPECT_EQ(refusal({0x20, 0x10, 0x51}),
              "the rebase table fixes a pointer up in segment __TEXT, which is not writable");
}

TEST(RebaseTest, APointerAcrossTheEndOfWhatTheFileHoldsIsRefused) {
    EXPECT_THAT(rebases({0x21, 0xf8, 0x01, 0x51}), ElementsAre(0x10f8));
    EXPECT_EQ(
        refusal({0x21, 0xf9, 0x01, 0x51}),
        "the rebase table leaves segment __DATA (found offset 0xf9, expected a pointer within 0x100 bytes)");
    EXPECT_THAT(refusal(joined({kData, {0x30}, huge, {0x51}})), HasSubstr("leaves segment __DATA"));
}

TEST(RebaseTest, ACountBeyondTheSegmentIsRefused) {
    EXPECT_THAT(refusal(joined({kData, {0x60}, huge})),
                HasSubstr("leaves segment __DATA (found offset 0x100,"));
}

TEST(RebaseTest, ACountWithoutEndInOnePlaceIsRefused) {
    EXPECT_EQ(refusal(joined({kData, {0x80}, huge, back})),
              "the rebase table has more entries than the image has pointers");
}

TEST(RebaseTest, ATableCutShortIsRefused) {
    EXPECT_EQ(refusal({0x21}),
              "a read leaves the rebase table (found 1 bytes, expected 1 more at offset 0x1)");
}

TEST(RebaseTest, ATableOutsideTheFileIsRefused) {
    Draft draft("plain");
    draft.set32(draft.command(macho::Command::dyld_info_only) + Draft::rebase, 0xfffffff0);
    EXPECT_THAT(draft.load_error(), HasSubstr("plain.dylib: cannot load: a read leaves the file"));
}

}  // namespace
