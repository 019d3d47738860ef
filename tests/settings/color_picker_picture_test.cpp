// How the colour picker looks, at rest and in its motions.
#include "picture.h"
#include "settings/color_picker.h"
#include "support/contents.h"
#include "support/themes.h"

namespace test {
namespace {

class PickerPicture : public ColorPicker {
  protected:
    void SetUp() override { start_with_icons({}); }
    /// The phone has the icons that come with the settings pane.
    void start_with_icons(const Phone::Options& options) {
        start(options);
        for (const std::string icon : {"/copy.png", "/paste.png"})
            phone.write("/Library/PreferenceBundles/Huecraft.bundle" + icon,
                        contents_of(SETTINGS_PICTURES + icon));
    }
    void write_recent_colours(const char* newest = "#00000000") const {
        std::string list;
        for (const char* hex : {"#FF3B30", "#FF9500", "#FFCC00", "#4CD964", "#007AFF80", newest})
            list += std::string("<string>") + hex + "</string>";
        phone.write(recent_file, property_list("<dict><key>Colors</key><array>" + list + "</array></dict>"));
    }
    void present() const {
        picker->setModalPresentationStyle(UIModalPresentationOverFullScreen);
        ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
    }
    static void wait(double seconds) { ASSERT_EQ(sim_advance_clock(seconds), SIM_OK) << sim_last_error(); }
    void expect_screen(const std::string& name, double scale) const {
        const auto png = phone.host("/picker.png");
        ASSERT_EQ(sim_take_picture(png.c_str(), scale), SIM_OK) << sim_last_error();
        EXPECT_TRUE(looks_as_expected(png, name, "settings."));
    }
    void expect_picture(UIColor* colour, const std::string& name, double scale = 1) const {
        present();
        wait(2);
        update(colour);
        expect_screen(name, scale);
    }
};

TEST_F(PickerPicture, BlackAndLight) { expect_picture(color(0, 0, 0), "settings-picker-light", 2); }

TEST_F(PickerPicture, WhiteAndLight) { expect_picture(color(1, 1, 1), "settings-picker-white"); }

TEST_F(PickerPicture, ATranslucentBlueAndLight) {
    expect_picture(color(0, 0.48, 1, 0.5), "settings-picker-translucent");
}

TEST_F(PickerPicture, BlackInTheDark) {
    picker->send<"setLightUI:">(false);
    expect_picture(color(0, 0, 0), "settings-picker-black-dark");
}

TEST_F(PickerPicture, WhiteInTheDark) {
    picker->send<"setLightUI:">(false);
    expect_picture(color(1, 1, 1), "settings-picker-white-dark");
}

TEST_F(PickerPicture, ATranslucentOrangeInTheDarkWithRecentColours) {
    write_recent_colours();
    picker->send<"setLightUI:">(false);
    expect_picture(color(1, 0.5, 0, 0.5), "settings-picker-dark", 2);
}

TEST_F(PickerPicture, AGreenInEclipsesPalette) {
    phone.write("/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib", "");
    phone.write("/var/mobile/Library/Preferences/com.hvelden.eclipse.plist",
                "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
    write_recent_colours();
    expect_picture(color(0.3, 0.85, 0.4), "settings-picker-eclipse", 2);
}

class SmallPickerPicture : public PickerPicture {
  protected:
    void SetUp() override { start_with_icons({.screen_width = 320, .screen_height = 568}); }
};

TEST_F(SmallPickerPicture, OnASmallScreen) {
    write_recent_colours();
    expect_picture(color(0, 0.5, 1), "settings-picker-small", 2);
}

class LargePickerPicture : public PickerPicture {
  protected:
    void SetUp() override {
        start_with_icons({.screen_width = 414, .screen_height = 736, .screen_scale = 3});
    }
};

TEST_F(LargePickerPicture, OnALargeScreenWithSixRecentColours) {
    write_recent_colours("#5856D6");
    expect_picture(color(0.2, 0.47, 0.96), "settings-picker-large");
}

// ---- Motions, half as large: it is the places that count

TEST_F(PickerPicture, ThePanelSpringsUpFromBelow) {
    write_recent_colours();
    present();
    wait(0.5);
    expect_screen("settings-picker-below", 0.5);
    const struct {
        double after;
        const char* name;
    } moments[] = {{0.0625, "settings-picker-rising"},
                   {0.125, "settings-picker-arriving"},
                   {0.1875, "settings-picker-above"},
                   {0.4375, "settings-picker-risen"}};
    double now = 0;
    for (const auto& [after, name] : moments) {
        wait(after - now);
        now = after;
        expect_screen(name, 0.5);
    }
}

TEST_F(PickerPicture, ThePanelShakesSideways) {
    picker->send<"setLightUI:">(false);
    present();
    wait(2);
    picker->send<"shakeWrong">();
    const struct {
        double after;
        const char* name;
    } moments[] = {{0, "settings-picker-shaken-left"},
                   {0.0375, "settings-picker-shaken-half-right"},
                   {0.05, "settings-picker-shaken-right"},
                   {0.25, "settings-picker-not-shaken"}};
    double now = 0;
    for (const auto& [after, name] : moments) {
        wait(after - now);
        now = after;
        expect_screen(name, 0.5);
    }
}

}  // namespace
}  // namespace test
