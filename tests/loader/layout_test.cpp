// Load commands: what is read from them, and what is refused.
#include "loader/format/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draft.h"
#include "fields.h"
#include "host.h"
#include "loader/fault.h"

namespace {

using namespace loader_test;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class LayoutTest : public testing::Test {
  protected:
    Draft draft{"plain"};
};

TEST_F(LayoutTest, SegmentsSectionsAndLibrariesAreThoseOfTheFile) {
    const auto image = draft.load();
    const macho::Layout& layout = image.layout();

    std::vector<std::string> segments;
    for (const macho::Segment& segment : layout.segments) segments.push_back(segment.name);
    EXPECT_THAT(segments, ElementsAre("__TEXT", "__DATA", "__LINKEDIT"));
    EXPECT_TRUE(layout.segments[0].executable);
    EXPECT_FALSE(layout.segments[0].writable);
    EXPECT_TRUE(layout.segments[1].writable);
    EXPECT_FALSE(layout.segments[1].executable);

    const macho::Section* text = layout.section("__text");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->segment, "__TEXT");
    EXPECT_EQ(text->address, draft.u64(draft.section("__text") + kSectionAddress));
    EXPECT_EQ(text->size, draft.u64(draft.section("__text") + kSectionSize));
    EXPECT_EQ(layout.section("__common")->type, macho::S_ZEROFILL);
    EXPECT_EQ(layout.section("__nothing"), nullptr);

    ASSERT_EQ(layout.libraries.size(), 1u);
    EXPECT_EQ(layout.libraries[0].install_name, "/test/libhost.dylib");
    EXPECT_EQ(layout.libraries[0].compatibility_version, 0x00010203u);
    EXPECT_EQ(layout.install_name, "/test/plain.dylib");
    ASSERT_EQ(layout.build_versions.size(), 1u);
    EXPECT_EQ(layout.build_versions[0].minimum_system, 0x000c0000u);
}

TEST_F(LayoutTest, AnImageIsPositionIndependentIfItsFlagsSaySo) {
    constexpr size_t flags = 24;
    constexpr uint32_t position_independent = 0x200000;
    draft.set32(flags, draft.u32(flags) & ~position_independent);
    EXPECT_FALSE(draft.load().layout().position_independent);
    draft.set32(flags, draft.u32(flags) | position_independent);
    EXPECT_TRUE(draft.load().layout().position_independent);
}

TEST_F(LayoutTest, TheErrorNamesTheFile) {
    draft.set32(0, 0x464c457f);
    EXPECT_EQ(draft.load_error(),
              "plain.dylib: cannot load: not a Mach-O file (found 7f 45 4c 46, expected cf fa ed fe)");
}

TEST_F(LayoutTest, TooManyLoadCommandsAreRefused) {
    draft.set32(16, 1000);
    EXPECT_THAT(draft.load_error(), HasSubstr("a read leaves the list of load commands"));
}

TEST_F(LayoutTest, AListOfLoadCommandsThatLeavesTheFileIsRefused) {
    draft.set32(20, 0x7fffffff);
    EXPECT_THAT(draft.load_error(), HasSubstr("a read leaves the file"));
}

TEST_F(LayoutTest, ALoadCommandWithAnOddSizeIsRefused) {
    for (const uint32_t size : {0, 4, 9}) {
        draft.set32(32 + 4, size);
        EXPECT_THAT(draft.load_error(), HasSubstr("load command 0 (LC_SEGMENT_64) has size " +
                                                  std::to_string(size) + ", expected a multiple of 8"));
    }
}

TEST_F(LayoutTest, ALoadCommandTooShortForItsFieldsIsRefused) {
    draft.set32(32 + 4, 16);
    EXPECT_THAT(draft.load_error(), HasSubstr("a read leaves load command LC_SEGMENT_64 (found 16 bytes"));
}

TEST_F(LayoutTest, ALibraryNameOutsideItsCommandIsRefused) {
    draft.set32(draft.command(macho::LC_LOAD_DYLIB) + 8, 0x1000);
    EXPECT_THAT(draft.load_error(), HasSubstr("a read leaves load command LC_LOAD_DYLIB (found "));
}

TEST_F(LayoutTest, AnUnknownLoadCommandIsRefusedOnlyIfTheFileRequiresIt) {
    const size_t at = draft.command(macho::LC_ID_DYLIB);
    draft.set32(at, 0x7777);
    EXPECT_EQ(draft.load_error(), "");
    draft.set32(at, 0x80007777);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("load command 0x80007777 is required by LC_REQ_DYLD, but not supported"));
}

