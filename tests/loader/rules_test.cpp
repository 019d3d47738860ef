// What the device's loader refuses: every image here breaks one rule, and could be run otherwise.
#include "loader/rules/rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "draft.h"
#include "fields.h"
#include "host.h"
#include "loader/format/versions.h"

namespace {

using namespace loader_test;
using macho::Rules;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

/// Of a table's place, in the load command that names it.
constexpr size_t kOffset = 8;

const std::string page = macho::kThisCpu == macho::Cpu::arm64 ? "0x4000" : "0x1000";

/// Structure alone: what is changed has another hash, too.
class StructureRules : public testing::Test {
  protected:
    std::string refusal() const {
        constexpr std::string_view before = "plain.dylib: cannot load: ";
        const std::string error = draft.load_error({.platform = false, .signature = false, .libraries = {}});
        EXPECT_TRUE(error.empty() || error.starts_with(before)) << error;
        // Without the rules it loads, so that it is the rule that refuses it.
        EXPECT_EQ(draft.load_error(), "");
        return error.empty() ? error : error.substr(before.size());
    }
    static std::string hex(uint64_t value) {
        char text[32];
        std::snprintf(text, sizeof text, "0x%lx", static_cast<unsigned long>(value));
        return text;
    }

    Draft draft{"plain"};
    const size_t text = draft.segment("__TEXT"), data = draft.segment("__DATA"),
                 linkedit = draft.segment("__LINKEDIT");
    const size_t fix_ups = draft.command(macho::LC_DYLD_INFO_ONLY), symbols = draft.command(macho::LC_SYMTAB),
                 ranges = draft.command(macho::LC_DYSYMTAB);
};

TEST_F(StructureRules, WhatTheLinkerMakesKeepsThem) { EXPECT_EQ(refusal(), ""); }

TEST_F(StructureRules, ALoadCommandOfAWrongSizeIsRefused) {
    draft.set32(draft.command(macho::LC_FUNCTION_STARTS), macho::LC_SOURCE_VERSION);
    draft.set32(draft.command(macho::LC_UUID), macho::LC_FUNCTION_STARTS);  // which is shorter
    EXPECT_EQ(refusal(), "LC_FUNCTION_STARTS: its size (found 24, expected 16)");
}

TEST_F(StructureRules, ASecondLoadCommandOfAKindIsRefused) {
    draft.set32(draft.command(macho::LC_FUNCTION_STARTS), macho::LC_CODE_SIGNATURE);
    EXPECT_EQ(refusal(), "LC_CODE_SIGNATURE: more than one (found 2, expected 1)");
}

TEST_F(StructureRules, AMissingSymbolTableIsRefused) {
    draft.set32(ranges, macho::LC_SOURCE_VERSION);
    EXPECT_EQ(refusal(), "LC_DYSYMTAB: missing (found nothing, expected 1)");
    draft.set32(symbols, macho::LC_SOURCE_VERSION);
    EXPECT_EQ(refusal(), "LC_SYMTAB: missing (found nothing, expected 1)");
}

TEST_F(StructureRules, ALibraryWithoutAnInstallNameIsRefused) {
    draft.set32(draft.command(macho::LC_ID_DYLIB), macho::LC_SOURCE_VERSION);
    EXPECT_EQ(refusal(), "LC_ID_DYLIB: no install name (found nothing, expected one for a dylib)");
}

TEST_F(StructureRules, ALibraryThatLinksWithNothingIsRefused) {
    Draft alone("shared");
    alone.set32(alone.command(macho::LC_LOAD_DYLIB), macho::LC_SOURCE_VERSION);
    EXPECT_EQ(alone.load_error({.signature = false}),
              "shared.dylib: cannot load: LC_LOAD_DYLIB: no libraries (found nothing, expected at least "
              "libSystem)");
}

TEST_F(StructureRules, ASegmentOfAWrongSizeForItsSectionsIsRefused) {
    draft.set32(data + 64, draft.u32(data + 64) - 1);
    EXPECT_EQ(refusal(), "LC_SEGMENT_64 __DATA: its size for its number of sections (found " +
                             std::to_string(draft.u32(data + kCommandSize)) + ", expected " +
                             std::to_string(draft.u32(data + kCommandSize) - 80) + ")");
}

TEST_F(StructureRules, UnknownAccessIsRefused) {
    draft.set32(data + kAccess, 0xb);
    EXPECT_EQ(refusal(), "LC_SEGMENT_64 __DATA: initprot (found 0xb, expected at most 0x7)");
    draft.set32(data + kAccess, 3).set32(data + kMostAccess, 0x13);
    EXPECT_EQ(refusal(), "LC_SEGMENT_64 __DATA: maxprot (found 0x13, expected at most 0x7)");
}

TEST_F(StructureRules, WhatMayBeWrittenAndNotReadIsRefused) {
    draft.set32(data + kAccess, 2);
    EXPECT_EQ(
        draft.load_error({.signature = false}),
        "plain.dylib: cannot load: LC_SEGMENT_64 __DATA: initprot (found 0x2, expected a readable segment)");
}

TEST_F(StructureRules, CodeThatMayNotRunIsRefused) {
    draft.set32(text + kAccess, 1);
    EXPECT_EQ(draft.load_error({.signature = false}),
              "plain.dylib: cannot load: LC_SEGMENT_64 __TEXT: initprot (found 0x1, expected 0x5)");
}

TEST_F(StructureRules, TablesThatMayBeWrittenAreRefused) {
    draft.set32(linkedit + kAccess, 3);
    EXPECT_EQ(refusal(), "LC_SEGMENT_64 __LINKEDIT: initprot (found 0x3, expected 0x1)");
}

TEST_F(StructureRules, ASegmentThatIsNotAlignedIsRefused) {
    const uint64_t address = draft.u64(linkedit + kAddress) + 0x800;
    draft.set64(linkedit + kAddress, address);
    EXPECT_EQ(draft.load_error({.signature = false}),
              "plain.dylib: cannot load: LC_SEGMENT_64 __LINKEDIT: vmaddr (found " + hex(address) +
                  ", expected a multiple of " + page + ")");
}

TEST_F(StructureRules, ASegmentThatIsNotAlignedInTheFileIsRefused) {
    const uint64_t offset = draft.u64(linkedit + kFileOffset) + 8;
    draft.set64(linkedit + kFileOffset, offset)
        .set64(linkedit + kFileSize, draft.u64(linkedit + kFileSize) - 8);
    EXPECT_EQ(refusal(), "LC_SEGMENT_64 __LINKEDIT: fileoff (found " + hex(offset) +
                             ", expected a multiple of " + page + ")");
}

TEST_F(StructureRules, CodeThatTheFileHoldsInPartIsRefused) {
    const uint64_t size = draft.u64(text + kSize);
    draft.set64(text + kFileSize, size - 8);
    EXPECT_EQ(draft.load_error({.signature = false}),
              "plain.dylib: cannot load: LC_SEGMENT_64 __TEXT: filesize of an executable segment (found " +
                  hex(size - 8) + ", expected " + hex(size) + ", its vmsize)");
}

TEST_F(StructureRules, ASectionWhoseBytesLieElsewhereIsRefused) {
    const size_t row = draft.section("__data");
    draft.set32(row + kSectionOffset, 0x10);
    EXPECT_THAT(refusal(), AllOf(StartsWith("LC_SEGMENT_64 __DATA: bytes of section __data (found "),
                                 HasSubstr(" at 0x10, expected within ")));
}

TEST_F(StructureRules, SegmentsOutOfOrderAreRefused) {
    // __DATA trades places in memory with __LINKEDIT, of which nothing else knows the address.
    const uint64_t address = draft.u64(linkedit + kAddress), before = draft.u64(data + kAddress);
    draft.set64(linkedit + kAddress, before).set64(linkedit + kSize, draft.u64(data + kSize));
    draft.set64(data + kAddress, address);
    for (uint32_t i = 0; i < draft.u32(data + 64); ++i) {
        const size_t row = data + 72 + i * 80 + 32;
        draft.set64(row, draft.u64(row) - before + address);
    }
    EXPECT_EQ(draft.load_error({.signature = false}),
              "plain.dylib: cannot load: LC_SEGMENT_64 __LINKEDIT: vmaddr out of order (found " +
                  hex(before) + ", expected at least " + hex(address) + ")");
}

TEST_F(StructureRules, ASecondTableSegmentIsRefused) {
    draft.set_text(data + 8, "__LINKEDIT").set32(data + kAccess, 1);
    EXPECT_THAT(draft.load_error({.signature = false}),
                HasSubstr("LC_SEGMENT_64 __LINKEDIT: how many (found 2, expected 1)"));
}

TEST_F(StructureRules, ATableOutsideItsSegmentIsRefused) {
    const uint32_t start = draft.u32(linkedit + kFileOffset);
    draft.set32(fix_ups + Draft::rebase, start - 8).set32(fix_ups + Draft::rebase + 4, 8);
    EXPECT_EQ(refusal(), "LC_DYLD_INFO_ONLY, rebase opcodes: its place in __LINKEDIT (found " +
                             hex(start - 8) + ", expected at least " + hex(start) +
                             ", where the table before it ends)");
}

TEST_F(StructureRules, TablesThatOverlapAreRefused) {
    const size_t strings = symbols + 16;
    const uint32_t offset = draft.u32(strings) - 8;
    draft.set32(strings, offset).set32(strings + 4, draft.u32(strings + 4) + 8);
    EXPECT_EQ(refusal(), "LC_SYMTAB, symbol names: its place in __LINKEDIT (found " + hex(offset) +
                             ", expected at least " + hex(offset + 8) + ", where the table before it ends)");
}

TEST_F(StructureRules, ATableThatIsNotAlignedIsRefused) {
    draft.set32(symbols + kOffset, draft.u32(symbols + kOffset) + 4).set32(symbols + 12, 1);
    draft.set32(ranges + 12, 0).set32(ranges + 20, 0).set32(ranges + 28, 0);
    EXPECT_THAT(refusal(), AllOf(StartsWith("LC_SYMTAB, symbols: its place in __LINKEDIT (found "),
                                 HasSubstr(", expected a multiple of 8)")));
}

TEST_F(StructureRules, ATableThatLeavesItsSegmentIsRefused) {
    const uint64_t size = draft.u64(linkedit + kFileSize) - 16;
    const uint64_t end = draft.u64(linkedit + kFileOffset) + size;
    draft.set64(linkedit + kFileSize, size);
    EXPECT_EQ(refusal(), "LC_CODE_SIGNATURE, signature: its end in __LINKEDIT (found " + hex(end + 16) +
                             ", expected at most " + hex(end) + ")");
}

TEST_F(StructureRules, SymbolRangesBeyondTheTableAreRefused) {
    const uint32_t count = draft.u32(symbols + 12);
    draft.set32(ranges + 24, count).set32(ranges + 28, 1);
    EXPECT_EQ(refusal(), "LC_DYSYMTAB, undefined symbols: the last of them (found " +
                             std::to_string(count + 1) + ", expected at most " + std::to_string(count) +
                             ", the number of symbols)");
}

TEST_F(StructureRules, RelocationsBesideFixUpsAreRefused) {
    draft.set32(ranges + 76, 1);
    EXPECT_EQ(refusal(), "LC_DYSYMTAB: nlocrel (found 1, expected 0 beside LC_DYLD_INFO_ONLY)");
}

// --- Page hashes ---

class SignatureRule : public testing::Test {
  protected:
    std::string refusal() const {
        return draft.load_error({.structure = false, .platform = false, .libraries = {}});
    }
    size_t directory() const {
        const size_t signature = draft.u32(draft.command(macho::LC_CODE_SIGNATURE) + kOffset);
        return signature + draft.u32(signature + 16) / 0x1000000;  // the row says so, big-endian
    }

