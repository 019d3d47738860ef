// What the tests of the colour picker share: a phone with the preference bundle's icons, a picker, and a
// delegate that notes what it is notified of.
#pragma once
#include "platform/controls.h"
#include "platform/scrolling.h"
#include "settings/settings.h"

namespace test {

inline constexpr const char* recent_file =
    "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";
inline constexpr const char* copy_icon_file = "/Library/PreferenceBundles/Huecraft.bundle/copy.png";
inline constexpr const char* paste_icon_file = "/Library/PreferenceBundles/Huecraft.bundle/paste.png";

/// What delegates were notified of.
struct Notice {
    Rgba color;
    std::string hex;
    friend bool operator==(const Notice&, const Notice&) = default;
    friend void PrintTo(const Notice& t, std::ostream* out) {
        PrintTo(t.color, out);
        *out << " " << t.hex;
    }
};
inline std::vector<Notice> notices;

class ColorPicker : public testing::Test {
  protected:
    void SetUp() override { start({}); }
    void start(const Phone::Options& options) {
        phone.start(options);
        phone.make_folder("/var/mobile/Library/Preferences");
        phone.write(copy_icon_file, icon({{2, 2}, {16, 16}}));
        phone.write(paste_icon_file, icon({{6, 2}, {8, 16}}));
        heard.clear();
        notices.clear();
        picker = made_picker();
    }

    static UIViewController* made_picker() {
        return static_cast<UIViewController*>(made("HCColorPickerController"));
    }
    /// A PNG of 20 x 20 pixels, black where it is filled.
    static std::string icon(CGRect filled) {
        UIGraphicsBeginImageContextWithOptions({20, 20}, false, 1.0);
        color(0, 0, 0)->setFill();
        CGContextFillRect(UIGraphicsGetCurrentContext(), filled);
        NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
        UIGraphicsEndImageContext();
        return {static_cast<const char*>(png->bytes()), png->length()};
    }

    /// Presents the picker and waits until the panel is in its place.
    void show() const {
        ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    }
    static id presented() {
        void* controller = nullptr;
        EXPECT_EQ(sim_presented(&controller), SIM_OK) << sim_last_error();
        return static_cast<id>(controller);
    }

    template <objc::Name Part, class View = UIView>
    View* part() const {
        return picker->send<Part, View*>();
    }
    UIView* panel() const { return part<"modal">(); }
    template <objc::Name Part, class View = UIView>
    View* panel_part() const {
        return panel()->send<Part, View*>();
    }
    UITextField* field() const { return part<"hexTextField", UITextField>(); }
    std::string hex_text() const { return utf8(field()->text()); }
    void set_text(const char* hex) const { field()->setText(text(hex)); }
    static UISlider* knob_of(id slider) { return objc::send<"slider", UISlider*>(slider); }
    std::vector<id> sliders() const {
        return {part<"redSlider">(), part<"greenSlider">(), part<"blueSlider">(), part<"alphaSlider">()};
    }
    /// The sliders' colour.
    Rgba current() const {
        double values[4];
        for (int i = 0; i < 4; ++i) values[i] = objc::send<"getValue", double>(sliders()[i]);
        return {values[0], values[1], values[2], values[3]};
    }
    Rgba shown_in_preview() const { return average(part<"previewColor", UIImageView>()->image()); }
    void update(UIColor* color) const { picker->send<"updateToColor:">(color); }

    /// Whether the panel shakes; it no longer does afterwards.
    bool shook() const {
        const bool shakes = panel()->layer()->animationForKey(text("position"));
        panel()->layer()->removeAnimationForKey(text("position"));
        return shakes;
    }

    void set_delegate(id delegate) const { picker->send<"setDelegate:">(delegate); }
    static id noting_delegate() {
        class_with(
            "NotingPickerDelegate", "NSObject",
            {own_method(
                "colorPickerReturnedWithColor:andHexString:",
                [](id, SEL, id color, id hex) { notices.push_back({rgba(color), utf8(hex)}); }, "v@:@@")});
        return made("NotingPickerDelegate");
    }

    Phone phone;
    UIViewController* picker = nullptr;
};

}  // namespace test
