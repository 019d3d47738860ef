// The Settings app: which rows packages add to it, and what a touch on one shows.
#include <fstream>

#include "platform/preferences.h"
#include "platform/services.h"
#include "support/phone.h"

namespace test {
namespace {

namespace fs = std::filesystem;

constexpr const char* entries = "/Library/PreferenceLoader/Preferences/";
constexpr const char* bundle = "/Library/PreferenceBundles/Sample.bundle/";

class Settings : public testing::Test {
  protected:
    /// An entry of the sample bundle's.
    void write_entry(const std::string& file, const std::string& label, const std::string& more = "",
                     const std::string& outside = "") {
        phone.write(entries + file, "{ entry = { cell = PSLinkCell; isController = 1; label = \"" + label +
                                        "\"; bundle = Sample; detail = SamplePane; " + more + " }; " +
                                        outside + " }");
    }
    void write_bundle(const std::string& executable = "Sample") {
        phone.write(std::string(bundle) + "Info.plist",
                    "{ CFBundleExecutable = " + executable +
                        "; CFBundleIdentifier = \"com.example.sample\"; NSPrincipalClass = SamplePane; }");
        phone.write(std::string(bundle) + "en.lproj/Localizable.strings", "Hello = \"Hello there\";");
        phone.write(std::string(bundle) + "de.lproj/Localizable.strings", "Hello = \"Guten Tag\";");
        fs::copy_file(std::getenv("HUECRAFT_LIBRARY"), phone.host(std::string(bundle) + "Sample"));
    }
    void open(const char* language = nullptr, const char* version = nullptr) {
        phone.boot({.executable = "/Applications/Preferences.app/Preferences",
                    .system_version = version,
                    .language = language});
        ASSERT_EQ(sim_open_settings(), SIM_OK) << sim_last_error();
    }
    static std::vector<std::string> rows() {
        std::vector<std::string> labels;
        for (size_t i = 0; i < sim_settings_row_count(); ++i) labels.push_back(sim_settings_row(i));
        return labels;
    }
    static UINavigationController* root() {
        void* view = nullptr;
        EXPECT_EQ(sim_view_on_screen("UINavigationBar", &view), SIM_OK) << sim_last_error();
        UIResponder* responder = static_cast<UIView*>(static_cast<id>(view));
        while (responder && !as<UINavigationController>(responder)) responder = responder->nextResponder();
        return static_cast<UINavigationController*>(responder);
    }
    static void tap(const char* label) { ASSERT_EQ(sim_tap_label(label), SIM_OK) << sim_last_error(); }
    Phone phone;
};
using Rows = std::vector<std::string>;

TEST_F(Settings, WithoutEntriesHasItsOwnRows) {
    open();
    EXPECT_EQ(rows(), Rows{});
    EXPECT_EQ(utf8(root()->topViewController()->title()), "Settings");
    tap("General");  // leads nowhere
    EXPECT_EQ(root()->viewControllers()->count(), 1u);
}

TEST_F(Settings, ListsEntriesByLabelFromSubfoldersToo) {
    write_bundle();
    write_entry("b.plist", "beta");
    write_entry("inner/c.plist", "Alpha");
    write_entry("a.plist", "Gamma");
    phone.write(std::string(entries) + "nameless.plist",
                "{ entry = { cell = PSLinkCell; bundle = Sample; }; }");
    phone.write(std::string(entries) + "none.plist", "{ title = \"no entry\"; }");
    phone.write(std::string(entries) + "broken.plist", "{ entry = ");
    phone.write(std::string(entries) + "readme.txt", "{ entry = { cell = PSLinkCell; bundle = Sample; }; }");
    open();
    EXPECT_EQ(rows(), (Rows{"Alpha", "beta", "Gamma", "nameless"}));
    EXPECT_EQ(sim_settings_row(4), nullptr);
}

TEST_F(Settings, LeavesOutEntriesOfOtherSystems) {
    write_bundle();
    write_entry("now.plist", "Now", "", "filter = { CoreFoundationVersion = (1556.00, 1665.15); };");
    write_entry("from.plist", "From this one", "pl_filter = { CoreFoundationVersion = (1575.17); };");
    write_entry("before.plist", "Before", "", "pl_filter = { CoreFoundationVersion = (1000, 1575.17); };");
    write_entry("after.plist", "After", "", "filter = { CoreFoundationVersion = (1665.15); };");
    open();
    EXPECT_EQ(rows(), (Rows{"From this one", "Now"}));
}

TEST_F(Settings, AnOlderSystemGetsWhatIsForIt) {
    write_bundle();
    write_entry("before.plist", "Before", "", "filter = { CoreFoundationVersion = (1000, 1575.17); };");
    open(nullptr, "12.1.2");
    EXPECT_EQ(rows(), Rows{"Before"});
}

TEST_F(Settings, LeavesOutAnEntryWithoutItsBundleAndSaysSo) {
    write_entry("gone.plist", "Gone");
    testing::internal::CaptureStderr();
    open();
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "Settings: /Library/PreferenceLoader/Preferences/gone.plist is left out: its bundle \"Sample\" is "
        "nowhere\n");
    EXPECT_EQ(rows(), Rows{});
}

TEST_F(Settings, FindsABundleByItsPathFirst) {
    write_bundle();
    phone.make_folder("/opt/Other.bundle");
    write_entry("a.plist", "Other", "bundlePath = \"/opt/Other.bundle\";");
    testing::internal::CaptureStderr();
    open();
    EXPECT_EQ(rows(), Rows{"Other"});
    tap("Other");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Settings: /opt/Other.bundle/Info.plist names no CFBundleExecutable\n");
}

TEST_F(Settings, LoadsTheCodeWhenTheRowIsTouchedAndShowsThePage) {
    write_bundle();
    write_entry("sample.plist", "Sample");
    open();
    EXPECT_EQ(objc_getClass("SamplePane"), nullptr);
    tap("Sample");
    ASSERT_NE(objc_getClass("SamplePane"), nullptr);
    auto* page = static_cast<PSViewController*>(root()->topViewController());
    EXPECT_STREQ(object_getClassName(page), "SamplePane");
    EXPECT_EQ(utf8(page->send<"log", NSString*>()), "init root parent specifier view ");
    EXPECT_EQ(page->rootController(), root());
    EXPECT_EQ(page->parentController(), root()->viewControllers()->objectAtIndex(0));
    EXPECT_EQ(utf8(page->specifier()->name()), "Sample");
    EXPECT_EQ(utf8(page->specifier()->propertyForKey(text("detail"))), "SamplePane");
    EXPECT_EQ(utf8(page->title()), "Sample");
    tap("Hello there");
}

TEST_F(Settings, ThePageIsLeftAndOpenedAgain) {
    write_bundle();
    write_entry("sample.plist", "Sample");
    open();
    for (int i = 0; i < 3; ++i) {
        tap("Sample");
        EXPECT_EQ(root()->viewControllers()->count(), 2u);
        tap("Settings");
        EXPECT_EQ(root()->viewControllers()->count(), 1u);
    }
}

TEST_F(Settings, TheBundleSpeaksTheUsersLanguage) {
    write_bundle();
    write_entry("sample.plist", "Sample");
    open("de");
    tap("Sample");
    tap("Guten Tag");
    NSBundle* own = NSBundle::bundleForClass(objc_getClass("SamplePane"));
    EXPECT_EQ(utf8(own->bundlePath()), "/Library/PreferenceBundles/Sample.bundle");
    EXPECT_EQ(utf8(own->bundleIdentifier()), "com.example.sample");
}

TEST_F(Settings, WithoutADetailThePrincipalClassIsShown) {
    write_bundle();
    phone.write(std::string(entries) + "a.plist",
                "{ entry = { cell = PSLinkCell; label = Sample; bundle = Sample; }; }");
    open();
    tap("Sample");
    EXPECT_STREQ(object_getClassName(root()->topViewController()), "SamplePane");
}

TEST_F(Settings, AClassThatIsNoPageIsNotShown) {
    write_bundle();
    phone.write(std::string(entries) + "a.plist",
                "{ entry = { cell = PSLinkCell; label = Sample; bundle = Sample; detail = NotAPage; }; }");
    open();
    testing::internal::CaptureStderr();
    tap("Sample");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Settings: NotAPage is not a subclass of PSViewController; nothing is shown\n");
    EXPECT_EQ(root()->viewControllers()->count(), 1u);
}

TEST_F(Settings, CodeThatCannotBeLoadedLeadsToAnErrorPage) {
    write_bundle("Absent");
    write_entry("sample.plist", "Sample");
    open();
    testing::internal::CaptureStderr();
    tap("Sample");
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("Settings: cannot load "), std::string::npos) << said;
    tap("There was an error loading the preference bundle for Sample.");
}

TEST_F(Settings, NeedsThePhoneToBeOn) {
    EXPECT_EQ(sim_open_settings(), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_open_settings: the phone is not on; call sim_boot first");
}

}  // namespace
}  // namespace test
