// What the pane's first screen says above and below its rows, before it does something, and when it cannot.
#include "platform/alerts.h"
#include "settings_page.h"

namespace test {
namespace {

class Words : public SettingsPage {
  protected:
    static UISwitch* on() {
        return static_cast<UISwitch*>(static_cast<id>(cell(0, switch_section)->accessoryView()));
    }
    static void turn(bool on_or_off) {
        on()->setOn(on_or_off, false);
        on()->sendActionsForControlEvents(UIControlEventValueChanged);
        ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
    }
    static void remove(NSInteger row) {
        page()->send<"tableView:commitEditingStyle:forRowAtIndexPath:">(
            table(), UITableViewCellEditingStyleDelete, NSIndexPath::indexPathForRow(row, own_section));
        ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
    }
    /// The alert that is shown: its title and what is below, which is an error's text where there is one.
    static void expect_told(const std::string& title) {
        void* presented = nullptr;
        ASSERT_EQ(sim_presented(&presented), SIM_OK) << sim_last_error();
        ASSERT_NE(presented, nullptr) << "nothing was said";
        auto* alert = static_cast<UIAlertController*>(static_cast<id>(presented));
        EXPECT_EQ(utf8(alert->send<"title", NSString*>()), title);
        EXPECT_GT(utf8(alert->send<"message", NSString*>()).size(), 5u) << "and why";
        tap("OK");
        ASSERT_EQ(sim_presented(&presented), SIM_OK);
        EXPECT_EQ(presented, nullptr);
    }
};

TEST_F(Words, StandAboveAndBelowTheRows) {
    open();
    EXPECT_EQ(header(switch_section), "(nil)");
    EXPECT_EQ(header(own_section), "Your Themes");
    EXPECT_EQ(header(along_section), "Themes to Begin With");
    EXPECT_EQ(header(rescue_section), "(nil)");
    EXPECT_EQ(header(about_section), "(nil)");
    EXPECT_EQ(footer(switch_section), "Choose a theme to begin.");
    EXPECT_EQ(footer(own_section), "You have no theme of your own yet.");
    EXPECT_EQ(footer(along_section), "(nil)");
    EXPECT_EQ(footer(rescue_section), "Off keeps your choice. Reset forgets it.");
    EXPECT_EQ(footer(about_section), "(nil)");
    choose_row(0, along_section);
    EXPECT_EQ(footer(switch_section), "(nil)");
    EXPECT_EQ(footer(own_section), "(nil)");
}

TEST_F(Words, NameTheSwitch) {
    open();
    EXPECT_EQ(utf8(cell(0, switch_section)->textLabel()->text()), "Huecraft");
}

TEST_F(Words, SayWithoutAThemeThatNoneIsChosen) {
    open();
    EXPECT_EQ(utf8(table()->tableHeaderView()->accessibilityLabel()), "No theme is chosen");
}

TEST_F(Words, SayWhatARestartDoes) {
    open();
    choose_row(0, along_section);
    tap("Apply");
    EXPECT_TRUE(is_on_screen("Restart now?"));
    EXPECT_TRUE(is_on_screen("The home screen restarts, and applications with it."));
    tap("Restart");
    EXPECT_TRUE(is_on_screen("This phone cannot be restarted from here."));
    EXPECT_TRUE(is_on_screen("Turn it off and on again, or run \"killall SpringBoard\" in a terminal."));
}

TEST_F(Words, SayThatThemingIsOff) {
    open();
    choose_row(0, along_section);
    choose_row(0, rescue_section);
    EXPECT_TRUE(is_on_screen("Restart now?"));
    EXPECT_TRUE(is_on_screen("Theming is off. The home screen restarts, and applications with it."));
}

TEST_F(Words, SayWhatAResetForgets) {
    open();
    choose_row(0, along_section);
    choose_row(1, rescue_section);
    EXPECT_TRUE(is_on_screen("Reset Huecraft?"));
    EXPECT_TRUE(is_on_screen("No theme is chosen then. Your themes stay."));
    tap("Cancel");
    EXPECT_EQ(preferences(), "on Contrast.plist");
}

TEST_F(Words, SayHowAThemeThatCannotBeReadIsTurnedOffAgain) {
    phone.write(in_themes("Dim.plist"),
                property_list("<dict><key>_TextColor</key><string>#303030</string><key>_HighlightColor</key>"
                              "<string>#404040</string><key>_BackgroundType</key><integer>1</integer>"
                              "<key>_Colors</key><array><string>#202020</string></array></dict>"));
    open();
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("You can turn the theme off again on this page, without typing."));
}

TEST_F(Words, SayWhatToCopyWhereThereIsNoText) {
    open();
    tap("Add");
    tap("From the Pasteboard");
    EXPECT_TRUE(is_on_screen("Copy a theme's text first."));
}

TEST_F(Words, AskForAName) {
    open();
    tap("Add");
    tap("New Theme");
    EXPECT_TRUE(is_on_screen("New Theme"));
    auto* field = static_cast<UITextField*>(first("UITextField"));
    EXPECT_EQ(utf8(field->text()), "");
    EXPECT_EQ(utf8(field->placeholder()), "Name");
    EXPECT_EQ(utf8(field->accessibilityLabel()), "Name");
    EXPECT_EQ(field->autocapitalizationType(), UITextAutocapitalizationTypeSentences);
    EXPECT_TRUE(is_on_screen("Create"));
    tap("Cancel");
    EXPECT_FALSE(phone.exists(theme_folder));
}

TEST_F(Words, TellVoiceOverThatTheKeyboardIsAPicture) {
    open();
    choose_row(0, along_section);
    UIView* keyboard = table()->tableHeaderView();
    EXPECT_TRUE(keyboard->isAccessibilityElement());
    EXPECT_EQ(keyboard->accessibilityTraits(), UIAccessibilityTraitImage);
}

TEST_F(Words, SayThatTheSwitchCouldNotBeStored) {
    open();
    choose_row(0, along_section);
    {
        const FullDisk full;
        turn(false);
    }
    expect_told("This could not be stored.");
    EXPECT_EQ(preferences(), "on Contrast.plist");
    EXPECT_TRUE(on()->isOn()) << "it shows what is stored";
}

TEST_F(Words, SayThatTurningOffCouldNotBeStored) {
    open();
    choose_row(0, along_section);
    {
        const FullDisk full;
        choose_row(0, rescue_section);
    }
    expect_told("This could not be stored.");
    EXPECT_EQ(preferences(), "on Contrast.plist");
}

TEST_F(Words, SayThatAResetCouldNotBeStored) {
    open();
    choose_row(0, along_section);
    choose_row(1, rescue_section);
    {
        const FullDisk full;
        tap("Reset");
    }
    expect_told("This could not be stored.");
    EXPECT_EQ(preferences(), "on Contrast.plist");
    EXPECT_EQ(utf8(cell(0, own_section)->textLabel()->text()), "\u2713 Contrast");
}

TEST_F(Words, SayThatAThemeCouldNotBeDeleted) {
    put_theme(phone, "Mine.plist", "Mine");
    phone.write("/var/mobile/Library/Caches", "a file where the folder should be");
    open();
    remove(0);
    expect_told("The theme could not be deleted.");
    EXPECT_TRUE(phone.exists(in_themes("Mine.plist")));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
    EXPECT_FALSE(is_on_screen("The theme was deleted."));
}

TEST_F(Words, SayThatAThemeCouldNotBePutBack) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    remove(0);
    std::filesystem::remove_all(phone.host(theme_folder));
    phone.write("/var/mobile/Library/Preferences/HuecraftConfiguration", "a file where the folder should be");
    tap("Undo");
    expect_told("The theme could not be put back.");
    EXPECT_FALSE(is_on_screen("The theme was deleted.")) << "it is offered once";
}

}  // namespace
}  // namespace test
