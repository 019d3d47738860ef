// The package of huecraft-describe, opened again by huecraft package-check.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "describe/opened_package.h"

namespace test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DescribePackage : public OpenedPackage {
  protected:
    DescribePackage() : OpenedPackage(DESCRIBE_PACKAGE) {}
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
