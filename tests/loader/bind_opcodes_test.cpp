// Bind opcodes.
#include "loader/fixups/bind_opcodes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host.h"
#include "loader/fault.h"
#include "opcodes.h"

namespace {

using loader_test::back;
using loader_test::huge;
using loader_test::joined;
using loader_test::message_of;
using loader_test::Opcodes;
using macho::BindTable;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Opcodes kFoo = {0x40, '_', 'f', 0};
const Opcodes kData = {0x71, 0x10};  // segment 1, offset 0x10

/// The rows as "symbol library address+addend", with ? for a weak import.
std::vector<std::string> binds(const Opcodes& opcodes, BindTable table = BindTable::regular) {
    const macho::Layout layout = loader_test::two_segments();
    std::vector<std::string> found;
    for (const auto& row : macho::read_binds(macho::Bytes(opcodes, "the table"), table, layout))
        found.push_back(std::string(row.symbol) + (row.weak_import ? "? " : " ") +
                        std::to_string(row.ordinal) + " " + macho::hex(row.address) +
                        (row.addend < 0 ? "" : "+") + std::to_string(row.addend));
    return found;
}

std::string refusal(const Opcodes& opcodes, BindTable table = BindTable::regular) {
    return message_of<macho::Fault>([&] { binds(opcodes, table); });
}

TEST(BindOpcodesTest, AnEmptyTableBindsNothing) { EXPECT_THAT(binds({}), IsEmpty()); }

TEST(BindOpcodesTest, EveryOpcodeMovesOn) {
    EXPECT_THAT(binds(joined({{0x11}, kFoo, kData, {0x90, 0x90}})),
                ElementsAre("_f 1 0x1010+0", "_f 1 0x1018+0"));
    EXPECT_THAT(binds(joined({{0x12}, kFoo, kData, {0xa0, 0x10, 0x90}})),
                ElementsAre("_f 2 0x1010+0", "_f 2 0x1028+0"));
    EXPECT_THAT(binds(joined({{0x12}, kFoo, kData, {0xb2, 0x90}})),
                ElementsAre("_f 2 0x1010+0", "_f 2 0x1028+0"));
    EXPECT_THAT(binds(joined({{0x12}, kFoo, kData, {0xc0, 0x02, 0x08}})),
                ElementsAre("_f 2 0x1010+0", "_f 2 0x1020+0"));
    EXPECT_THAT(binds(joined({{0x12}, kFoo, kData, {0x80}, back, {0x90}})), ElementsAre("_f 2 0x1008+0"));
}

TEST(BindOpcodesTest, ALibraryIsAnOrdinalOrAScope) {
    EXPECT_THAT(binds(joined({{0x20, 0x02}, kFoo, kData, {0x90}})), ElementsAre("_f 2 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x10}, kFoo, kData, {0x90}})), ElementsAre("_f 0 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x30}, kFoo, kData, {0x90}})), ElementsAre("_f 0 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x3f}, kFoo, kData, {0x90}})), ElementsAre("_f -1 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x3e}, kFoo, kData, {0x90}})), ElementsAre("_f -2 0x1010+0"));
    EXPECT_THAT(binds(joined({kFoo, kData, {0x90}}), BindTable::weak), ElementsAre("_f -3 0x1010+0"));
}

TEST(BindOpcodesTest, AddendsAndWeaknessLastUntilTheyChange) {
    EXPECT_THAT(
        binds(
            joined({{0x11, 0x60, 0x78}, {0x41, '_', 'w', 0}, kData, {0x90}, kFoo, {0x90, 0x60, 0x08, 0x90}})),
        ElementsAre("_w? 1 0x1010-8", "_f 1 0x1018-8", "_f 1 0x1020+8"));
}

TEST(BindOpcodesTest, OnlyTheLazyTableGoesOnAfterAnEntryIsDone) {
    const Opcodes two = joined({kFoo, kData, {0x90, 0x00}, kFoo, {0x90, 0x00}});
    EXPECT_THAT(binds(two), ElementsAre("_f 0 0x1010+0"));
    EXPECT_THAT(binds(two, BindTable::lazy), ElementsAre("_f 0 0x1010+0", "_f 0 0x1018+0"));
}

TEST(BindOpcodesTest, ADefinitionThatNothingReplacesBindsNothing) {
    EXPECT_THAT(binds({0x48, '_', 's', 0}, BindTable::weak), IsEmpty());
}

TEST(BindOpcodesTest, AnotherTypeThanAPointerIsRefused) {
    EXPECT_EQ(refusal({0x53}), "the bind table has type 3 (expected 1, a pointer)");
}

TEST(BindOpcodesTest, AnUnknownOpcodeIsRefused) {
    EXPECT_EQ(refusal({0xd0}), "the bind table has the unknown opcode 0xd0");
    EXPECT_EQ(refusal({0xd0}, BindTable::lazy), "the lazy bind table has the unknown opcode 0xd0");
    EXPECT_EQ(refusal({0xd0}, BindTable::weak), "the weak bind table has the unknown opcode 0xd0");
}

TEST(BindOpcodesTest, ALibraryThatDoesNotExistIsRefused) {
    EXPECT_EQ(refusal({0x13}), "the bind table names library 3 (expected at most 2)");
    EXPECT_EQ(refusal(joined({{0x20}, huge})),
              "the bind table names library 1152921504606846976 (expected at most 2)");
}

TEST(BindOpcodesTest, AnUnknownScopeIsRefused) {
    EXPECT_EQ(refusal({0x3c}),
              "the bind table has the unknown scope -4 (found in "
              "BIND_OPCODE_SET_DYLIB_SPECIAL_IMM, expected -2 to 0)");
}

TEST(BindOpcodesTest, APointerBeforeAnySymbolIsRefused) {
    EXPECT_EQ(refusal(joined({kData, {0x90}})), "the bind table binds a pointer before it names a symbol");
}

TEST(BindOpcodesTest, APointerBeforeAnySegmentIsRefused) {
    EXPECT_EQ(refusal(joined({kFoo, {0x90}})),
              "the bind table fixes a pointer up before it names a segment, at the symbol f");
}

TEST(BindOpcodesTest, APointerInAReadOnlySegmentIsRefused) {
    EXPECT_EQ(refusal(joined({kFoo, {0x70, 0x00, 0x90}})),
              "the bind table fixes a pointer up in segment __TEXT, which is not writable, at the symbol f");
}

TEST(BindOpcodesTest, ACountBeyondTheSegmentIsRefused) {
    EXPECT_THAT(refusal(joined({kFoo, kData, {0xc0}, huge, {0x00}})), HasSubstr("leaves segment __DATA"));
}

TEST(BindOpcodesTest, ACountWithoutEndInOnePlaceIsRefused) {
    EXPECT_EQ(refusal(joined({kFoo, kData, {0xc0}, huge, back})),
              "the bind table has more entries than the image has pointers, at the symbol f");
}

TEST(BindOpcodesTest, ASymbolThatDoesNotEndIsRefused) {
    EXPECT_EQ(refusal({0x40, '_', 'f'}), "a text in the table does not end (found its start at offset 0x1)");
}

}  // namespace