    Draft draft{"plain"};
};

TEST_F(SignatureRule, WhatTheLinkerSignsKeepsIt) { EXPECT_EQ(refusal(), ""); }

TEST_F(SignatureRule, AChangedByteAnywhereIsRefused) {
    const size_t end = draft.u32(draft.command(macho::LC_CODE_SIGNATURE) + kOffset);
    for (size_t at = draft.content("__text"); at < end; at += end / 7) {
        Draft changed = draft;
        changed.set8(at, static_cast<uint8_t>(changed.u32(at) + 1));
        char first[32];
        std::snprintf(first, sizeof first, "0x%zx", at & ~size_t{0xfff});
        EXPECT_THAT(
            changed.load_error({.structure = false}),
            AllOf(HasSubstr("LC_CODE_SIGNATURE: 1 of "),
                  HasSubstr(std::string(" pages have another SHA-256 than signed (found the first at ") +
                            first + ", expected none)")));
    }
}

TEST_F(SignatureRule, AMissingSignatureIsRefused) {
    draft.set32(draft.command(macho::LC_CODE_SIGNATURE), macho::LC_SOURCE_VERSION);
    EXPECT_EQ(refusal(),
              "plain.dylib: cannot load: no signature (expected the load command LC_CODE_SIGNATURE)");
}

TEST_F(SignatureRule, ASignatureThatDoesNotCoverTheFileIsRefused) {
    draft.set8(directory() + 35, 0);  // the last byte of the number of bytes that are covered
    EXPECT_THAT(refusal(), HasSubstr("LC_CODE_SIGNATURE: CodeDirectory 0x0 does not cover the file up to the "
                                     "signature (found 0x"));
}

TEST_F(SignatureRule, AnUnknownHashIsRefused) {
    draft.set8(directory() + 37, 9);
    EXPECT_THAT(refusal(),
                HasSubstr("CodeDirectory 0x0 has an unknown hash type (found 9, expected 1 or 2)"));
    draft.set8(directory() + 37, 1);
    EXPECT_THAT(refusal(), HasSubstr("CodeDirectory 0x0 has a wrong hash size (found 32, expected 20)"));
}

TEST_F(SignatureRule, PagesOfAnotherSizeAreRefused) {
    draft.set8(directory() + 39, 40);
    EXPECT_THAT(refusal(), HasSubstr("has a wrong page size (found 2^40, expected 2^12 or 2^14)"));
}

TEST_F(SignatureRule, AnotherNumberOfHashesIsRefused) {
    draft.set8(directory() + 31, 0);
    EXPECT_THAT(refusal(), HasSubstr("CodeDirectory 0x0 has another number of page hashes (found "));
}

TEST_F(SignatureRule, AnythingElseInTheSignaturesPlaceIsRefused) {
    draft.set8(draft.u32(draft.command(macho::LC_CODE_SIGNATURE) + kOffset), 0);
    EXPECT_THAT(refusal(), HasSubstr("no signature at its offset (found 0xde0cc0, expected 0xfade0cc0)"));
}

// --- Versions of libraries ---

/// The image asks for version 1.2.3 of it.
class VersionRule : public testing::Test {
  protected:
    static std::string refusal(uint32_t version, uint32_t system) {
        const auto offered = [=](std::string_view install_name) -> std::optional<macho::OfferedLibrary> {
            if (install_name != "/test/libhost.dylib") return std::nullopt;
            return macho::OfferedLibrary{.compatibility_version = version, .minimum_system = system};
        };
        return Draft("plain").load_error({.libraries = offered});
    }
};
constexpr uint32_t ios_11 = macho::packed_version(11, 4, 1), ios_12 = macho::packed_version(12);

TEST_F(VersionRule, AnOlderLibraryThanAskedForIsRefused) {
    EXPECT_EQ(refusal(macho::packed_version(1, 2, 2), ios_11),
              "plain.dylib: cannot load: LC_LOAD_DYLIB /test/libhost.dylib: incompatible library version "
              "(found 1.2.3, expected at most 1.2.2, which the library has)");
}

TEST_F(VersionRule, TheSameAndALaterVersionWillDo) {
    EXPECT_EQ(refusal(macho::packed_version(1, 2, 3), ios_11), "");
    EXPECT_EQ(refusal(macho::packed_version(2), ios_11), "");
}

TEST_F(VersionRule, ALibraryMadeForTwelveIsNotAskedForItsVersion) {
    EXPECT_EQ(refusal(0, ios_12), "");
    EXPECT_NE(refusal(0, ios_12 - 1), "");
}

TEST_F(VersionRule, TheInjectionFrameworkIsAskedForItsVersion) {
    EXPECT_EQ(Draft("injected").load_error({}), "");
    EXPECT_EQ(
        Draft("injected_later").load_error({}),
        "injected_later.dylib: cannot load: LC_LOAD_DYLIB /Library/Frameworks/CydiaSubstrate.framework/"
        "CydiaSubstrate: incompatible library version (found 1.0, expected at most 0.0, which the library "
        "has)");
}

/// Weak libraries that are too old are left out, with all that the image takes from them.
class WeakLibraryRule : public testing::Test {
  protected:
    WeakLibraryRule() { draft.set32(draft.command(macho::LC_LOAD_DYLIB), macho::LC_LOAD_WEAK_DYLIB); }
    macho::Image load(uint32_t version) const {
        macho::Rules rules = macho::no_rules();
        rules.libraries = [=](std::string_view) {
            return macho::OfferedLibrary{.compatibility_version = version, .minimum_system = ios_11};
        };
        return draft.load(rules);
    }

