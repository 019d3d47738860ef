// What may be read, written and run of an image in memory.
#include "loader/mapping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host.h"
#include "loader/fault.h"
#include "opcodes.h"

namespace {

using loader_test::message_of;
using macho::Fault;
using testing::ElementsAre;

/// __TEXT at 0, whose second half the file does not hold; __DATA at 0x1000; and at 0x2000 one that nobody may
/// look at.
class MappingTest : public testing::Test {
  protected:
    static macho::Layout three_segments() {
        macho::Layout layout = loader_test::two_segments();
        layout.segments[0].file_size = 0x800;
        layout.segments.push_back({.name = "__HIDDEN",
                                   .address = 0x2000,
                                   .size = 0x1000,
                                   .file_offset = 0,
                                   .file_size = 0,
                                   .readable = false,
                                   .writable = false,
                                   .executable = false});
        layout.extent = 0x3000;
        return layout;
    }

    MappingTest() {
        mapping.protect();
        mapping.write_pointer(data, 0x6f6c6c6568, "a test");  // "hello"
    }

    const std::vector<uint8_t> file = std::vector<uint8_t>(0x1100, 0xcc);
    const macho::Layout layout = three_segments();
    macho::Mapping mapping{layout, macho::Bytes(file, "the file")};
    const uintptr_t text = mapping.address_of(0), data = mapping.address_of(0x1000),
                    hidden = mapping.address_of(0x2000), end = mapping.address_of(0x3000);
};

TEST_F(MappingTest, SegmentsAreCopiedAndFilledUpWithZeros) {
    EXPECT_EQ(mapping.read(text, 1, "").u8(0), 0xcc);
    EXPECT_EQ(mapping.read(text + 0x7ff, 1, "").u8(0), 0xcc);
    EXPECT_EQ(mapping.read(text + 0x800, 1, "").u8(0), 0);
}

TEST_F(MappingTest, AReadStaysInOneSegment) {
    EXPECT_EQ(mapping.read(data + 0xff8, 8, "").u64(0), 0u);
    EXPECT_EQ(message_of<Fault>([&] { mapping.read(data + 0xff9, 8, "a test"); }),
              "a test lies outside the image (found 8 bytes at 0x1ff9)");
    EXPECT_NE(message_of<Fault>([&] { mapping.read(text - 1, 1, ""); }), "");
    EXPECT_NE(message_of<Fault>([&] { mapping.read(end, 1, ""); }), "");
    EXPECT_NE(message_of<Fault>([&] { mapping.read(data, ~uint64_t{0}, ""); }), "");
}

TEST_F(MappingTest, AnUnreadablePlaceIsRefused) {
    EXPECT_TRUE(mapping.contains(hidden));
    EXPECT_NE(message_of<Fault>([&] { mapping.read(hidden, 1, ""); }), "");
}

TEST_F(MappingTest, ATextEndsInItsSegment) {
    EXPECT_STREQ(mapping.text(data, "a test"), "hello");
    for (uintptr_t at = data + 0xff8; at < data + 0x1000; at += 8)
        mapping.write_pointer(at, ~uintptr_t{0}, "a test");
    EXPECT_EQ(message_of<Fault>([&] { mapping.text(data + 0xffc, "a test"); }),
              "a text in a test does not end (found its start at offset 0x0)");
}

TEST_F(MappingTest, OnlyWhatTheFileHoldsIsCode) {
    EXPECT_TRUE(mapping.is_code(text));
    EXPECT_TRUE(mapping.is_code(text + 0x7ff));
    EXPECT_FALSE(mapping.is_code(text + 0x800));
    EXPECT_FALSE(mapping.is_code(text + 0x7ff, 2));
    EXPECT_FALSE(mapping.is_code(data));
    EXPECT_FALSE(mapping.is_code(end));
}

TEST_F(MappingTest, OnlyWritableSegmentsAreWritten) {
    mapping.write_int32(data + 4, -1, "a test");
    EXPECT_EQ(mapping.read_pointer(data, ""), 0xffffffff6c6c6568);
    EXPECT_EQ(message_of<Fault>([&] { mapping.write_pointer(text, 1, "a test"); }),
              "a test is not in a writable part of the image (found 0x0)");
    EXPECT_NE(message_of<Fault>([&] { mapping.write_pointer(data + 0xffc, 1, "a test"); }), "");
}

TEST_F(MappingTest, ASectionOfPointersIsThePlacesOfThese) {
    macho::Section section{.segment = "__DATA", .name = "__list", .address = 0x1010, .size = 16, .type = {}};
    EXPECT_THAT(mapping.pointers_in(section), ElementsAre(data + 0x10, data + 0x18));
    section.size = 17;
    EXPECT_EQ(message_of<Fault>([&] { mapping.pointers_in(section); }),
              "section __list has 17 bytes (expected a multiple of 8)");
}

TEST_F(MappingTest, AnEmptySectionMayLieBehindItsSegment) {
    const macho::Section section{
        .segment = "__DATA", .name = "__none", .address = 0x3000, .size = 0, .type = {}};
    EXPECT_EQ(mapping.read(section, "a test").size(), 0u);
}

}  // namespace
