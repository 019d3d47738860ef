// HCModalView's three palettes, and when Eclipse's is chosen.
#include "picture.h"
#include "settings/modal_view.h"

namespace test {
namespace {

struct Palette {
    std::string card, front, title;
    friend bool operator==(const Palette&, const Palette&) = default;
    friend void PrintTo(const Palette& p, std::ostream* out) {
        *out << p.card << " " << p.front << " " << p.title;
    }
};
const Palette eclipse{"#212121", "#616161", "#212121"}, light{"#ECECEC", "#22313F", "#ECECEC"},
    dark{"#22313F", "#ECECEC", "#22313F"};

class PanelColours : public ModalView {
  protected:
    static Palette palette_of(UIView* panel) {
        const Palette palette{hex(part<"panelView">(panel)->layer()->backgroundColor()),
                              hex(close_button(panel)->backgroundColor()),
                              hex(close_button(panel)->titleColorForState(UIControlStateNormal))};
        EXPECT_EQ(hex(part<"shadowView">(panel)->layer()->shadowColor()), palette.front);
        EXPECT_EQ(hex(part<"contentView">(panel)->layer()->borderColor()), palette.front);
        EXPECT_EQ(hex(select_button(panel)->backgroundColor()), palette.front);
        EXPECT_EQ(hex(select_button(panel)->titleColorForState(UIControlStateNormal)), palette.title);
        return palette;
    }
    static std::vector<std::string> scheme_of(UIView* panel) {
        return {hex(objc::send<"primaryColor", UIColor*>(panel)),
                hex(objc::send<"secondaryColor", UIColor*>(panel)),
                hex(objc::send<"primaryTextColor", UIColor*>(panel)),
                hex(objc::send<"secondaryTextColor", UIColor*>(panel))};
    }
    static bool is_eclipse(UIView* panel) { return objc::send<"isEclipseEnabled", bool>(panel); }
    /// The panel over a grey page, as large as the screen.
    void expect_picture(UIView* panel, const std::string& name) const {
        auto page = objc::adopt(UIView::alloc()->initWithFrame({{0, 0}, {375, 667}}).leak());
        page->setBackgroundColor(color(0.6, 0.6, 0.6));
        page->addSubview(panel);
        const auto png = phone.host("/panel.png");
        ASSERT_EQ(sim_take_picture_of(page.get(), png.c_str(), 1), SIM_OK) << sim_last_error();
        EXPECT_TRUE(looks_as_expected(png, name, "settings."));
    }
};

using Scheme = std::vector<std::string>;

TEST_F(PanelColours, WithoutEclipseItIsLightOrDarkAsTheOptionsSay) {
    EXPECT_EQ(palette_of(panel(true)), light);
    EXPECT_EQ(palette_of(panel(false)), dark);
    EXPECT_EQ(scheme_of(panel(true)), (Scheme{"#ECECEC", "#22313F", "#22313F", "#ECECEC"}));
    EXPECT_EQ(scheme_of(panel(false)), (Scheme{"#ECECEC", "#22313F", "#22313F", "#ECECEC"}));
    EXPECT_FALSE(is_eclipse(panel(true)));
}

TEST_F(PanelColours, EclipseWinsOverBoth) {
    install_eclipse();
    for (bool light_ui : {true, false}) {
        UIView* made = panel(light_ui);
        EXPECT_TRUE(is_eclipse(made));
        EXPECT_EQ(palette_of(made), eclipse);
        EXPECT_EQ(scheme_of(made), (Scheme{"#212121", "#616161", "#616161", "#212121"}));
    }
}

TEST_F(PanelColours, AHighlightedTitleIsTranslucent) {
    for (bool light_ui : {true, false}) {
        UIView* made = panel(light_ui);
        for (UIButton* button : {close_button(made), select_button(made)}) {
            Rgba expected = rgba(button->titleColorForState(UIControlStateNormal));
            expected.alpha = static_cast<double>(0.6f);
            EXPECT_EQ(rgba(button->titleColorForState(UIControlStateHighlighted)), expected);
        }
    }
}

TEST_F(PanelColours, ApplyColorPaintsAgain) {
    UIView* made = panel(true);
    objc::send<"setPrimaryColor:">(made, color(1, 0, 0));
    objc::send<"setSecondaryColor:">(made, color(0, 1, 0));
    objc::send<"setPrimaryTextColor:">(made, color(0, 0, 1));
    objc::send<"setSecondaryTextColor:">(made, color(1, 1, 0));
    EXPECT_EQ(palette_of(made), light) << "nothing changes by itself";
    objc::send<"applyColor">(made);
    EXPECT_EQ(palette_of(made), (Palette{"#FF0000", "#00FF00", "#FFFF00"}));
    objc::send<"setLightUI:">(objc::send<"modalOptions", id>(made), false);
    objc::send<"applyColor">(made);
    EXPECT_EQ(palette_of(made), (Palette{"#00FF00", "#FF0000", "#0000FF"}));
    objc::send<"setIsEclipseEnabled:">(made, true);
    objc::send<"applyColor">(made);
    EXPECT_EQ(palette_of(made), (Palette{"#FF0000", "#00FF00", "#FFFF00"}));
}

TEST_F(PanelColours, OnlyBothFilesMakeEclipse) {
    phone.write(eclipse_library, "");
    EXPECT_FALSE(is_eclipse(panel(true)));
    EXPECT_EQ(palette_of(panel(true)), light);
    EXPECT_EQ(palette_of(panel(false)), dark);
    install_eclipse();
    EXPECT_TRUE(is_eclipse(panel(true)));
    std::filesystem::remove(phone.host(eclipse_library));
    EXPECT_FALSE(is_eclipse(panel(true)));
}

TEST_F(PanelColours, EclipseIsOnWhereItsPreferencesSaySo) {
    const std::string settings = "\"EnabledApps-com.apple.Preferences\" = ";
    const struct {
        std::string preferences;
        bool on;
    } cases[] = {
        {"{ enabled = 1; " + settings + "1; }", true},
        {"{ enabled = YES; " + settings + "true; }", true},
        {"<plist><dict><key>enabled</key><true/><key>EnabledApps-com.apple.Preferences</key><true/></dict></"
         "plist>",
         true},
        {"<plist><dict><key>enabled</key><integer>3</integer>"
         "<key>EnabledApps-com.apple.Preferences</key><real>0.5</real></dict></plist>",
         true},
        {"<plist><dict><key>enabled</key><integer>-1</integer>"
         "<key>EnabledApps-com.apple.Preferences</key><string>YES</string></dict></plist>",
         true},
        {"{ enabled = 1; " + settings + "0; }", false},
        {"{ enabled = NO; " + settings + "1; }", false},
        {"{ enabled = 1; " + settings + "false; }", false},
        {"{ enabled = \"\"; " + settings + "1; }", false},
        {"<plist><dict><key>enabled</key><false/><key>EnabledApps-com.apple.Preferences</key><true/></dict></"
         "plist>",
         false},
        {"<plist><dict><key>enabled</key><true/><key>EnabledApps-com.apple.Preferences</key><false/></dict></"
         "plist>",
         false},
        {"{ enabled = 0; " + settings + "1; }", false},
        {"{ enabled = 0; " + settings + "0; }", false},
        {"{ " + settings + "1; }", false},
        {"{ enabled = 1; }", false},
        {"{ enabled = 1; \"EnabledApps-com.apple.Maps\" = 1; }", false},
        {"{ Enabled = 1; " + settings + "1; }", false},
        {"{}", false},
        // values without a boolean one
        {"{ enabled = (1); " + settings + "1; }", false},
        {"{ enabled = { a = 1; }; " + settings + "1; }", false},
        {"{ enabled = <01>; " + settings + "1; }", false},
        {"<plist><dict><key>enabled</key><date>2020-01-01T00:00:00Z</date>"
         "<key>EnabledApps-com.apple.Preferences</key><true/></dict></plist>",
         false},
        {"{ enabled = 1; " + settings + "(1); }", false},
        {"{ enabled = 1; " + settings + "<01>; }", false},
        // no dictionary
        {"(enabled, " + std::string("\"EnabledApps-com.apple.Preferences\")"), false},
        {"enabled", false},
        {"<plist><true/></plist>", false},
        {"<plist><integer>1</integer></plist>", false},
        {"<plist><date>2020-01-01T00:00:00Z</date></plist>", false},
        {"<01>", false},
        {"", false},
        {"{ enabled = 1; " + settings + "1;", false},
        {"bplist00", false},
        {std::string("\0\1\2", 3), false},
    };
    phone.write(eclipse_library, "");
    for (const auto& each : cases) {
        phone.write(eclipse_preferences, each.preferences);
        std::string raised =
            raised_by([&] { EXPECT_EQ(is_eclipse(panel(true)), each.on) << each.preferences; });
        EXPECT_EQ(raised, "") << each.preferences;
    }
}

TEST_F(PanelColours, PreferencesThatCannotBeReadMakeNoEclipse) {
    phone.write(eclipse_library, "");
    phone.make_folder(eclipse_preferences);
    EXPECT_EQ(raised_by([&] { EXPECT_FALSE(is_eclipse(panel(true))); }), "");
}

TEST_F(PanelColours, PreferencesWithoutTheLibraryMakeNoEclipse) {
    install_eclipse();
    std::filesystem::remove(phone.host(eclipse_library));
    EXPECT_EQ(palette_of(panel(true)), light);
    EXPECT_EQ(palette_of(panel(false)), dark);
}

TEST_F(PanelColours, BinaryPreferencesMakeEclipse) {
    phone.write(eclipse_library, "");
    for (bool on : {true, false}) {
        id number = objc::send<"numberWithBool:", id>(class_named("NSNumber"), on);
        auto* values = NSMutableDictionary::alloc()->initWithCapacity(2).leak();
        values->setObject(number, text("enabled"));
        values->setObject(number, text("EnabledApps-com.apple.Preferences"));
        auto* bytes = objc::send<"dataWithPropertyList:format:options:error:", NSData*>(
            class_named("NSPropertyListSerialization"), values, NSUInteger{200}, NSUInteger{0},
            static_cast<id*>(nullptr));
        objc_release(values);
        const std::string file{static_cast<const char*>(bytes->bytes()), bytes->length()};
        ASSERT_EQ(file.substr(0, 8), "bplist00");
        phone.write(eclipse_preferences, file);
        EXPECT_EQ(is_eclipse(panel(true)), on);
    }
}

TEST_F(PanelColours, EclipseIsReadOncePerPanel) {
    install_eclipse();
    UIView* made = panel(true);
    std::filesystem::remove(phone.host(eclipse_preferences));
    objc::send<"applyColor">(made);
    EXPECT_EQ(palette_of(made), eclipse);
    EXPECT_EQ(palette_of(panel(true)), light);
}

TEST_F(PanelColours, LookLight) { expect_picture(panel(true), "settings-panel-light"); }
TEST_F(PanelColours, LookDark) { expect_picture(panel(false), "settings-panel-dark"); }
TEST_F(PanelColours, LookLikeEclipse) {
    install_eclipse();
    expect_picture(panel(true), "settings-panel-eclipse");
}

}  // namespace
}  // namespace test