TEST_F(LayoutTest, WhatTheLoaderCannotRunIsRefusedByItsName) {
    const size_t at = draft.command(macho::LC_ID_DYLIB);
    const std::pair<uint32_t, const char*> commands[] = {
        {0x1, "LC_SEGMENT"},     {0x4, "LC_THREAD"},
        {0x5, "LC_UNIXTHREAD"},  {0x6, "LC_LOADFVMLIB"},
        {0x7, "LC_IDFVMLIB"},    {0x9, "LC_FVMFILE"},
        {0x11, "LC_ROUTINES"},   {0x1a, "LC_ROUTINES_64"},
        {0x80000028, "LC_MAIN"}, {0x80000035, "LC_FILESET_ENTRY"}};
    for (const auto& [number, name] : commands) {
        draft.set32(at, number);
        EXPECT_THAT(draft.load_error(),
                    StartsWith("plain.dylib: cannot load: load command " + std::string(name) + " "))
            << name;
    }
}

TEST_F(LayoutTest, ACommandThatOnlyInformsIsRead) {
    const size_t at = draft.command(macho::LC_ID_DYLIB);
    for (const uint32_t number : {0x26, 0x29, 0x2a, 0x31}) {
        draft.set32(at, number);
        EXPECT_EQ(draft.load_error(), "") << number;
    }
}

TEST_F(LayoutTest, ControlCharactersOfAFileAreWrittenOut) {
    const size_t data = draft.section("__data");
    draft.set_text(data, "__a\n\x1b[31m\x7f").set8(data + kSectionFlags, 0x11);
    EXPECT_EQ(draft.load_error(),
              "plain.dylib: cannot load: section __a\\x0a\\x1b[31m\\x7f holds "
              "thread-local variables, which are not supported");
}

TEST_F(LayoutTest, AnEncryptedFileIsRefused) {
    const size_t at = draft.command(macho::LC_LOAD_DYLIB);
    draft.set32(at, 0x2c).set32(at + 16, 0);
    EXPECT_THAT(draft.load_error(), Not(HasSubstr("encrypted")));
    draft.set32(at + 16, 1);
    EXPECT_THAT(draft.load_error(), HasSubstr("the file is encrypted (found scheme 1, expected 0)"));
}

TEST_F(LayoutTest, ChainedFixupsAreRefused) {
    EXPECT_THAT(Draft("chained").load_error(),
                AllOf(StartsWith("chained.dylib: cannot load: linked with chained fix-ups"),
                      HasSubstr("(found load command LC_DYLD_"), HasSubstr("expected LC_DYLD_INFO_ONLY)")));
}

TEST_F(LayoutTest, AFileWithoutFixupTablesIsRefused) {
    draft.set32(draft.command(macho::LC_DYLD_INFO_ONLY), 0x7777);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("no fix-up tables (expected the load command LC_DYLD_INFO_ONLY)"));
}

TEST_F(LayoutTest, AFileWithoutSegmentsIsRefused) {
    for (const char* name : {"__TEXT", "__DATA", "__LINKEDIT"}) {
        const size_t at = draft.segment(name);
        draft.set32(at, 0x7777);
    }
    EXPECT_THAT(draft.load_error(), HasSubstr("no segments"));
}

TEST_F(LayoutTest, ASegmentOutsideTheFileIsRefused) {
    draft.set64(draft.segment("__LINKEDIT") + kFileOffset, 0xfffffffffffffff0);
    EXPECT_THAT(draft.load_error(), HasSubstr("segment __LINKEDIT leaves the file (found "));
}

TEST_F(LayoutTest, ASegmentLargerInTheFileThanInMemoryIsRefused) {
    draft.set64(draft.segment("__LINKEDIT") + kSize, 0x10);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("segment __LINKEDIT has more bytes in the file than in memory (found "));
}

TEST_F(LayoutTest, ASegmentThatIsWritableAndExecutableIsRefused) {
    draft.set32(draft.segment("__DATA") + kAccess, 7);
    EXPECT_THAT(draft.load_error(), HasSubstr("segment __DATA is both writable and executable"));
}

TEST_F(LayoutTest, SegmentsThatOverlapInMemoryAreRefused) {
    draft.set64(draft.segment("__LINKEDIT") + kAddress, draft.u64(draft.segment("__DATA") + kAddress));
    EXPECT_THAT(draft.load_error(), HasSubstr(" overlaps another in memory (found 0x"));
}

TEST_F(LayoutTest, SegmentsThatOverlapInTheFileAreRefused) {
    const uint64_t taken = draft.u64(draft.segment("__TEXT") + kFileSize);
    draft.set64(draft.segment("__LINKEDIT") + kFileOffset, 0x10)
        .set64(draft.segment("__LINKEDIT") + kFileSize, 0x10);
    EXPECT_THAT(draft.load_error(), HasSubstr("segment __LINKEDIT overlaps another in the file (found offset "
                                              "0x10, expected at least " +
                                              macho::hex(taken) + ")"));
}

TEST_F(LayoutTest, AnImageTooLargeForMemoryIsRefused) {
    const size_t linkedit = draft.segment("__LINKEDIT");
    for (const uint64_t size : {uint64_t{0x4000000}, uint64_t{1} << 40, ~uint64_t{0}}) {
        draft.set64(linkedit + kSize, size);
        EXPECT_THAT(draft.load_error(), HasSubstr("segment __LINKEDIT makes the image too large (found "));
    }
    draft.set64(linkedit + kSize, 0x1000000).set64(linkedit + kAddress, 0x7fffffff0000);
    EXPECT_THAT(draft.load_error(), HasSubstr("segment __LINKEDIT makes the image too large (found "));
}

