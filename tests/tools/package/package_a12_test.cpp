// huecraft package-check: packages for the A12, whose images are one code for two kinds of process.
#include "package/package_tree.h"

namespace test {
namespace {

class A12PackageCheck : public PackageTree {
  protected:
    static constexpr const char* pane =
        "tree/Library/PreferenceBundles/HuecraftSettings.bundle/HuecraftSettings";

    void unpack() const { shell("dpkg-deb --raw-extract '" A12_PACKAGE_FILE "' tree"); }
    /// The dylib's two slices, as files of these names.
    void take_apart() const {
        unpack();
        for (const std::string slice : {"arm64", "arm64e"})
            shell(std::string("'" LIPO "' -thin ") + slice + " '" + dylib + "' -output " + slice);
    }
    void put_together(const std::string& slices) const {
        shell("'" LIPO "' -create " + slices + " -output '" + dylib + "'");
    }
    /// Leaves one signature of the arm64e slice out, and signs the file again.
    void leave_out(int number) const {
        take_apart();
        shell("'" LEAVE_OUT "' arm64e " + std::to_string(number) + " changed > what");
        shell("'" SIGN_SLICE "' changed HuecraftiOS12.dylib arm64e");
        put_together("arm64 arm64e");
    }
    /// Where the package's dylib has the arm64e slice: the offset in the second row of the fat file's header.
    size_t arm64e_offset(const std::string& bytes) const {
        size_t offset = 0;
        for (size_t at = 8 + 20 + 8; at < 8 + 20 + 12; ++at)
            offset = offset << 8 | static_cast<unsigned char>(bytes.at(at));
        return offset;
    }
};

TEST_F(A12PackageCheck, BothPackagesAreSound) {
    for (const char* package : {A12_PACKAGE_FILE, A12_PANE_PACKAGE_FILE}) {
        const Outcome run = this->run({"package-check", package});
        EXPECT_EQ(run.status, 0) << run.out << run.err;
        EXPECT_NE(run.out.find("ok slices: arm64 and arm64e\n"), run.out.npos) << run.out;
        EXPECT_NE(run.out.find("ok one code: "), run.out.npos) << run.out;
    }
}

TEST_F(A12PackageCheck, OneSliceIsNotEnough) {
    for (const char* slice : {"arm64", "arm64e"}) {
        take_apart();
        shell(std::string("cp ") + slice + " '" + dylib + "'");
        expect_only(checked(), "slices: found a file of one slice, expected arm64 and arm64e");
        shell("rm -r tree");
    }
}

TEST_F(A12PackageCheck, AThirdSliceIsFound) {
    take_apart();
    put_together("arm64 arm64e '" X86_64_SLICE "'");
    expect_found(checked(), {"not ok slices: found ", "x86_64"});
}

TEST_F(A12PackageCheck, SlicesInTheOtherOrderAreFound) {
    unpack();
    std::string bytes = read(dylib);
    std::swap_ranges(bytes.begin() + 8, bytes.begin() + 28, bytes.begin() + 28);
    write(dylib, bytes);
    expect_only(checked(), "slices: found arm64e, arm64, expected arm64, arm64e");
}

TEST_F(A12PackageCheck, AnUnsignedImplementationIsFound) {
    leave_out(1000);
    expect_found(checked(),
                 {"  not ok one code: found the arm64e slice is not what it was made of: a function "
                  "that others call is not signed for its place"});
}

TEST_F(A12PackageCheck, AnInstructionThatDiffersIsFound) {
    leave_out(0);
    const Outcome run = checked();
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("  not ok one code: found the arm64e slice is not what it was made of: a byte"),
              run.out.npos)
        << run.out;
    EXPECT_EQ(run.out.find("not ok arm64e: signature"), run.out.npos) << "it was signed again: " << run.out;
}

TEST_F(A12PackageCheck, TheArm64SliceUnderTheOthersNameIsFound) {
    take_apart();
    std::string bytes = read("arm64");
    bytes.at(8) = 2;
    write("renamed", bytes);
    shell("'" SIGN_SLICE "' renamed HuecraftiOS12.dylib arm64e");
    put_together("arm64 arm64e");
    expect_found(checked(), {"  not ok arm64e: fix-ups: "});
}

TEST_F(A12PackageCheck, ABitOfLaterSystemsIsFound) {
    unpack();
    std::string bytes = read(dylib);
    bytes.at(arm64e_offset(bytes) + 11) = '\x80';
    write(dylib, bytes);
    expect_only(
        checked(),
        "slices: found fat_arch 1 (arm64e): cputype of its header (found arm64e of subtype 0x80000002, "
        "expected arm64e)");
    bytes.at(8 + 20 + 4) = '\x80';  // and in the fat file's row
    write(dylib, bytes);
    expect_only(checked(), "slices: found arm64, arm64e of subtype 0x80000002, expected arm64, arm64e");
}

TEST_F(A12PackageCheck, AChangedByteIsFoundInEitherSlice) {
    for (const char* slice : {"arm64", "arm64e"}) {
        unpack();
        std::string bytes = read(dylib);
        const size_t offset = slice == std::string("arm64e") ? arm64e_offset(bytes) : 0x4000;
        bytes.at(offset + 0x5123) ^= 1;
        write(dylib, bytes);
        expect_found(checked(), {std::string("  not ok ") + slice + ": signature: ", "  not ok one code: "});
        shell("rm -r tree");
    }
}

TEST_F(A12PackageCheck, ItHasToStandInTheOthersPlace) {
    for (const std::string field : {"Provides", "Conflicts", "Replaces"}) {
        unpack();
        const std::string line = field + ": com.quillmoth.huecraftios12\n";
        replace(control, line, "");
        expect_only(checked(),
                    "control: " + field + ": found no such field, expected \"com.quillmoth.huecraftios12\"");
        shell("rm -r tree");
    }
}

TEST_F(A12PackageCheck, ItHasToSayThatItIsExperimental) {
    unpack();
    replace(control, "EXPERIMENTAL", "Complete");
    expect_only(checked(), "control: Description: expected to find \"EXPERIMENTAL\"");
}

TEST_F(A12PackageCheck, ThePaneIsHeldToTheSame) {
    shell("dpkg-deb --raw-extract '" A12_PANE_PACKAGE_FILE "' tree");
    shell(std::string("'" LIPO "' -thin arm64 '") + pane + "' -output arm64 && mv arm64 '" + pane + "'");
    replace(control, "Provides: com.quillmoth.huecraftios12.settings\n", "");
    expect_only(checked(),
                "control: Provides: found no such field, expected \"com.quillmoth.huecraftios12.settings\"\n"
                "slices: found a file of one slice, expected arm64 and arm64e");
}

}  // namespace
}  // namespace test
