// huecraft package-check: the package passes, and any one thing that is changed in it is found.
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "package/package_tree.h"

namespace test {
namespace {

using PackageCheck = PackageTree;

TEST_F(PackageCheck, WhatIsBuiltPasses) {
    const Outcome run = this->run({"package-check", PACKAGE_FILE});
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_EQ(lines(run.out), 15u) << run.out;
    EXPECT_TRUE(run.out.starts_with(PACKAGE_FILE ": sound; 14 checks passed\n")) << run.out;
    EXPECT_EQ(run.out.find("not ok"), run.out.npos) << run.out;
}

TEST_F(PackageCheck, TheVersionIsTheProjects) {
    const Outcome run = this->run({"package-check", PACKAGE_FILE});
    EXPECT_NE(run.out.find("ok control: version " PROJECT_VERSION ","), run.out.npos) << run.out;
}

TEST_F(PackageCheck, AnUnchangedTreePackedAgainIsTheSamePackage) {
    unpack();
    shell(
        "SOURCE_DATE_EPOCH=$(stat -c %Y tree/Library) dpkg-deb --root-owner-group -Zgzip "
        "--uniform-compression"
        " --build tree again.deb > /dev/null");
    EXPECT_EQ(read("again.deb") == built(), true);
}

TEST_F(PackageCheck, JsonHasEveryCheck) {
    unpack();
    replace(control, "iphoneos-arm", "iphoneos-arm64");
    pack();
    const Outcome run = this->run({"package-check", "--json", "changed.deb", PACKAGE_FILE});
    EXPECT_EQ(run.status, 1);
    const auto files = nlohmann::json::parse(run.out).at("files");
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].at("passed"), false);
    EXPECT_EQ(files[1].at("passed"), true);
    for (const auto& check : files[0].at("checks")) {
        EXPECT_EQ(check.at("passed"), check.at("name") != "control") << check;
        EXPECT_EQ(check.at("faults").empty(), check.at("name") != "control") << check;
    }
}

// --- The filter ---

TEST_F(PackageCheck, AMissingFilterKeyIsFound) {
    unpack();
    write(filter, "{ Filter = { }; }\n");
    expect_only(checked(), "filter: Filter: found no key \"Bundles\"");
}

TEST_F(PackageCheck, AnExtraFilterKeyIsFound) {
    unpack();
    write(filter, "{ Filter = { Bundles = (\"com.apple.UIKit\"); Executables = (\"backboardd\"); }; }\n");
    expect_only(checked(), "filter: Filter: found the key \"Executables\", expected \"Bundles\" alone");
}

TEST_F(PackageCheck, AnExtraKeyBesideTheFilterIsFound) {
    unpack();
    write(filter, "{ Filter = { Bundles = (\"com.apple.UIKit\"); }; Version = 1; }\n");
    expect_only(checked(), "filter: the filter file: found the key \"Version\", expected \"Filter\" alone");
}

TEST_F(PackageCheck, AnotherBundleInTheFilterIsFound) {
    unpack();
    write(filter, "{ Filter = { Bundles = (\"com.apple.UIKit\", \"com.apple.Security\"); }; }\n");
    expect_only(checked(),
                "filter: Bundles: found [\"com.apple.UIKit\", \"com.apple.Security\"], expected "
                "com.apple.UIKit alone");
    write(filter, "{ Filter = { Bundles = (\"com.apple.Security\"); }; }\n");
    expect_only(checked(), "filter: Bundles: found \"com.apple.Security\", expected com.apple.UIKit alone");
}

TEST_F(PackageCheck, AFilterThatCannotBeReadIsFound) {
    unpack();
    write(filter, "{ Filter = ");
    expect_found(checked(), {"not ok filter: found a file that cannot be read: it is not a property list"});
}

TEST_F(PackageCheck, TheFilterMayBeInAnyForm) {
    unpack();
    write(filter,
          theme_file("<key>Filter</key><dict><key>Bundles</key><array><string>com.apple.UIKit</string>"
                     "</array></dict>"));
    EXPECT_EQ(checked().status, 0);
}

// --- What surrounds it ---

