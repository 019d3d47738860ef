// Threaded fix-ups that no linker makes, and that the device's loader refuses.
#include "loader/fixups/threaded.h"

#include <gmock/gmock.h>

#include <cstring>

#include "loader/fault.h"

namespace test {
namespace {

using testing::HasSubstr;

constexpr uint64_t bound = uint64_t{1} << 62, is_signed = uint64_t{1} << 63;
constexpr uint64_t then(uint64_t bytes) { return bytes / 8 << 51; }

/// A slice of nothing but the stream and 0x2000 bytes of data, which are at 0x10000 and at 0x100 in the file.
class ThreadedFixups : public testing::Test {
  protected:
    static constexpr uint64_t at_data = 0x100, size = 0x2000;

    ThreadedFixups() : slice(at_data + size) {
        layout.arm64e = true;
        layout.segments = {{.name = "__TEXT",
                            .address = 0,
                            .size = 0x1000,
                            .file_offset = 0,
                            .file_size = 0,
                            .readable = true,
                            .writable = false,
                            .executable = true},
                           {.name = "__DATA",
                            .address = 0x10000,
                            .size = size,
                            .file_offset = at_data,
                            .file_size = size,
                            .readable = true,
                            .writable = true,
                            .executable = false}};
        layout.libraries = {{.install_name = "/usr/lib/lib", .compatibility_version = 0}};
    }
    void put(uint64_t offset, uint64_t value) { std::memcpy(slice.data() + at_data + offset, &value, 8); }
    macho::ThreadedFixups read(const std::string& stream) {
        std::memcpy(slice.data(), stream.data(), stream.size());
        layout.bind = {0, static_cast<uint32_t>(stream.size())};
        return macho::read_threaded({slice, "the slice"}, layout);
    }
    std::string refusal(const std::string& stream) {
        try {
            read(stream);
        } catch (const macho::Fault& fault) {
            return fault.what();
        }
        return "(nothing)";
    }

    std::vector<uint8_t> slice;
    macho::Layout layout{};
    const std::string none{"\xd0\x00", 2}, one_row{"\xd0\x01\x11\x40_s\0\x51\x90", 9},
        chain{"\x71\x00\xd1\0", 4};
};

TEST_F(ThreadedFixups, AChainIsFollowedToItsEnd) {
    put(0, 0x1234 | then(0x18));
    put(0x18, bound | 0x7fffeull << 32 | then(8));
    put(0x20, is_signed | uint64_t{2} << 49 | uint64_t{0xabcd} << 32 | 0x88);
    const auto [rows, pointers] = read(one_row + chain);
    ASSERT_EQ(pointers.size(), 3u);
    EXPECT_EQ(pointers[0].address, 0x10000u);
    EXPECT_EQ(pointers[0].target, 0x1234u);
    EXPECT_FALSE(pointers[0].signature);
    EXPECT_EQ(pointers[1].row, 0u);
    EXPECT_EQ(pointers[1].addend, -2);
    EXPECT_EQ(pointers[2].target, 0x88u);
    EXPECT_EQ(pointers[2].signature,
              (macho::PointerSignature{.key = 2, .address_mixed_in = false, .discriminator = 0xabcd}));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].symbol, "_s");
}

TEST_F(ThreadedFixups, ATargetKeepsItsUpperByte) {
    put(0, uint64_t{0x80} << 43 | 0x10);
    EXPECT_EQ(read(none + chain).pointers[0].target, uint64_t{0x80} << 56 | 0x10);
}

TEST_F(ThreadedFixups, ClassicOpcodesAreRefused) {
    EXPECT_EQ(refusal("\x11\x40_s"),
              "classic fix-ups in an arm64e image (found the bind opcode 0x11, expected 0xd0 first)");
    layout.rebase.size = 8;
    EXPECT_THAT(refusal(none),
                HasSubstr("classic fix-ups in an arm64e image (found 8 bytes of rebase opcodes"));
}
TEST_F(ThreadedFixups, AClassicBindOpcodeAmongThemIsRefused) {
    for (const char opcode : {'\xa0', '\xb1', '\xc0', '\x60', '\x80', '\x91', '\xd2'})
        EXPECT_THAT(refusal(none + opcode + std::string(4, '\0')), HasSubstr("has the unknown opcode"))
            << +opcode;
}
TEST_F(ThreadedFixups, OtherNumbersOfRowsAreRefused) {
    EXPECT_THAT(refusal("\xd0\x02\x11\x40_s" + std::string("\0\x51\x90\0", 4)),
                HasSubstr("another number of rows than it says (found 1, expected 2)"));
    EXPECT_THAT(refusal(std::string("\xd0\0\x11\x40_s\0\x51\x90\0", 10)), HasSubstr("(found 1, expected 0)"));
    EXPECT_THAT(refusal(std::string("\xd0\0\xd0\0", 4)), HasSubstr("says its size twice"));
    EXPECT_THAT(refusal("\xd0\x81\x80\x04"), HasSubstr("too large (found 65537 rows"));
}
TEST_F(ThreadedFixups, ARowOfAnotherTypeIsRefused) {
    EXPECT_THAT(refusal("\xd0\x01\x11\x52"), HasSubstr("has type 2 (expected 1, a pointer)"));
}
TEST_F(ThreadedFixups, ARowOfAnUnknownLibraryIsRefused) {
    EXPECT_THAT(refusal("\xd0\x01\x12"), HasSubstr("names library 2 (expected at most 1)"));
}
TEST_F(ThreadedFixups, APointerToAnUnknownRowIsRefused) {
    put(0, bound | 1);
    EXPECT_EQ(refusal(one_row + chain),
              "a chained pointer names row 1 of the bind table (expected one below 1)");
}
TEST_F(ThreadedFixups, AChainThatLeavesItsSegmentIsRefused) {
    put(0x1ff8, then(8));
    EXPECT_EQ(
        refusal(none + std::string("\x71\xf8\x3f\xd1", 4)),
        "a chain of pointers leaves segment __DATA (found offset 0x2000, expected a pointer within 0x2000 "
        "bytes)");
}
TEST_F(ThreadedFixups, AChainInAnUnwritableOrUnknownSegmentIsRefused) {
    EXPECT_THAT(refusal(none + std::string("\x70\0\xd1", 3)), HasSubstr("__TEXT, which is not writable"));
    EXPECT_THAT(refusal(none + std::string("\x72\0\xd1", 3)),
                HasSubstr("names segment 2 (expected one below 2)"));
    EXPECT_THAT(refusal(none + "\xd1"), HasSubstr("begins before a segment is named"));
}
TEST_F(ThreadedFixups, APointerThatIsNotAlignedIsRefused) {
    EXPECT_THAT(refusal(none + std::string("\x71\x04\xd1", 3)),
                HasSubstr("is not aligned (found offset 0x4"));
}
TEST_F(ThreadedFixups, ChainsThatMeetAreRefused) {
    put(0, then(0x10));
    put(8, then(8));
    EXPECT_EQ(refusal(none + std::string("\x71\x00\xd1\x71\x08\xd1", 6)),
              "a pointer is in two chains (found at 0x10010)");
}
TEST_F(ThreadedFixups, MoreChainsThanTheDeviceHasRoomForAreRefused) {
    // Two pages that are writable, and one more.
    const std::string chains("\x71\x00\xd1\x71\x08\xd1\x71\x10\xd1\x71\x18\xd1", 12);
    EXPECT_EQ(refusal(none + chains.substr(0, 9)), "(nothing)");
    EXPECT_THAT(refusal(none + chains), HasSubstr("more chains of pointers than the device has room for"));
}

}  // namespace
}  // namespace test
