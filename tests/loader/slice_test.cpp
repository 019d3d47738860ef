#include "loader/format/slice.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"
#include "loader/rules/rules.h"

namespace {

using loader_test::Draft;
using loader_test::message_of;
using macho::Bytes;
using macho::choose_slice;
using macho::Cpu;
using macho::Fault;

constexpr uint32_t kX86 = 0x01000007, kArm = 0x0100000c;

void append_big_endian(std::vector<uint8_t>& bytes, uint32_t value) {
    for (const int shift : {24, 16, 8, 0}) bytes.push_back(static_cast<uint8_t>(value >> shift));
}

void append_little_endian(std::vector<uint8_t>& bytes, uint32_t value) {
    for (const int shift : {0, 8, 16, 24}) bytes.push_back(static_cast<uint8_t>(value >> shift));
}

std::vector<uint8_t> header(uint32_t processor, uint32_t subtype = 0, uint32_t file_type = 6) {
    std::vector<uint8_t> bytes;
    for (const uint32_t field : {0xfeedfacf, processor, subtype, file_type})
        append_little_endian(bytes, field);
    bytes.resize(32);
    return bytes;
}

constexpr uint32_t kPage = 0x4000, kPageBits = 14;

/// A fat file of such slices, each at a page of its own.
std::vector<uint8_t> fat(const std::vector<std::vector<uint8_t>>& slices) {
    std::vector<uint8_t> bytes, body;
    append_big_endian(bytes, 0xcafebabe);
    append_big_endian(bytes, static_cast<uint32_t>(slices.size()));
    for (const auto& slice : slices) {
        const Bytes fields(slice, "");
        body.resize((body.size() + kPage - 1) / kPage * kPage);
        for (const uint64_t at : {4, 8}) append_big_endian(bytes, fields.u32(at));
        append_big_endian(bytes, static_cast<uint32_t>(kPage + body.size()));
        append_big_endian(bytes, static_cast<uint32_t>(slice.size()));
        append_big_endian(bytes, kPageBits);
        body.insert(body.end(), slice.begin(), slice.end());
    }
    bytes.resize(kPage);
    bytes.insert(bytes.end(), body.begin(), body.end());
    return bytes;
}

std::string refusal(const std::vector<uint8_t>& file, Cpu cpu = Cpu::x86_64) {
    return message_of<Fault>([&] { choose_slice(Bytes(file, "the file"), cpu); });
}

TEST(SliceTest, AThinFileIsItsOwnSlice) {
    const auto file = header(kX86);
    EXPECT_EQ(choose_slice(Bytes(file, "the file"), Cpu::x86_64).data(), file.data());
}

TEST(SliceTest, TheProcessorChoosesAmongTheSlices) {
    const auto file = fat({header(kArm), header(kX86)});
    EXPECT_EQ(choose_slice(Bytes(file, "the file"), Cpu::x86_64).u32(4), kX86);
    EXPECT_EQ(choose_slice(Bytes(file, "the file"), Cpu::arm64).u32(4), kArm);
}

TEST(SliceTest, ASliceForAnotherKindOfArm64IsNotTaken) {
    EXPECT_EQ(refusal(fat({header(kArm, 2), header(kX86)}), Cpu::arm64),
              "no slice for this processor (found arm64e, x86_64, expected arm64)");
    EXPECT_EQ(refusal(header(kArm, 0x80000002), Cpu::arm64),
              "built for another processor (found arm64e of subtype 0x80000002, expected arm64)");
}

TEST(SliceTest, AFatFileWithoutSlicesIsRefused) {
    EXPECT_EQ(refusal(fat({})), "no slice for this processor (found none, expected x86_64)");
}

TEST(SliceTest, ASliceOutsideItsFileIsRefused) {
    auto file = fat({header(kX86)});
    file.pop_back();
    EXPECT_EQ(refusal(file), "a read leaves the file (found 16415 bytes, expected 32 more at offset 0x4000)");
}

TEST(SliceTest, AFatHeaderOutsideItsFileIsRefused) {
    std::vector<uint8_t> file;
    append_big_endian(file, 0xcafebabe);
    append_big_endian(file, 0xffffffff);
    EXPECT_EQ(refusal(file),
              "a read leaves the file (found 8 bytes, expected 85899345900 more at offset 0x8)");
}

TEST(SliceTest, AnotherProcessorIsRefused) {
    EXPECT_EQ(refusal(header(kArm)), "built for another processor (found arm64, expected x86_64)");
    EXPECT_EQ(refusal(header(7)), "built for another processor (found processor 0x7, expected x86_64)");
}

TEST(SliceTest, AFileThatIsNotADylibIsRefused) {
    EXPECT_EQ(refusal(header(kX86, 0, 2)), "not a dynamic library (found file type 2, expected 6)");
}

TEST(SliceTest, AnotherKindOfFileIsRefused) {
    EXPECT_EQ(refusal({0x7f, 'E', 'L', 'F', 2, 1, 1, 0}),
              "not a Mach-O file (found 7f 45 4c 46, expected cf fa ed fe)");
    EXPECT_EQ(refusal({0xcf, 0xfa}), "not a Mach-O file (found cf fa, expected cf fa ed fe)");
    EXPECT_EQ(refusal({}), "not a Mach-O file (found an empty file, expected cf fa ed fe)");
}

TEST(SliceTest, AHeaderThatIsCutShortIsRefused) {
    EXPECT_EQ(refusal({0xcf, 0xfa, 0xed, 0xfe, 7}),
              "a read leaves the file (found 5 bytes, expected 4 more at offset 0x4)");
}

// --- The rules of the device, for every slice ---

class SliceRules : public testing::Test {
  protected:
    /// Puts a number into a field of a fat_arch.
    void set(size_t row, size_t field, uint32_t value) {
        std::vector<uint8_t> digits;
        append_big_endian(digits, value);
        std::ranges::copy(digits, file.begin() + static_cast<ptrdiff_t>(8 + 20 * row + field));
    }
    std::string refusal() const {
        return message_of<Fault>([&] { macho::check_slices(Bytes(file, "the file")); });
    }

