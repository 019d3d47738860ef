// Which part of a file is loaded, and which files are refused at once.
#include "loader/format/slice.h"

#include <gtest/gtest.h>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"

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
    return bytes;
}

/// A fat file of such headers.
std::vector<uint8_t> fat(const std::vector<std::vector<uint8_t>>& slices) {
    std::vector<uint8_t> bytes, body;
    append_big_endian(bytes, 0xcafebabe);
    append_big_endian(bytes, static_cast<uint32_t>(slices.size()));
    for (const auto& slice : slices) {
        const Bytes fields(slice, "");
        for (const uint64_t at : {4, 8}) append_big_endian(bytes, fields.u32(at));
        append_big_endian(bytes, static_cast<uint32_t>(8 + 20 * slices.size() + body.size()));
        append_big_endian(bytes, static_cast<uint32_t>(slice.size()));
        append_big_endian(bytes, 0);
        body.insert(body.end(), slice.begin(), slice.end());
    }
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
    EXPECT_EQ(refusal(file), "a read leaves the file (found 43 bytes, expected 16 more at offset 0x1c)");
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

TEST(SliceTest, AFileThatIsNoDylibIsRefused) {
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

TEST(SliceTest, AFatFileLoadsLikeItsSlice) {
    auto thin = loader_test::image_bytes("plain");
    const auto file = fat({header(0x99), thin});
    const auto image = macho::Image::load_bytes(file, "fat.dylib", loader_test::host_symbol);
    EXPECT_EQ(loader_test::function<int(int, int)>(image, "plain_sum")(2, 3), 5);
}

}  // namespace
