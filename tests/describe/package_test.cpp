// The package of huecraft-describe, opened again by huecraft package-check.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "describe/report.h"

namespace test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DescribePackage : public testing::Test {
  protected:
    DescribePackage() { shell("dpkg-deb --raw-extract '" DESCRIBE_PACKAGE "' tree"); }

    void shell(const std::string& command) const {
        const std::string all = "umask 022 && cd '" + phone.host("/").string() + "' && " + command;
        ASSERT_EQ(std::system(all.c_str()), 0) << command;
    }
    /// Packs the tree, and returns what is not as it should be.
    Lines faults() {
        shell("dpkg-deb --root-owner-group -Zgzip --uniform-compression --build tree changed.deb > pack.log");
        return with(checked("changed.deb"), "  not ok ");
    }
    /// What is said of a package.
    Lines checked(const std::string& package) {
        const std::string command = "cd '" + phone.host("/").string() +
                                    "' && '" HUECRAFT_COMMAND "' package-check '" + package + "' > said 2>&1";
        exit_status = WEXITSTATUS(std::system(command.c_str()));
        return lines_of(phone.read("/said"));
    }

    Phone phone;
    int exit_status = -1;
};

TEST_F(DescribePackage, IsSound) {
    const Lines said = checked(DESCRIBE_PACKAGE);
    EXPECT_EQ(exit_status, 0);
    EXPECT_THAT(with(said, "not ok"), IsEmpty());
    EXPECT_THAT(with(said, "  ok start: "), testing::SizeIs(1));
    EXPECT_THAT(with(said, "  ok layout: 1 file, each in its place"), testing::SizeIs(1));
}

TEST_F(DescribePackage, AFileThatCannotBeRunIsFound) {
    shell("chmod 644 tree/usr/bin/huecraft-describe");
    EXPECT_THAT(
        faults(),
        ElementsAre(HasSubstr("layout: found mode 0644 at /usr/bin/huecraft-describe, expected 0755")));
    EXPECT_EQ(exit_status, 1);
}

TEST_F(DescribePackage, ADylibHasNoPlaceInIt) {
    shell("mkdir -p tree/Library && touch tree/Library/Other.dylib");
    EXPECT_THAT(faults(),
                ElementsAre(HasSubstr("found /Library/Other.dylib, which has no place in the package")));
}

TEST_F(DescribePackage, TheSliceForSimulatorsIsFound) {
    shell("cp '" DESCRIBE "' tree/usr/bin/huecraft-describe && chmod 755 tree/usr/bin/huecraft-describe");
    const Lines found = faults();
    EXPECT_THAT(with(found, "slice: found built for another processor (found x86_64, expected arm64)"),
                testing::SizeIs(1));
}

TEST_F(DescribePackage, ALibraryInThePlaceOfTheExecutableIsFound) {
    shell("cp '" DEVICE_LIBRARY
          "' tree/usr/bin/huecraft-describe && chmod 755 tree/usr/bin/huecraft-describe");
    EXPECT_THAT(with(faults(), "slice: found not a main executable (found file type 6, expected 2)"),
                testing::SizeIs(1));
}

TEST_F(DescribePackage, AnotherDependencyIsFound) {
    shell("sed -i 's/^Depends: /Depends: mobilesubstrate, /' tree/DEBIAN/control");
    EXPECT_THAT(faults(), ElementsAre(HasSubstr("control: Depends: found \"mobilesubstrate, ")));
}

TEST_F(DescribePackage, WithoutTheExecutableItIsRefused) {
    shell("rm tree/usr/bin/huecraft-describe");
    faults();
    EXPECT_EQ(exit_status, 2);
    EXPECT_EQ(phone.read("/said"), "huecraft: changed.deb: it has no /usr/bin/huecraft-describe inside\n");
}

}  // namespace
}  // namespace test
