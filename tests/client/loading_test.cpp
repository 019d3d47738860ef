// The client as an image beside the library's: what it defines, and what it is refused for.
#include "client.h"

namespace test {
namespace {

TEST_F(Client, ItsClassesAreItsOwn) {
    std::vector<std::string> names;
    for (size_t i = 0; i < sim_class_count(pane); ++i) names.emplace_back(sim_class_name(pane, i));
    EXPECT_EQ(names,
              (std::vector<std::string>{"PaneBackgrounds", "PaneException", "PaneExceptions", "PanePanel",
                                        "PanePanelOwner", "PanePicker", "PaneRefusal", "PaneSilentDelegate",
                                        "PaneThemeController", "PaneThemeEditor", "PaneThrowingDelegate"}));
}

TEST_F(Client, ItsSubclassesDescendFromTheLibrarys) {
    EXPECT_EQ(class_getSuperclass(objc_getClass("PanePicker")), objc_getClass("HCColorPickerController"));
    EXPECT_EQ(class_getSuperclass(objc_getClass("PanePanel")), objc_getClass("HCModalView"));
}

TEST_F(Client, ItsProtocolsAreTheLibrarys) {
    EXPECT_TRUE(
        class_conformsToProtocol(objc_getClass("PanePanelOwner"), objc_getProtocol("HCModalDelegate")));
    EXPECT_TRUE(class_conformsToProtocol(objc_getClass("PaneThemeController"),
                                         objc_getProtocol("HCColorPickerDelegate")));
}

TEST_F(Client, ItsObjectsLetGoOfTheirVariables) {
    auto held = objc::adopt(objc::send<"new", NSObject*>(class_named("NSObject")));
    auto holder = objc::adopt(objc::send<"new", NSObject*>(class_named("PaneThrowingDelegate")));
    ask<"setThrown:", void>(holder, static_cast<id>(held));
    EXPECT_EQ((ask<"retainCount", NSUInteger>(held)), 2u);
    holder = nullptr;
    EXPECT_EQ((ask<"retainCount", NSUInteger>(held)), 1u);
}

TEST_F(Client, ItInstallsNothing) {
    EXPECT_EQ(installed_rows(), (std::vector<std::string>{"-[nil applicationDidFinishLaunching:]",
                                                          "function UIKBGetNamedColor"}))
        << "a category is not a call of the library's";
}

TEST(ClientAlone, WithoutTheLibraryItIsRefusedByName) {
    Phone phone;
    phone.boot();
    sim_library* pane = nullptr;
    EXPECT_EQ(sim_load(CLIENT_IMAGE, &pane), SIM_BAD_FILE);
    const std::string error = sim_last_error();
    EXPECT_NE(error.find("OBJC_CLASS_$_HCPreview (from /Library/MobileSubstrate/DynamicLibraries/"
                         "HuecraftiOS12.dylib)"),
              std::string::npos)
        << error;
    EXPECT_NE(error.find("kHCGradientTop (from "), std::string::npos) << error;
}

TEST(ClientAlone, WhatTheLibraryHasNotIsNotTakenFromTheSystem) {
    Phone phone;
    phone.start();
    sim_library* misdirected = nullptr;
    EXPECT_EQ(sim_load(MISDIRECTED_IMAGE, &misdirected), SIM_BAD_FILE);
    const std::string error = sim_last_error();
    EXPECT_NE(error.find("1 symbol is missing: UIGraphicsEndImageContext (from /Library/MobileSubstrate/"
                         "DynamicLibraries/HuecraftiOS12.dylib)"),
              std::string::npos)
        << error;
}

}  // namespace
}  // namespace test
