// An arm64e slice, made of the arm64 slice that ships and of drafts.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "arm64e/comparison.h"
#include "arm64e/conversion.h"
#include "device/arm64e_draft.h"
#include "loader/fault.h"
#include "loader/fixups/threaded.h"

namespace test {
namespace {

using arm64e::Data;
using testing::AllOf;
using testing::HasSubstr;

Data linked_slice() {
    std::ifstream file(LINKED_SLICE, std::ios::binary);
    Data bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_GT(bytes.size(), 100000u);
    return bytes;
}

template <class Work>
std::string fault_of(Work work) {
    try {
        work();
    } catch (const macho::Fault& fault) {
        return fault.what();
    }
    return "(nothing)";
}
std::string refusal_of(const Data& slice) {
    return fault_of([&] { arm64e::convert(slice); });
}

struct Read {
    explicit Read(const Data& slice)
        : layout(macho::read_layout({slice, "the slice"})),
          fixups(macho::read_threaded({slice, "the slice"}, layout)) {}
    const macho::ThreadedPointer* at(uint64_t address) const {
        const auto found = std::ranges::find(fixups.pointers, address, &macho::ThreadedPointer::address);
        return found == fixups.pointers.end() ? nullptr : &*found;
    }
    macho::Layout layout;
    macho::ThreadedFixups fixups;
};

TEST(Arm64eSlice, EveryPointerLeadsWhereItLed) {
    const Data before = linked_slice();
    const arm64e::Conversion made = arm64e::convert(before);
    EXPECT_EQ(fault_of([&] { arm64e::compare(before, made.slice); }), "(nothing)");
    EXPECT_GT(made.pointers, 2000u);
    EXPECT_EQ(Read(made.slice).fixups.pointers.size(), made.pointers);
}

TEST(Arm64eSlice, SignsImplementationsAndFunctionsOfBlocksAlone) {
    const Data slice = arm64e::convert(linked_slice()).slice;
    const Read read(slice);
    const macho::Section* code = read.layout.section("__text");
    std::map<std::string, size_t> signed_in, plain_code_in;
    for (const macho::ThreadedPointer& pointer : read.fixups.pointers) {
        const auto holds = [&](const macho::Section& section) {
            return pointer.address - section.address < section.size && pointer.address >= section.address;
        };
        const auto section = std::ranges::find_if(read.layout.sections, holds);
        ASSERT_NE(section, read.layout.sections.end());
        if (pointer.signature)
            ++signed_in[section->name];
        else if (!pointer.row && pointer.target >= code->address &&
                 pointer.target < code->address + code->size)
            ++plain_code_in[section->name];
    }
    EXPECT_THAT(signed_in, testing::UnorderedElementsAre(testing::Pair("__objc_const", testing::Gt(200u)),
                                                         testing::Pair("__block_desc", testing::Ge(4u))));
    EXPECT_THAT(plain_code_in, testing::UnorderedElementsAre(testing::Pair("__const", testing::Gt(40u)),
                                                             testing::Pair("__mod_init_func", 2u)));
}

TEST(Arm64eSlice, HasNoClassicFixUps) {
    const Read read(arm64e::convert(linked_slice()).slice);
    EXPECT_EQ(read.layout.rebase.size, 0u);
    EXPECT_EQ(read.layout.weak_bind.size, 0u);
    EXPECT_EQ(read.layout.lazy_bind.size, 0u);
    EXPECT_GT(read.layout.bind.size, 0u);
}

TEST(Arm64eSlice, HasSubtypeTwoAndNothingBesides) {
    EXPECT_EQ(arm64e::word(arm64e::convert(linked_slice()).slice, 8), 2u);
}

TEST(Arm64eSlice, TheStubBinderIsGone) {
    const Data before = linked_slice(), after = arm64e::convert(before).slice;
    const std::string_view name = "dyld_stub_binder";
    const auto has_it = [&](const Data& slice) {
        return std::ranges::search(slice, name).begin() != slice.end();
    };
    EXPECT_TRUE(has_it(before));
    EXPECT_FALSE(has_it(after));
}

TEST(Arm64eSlice, ItsUuidIsAnother) {
    const Data before = linked_slice(), after = arm64e::convert(before).slice;
    const uint64_t at = arm64e::read_linked_slice(before).uuid_command + 8;
    EXPECT_NE(Data(before.begin() + at, before.begin() + at + 16),
              Data(after.begin() + at, after.begin() + at + 16));
}

TEST(Arm64eSlice, OneSliceGivesOne) {
    EXPECT_EQ(arm64e::convert(linked_slice()).slice, arm64e::convert(linked_slice()).slice);
}

TEST(Arm64eSlice, APointerOfEachKindIsWhatTheDeviceReads) {
    const Data slice = arm64e::convert(SliceDraft()
                                           .rebase(0x4000, SliceDraft::code)
                                           .rebase(0x4008, 0x4000)
                                           .rebase(0x5000, SliceDraft::code + 4)
                                           .rebase(0x5ff8, uint64_t{0xa5} << 56 | 0x4000)
                                           .bind(0x6000, "_one")
                                           .bind(0x6008, "_two", -3)
                                           .bytes())
                           .slice;
    // Distances count by 8 from bit 51. Rows are sorted by their names.
    EXPECT_EQ(arm64e::double_word(slice, 0x4000), 0x8009000000001000u);
    EXPECT_EQ(arm64e::double_word(slice, 0x4008), 0x0000000000004000u);
    EXPECT_EQ(arm64e::double_word(slice, 0x5000), 511ull << 51 | 0x1004u);
    EXPECT_EQ(arm64e::double_word(slice, 0x5ff8), 0xa5ull << 43 | 0x4000u);
    EXPECT_EQ(arm64e::double_word(slice, 0x6000), 1ull << 62 | 1ull << 51 | 0u);
    EXPECT_EQ(arm64e::double_word(slice, 0x6008), 1ull << 62 | 0x7fffdull << 32 | 1u);
    const std::string stream(
        "\xd0\x02\x11\x40_one\0\x51\x90\x40_two\0\x90\x71\x00\xd1\x71\x80\x20\xd1\x71\x80\x40\xd1\0", 30);
    EXPECT_EQ(std::string(slice.begin() + 0x8000, slice.begin() + 0x8000 + 30), stream);
}

TEST(Arm64eSlice, EachPageHasAChainOfItsOwn) {
    SliceDraft draft;
    for (uint64_t at = 0x4000; at < 0x7000; at += 0x800) draft.rebase(at, 0x4000);
    EXPECT_EQ(arm64e::convert(draft.bytes()).chains, 3u);
}

TEST(Arm64eSlice, AWeakImportStaysWeak) {
    SliceDraft draft;
    draft.bind(0x6000, "_may_be_missing");
    draft.binds[1] |= 1;
    const Read read(arm64e::convert(draft.bytes()).slice);
    ASSERT_EQ(read.fixups.rows.size(), 1u);
    EXPECT_TRUE(read.fixups.rows[0].weak_import);
}

TEST(Arm64eSlice, CodeInAnUnknownPlaceIsNamed) {
    SliceDraft draft;
    draft.sections[1] = "__data";
    EXPECT_EQ(
        refusal_of(draft.rebase(0x5010, 0x1040).bytes()),
        "a pointer in a place that the rule of signing does not know (found in section __DATA,__data at "
        "0x5010, pointing to code at 0x1040)");
}

TEST(Arm64eSlice, AnImportInAnUnknownPlaceIsNamed) {
    SliceDraft draft;
    draft.sections[1] = "__data";
    EXPECT_EQ(
        refusal_of(draft.bind(0x5018, "_qsort").bytes()),
        "a pointer in a place that the rule of signing does not know (found in section __DATA,__data at "
        "0x5018, pointing to _qsort)");
}

TEST(Arm64eSlice, APointerThatIsNotAlignedIsNamed) {
    EXPECT_EQ(refusal_of(SliceDraft().rebase(0x4004, 0x4000).bytes()),
              "a pointer is not aligned to 8 bytes (found in section __objc_const at 0x4004)");
}

TEST(Arm64eSlice, MoreSymbolsThanATableHoldsAreRefused) {
    SliceDraft draft;
    draft.sections.assign(140, "__got");
    for (int i = 0; i <= 0x10000; ++i)
        draft.bind(0x4000 + 8 * static_cast<uint64_t>(i), "_" + std::to_string(i));
    EXPECT_EQ(refusal_of(draft.bytes()),
              "too many symbols for one table of threaded fix-ups (found 65537, expected at most 65536)");
}

TEST(Arm64eSlice, WithoutRoomForTheStreamItIsRefused) {
    SliceDraft draft;
    draft.sections.assign(40, "__objc_const");
    // One pointer in each page, all of them by one classic opcode.
    draft.rebases = {0x11, 0x21, 0x00, 0x80, 40, 0xf8, 0x1f};
    for (uint64_t i = 0; i < 40; ++i) draft.pointers.emplace_back(0x4000 + i * 0x1000, 0x4000);
    EXPECT_THAT(refusal_of(draft.bytes()),
                AllOf(HasSubstr("no room for the threaded fix-ups (found 7 bytes of classic ones"),
                      HasSubstr("expected at least")));
}

TEST(Arm64eSlice, AnAddendThatDoesNotFitIsNamed) {
    EXPECT_EQ(refusal_of(SliceDraft().bind(0x6000, "_far", 1 << 18).bytes()),
              "an addend does not fit (found 262144 at 0x6000, expected 19 bits)");
}

TEST(Arm64eSlice, ATargetThatDoesNotFitIsNamed) {
    EXPECT_EQ(refusal_of(SliceDraft().rebase(0x5000, uint64_t{1} << 43).bytes()),
              "a pointer's target does not fit (found 0x80000000000 at 0x5000)");
}

TEST(Arm64eSlice, SharedDefinitionsAreRefused) {
    SliceDraft draft;
    draft.weak_binds = {0x00};
    EXPECT_THAT(refusal_of(draft.rebase(0x4000, 0x4000).bytes()),
                HasSubstr("found 1 bytes of weak bind opcodes"));
}

TEST(Arm64eSlice, IsMadeOfAnArm64SliceAlone) {
    Data slice = linked_slice();
    EXPECT_EQ(refusal_of(arm64e::convert(slice).slice), "an arm64e slice already (expected one for arm64)");
    arm64e::put(slice, 8, uint32_t{0x80000002});
    EXPECT_EQ(refusal_of(slice), "an arm64e slice already (expected one for arm64)");
    arm64e::put(slice, 4, uint32_t{0x01000007});
    EXPECT_EQ(refusal_of(slice), "built for another processor (found 0x1000007, expected 0x100000c, arm64)");
    arm64e::put(slice, 0, uint32_t{0xbebafeca});
    EXPECT_THAT(refusal_of(slice), HasSubstr("not a 64-bit Mach-O slice"));
}

TEST(Arm64eSlice, ATruncatedSliceIsRefusedWhereverItEnds) {
    const Data whole = SliceDraft().rebase(0x4000, 0x1000).bind(0x6000, "_one").bytes();
    for (size_t size = 0; size < whole.size(); size += size < 1000 ? 1 : 37)
        EXPECT_NE(refusal_of(Data(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size))), "(nothing)")
            << size;
}

// --- What the comparison finds ---

class Comparison : public testing::Test {
  protected:
    const Data before =
        SliceDraft().rebase(0x4000, 0x1000).rebase(0x4008, 0x4000).bind(0x6000, "_one").bytes();
    Data after = arm64e::convert(before).slice;