    static constexpr size_t kCpu = 0, kOffset = 8, kSize = 12, kAlign = 16;
    std::vector<uint8_t> file = fat({header(kX86), header(kArm)});
};

TEST_F(SliceRules, AThinFileHasNoSlices) {
    file = header(kX86);
    EXPECT_EQ(refusal(), "");
}

TEST_F(SliceRules, SlicesAtPagesKeepThem) { EXPECT_EQ(refusal(), ""); }

TEST_F(SliceRules, AnAlignBeyondTheLinkersIsRefused) {
    set(0, kAlign, 16);
    EXPECT_EQ(refusal(), "fat_arch 0 (x86_64): align (found 2^16, expected at most 2^15)");
    set(0, kAlign, 0xffffffff);
    EXPECT_EQ(refusal(), "fat_arch 0 (x86_64): align (found 2^4294967295, expected at most 2^15)");
}

TEST_F(SliceRules, AnOffsetThatItsAlignDoesNotDivideIsRefused) {
    set(0, kAlign, 15);
    EXPECT_EQ(refusal(),
              "fat_arch 0 (x86_64): offset (found 0x4000, expected a multiple of 0x8000, its align)");
}

TEST_F(SliceRules, AnOffsetInTheFilesFirst4096BytesIsRefused) {
    set(0, kAlign, 0);
    set(0, kOffset, 0xff0);
    EXPECT_EQ(refusal(), "fat_arch 0 (x86_64): offset (found 0xff0, expected at least 0x1000)");
}

TEST_F(SliceRules, AnOffsetWithinAPageIsRefused) {
    set(1, kAlign, 12);
    set(1, kOffset, 0x5000);
    EXPECT_EQ(refusal(),
              "fat_arch 1 (arm64): offset (found 0x5000, expected a multiple of 0x4000, the size of a page)");
    set(1, kOffset, 2 * kPage);
    set(0, kAlign, 4);
    set(0, kOffset, 0x4010);
    EXPECT_EQ(
        refusal(),
        "fat_arch 0 (x86_64): offset (found 0x4010, expected a multiple of 0x1000, the size of a page)");
}

TEST_F(SliceRules, ASizeBelowAHeaderIsRefused) {
    set(1, kSize, 31);
    EXPECT_EQ(refusal(),
              "fat_arch 1 (arm64): size (found 0x1f, expected at least 0x20, the size of the header)");
}

TEST_F(SliceRules, ASliceThatLeavesTheFileIsRefused) {
    set(1, kSize, 33);
    EXPECT_EQ(refusal(), "fat_arch 1 (arm64): end in the file (found 0x8021, expected at most 0x8020)");
    set(1, kSize, 0xffffffff);
    EXPECT_EQ(refusal(), "fat_arch 1 (arm64): end in the file (found 0x100007fff, expected at most 0x8020)");
}

TEST_F(SliceRules, SlicesThatOverlapAreRefused) {
    set(0, kSize, kPage + 1);
    EXPECT_EQ(refusal(),
              "fat_arch 1 (arm64): offset (found 0x8000, expected at least 0x8001, where the slice "
              "before it ends)");
}

TEST_F(SliceRules, ASliceForAnotherProcessorThanItSaysIsRefused) {
    set(1, kCpu, kX86);
    EXPECT_EQ(refusal(), "fat_arch 1 (x86_64): cputype of its header (found arm64, expected x86_64)");
}

TEST_F(SliceRules, ASliceThatIsNotMachOIsRefused) {
    file[kPage] = 0;
    EXPECT_EQ(refusal(), "fat_arch 0 (x86_64): magic of its header (found 0xfeedfa00, expected 0xfeedfacf)");
}

TEST_F(SliceRules, MoreSlicesThanTheFirst4096BytesHoldAreRefused) {
    file.resize(0x10000);
    file[6] = 1;
    EXPECT_EQ(refusal(), "fat_header: nfat_arch (found 258, expected at most 204)");
}

TEST_F(SliceRules, AnImageIsHeldToThem) {
    file = fat({header(0x99), loader_test::image_bytes("plain")});
    const auto load = [&](const macho::Rules& rules) {
        return message_of<macho::Error>(
            [&] { macho::Image::load_bytes(file, "fat.dylib", loader_test::host_symbol, rules); });
    };
    set(0, kAlign, 15);
    EXPECT_EQ(
        load({}),
        "fat.dylib: cannot load: fat_arch 0 (processor 0x99): offset (found 0x4000, expected a multiple "
        "of 0x8000, its align)");
    EXPECT_EQ(load({.slices = false}), "");
}

TEST(SliceTest, AFatFileLoadsLikeItsSlice) {
    auto thin = loader_test::image_bytes("plain");
    const auto file = fat({header(0x99), thin});
    const auto image = macho::Image::load_bytes(file, "fat.dylib", loader_test::host_symbol);
    EXPECT_EQ(loader_test::function<int(int, int)>(image, "plain_sum")(2, 3), 5);
}

}  // namespace
