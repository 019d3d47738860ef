// The pane's screens, sheets and alerts come and go as the system's do: with an animation.
#include <map>

#include "editor/editor_page.h"

namespace test {
namespace {

struct Step {
    std::string screen;
    bool is_animated;
};
/// What came, and what went.
std::vector<Step> came, gone;
/// A screen's own implementations, by its class.
std::map<std::string, IMP> appears, disappears;

template <std::vector<Step>* steps, std::map<std::string, IMP>* previous>
void write_down(NSObject* screen, SEL selector, int animated) {
    const std::string name = object_getClassName(screen);
    steps->push_back({name, animated != 0});
    reinterpret_cast<void (*)(NSObject*, SEL, int)>(previous->at(name))(screen, selector, animated);
}

template <std::vector<Step>* steps, std::map<std::string, IMP>* previous>
void watch(const char* name, const char* selector) {
    Class watched = objc_lookUpClass(name);
    Method method = class_getInstanceMethod(watched, sel_registerName(selector));
    (*previous)[name] = method_getImplementation(method);
    const auto writing = reinterpret_cast<IMP>(write_down<steps, previous>);
    if (!class_addMethod(watched, sel_registerName(selector), writing, method_getTypeEncoding(method)))
        method_setImplementation(method, writing);  // it has one of its own
}

class Animation : public EditorPage {
  protected:
    /// From here on each of these screens is written down when it comes or goes.
    static void watch_screens() {
        for (const char* name :
             {"UIAlertController", "UIActivityViewController", "UIImagePickerController",
              "HuecraftSettingsController", "HuecraftSettingsEditor", "HuecraftSettingsCropper",
              "HuecraftSettingsColorPicker", "HuecraftSettingsCompatibilityController"}) {
            watch<&came, &appears>(name, "viewWillAppear:");
            watch<&gone, &disappears>(name, "viewWillDisappear:");
        }
    }
    static void expect_animated(std::vector<Step>& steps, const std::string& screen) {
        std::string all;
        bool seen = false;
        for (const Step& step : steps) {
            all += step.screen + " ";
            seen = seen || step.screen == screen;
            EXPECT_TRUE(step.is_animated) << step.screen;
        }
        EXPECT_TRUE(seen) << screen << " is not among " << all;
        steps.clear();
    }
    static void expect_came(const std::string& screen) { expect_animated(came, screen); }
    static void expect_went(const std::string& screen) { expect_animated(gone, screen); }
};

TEST_F(Animation, BringsAlertsAndSheets) {
    open();
    watch_screens();
    tap("Add");
    expect_came("UIAlertController");
    tap("New Theme");
    expect_came("UIAlertController");
    tap("Cancel");
    choose_row(1, rescue_section);
    expect_came("UIAlertController");
    tap("Cancel");
    tap("Edit");
    choose_row(0, own_section);
    expect_came("UIAlertController");
    tap("Share");
    expect_came("UIActivityViewController");
}

TEST_F(Animation, BringsTheEditorAndTakesItAway) {
    open();
    watch_screens();
    edit_row(0, own_section);
    expect_came("HuecraftSettingsEditor");
    tap("Cancel");
    expect_came("HuecraftSettingsController");
    expect_went("HuecraftSettingsEditor");
}

TEST_F(Animation, BringsCompatibility) {
    open();
    watch_screens();
    choose_row(0, about_section);
    expect_came("HuecraftSettingsCompatibilityController");
}

TEST_F(Animation, BringsPickersAndTheCropperAndTakesThemAway) {
    edit();
    watch_screens();
    choose_row(text_row, keys_section);
    expect_came("HuecraftSettingsColorPicker");
    void* picker = nullptr;
    ASSERT_EQ(sim_presented(&picker), SIM_OK);
    static_cast<NSObject*>(static_cast<id>(picker))->send<"selectButtonPressed">();
    ASSERT_EQ(sim_advance_clock(1), SIM_OK);
    choose_kind(image_kind);
    choose_row(1, background_section);
    expect_came("UIImagePickerController");
    gone.clear();
    tap("Cancel");
    expect_went("UIImagePickerController");
    open_cropper();
    expect_came("HuecraftSettingsCropper");
    expect_went("UIImagePickerController");
    tap("Cancel");
    expect_came("HuecraftSettingsEditor");
    expect_went("HuecraftSettingsCropper");
    open_cropper();
    gone.clear();
    tap("Use Photo");
    expect_came("HuecraftSettingsEditor");
    expect_went("HuecraftSettingsCropper");
}

/// Whether each row was let go with an animation.
std::vector<bool> rows_let_go;

TEST_F(Animation, LetsGoOfATouchedRow) {
    open();
    method_setImplementation(class_getInstanceMethod(objc_lookUpClass("UITableView"),
                                                     sel_registerName("deselectRowAtIndexPath:animated:")),
                             reinterpret_cast<IMP>(+[](id, SEL, NSIndexPath*, int animated) {
                                 rows_let_go.push_back(animated != 0);
                             }));
    choose_row(0, along_section);
    choose_row(0, about_section);
    choose_row(0, 0);
    tap("Huecraft");
    edit_row(0, own_section);
    choose_row(0, name_section);
    EXPECT_EQ(rows_let_go, (std::vector<bool>{true, true, true, true}));
}

}  // namespace
}  // namespace test
