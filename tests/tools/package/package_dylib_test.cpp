// huecraft package-check: any one thing that is changed in the dylib is found.
#include <random>

#include "package/package_tree.h"

namespace test {
namespace {

using PackageCheck = PackageTree;

TEST_F(PackageCheck, AChangedByteInTheCodeIsAnotherPageHash) {
    unpack();
    std::string bytes = read(dylib);
    bytes[0x5123] ^= 1;
    write(dylib, bytes);
    // As many pages as the sound package has.
    const std::string sound = this->run({"package-check", PACKAGE_FILE}).out,
                      before = "signature: SHA-1, SHA-256, ";
    const size_t at = sound.find(before) + before.size();
    const std::string pages = sound.substr(at, sound.find(' ', at) - at);
    const std::string found = "found LC_CODE_SIGNATURE: 1 of " + pages + " pages have another ",
                      where = " than signed (found the first at 0x5000, expected none)";
    expect_only(checked(), "signature: " + found + "SHA-1" + where + "; " + found + "SHA-256" + where);
}

/// Where the signature's lists of hashes begin: the one of SHA-1, then the one of SHA-256.
std::vector<size_t> directories_in(const std::string& bytes) {
    std::vector<size_t> found;
    const std::string magic = "\xfa\xde\x0c\x02";
    for (size_t at = bytes.find(magic); at != bytes.npos; at = bytes.find(magic, at + 1)) found.push_back(at);
    return found;
}

TEST_F(PackageCheck, AWrongHashInEitherListIsFound) {
    unpack();
    const std::string whole = read(dylib);
    const std::vector<size_t> lists = directories_in(whole);
    ASSERT_EQ(lists.size(), 2u);
    for (const auto& [list, name] : {std::pair{lists[0], "SHA-1"}, {lists[1], "SHA-256"}}) {
        std::string bytes = whole;
        bytes[list + 200] ^= 1;
        write(dylib, bytes);
        expect_found(checked(),
                     {"not ok signature: found LC_CODE_SIGNATURE: 1 of ",
                      std::string(" pages have another ") + name + " than signed (found the first at "});
    }
}

TEST_F(PackageCheck, ASignatureMarkedAsAdHocIsFound) {
    unpack();
    std::string bytes = read(dylib);
    bytes.at(directories_in(bytes).at(0) + 15) |= 2;
    write(dylib, bytes);
    expect_only(checked(), "signature: found SHA-1 CodeDirectory flags 0x2, expected 0x0");
}

TEST_F(PackageCheck, ChangedRequirementsAreFound) {
    unpack();
    std::string bytes = read(dylib);
    bytes.at(bytes.find("\xfa\xde\x0c\x01") + 11) = 1;
    write(dylib, bytes);
    expect_found(checked(),
                 {"not ok signature: found LC_CODE_SIGNATURE: the requirements have another SHA-1 than "
                  "signed"});
}

TEST_F(PackageCheck, TheLinkersOwnSignatureIsFound) {
    unpack();
    build({.signing = SmallDylib::by_the_linker});
    expect_only(
        checked(),
        "signature: found CodeDirectories of SHA-256, expected SHA-1, SHA-256; "
        "found SHA-256 CodeDirectory version 0x20400, expected 0x20200; "
        "found SHA-256 CodeDirectory flags 0x20002, expected 0x0; "
        "found LC_CODE_SIGNATURE: no requirements (found nothing, expected a set of them and its SHA-256)");
}

TEST_F(PackageCheck, AnotherIdentifierInTheSignatureIsFound) {
    unpack();
    build({.identifier = "other.dylib"});
    expect_only(checked(),
                "signature: found SHA-1 CodeDirectory identifier \"other.dylib\", expected "
                "\"HuecraftiOS12.dylib\"; found SHA-256 CodeDirectory identifier \"other.dylib\", expected "
                "\"HuecraftiOS12.dylib\"");
}

TEST_F(PackageCheck, NoChangedByteOfTheDylibGoesUnnoticed) {
    unpack();
    const std::string whole = read(dylib);
    std::mt19937 random(12);
    std::vector<std::string> arguments{"package-check"};
    for (int i = 0; i < 40; ++i) {
        std::string bytes = whole;
        // Half of them in the load commands, where a reader could stumble. The last page is the signature's.
        bytes[random() % (i % 2 ? 4096 : bytes.size() - 4096)] ^= static_cast<char>(1 + random() % 255);
        write(dylib, bytes);
        arguments.push_back("changed" + std::to_string(i) + ".deb");
        pack(arguments.back());
    }
    const Outcome run = this->run(arguments);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(lines(run.out), 40u * 15) << run.out;
    EXPECT_EQ(run.out.find("sound"), run.out.npos) << run.out;
}

TEST_F(PackageCheck, TheSliceForSimulatorsIsRefused) {
    unpack();
    shell("cp '" BUILD_FOLDER "/device/x86_64/HuecraftiOS12.dylib' " + std::string(libraries));
    expect_found(checked(),
                 {"not ok slice: found built for another processor (found x86_64, expected arm64)\n",
                  "not ok signature: not checked, since the dylib cannot be read\n"});
}

TEST_F(PackageCheck, TheJoinedDylibIsRefused) {
    unpack();
    shell("cp '" BUILD_FOLDER "/device/HuecraftiOS12.dylib' " + std::string(libraries));
    expect_found(checked(),
                 {"not ok slice: found a file of several slices, expected the arm64 slice alone\n"});
}

TEST_F(PackageCheck, ASliceInABadPlaceIsFound) {
    unpack();
    shell("cp '" BUILD_FOLDER "/device/HuecraftiOS12.dylib' " + std::string(libraries));
    std::string joined = read(dylib);
    joined[8 + 19] = 20;  // the first fat_arch's align
    write(dylib, joined);
    expect_found(checked(), {"): align (found 2^20, expected at most 2^15)"});
}

TEST_F(PackageCheck, ASmallDylibWithTheSamePromisesPasses) {
    unpack();
    build({});
    EXPECT_EQ(checked().status, 0);
}

TEST_F(PackageCheck, AnAddedExportIsFound) {
    unpack();
    build({.exports = "_added\n"});
    expect_only(checked(), "exports: exports _added, which device/exports.txt does not list");
}

TEST_F(PackageCheck, AMissingExportIsFound) {
    unpack();
    build({.without = "_kGradientLeft"});
    expect_only(checked(), "exports: does not export _kGradientLeft, which device/exports.txt lists");
}

TEST_F(PackageCheck, AnImportThatNoStubListsIsFound) {
    unpack();
    write("small.tbd",
          "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\ninstall-name: '/usr/lib/libobjc.A.dylib'\n"
          "exports:\n  - targets: [ arm64-ios ]\n    symbols: [ _object_dispose ]\n...\n");
    build({.assembly = ".quad _object_dispose\n"});
    expect_only(
        checked(),
        "imports: imports _object_dispose from /usr/lib/libobjc.A.dylib, which device/stubs does not list");
}

TEST_F(PackageCheck, ALibraryThatNoStubIsOfIsFound) {
    unpack();
    write("small.tbd",
          "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\ninstall-name: "
          "'/usr/lib/libz.1.dylib'\n...\n");
    build({});
    expect_only(checked(), "imports: links with /usr/lib/libz.1.dylib, which device/stubs has not");
}

TEST_F(PackageCheck, ALibraryVersionThatTheSystemHasNotIsFound) {
    unpack();
    write("small.tbd",
          "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\n"
          "install-name: '/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate'\n"
          "compatibility-version: 1\n...\n");
    build({});
    expect_only(checked(),
                "library versions: LC_LOAD_DYLIB asks for version 1.0 of "
                "/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate, expected at most 0.0");
}

TEST_F(PackageCheck, ALibraryMayBeAskedForInAnOlderVersion) {
    unpack();
    write("small.tbd",
          "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\n"
          "install-name: '/System/Library/Frameworks/Foundation.framework/Foundation'\n"
          "compatibility-version: 299.255.255\n...\n");
    build({});
    EXPECT_EQ(checked().status, 0);
}

TEST_F(PackageCheck, ChainedFixUpsAreFound) {
    unpack();
    build({.minimum = "13.4", .fix_ups = "-fixup_chains"});
    expect_found(checked(),
                 {"not ok fix-ups: found linked with chained fix-ups", "not ok exports: not checked"});
}

TEST_F(PackageCheck, ANewerSystemThanTwelveIsFound) {
    unpack();
    build({.minimum = "12.1"});
    expect_only(checked(), "system: LC_BUILD_VERSION: found iOS 12.1 as the oldest, expected iOS 12.0");
}

/// The place of some bytes in an image, which must have them.
size_t place_of(std::string_view wanted, const std::string& image) {
    const size_t found = image.find(wanted);
    if (found == image.npos) throw std::runtime_error("the image does not have what the test damages");
    return found;
}

TEST_F(PackageCheck, AnotherPlatformThanIosIsFound) {
    unpack();
    build({.damage = [](std::string& image) {
        using namespace std::string_view_literals;
        image[place_of("\x32\0\0\0\x20\0\0\0\x02"sv, image) + 8] = 3;
    }});
    expect_only(checked(),
                "system: found LC_BUILD_VERSION: built for another platform (found tvOS, expected iOS)");
}

TEST_F(PackageCheck, ABindWithoutATypeIsFound) {
    unpack();
    build({.damage = [](std::string& image) {
        using namespace std::string_view_literals;
        image[place_of("_objc_release\0\x51"sv, image) + 14] = 0x50;
    }});
    expect_found(checked(),
                 {"not ok imports: found BIND_OPCODE_DO_BIND",
                  " in the bind table: unsupported fix-up type (found 0, no type was set, expected "
                  "1, a pointer), at the symbol objc_release\n"});
}

TEST_F(PackageCheck, ARebaseWithoutATypeIsFound) {
    unpack();
    build({.assembly = "here: .quad here\n", .damage = [](std::string& image) {
               using namespace std::string_view_literals;
               uint32_t rebase_off;
               image.copy(reinterpret_cast<char*>(&rebase_off), sizeof rebase_off,
                          place_of("\x22\0\0\x80\x30\0\0\0"sv, image) + 8);
               EXPECT_EQ(image.at(rebase_off), 0x11);
               image[rebase_off] = 0x10;
           }});
    expect_found(checked(),
                 {"not ok fix-ups: found REBASE_OPCODE_DO_REBASE",
                  " in the rebase table: unsupported fix-up type (found 0, no type was set, expected "
                  "1, a pointer)\n"});
}

TEST_F(PackageCheck, AWeakLibraryVersionThatTheSystemHasNotIsFound) {
    unpack();
    write("small.tbd",
          "--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-ios ]\n"
          "install-name: '/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate'\n"
          "compatibility-version: 1\n...\n");
    build({.damage = [](std::string& image) {
        using namespace std::string_view_literals;
        image.replace(place_of("/Library/Frameworks/CydiaSubstrate"sv, image) - 24, 4, "\x18\0\0\x80"sv);
    }});
    expect_only(checked(),
                "library versions: LC_LOAD_WEAK_DYLIB asks for version 1.0 of "
                "/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate, expected at most 0.0");
}

TEST_F(PackageCheck, AnotherInstallNameIsFound) {
    unpack();
    build({.install_name = "/usr/lib/other.dylib"});
    expect_only(checked(),
                "install name: found \"/usr/lib/other.dylib\", expected "
                "\"/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib\"");
}

TEST_F(PackageCheck, AMissingSignatureIsFound) {
    unpack();
    build({.signing = SmallDylib::not_at_all});
    expect_only(checked(), "signature: found no signature (expected the load command LC_CODE_SIGNATURE)");
}

TEST_F(PackageCheck, ADylibThatIsTooLargeIsFound) {
    unpack();
    build({.assembly = ".space 163840, 1\n"});
    const std::string size = std::to_string(read(dylib).size());
    expect_only(checked(), "dylib size: found " + size + " bytes, expected at most 163840");
}

TEST_F(PackageCheck, WhatIsNoDylibIsFound) {
    unpack();
    write(dylib, "#!/bin/sh\n");
    expect_found(checked(), {"not ok slice: found not a Mach-O file"});
}

}  // namespace
}  // namespace test