    Draft draft{"plain"};
};

TEST_F(WeakLibraryRule, AnOlderOneThanAskedForIsLeftOut) {
    const macho::Image image = load(macho::packed_version(1, 2, 2));
    EXPECT_THAT(image.missing(),
                UnorderedElementsAre("dyld_stub_binder", "host_add", "host_table", "host_extra"));
    EXPECT_EQ(*loader_test::variable<int*>(image, "plain_third_entry"), nullptr);
    EXPECT_EQ(loader_test::function<int()>(image, "plain_extra")(), -1);
}

TEST_F(WeakLibraryRule, ARecentOneIsUsed) {
    const macho::Image image = load(macho::packed_version(1, 2, 3));
    EXPECT_THAT(image.missing(), ElementsAre("host_extra"));
    EXPECT_EQ(loader_test::function<int(int, int)>(image, "plain_sum")(2, 3), 5);
}

TEST_F(VersionRule, TheRefusalNamesTheLoadCommand) {
    Draft draft("injected_later");
    draft.set32(draft.command(macho::LC_LOAD_DYLIB), macho::LC_REEXPORT_DYLIB);
    draft.set32(draft.command(macho::LC_LOAD_DYLIB), macho::LC_REEXPORT_DYLIB);
    EXPECT_THAT(draft.load_error({.signature = false}),
                HasSubstr("LC_REEXPORT_DYLIB /Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate: "));
}

// --- The platform ---

class PlatformRule : public testing::Test {
  protected:
    std::string refusal() const {
        macho::Rules rules = macho::no_rules();
        rules.platform = true;
        return draft.load_error(rules);
    }
    static constexpr bool is_device = macho::kThisCpu == macho::Cpu::arm64;
    const std::string expected = is_device ? "iOS" : "the iOS simulator";

