// How the colour picker looks at rest.
#include "picture.h"
#include "settings/color_picker.h"
#include "support/themes.h"

namespace test {
namespace {

class PickerPicture : public ColorPicker {
  protected:
    void write_recent_colours() const {
        std::string list;
        for (const char* hex : {"#FF3B30", "#FF9500", "#FFCC00", "#4CD964", "#007AFF80", "#00000000"})
            list += std::string("<string>") + hex + "</string>";
        phone.write(recent_file, property_list("<dict><key>Colors</key><array>" + list + "</array></dict>"));
    }
    void expect_picture(UIColor* colour, const std::string& name) const {
        constexpr NSInteger over_full_screen = 5;
        picker->setModalPresentationStyle(over_full_screen);
        show();
        update(colour);
        const auto png = phone.host("/picker.png");
        ASSERT_EQ(sim_take_picture(png.c_str(), 2), SIM_OK) << sim_last_error();
        EXPECT_TRUE(looks_as_expected(png, name, "settings."));
    }
};

TEST_F(PickerPicture, BlackAndLight) { expect_picture(color(0, 0, 0), "settings-picker-light"); }

TEST_F(PickerPicture, ATranslucentOrangeInTheDarkWithRecentColours) {
    write_recent_colours();
    picker->send<"setLightUI:">(false);
    expect_picture(color(1, 0.5, 0, 0.5), "settings-picker-dark");
}

TEST_F(PickerPicture, AGreenInEclipsesPalette) {
    phone.write("/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib", "");
    phone.write("/var/mobile/Library/Preferences/com.hvelden.eclipse.plist",
                "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
    write_recent_colours();
    expect_picture(color(0.3, 0.85, 0.4), "settings-picker-eclipse");
}

class SmallPickerPicture : public PickerPicture {
  protected:
    void SetUp() override { start({.screen_width = 320, .screen_height = 568}); }
};

TEST_F(SmallPickerPicture, OnASmallScreen) {
    write_recent_colours();
    expect_picture(color(0, 0.5, 1), "settings-picker-small");
}

}  // namespace
}  // namespace test
