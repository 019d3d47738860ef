// Checked reads, and the forms read one after the other.
#include "loader/format/bytes.h"

#include <gtest/gtest.h>

#include "host.h"
#include "loader/fault.h"
#include "loader/format/cursor.h"
#include "loader/format/structures.h"

namespace {

using loader_test::message_of;
using macho::Bytes;
using macho::Cursor;
using macho::Fault;

const std::vector<uint8_t> kEight = {1, 2, 3, 4, 5, 6, 7, 0x88};

TEST(BytesTest, NumbersAreLittleEndian) {
    const Bytes bytes(kEight, "the bytes");
    EXPECT_EQ(bytes.u8(7), 0x88);
    EXPECT_EQ(bytes.u16(6), 0x8807);
    EXPECT_EQ(bytes.u32(1), 0x05040302u);
    EXPECT_EQ(bytes.u64(0), 0x8807060504030201u);
    EXPECT_EQ(bytes.field_big_endian(&macho::load_command::cmd), 0x01020304u);
}

TEST(BytesTest, AReadAcrossTheEndIsRefused) {
    const Bytes bytes(kEight, "the bytes");
    EXPECT_EQ(message_of<Fault>([&] { bytes.u32(5); }),
              "a read leaves the bytes (found 8 bytes, expected 4 more at offset 0x5)");
    EXPECT_NE(message_of<Fault>([&] { bytes.u8(8); }), "");
    EXPECT_NE(message_of<Fault>([&] { bytes.part(4, 5); }), "");
}

TEST(BytesTest, AnOffsetOrSizeThatWrapsAroundIsRefused) {
    const Bytes bytes(kEight, "the bytes");
    EXPECT_NE(message_of<Fault>([&] { bytes.u64(~uint64_t{0} - 3); }), "");
    EXPECT_NE(message_of<Fault>([&] { bytes.part(4, ~uint64_t{0} - 3); }), "");
}

TEST(BytesTest, APartMayBeEmptyAtTheEnd) { EXPECT_EQ(Bytes(kEight, "the bytes").part(8, 0).size(), 0u); }

TEST(BytesTest, TextEndsAtItsZero) {
    const std::vector<uint8_t> data = {'a', 'b', 0, 'c'};
    EXPECT_EQ(Bytes(data, "the bytes").text(0), "ab");
    EXPECT_EQ(message_of<Fault>([&] { Bytes(data, "the bytes").text(3); }),
              "a text in the bytes does not end (found its start at offset 0x3)");
    EXPECT_NE(message_of<Fault>([&] { Bytes(data, "the bytes").text(4); }), "");
}

TEST(BytesTest, PaddedTextMayFillItsField) {
    const std::vector<uint8_t> data = {'a', 'b', 0, 'c'};
    EXPECT_EQ(Bytes(data, "the bytes").padded_text(0, 4), "ab");
    EXPECT_EQ(Bytes(data, "the bytes").padded_text(0, 2), "ab");
}

TEST(CursorTest, UnsignedNumbersOfEveryLength) {
    const std::vector<uint8_t> data = {0x00, 0x7f, 0x80, 0x01, 0xff, 0xff, 0xff,
                                       0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01};
    Cursor cursor(Bytes(data, "the bytes"));
    EXPECT_EQ(cursor.uleb128(), 0u);
    EXPECT_EQ(cursor.uleb128(), 127u);
    EXPECT_EQ(cursor.uleb128(), 128u);
    EXPECT_EQ(cursor.uleb128(), ~uint64_t{0});
    EXPECT_TRUE(cursor.at_end());
}

TEST(CursorTest, SignedNumbersOfEveryLength) {
    const std::vector<uint8_t> data = {0x00, 0x3f, 0x40, 0x7f, 0xc0, 0x00, 0x80, 0x80,
                                       0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x7f};
    Cursor cursor(Bytes(data, "the bytes"));
    EXPECT_EQ(cursor.sleb128(), 0);
    EXPECT_EQ(cursor.sleb128(), 63);
    EXPECT_EQ(cursor.sleb128(), -64);
    EXPECT_EQ(cursor.sleb128(), -1);
    EXPECT_EQ(cursor.sleb128(), 64);
    EXPECT_EQ(cursor.sleb128(), INT64_MIN);
    EXPECT_TRUE(cursor.at_end());
}

TEST(CursorTest, NumbersOfMoreThan64BitsAreRefused) {
    const std::vector<uint8_t> high_bit(9, 0xff);
    for (const uint8_t last : {0x02, 0x81}) {
        std::vector<uint8_t> data = high_bit;
        data.insert(data.end(), {last, 0x00});
        EXPECT_EQ(message_of<Fault>([&] { Cursor(Bytes(data, "the bytes")).uleb128(); }),
                  "a number in the bytes has more than 64 bits (found its start at offset 0x0)");
        EXPECT_EQ(message_of<Fault>([&] { Cursor(Bytes(data, "the bytes")).sleb128(); }),
                  "a number in the bytes has more than 64 bits (found its start at offset 0x0)");
    }
}

TEST(CursorTest, ANumberThatDoesNotEndIsRefused) {
    const std::vector<uint8_t> data = {0x80, 0x80};
    EXPECT_NE(message_of<Fault>([&] { Cursor(Bytes(data, "the bytes")).uleb128(); }), "");
    EXPECT_NE(message_of<Fault>([&] { Cursor(Bytes(data, "the bytes")).sleb128(); }), "");
}

TEST(CursorTest, TextAndPartsAreSteppedOver) {
    const std::vector<uint8_t> data = {'a', 'b', 0, 1, 2, 3};
    Cursor cursor(Bytes(data, "the bytes"));
    EXPECT_EQ(cursor.text(), "ab");
    EXPECT_EQ(cursor.take(2).u16(0), 0x0201);
    EXPECT_EQ(cursor.rest().size(), 1u);
    EXPECT_EQ(cursor.u8(), 3);
    EXPECT_TRUE(cursor.at_end());
}

}  // namespace