    Draft draft{"plain"};
    const size_t version =
        draft.command(is_device ? macho::LC_BUILD_VERSION : macho::LC_VERSION_MIN_IPHONEOS);
};

TEST_F(PlatformRule, WhatTheLinkerMakesKeepsIt) { EXPECT_EQ(refusal(), ""); }

TEST_F(PlatformRule, AnImageWithoutAPlatformIsRefused) {
    draft.set32(version, macho::LC_SOURCE_VERSION);
    EXPECT_EQ(refusal(), "plain.dylib: cannot load: LC_BUILD_VERSION: no platform (found nothing, expected " +
                             expected + ")");
}

TEST_F(PlatformRule, AnImageForAnotherPlatformIsRefused) {
    draft.set32(version, macho::LC_VERSION_MIN_MACOSX);
    EXPECT_EQ(refusal(),
              "plain.dylib: cannot load: LC_VERSION_MIN_MACOSX: built for another platform (found "
              "macOS, expected " +
                  expected + ")");
    draft.set32(version, macho::LC_VERSION_MIN_TVOS);
    EXPECT_THAT(refusal(),
                HasSubstr(is_device ? "(found tvOS, expected" : "(found the tvOS simulator, expected"));
    draft.set32(version, macho::LC_VERSION_MIN_WATCHOS);
    EXPECT_THAT(refusal(),
                HasSubstr(is_device ? "(found watchOS, expected" : "(found the watchOS simulator, expected"));
}

TEST_F(PlatformRule, ABuildVersionNamesThePlatformItself) {
    // In the place of a longer command that this rule is not about.
    const size_t at = draft.command(macho::LC_UUID);
    draft.set32(version, macho::LC_SOURCE_VERSION).set32(at, macho::LC_BUILD_VERSION);
    draft.set32(at + 8, is_device ? macho::PLATFORM_IOSSIMULATOR : macho::PLATFORM_IOS);
    EXPECT_EQ(refusal(), "plain.dylib: cannot load: LC_BUILD_VERSION: built for another platform (found " +
                             std::string(is_device ? "the iOS simulator" : "iOS") + ", expected " + expected +
                             ")");
    draft.set32(at + 8, is_device ? macho::PLATFORM_IOS : macho::PLATFORM_IOSSIMULATOR);
    EXPECT_EQ(refusal(), "");
}

TEST_F(PlatformRule, AMinimumBeyondThePhonesSystemIsNotLookedAt) {
    draft.set32(version + (is_device ? 12 : 8), macho::packed_version(99));
    EXPECT_EQ(refusal(), "");
}

// --- Fix-ups ---

TEST(BindRule, ASpecialOrdinalThatTwelveDoesNotKnowIsRefused) {
    Draft draft("plain");
    draft.set_table(Draft::bind, {0x3d, 0x40, '_', 'f', 0, 0x51, 0x71, 0x00, 0x90});
    EXPECT_THAT(
        draft.load_error(),
        HasSubstr(
            "BIND_OPCODE_SET_DYLIB_SPECIAL_IMM at 0x0 in the bind table: unknown special ordinal (found "
            "-3, expected -2 to 0)"));
}

}  // namespace