TEST_F(PackageCheck, AnotherArchitectureIsFound) {
    unpack();
    replace(control, "iphoneos-arm", "iphoneos-arm64");
    expect_only(checked(), "control: Architecture: found \"iphoneos-arm64\", expected \"iphoneos-arm\"");
}

TEST_F(PackageCheck, AMissingDependencyIsFound) {
    unpack();
    replace(control, ", firmware (<< 13.0)", "");
    expect_only(
        checked(),
        "control: Depends: found \"mobilesubstrate, firmware (>= 12.0)\", expected \"mobilesubstrate, "
        "firmware (>= 12.0), firmware (<< 13.0)\"");
}

TEST_F(PackageCheck, ADescriptionSilentAboutUnsupportedDevicesIsFound) {
    unpack();
    replace(control, "arm64e", "other");
    expect_only(checked(), "control: Description: expected to find \"arm64e\"");
}

TEST_F(PackageCheck, APreferenceFileInsideIsFound) {
    unpack();
    write("tree/Library/Preferences/com.quillmoth.huecraftios12.plist", theme_file(""));
    expect_found(checked(),
                 {"not ok preferences: found /Library/Preferences/com.quillmoth.huecraftios12.plist, "
                  "expected no file of settings or themes: those are the user's\n"});
}

TEST_F(PackageCheck, APropertyListBesideThePicturesIsFound) {
    unpack();
    write(bundle + std::string("Midnight.plist"), sound_theme());
    expect_only(
        checked(),
        "preferences: found /Library/PreferenceBundles/Huecraft.bundle/Midnight.plist, expected no file "
        "of settings or themes: those are the user's");
}

TEST_F(PackageCheck, AFileWithoutAPlaceIsFound) {
    unpack();
    write("tree/Library/readme.txt", "x");
    expect_only(checked(), "layout: found /Library/readme.txt, which has no place in the package");
}

TEST_F(PackageCheck, ALinkIsFound) {
    unpack();
    ASSERT_EQ(symlink("paste.png", path(bundle + std::string("cut.png")).c_str()), 0);
    expect_found(checked(), {"cut.png, which is neither file nor folder"});
}

TEST_F(PackageCheck, AMissingPictureIsFound) {
    unpack();
    shell("rm " + std::string(bundle) + "PreviewKeyboardText.png");
    expect_only(checked(),
                "layout: found no /Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboardText.png");
}

TEST_F(PackageCheck, AScriptForTheInstallerIsFound) {
    unpack();
    write("tree/DEBIAN/postinst", "#!/bin/sh\n");
    shell("chmod 755 tree/DEBIAN/postinst");
    expect_only(checked(), "layout: found /postinst for the installer, expected control alone");
}

TEST_F(PackageCheck, AnotherModeIsFound) {
    unpack();
    shell("chmod 666 " + std::string(filter));
    expect_only(checked(),
                "layout: found mode 0666 at /Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.plist, "
                "expected 0644");
}

TEST_F(PackageCheck, AnotherOwnerThanRootIsFound) {
    unpack();
    pack();
    shell(
        "tar -C tree --exclude=DEBIAN --owner=501 --group=0 -czf data.tar.gz ./Library/PreferenceBundles"
        " && gunzip data.tar.gz && tar -C tree --owner=0 --group=0 --no-recursion -rf data.tar ."
        " ./Library ./Library/MobileSubstrate && tar -C tree --owner=0 --group=0 -rf data.tar"
        " ./Library/MobileSubstrate/DynamicLibraries && gzip -n data.tar && '" AR
        "' r changed.deb data.tar.gz");
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_NE(run.out.find("not ok layout: found another owner than root at /Library/PreferenceBundles;"),
              run.out.npos)
        << run.out;
}

TEST_F(PackageCheck, BytesAfterTheLastPartAreFound) {
    write("changed.deb", built() + "more");
    expect_only(run({"package-check", "changed.deb"}), "layout: found 4 bytes after its last part");
}

TEST_F(PackageCheck, APackageThatIsTooLargeIsFound) {
    unpack();
    write(bundle + std::string("copy.png"), std::string(250 << 10, 'x'));
    expect_found(checked(), {"not ok package size: found "});
}

// --- What is not a package ---