TEST_F(LayoutTest, ASegmentThatDoesNotStartAtAPageIsRefused) {
    const size_t linkedit = draft.segment("__LINKEDIT");
    draft.set64(linkedit + kAddress, draft.u64(linkedit + kAddress) + 0x10);
    EXPECT_THAT(draft.load_error(),
                AllOf(HasSubstr("segment __LINKEDIT starts at 0x"), HasSubstr("0 (expected a multiple of ")));
}

TEST_F(LayoutTest, AHeaderThatNoSegmentMapsIsRefused) {
    const size_t text = draft.segment("__TEXT");
    draft.set64(text + kFileOffset, 0x10).set64(text + kFileSize, draft.u64(text + kFileSize) - 0x10);
    EXPECT_THAT(draft.load_error(), HasSubstr("no segment maps the file's header"));
}

TEST_F(LayoutTest, TooManySectionsForTheirCommandAreRefused) {
    draft.set32(draft.segment("__DATA") + kSectionCount, 0xffffffff);
    EXPECT_THAT(draft.load_error(), HasSubstr("a read leaves load command LC_SEGMENT_64 (found "));
}

TEST_F(LayoutTest, ASectionOutsideItsSegmentIsRefused) {
    const size_t data = draft.section("__data");
    const uint64_t address = draft.u64(data + kSectionAddress);
    for (const uint64_t wrong : {address - 0x10000, address + 0x10000, ~uint64_t{0}}) {
        draft.set64(data + kSectionAddress, wrong);
        EXPECT_THAT(draft.load_error(), HasSubstr("section __data leaves segment __DATA (found "));
    }
    draft.set64(data + kSectionAddress, address).set64(data + kSectionSize, ~uint64_t{0});
    EXPECT_THAT(draft.load_error(),
                HasSubstr("section __data leaves segment __DATA (found 0xffffffffffffffff bytes"));
}

TEST_F(LayoutTest, ASectionWithBytesHasThemInTheFile) {
    const size_t zeros = draft.section("__common");
    EXPECT_EQ(draft.load_error(), "");
    draft.set8(zeros + kSectionFlags, 0);
    EXPECT_THAT(draft.load_error(), HasSubstr("section __common leaves segment __DATA (found "));
}

TEST_F(LayoutTest, ThreadLocalVariablesAreRefused) {
    EXPECT_THAT(Draft("threads").load_error(),
                HasSubstr("holds thread-local variables, which are not supported"));
}

TEST_F(LayoutTest, InitialisersByOffsetAndTerminatorsAreRefused) {
    const size_t data = draft.section("__data");
    draft.set8(data + kSectionFlags, 0x16);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("section __data holds initialisers by offset, which are not supported"));
    draft.set8(data + kSectionFlags, 0x0a);
    EXPECT_THAT(draft.load_error(), HasSubstr("section __data holds terminators, which are not supported"));
}

TEST_F(LayoutTest, SectionsOfUnknownAndOfOtherUnsupportedTypesAreRefused) {
    const size_t data = draft.section("__data");
    draft.set8(data + kSectionFlags, 0x0d);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("section __data holds interposed functions, which are not supported"));
    draft.set8(data + kSectionFlags, 0x10);
    EXPECT_THAT(draft.load_error(), HasSubstr("section __data holds pointers into lazily loaded libraries, "
                                              "which are not supported"));
    draft.set8(data + kSectionFlags, 0x17);
    EXPECT_THAT(draft.load_error(), HasSubstr("section __data has the unknown type 0x17"));
}

// The linker writes the older command for the simulator's slice, and the newer one for the device's.
#if defined(__x86_64__)
TEST_F(LayoutTest, PlatformAndVersionMayComeFromTheNewerCommand) {
    constexpr uint32_t version = 0x000b0000;
    const size_t at = draft.command(macho::LC_VERSION_MIN_IPHONEOS);
    draft.set32(at, macho::LC_BUILD_VERSION)
        .set32(at + 8, macho::PLATFORM_IOSSIMULATOR)
        .set32(at + 12, version);
    const auto image = draft.load();
    EXPECT_EQ(image.layout().build_versions.at(0).platform, macho::PLATFORM_IOSSIMULATOR);
    EXPECT_EQ(image.layout().build_versions.at(0).minimum_system, version);
}
#else
TEST_F(LayoutTest, PlatformAndVersionMayComeFromTheOlderCommand) {
    constexpr uint32_t version = 0x000b0000;
    const size_t at = draft.command(macho::LC_BUILD_VERSION);
    draft.set32(at, macho::LC_VERSION_MIN_IPHONEOS).set32(at + 8, version);
    const auto image = draft.load();
    EXPECT_EQ(image.layout().build_versions.at(0).platform, macho::PLATFORM_IOS);
    EXPECT_EQ(image.layout().build_versions.at(0).minimum_system, version);
}
#endif

}  // namespace
