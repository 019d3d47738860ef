// The page on a phone where the other packages are not as expected: no library, another one, and the pane of
// others.
#include <functional>
#include <map>

#include "settings_page.h"

namespace test {
namespace {

using WithoutLibrary = SettingsPage;

TEST_F(WithoutLibrary, ThePageOpensAndSaysSo) {
    open_without_library();
    EXPECT_TRUE(is_on_screen("Huecraft itself is not loaded here."));
    EXPECT_EQ(table()->numberOfRowsInSection(along_section), 10);
    choose_row(0, along_section);
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    EXPECT_EQ(preferences(), "none");
}

TEST_F(WithoutLibrary, ANewThemeCannotBeMade) {
    open_without_library();
    tap("Add");
    tap("New Theme");
    ASSERT_EQ(sim_type_text("Mine"), SIM_OK) << sim_last_error();
    tap("Create");
    EXPECT_TRUE(is_on_screen("The theme could not be made."));
    EXPECT_FALSE(phone.exists(theme_folder));
}

TEST_F(WithoutLibrary, ThePickerIsMissing) {
    open_without_library();
    EXPECT_EQ(objc_getClass("HuecraftSettingsColorPicker"), Class());
}

/// Somebody else's idea of the library: a class of one of its names, with these methods of instances and of
/// the class, none of which does anything.
void make_class(const char* name, const std::vector<const char*>& methods,
                const std::vector<const char*>& of_class) {
    const auto nothing = reinterpret_cast<IMP>(+[](id, SEL) -> id { return nullptr; });
    Class made = objc_allocateClassPair(objc_getClass("NSObject"), name, 0);
    for (const char* each : methods) class_addMethod(made, sel_registerName(each), nothing, "@@:");
    objc_registerClassPair(made);
    for (const char* each : of_class)
        class_addMethod(object_getClass(reinterpret_cast<id>(made)), sel_registerName(each), nothing, "@@:");
}

struct OtherLibrary {
    const char* what;
    std::function<void()> make;
};
void PrintTo(const OtherLibrary& library, std::ostream* out) { *out << library.what; }

class OtherVersion : public SettingsPage, public testing::WithParamInterface<OtherLibrary> {};
INSTANTIATE_TEST_SUITE_P(
    , OtherVersion,
    testing::Values(OtherLibrary{"ThemesAlone",
                                 [] { make_class("HuecraftConfig", {"asPlist"}, {"defaultConfig"}); }},
                    OtherLibrary{"NoMethods",
                                 [] {
                                     for (const char* name : {"HuecraftConfig", "HCPreview", "HCCITool"})
                                         make_class(name, {}, {});
                                 }},
                    OtherLibrary{"AnotherPreview",
                                 [] {
                                     make_class("HuecraftConfig", {"asPlist"}, {"defaultConfig"});
                                     make_class("HCPreview", {"viewForTheme:"}, {"sharedInstance"});
                                 }}),
    [](const auto& tested) { return tested.param.what; });

TEST_P(OtherVersion, ThePageOpensAndSaysSo) {
    put_theme(phone, "Mine.plist", "Mine");
    phone.write(preference_file, property_list("<dict><key>_Enabled</key><true/><key>_Config</key>"
                                               "<string>Mine.plist</string></dict>"));
    open_with_other_classes(GetParam().make);
    EXPECT_TRUE(is_on_screen("The Huecraft that is loaded here is of another version. Update both."));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    tap("OK");
    tap("Add");
    tap("New Theme");
    ASSERT_EQ(sim_type_text("New"), SIM_OK) << sim_last_error();
    tap("Create");
    EXPECT_TRUE(is_on_screen("The theme could not be made."));
    tap("OK");
    choose_row(0, rescue_section);
    EXPECT_EQ(preferences(), "off Mine.plist") << "the rescue works";
}

TEST_F(WithoutLibrary, ThePaneOfOthersKeepsItsBundleAndItsRow) {
    const std::string bundle = "/Library/PreferenceBundles/Huecraft.bundle/";
    const std::string entry = "/Library/PreferenceLoader/Preferences/Huecraft.plist";
    const std::map<std::string, std::string> files{
        {bundle + "Huecraft", "somebody's code"},
        {bundle + "Info.plist", property_list("<dict><key>CFBundleExecutable</key><string>Huecraft</string>"
                                              "<key>NSPrincipalClass</key><string>HCRoot</string></dict>")},
        {entry, property_list("<dict><key>entry</key><dict><key>cell</key><string>PSLinkCell</string>"
                              "<key>label</key><string>Another Pane</string><key>bundle</key>"
                              "<string>Huecraft</string><key>isController</key><true/></dict></dict>")}};
    for (const auto& [path, contents] : files) phone.write(path, contents);
    const auto pictures = names_in(phone, bundle);
    open();
    EXPECT_STREQ(object_getClassName(page()), "HuecraftSettingsController");
    choose_row(0, along_section);
    EXPECT_EQ(preferences(), "on Contrast.plist");
    tap("Settings");
    EXPECT_TRUE(is_on_screen("Another Pane"));
    for (const auto& [path, contents] : files) EXPECT_EQ(phone.read(path), contents) << path;
    EXPECT_EQ(names_in(phone, bundle), pictures);
}

}  // namespace
}  // namespace test