TEST_F(PackageCheck, APackageCutAnywhereIsRefusedInOneLine) {
    const std::string whole = built();
    std::vector<std::string> arguments{"package-check"};
    for (size_t i = 0; i < 64; ++i) {
        arguments.push_back("cut" + std::to_string(i) + ".deb");
        write(arguments.back(), whole.substr(0, i < 16 ? i * 20 : whole.size() * i / 64));
    }
    arguments.push_back(PACKAGE_FILE);
    const Outcome run = this->run(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 64u) << run.err;
    EXPECT_EQ(lines(run.out), 15u) << run.out;
}

TEST_F(PackageCheck, ATruncatedPackageIsNamed) {
    const std::string whole = built();
    // The last part begins after its header of 60 bytes, which has the size at byte 48.
    const size_t header = whole.find("data.tar.gz");
    ASSERT_NE(header, whole.npos);
    const unsigned long size = std::stoul(whole.substr(header + 48, 10));
    ASSERT_GT(size, 1000u);
    write("cut.deb", whole.substr(0, header + 60 + 1000));
    const Outcome run = this->run({"package-check", "cut.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: cut.deb: it is a damaged package: its part \"data.tar.gz\" has 1000 bytes, expected " +
            std::to_string(size) + "\n");
}

TEST_F(PackageCheck, AnotherFileIsNoPackage) {
    write("notes.txt", "notes of a walk");
    write("empty.deb", "");
    const Outcome run = this->run({"package-check", "notes.txt", "empty.deb", "missing.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: notes.txt: it is not a package: found \"notes of\", expected \"!<arch>\" at its "
              "beginning\n"
              "huecraft: empty.deb: it is not a package: found an empty file, expected \"!<arch>\" at its "
              "beginning\n"
              "huecraft: missing.deb: there is no such file\n");
}

TEST_F(PackageCheck, AFileOfTwoHundredMegabytesIsRefusedUnread) {
    write("large.deb", "");
    ASSERT_EQ(truncate(path("large.deb").c_str(), 200 << 20), 0);
    const Outcome run = this->run({"package-check", "large.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: large.deb: it has 200 MB; a package has at most 64 MB\n");
}

TEST_F(PackageCheck, APackageThatUnpacksToVeryMuchIsRefused) {
    unpack();
    shell("truncate -s 200M " + std::string(bundle) + "large.png");
    const Outcome run = checked();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: changed.deb: data.tar.gz unpacks to more than 64 MB, which no package of this library "
        "does\n");
}

TEST_F(PackageCheck, APackageWhoseDescriptionIsVeryLongIsRefused) {
    unpack();
    shell("yes '' | head -c 2M >> " + std::string(control));
    const Outcome run = checked();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: changed.deb: control.tar.gz unpacks to more than 1 MB, which no package of this "
              "library does\n");
}

TEST_F(PackageCheck, APackageOfVeryManyFilesIsRefused) {
    unpack();
    shell("cd " + std::string(bundle) + " && touch $(seq -f %g.png 1001)");
    const Outcome run = checked();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: changed.deb: it has more than 1000 entries, which no package of this library has\n");
}

TEST_F(PackageCheck, APackageWithoutADylibIsRefused) {
    unpack();
    shell("rm " + std::string(dylib));
    const Outcome run = checked();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: changed.deb: it has no dylib inside\n");
}

TEST_F(PackageCheck, APackageWithTwoDylibsIsRefused) {
    unpack();
    shell("cp " + std::string(dylib) + " tree/Library/Another.dylib");
    const Outcome run = checked();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_NE(run.err.find("it has 2 dylibs inside, expected one: "), run.err.npos) << run.err;
    EXPECT_NE(run.err.find("/Library/Another.dylib"), run.err.npos) << run.err;
}

TEST_F(PackageCheck, AnotherCompressionIsRefused) {
    unpack();
    shell("dpkg-deb --root-owner-group -Zxz --build tree changed.deb > /dev/null");
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: changed.deb: it is not a whole package: expected control.tar.gz, found only "
              "debian-binary, "
              "control.tar.xz, data.tar.xz\n");
}

}  // namespace
}  // namespace test
