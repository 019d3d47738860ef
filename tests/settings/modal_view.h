// What the tests of the modal panel share: a phone, and panels made in one line.
#pragma once
#include "settings/settings.h"

namespace test {

inline constexpr const char* eclipse_library = "/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib";
inline constexpr const char* eclipse_preferences =
    "/var/mobile/Library/Preferences/com.hvelden.eclipse.plist";

class ModalView : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        heard.clear();
    }

    static id options(id delegate, bool light, CGRect frame = {{5, 111}, {365, 445}},
                      const char* title = "SELECT") {
        return made<"initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton:">(
            "HCModalOptions", frame, 40.0, delegate, light, title ? text(title) : nullptr);
    }
    static UIView* panel_of(id options) {
        return static_cast<UIView*>(
            made<"initWithFrame:modalOptions:">("HCModalView", CGRect{{0, 0}, {375, 667}}, options));
    }
    static UIView* panel(bool light, id delegate = nullptr) { return panel_of(options(delegate, light)); }

    template <objc::Name Part, class View = UIView>
    static View* part(id panel) {
        return objc::send<Part, View*>(panel);
    }
    static UIButton* close_button(id panel) { return part<"closeButton", UIButton>(panel); }
    static UIButton* select_button(id panel) { return part<"selectButton", UIButton>(panel); }
    static void show(UIView* panel) { ASSERT_EQ(sim_show_view(panel), SIM_OK) << sim_last_error(); }

    void install_eclipse() const {
        phone.write(eclipse_library, "");
        phone.write(eclipse_preferences, "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
    }

    /// A delegate that notes both messages.
    static id noting_delegate() {
        class_with("NotingDelegate", "NSObject",
                   {own_method("closeButtonPressed", note_selector, "v@:"),
                    own_method("selectButtonPressed", note_selector, "v@:")});
        return made("NotingDelegate");
    }

    Phone phone;
};

}  // namespace test
