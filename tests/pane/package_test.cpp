// The pane's package, opened again by huecraft package-check.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "describe/opened_package.h"

namespace test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PanePackage : public OpenedPackage {
  protected:
    PanePackage() : OpenedPackage(PANE_PACKAGE) {}

    const std::string bundle = "tree/Library/PreferenceBundles/HuecraftSettings.bundle";
};

TEST_F(PanePackage, IsSound) {
    const Lines said = checked(PANE_PACKAGE);
    EXPECT_EQ(exit_status, 0);
    EXPECT_THAT(with(said, "not ok"), IsEmpty());
    EXPECT_THAT(with(said,
                     "  ok install name: /Library/PreferenceBundles/HuecraftSettings.bundle/"
                     "HuecraftSettings"),
                testing::SizeIs(1));
}

TEST_F(PanePackage, DependsOnTheLibraryAndOnWhatLoadsPanes) {
    shell("sed -i 's/, preferenceloader//' tree/DEBIAN/control");
    EXPECT_THAT(faults(), ElementsAre(HasSubstr("Depends: found")));
    EXPECT_EQ(exit_status, 1);
}

TEST_F(PanePackage, WithoutItsEntryNobodyWouldSeeIt) {
    shell("rm -r tree/Library/PreferenceLoader");
    EXPECT_THAT(
        faults(),
        ElementsAre(HasSubstr("found no /Library/PreferenceLoader/Preferences/HuecraftSettings.plist")));
}

TEST_F(PanePackage, WithoutAnIconItIsRefused) {
    shell("rm '" + bundle + "/icon@2x.png'");
    EXPECT_THAT(faults(), ElementsAre(HasSubstr("found no /Library/PreferenceBundles/HuecraftSettings.bundle/"
                                                "icon@2x.png")));
}

TEST_F(PanePackage, HasNothingInTheOtherPanesBundle) {
    shell(
        "mkdir -p tree/Library/PreferenceBundles/Huecraft.bundle && touch "
        "tree/Library/PreferenceBundles/Huecraft.bundle/copy.png");
    EXPECT_THAT(faults(), ElementsAre(HasSubstr("/Library/PreferenceBundles/Huecraft.bundle/copy.png, which "
                                                "has no place in the package")));
}

TEST_F(PanePackage, HasNothingOfTheUsers) {
    shell(
        "mkdir -p tree/var/mobile/Library/Preferences/HuecraftConfiguration && touch "
        "tree/var/mobile/Library/Preferences/HuecraftConfiguration/Mine.plist");
    EXPECT_THAT(faults(), ElementsAre(HasSubstr("HuecraftConfiguration/Mine.plist, which has no place")));
}

TEST_F(PanePackage, WithoutItsBinaryItIsNoPackageOfThePane) {
    shell("rm '" + bundle + "/HuecraftSettings'");
    faults();
    EXPECT_EQ(exit_status, 2);
    EXPECT_THAT(phone.read("/said"), HasSubstr("it has no /Library/PreferenceBundles/HuecraftSettings.bundle/"
                                               "HuecraftSettings inside"));
}

TEST_F(PanePackage, ADamagedBinaryIsFound) {
    shell("printf x | dd of='" + bundle + "/HuecraftSettings' bs=1 seek=8192 conv=notrunc 2> /dev/null");
    EXPECT_THAT(faults(), Contains(HasSubstr("signature: ")));
}

}  // namespace
}  // namespace test
