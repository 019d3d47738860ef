// The compact unwind pages.
#include "loader/unwinding/unwind_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host.h"
#include "loader/fault.h"

namespace {

using loader_test::message_of;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A section with one regular and one compressed page:
///   code   0x100-0x120  encoding 1, none of the extras
///          0x120-0x140  encoding with personality 1 and clean-ups at 0x900
///          0x200-0x280  common encoding 0
///          0x280-0x300  the page's own encoding 0
struct Pages {
    std::vector<uint32_t> words = {
        1,  // 0   version
        28,
        1,  // 4   common encodings
        32,
        1,  // 12  personalities
        36,
        3,           // 20  index
        0x02000000,  // 28  the common encoding
        0x2000,      // 32  the personality's slot
        0x100,
        80,
        72,  // 36  index: first page
        0x200,
        104,
        80,  // 48  second page
        0x300,
        0,
        80,  // 60  the end
        0x120,
        0x900,  // 72  clean-ups
        2,
        8 | 2 << 16,  // 80  a regular page of two entries
        0x100,
        1,
        0x120,
        0x51000000,  // 88
        3,
        12 | 2 << 16,  // 104 a compressed page of two entries
        20 | 1 << 16,  // 112 whose encodings are at 20
        0x00000000,
        0x01000080,  // 116 the entries, from 0x200
        0x02010000,  // 124 the encoding
    };

    Pages& set(size_t at, uint32_t value) {
        words.at(at / 4) = value;
        return *this;
    }

    std::vector<macho::UnwindEntry> read(uint64_t end_of_code = 0x300) const {
        const auto* bytes = reinterpret_cast<const uint8_t*>(words.data());
        return macho::read_unwind_info(macho::Bytes({bytes, words.size() * 4}, "__unwind_info"), end_of_code);
    }

    std::string refusal(uint64_t end_of_code = 0x300) const {
        return message_of<macho::Fault>([&] { read(end_of_code); });
    }
};

std::vector<uint32_t> fields(const macho::UnwindEntry& entry) {
    return {entry.start, entry.end, entry.encoding, entry.lsda, entry.personality_slot};
}

TEST(UnwindInfoTest, BothKindsOfPagesAreRead) {
    const auto entries = Pages().read();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_THAT(fields(entries[0]), ElementsAre(0x100, 0x120, 1, 0, 0));
    EXPECT_THAT(fields(entries[1]), ElementsAre(0x120, 0x200, 0x51000000, 0x900, 0x2000));
    EXPECT_THAT(fields(entries[2]), ElementsAre(0x200, 0x280, 0x02000000, 0, 0));
    EXPECT_THAT(fields(entries[3]), ElementsAre(0x280, 0x300, 0x02010000, 0, 0));
}

TEST(UnwindInfoTest, AnIndexWithoutPagesDescribesNothing) {
    EXPECT_THAT(Pages().set(24, 0).read(), IsEmpty());
    EXPECT_THAT(Pages().set(24, 1).read(), IsEmpty());
}

TEST(UnwindInfoTest, AnotherVersionIsRefused) {
    EXPECT_EQ(Pages().set(0, 2).refusal(), "__unwind_info has version 2 (expected 1)");
}

TEST(UnwindInfoTest, AnIndexOutsideTheSectionIsRefused) {
    EXPECT_THAT(Pages().set(20, 0x1000).refusal(), HasSubstr("a read leaves __unwind_info"));
    EXPECT_THAT(Pages().set(24, 0xffffffff).refusal(), HasSubstr("a read leaves __unwind_info"));
}

TEST(UnwindInfoTest, APageOutsideTheSectionIsRefused) {
    EXPECT_THAT(Pages().set(40, 0xfffffff0).refusal(), HasSubstr("a read leaves __unwind_info"));
}

TEST(UnwindInfoTest, EntriesOutsideTheSectionAreRefused) {
    EXPECT_THAT(Pages().set(84, 8 | 0xffff << 16).set(108, 12 | 0xffffu << 16).refusal(), testing::Ne(""));
    EXPECT_THAT(Pages().set(84, 0xfff0 | 2 << 16).refusal(), HasSubstr("a read leaves __unwind_info"));
}

TEST(UnwindInfoTest, AnotherKindOfPageIsRefused) {
    EXPECT_EQ(Pages().set(80, 4).refusal(), "the page of __unwind_info at 0x50 has kind 4 (expected 2 or 3)");
}

TEST(UnwindInfoTest, AnEncodingThatThePageDoesNotHaveIsRefused) {
    EXPECT_EQ(Pages().set(120, 0x02000080).refusal(),
              "the page of __unwind_info at 0x68 uses its encoding 1 (expected one below 1)");
}

TEST(UnwindInfoTest, APersonalityThatDoesNotExistIsRefused) {
    EXPECT_EQ(Pages().set(100, 0x61000000).refusal(),
              "__unwind_info uses personality 2 (expected at most 1)");
}

TEST(UnwindInfoTest, MissingCleanupsAreRefused) {
    EXPECT_EQ(Pages().set(72, 0x124).refusal(),
              "__unwind_info has no LSDA for the code at 0x120, though its encoding 0x51000000 "
              "says so");
}

TEST(UnwindInfoTest, CleanupsThatEndBeforeTheyStartAreRefused) {
    EXPECT_EQ(Pages().set(68, 64).refusal(), "__unwind_info's list of LSDAs ends before it starts");
}

TEST(UnwindInfoTest, CleanupsOutsideTheSectionAreRefused) {
    EXPECT_THAT(Pages().set(68, 0x7fffffff).refusal(), HasSubstr("a read leaves __unwind_info"));
}

TEST(UnwindInfoTest, EntriesOutOfOrderAreRefused) {
    EXPECT_EQ(Pages().set(96, 0x100).refusal(), "__unwind_info is not in order (found 0x100 after 0x100)");
    EXPECT_EQ(Pages().set(48, 0x90).refusal(), "__unwind_info is not in order (found 0x90 after 0x120)");
}

TEST(UnwindInfoTest, ThePageReadAgainAndAgainIsOutOfOrder) {
    EXPECT_EQ(Pages().set(52, 80).refusal(), "__unwind_info is not in order (found 0x100 after 0x120)");
}

TEST(UnwindInfoTest, EntriesBeyondTheCodeAreRefused) {
    EXPECT_EQ(Pages().refusal(0x2ff), "__unwind_info leaves the code (found 0x300, expected at most 0x2ff)");
}

}  // namespace