    std::string finding() {
        return fault_of([&] { arm64e::compare(before, after); });
    }
};

TEST_F(Comparison, FindsAPointerThatLeadsElsewhere) {
    after[0x4009] ^= 1;
    EXPECT_THAT(finding(), HasSubstr("a pointer leads elsewhere (found at 0x4008)"));
}
TEST_F(Comparison, FindsASignatureThatIsMissing) {
    arm64e::put(after, 0x4000,
                arm64e::double_word(after, 0x4000) & ~(uint64_t{1} << 63) & ~(uint64_t{1} << 48));
    EXPECT_THAT(finding(), HasSubstr("not signed for its place (found at 0x4000)"));
}
TEST_F(Comparison, FindsASignatureThatDoesNotKnowItsPlace) {
    arm64e::put(after, 0x4000, arm64e::double_word(after, 0x4000) & ~(uint64_t{1} << 48));
    EXPECT_THAT(finding(), HasSubstr("not signed for its place (found at 0x4000)"));
}
TEST_F(Comparison, FindsASignatureTooMany) {
    arm64e::put(after, 0x4008, arm64e::double_word(after, 0x4008) | uint64_t{1} << 63);
    EXPECT_THAT(finding(), HasSubstr("signed that is to be plain (found at 0x4008)"));
}
TEST_F(Comparison, FindsAMissingPointer) {
    arm64e::put(after, 0x4000, arm64e::double_word(after, 0x4000) & ~(uint64_t{0x7ff} << 51));
    EXPECT_THAT(finding(), HasSubstr("a pointer is missing (found at 0x4008)"));
}
TEST_F(Comparison, FindsAnotherInstruction) {
    after[0x1234] ^= 1;
    EXPECT_THAT(finding(), HasSubstr("a byte (found at 0x1234)"));
}

}  // namespace
}  // namespace test
