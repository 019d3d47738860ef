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

const Opcodes kUntypedFoo = {0x40, '_', 'f', 0};
const Opcodes kFoo = joined({kUntypedFoo, {0x51}});  // a pointer
const Opcodes kData = {0x71, 0x10};                  // segment 1, offset 0x10

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

std::string bind_refusal(const Opcodes& opcodes, BindTable table = BindTable::regular) {
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

TEST(BindOpcodesTest, ALibraryIsAnOrdinalOrSpecial) {
    EXPECT_THAT(binds(joined({{0x20, 0x02}, kFoo, kData, {0x90}})), ElementsAre("_f 2 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x10}, kFoo, kData, {0x90}})), ElementsAre("_f 0 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x30}, kFoo, kData, {0x90}})), ElementsAre("_f 0 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x3f}, kFoo, kData, {0x90}})), ElementsAre("_f -1 0x1010+0"));
    EXPECT_THAT(binds(joined({{0x3e}, kFoo, kData, {0x90}})), ElementsAre("_f -2 0x1010+0"));
    EXPECT_THAT(binds(joined({kFoo, kData, {0x90}}), BindTable::weak), ElementsAre("_f -3 0x1010+0"));
}

TEST(BindOpcodesTest, AddendsAndWeaknessLastUntilTheyChange) {
    EXPECT_THAT(
        binds(joined(
            {{0x11, 0x60, 0x78}, {0x41, '_', 'w', 0, 0x51}, kData, {0x90}, kFoo, {0x90, 0x60, 0x08, 0x90}})),
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
    EXPECT_EQ(bind_refusal(joined({kFoo, {0x53}, kData, {0x90}})),
              "BIND_OPCODE_DO_BIND at 0x8 in the bind table: unsupported fix-up type (found 3, expected 1, a "
              "pointer), at the symbol f");
}

TEST(BindOpcodesTest, ABindWithoutATypeIsRefused) {
    const Opcodes untyped = joined({kUntypedFoo, kData, {0x90}});
    EXPECT_EQ(bind_refusal(untyped),
              "BIND_OPCODE_DO_BIND at 0x6 in the bind table: unsupported fix-up type (found 0, no type was "
              "set, expected 1, a pointer), at the symbol f");
    EXPECT_THAT(bind_refusal(untyped, BindTable::weak),
                HasSubstr("in the weak bind table: unsupported fix-up type"));
}

TEST(BindOpcodesTest, ALazyBindWithoutATypeIsAPointer) {
    EXPECT_THAT(binds(joined({kUntypedFoo, kData, {0x90}}), BindTable::lazy), ElementsAre("_f 0 0x1010+0"));
}

TEST(BindOpcodesTest, AnUnknownOpcodeIsRefused) {
    EXPECT_EQ(bind_refusal({0xd0}), "0xd0 at 0x0 in the bind table: unknown opcode");
    EXPECT_EQ(bind_refusal({0xd0}, BindTable::lazy), "0xd0 at 0x0 in the lazy bind table: unknown opcode");
    EXPECT_EQ(bind_refusal({0xd0}, BindTable::weak), "0xd0 at 0x0 in the weak bind table: unknown opcode");
}

TEST(BindOpcodesTest, ALibraryThatDoesNotExistIsRefused) {
    EXPECT_EQ(bind_refusal({0x13}),
              "BIND_OPCODE_SET_DYLIB_ORDINAL_IMM at 0x0 in the bind table: no such library (found ordinal 3, "
              "expected at most 2)");
    EXPECT_EQ(bind_refusal(joined({{0x20}, huge})),
              "BIND_OPCODE_SET_DYLIB_ORDINAL_ULEB at 0x0 in the bind table: no such library (found ordinal "
              "1152921504606846976, expected at most 2)");
}

TEST(BindOpcodesTest, AnUnknownSpecialOrdinalIsRefused) {
    EXPECT_EQ(
        bind_refusal({0x3c}),
        "BIND_OPCODE_SET_DYLIB_SPECIAL_IMM at 0x0 in the bind table: unknown special ordinal (found -4, "
        "expected -2 to 0)");
}

TEST(BindOpcodesTest, APointerBeforeAnySymbolIsRefused) {
    EXPECT_EQ(bind_refusal(joined({kData, {0x90}})),
              "BIND_OPCODE_DO_BIND at 0x2 in the bind table: no symbol was set");
}

TEST(BindOpcodesTest, APointerBeforeAnySegmentIsRefused) {
    EXPECT_EQ(bind_refusal(joined({kFoo, {0x90}})),
              "BIND_OPCODE_DO_BIND at 0x5 in the bind table: no segment was set, at the symbol f");
}

TEST(BindOpcodesTest, APointerInAReadOnlySegmentIsRefused) {
    EXPECT_EQ(
        bind_refusal(joined({kFoo, {0x70, 0x00, 0x90}})),
        "BIND_OPCODE_DO_BIND at 0x7 in the bind table: segment __TEXT is not writable, at the symbol f");
}

TEST(BindOpcodesTest, ACountBeyondTheSegmentIsRefused) {
    EXPECT_THAT(bind_refusal(joined({kFoo, kData, {0xc0}, huge, {0x00}})),
                HasSubstr("leaves segment __DATA"));
}

TEST(BindOpcodesTest, ACountWithoutEndInOnePlaceIsRefused) {
    EXPECT_EQ(
        bind_refusal(joined({kFoo, kData, {0xc0}, huge, back})),
        "BIND_OPCODE_DO_BIND_ULEB_TIMES_SKIPPING_ULEB at 0x7 in the bind table: more fix-ups than the image "
        "has pointers, at the symbol f");
}

TEST(BindOpcodesTest, ASymbolThatDoesNotEndIsRefused) {
    EXPECT_EQ(bind_refusal({0x40, '_', 'f'}),
              "a text in the table does not end (found its start at offset 0x1)");
}

}  // namespace
