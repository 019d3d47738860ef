// The pane's first screen, in the simulated Settings app: what a person sees, touches, and finds stored.
#include "platform/services.h"
#include "settings_page.h"

namespace test {
namespace {

using FirstScreen = SettingsPage;

TEST_F(FirstScreen, OpensByTheRowThatTheEntryMakes) {
    open();
    EXPECT_TRUE(is_on_screen("Huecraft"));
    EXPECT_TRUE(is_on_screen("Choose a theme to begin."));
    EXPECT_EQ(preferences(), "none") << "looking stores nothing";
}

TEST_F(FirstScreen, ListsTheTenThatComeAlong) {
    open();
    EXPECT_EQ(table()->numberOfRowsInSection(along_section), 10);
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 0);
    EXPECT_EQ(utf8(cell(0, along_section)->textLabel()->text()), "Contrast");
    EXPECT_NE(cell(0, along_section)->imageView()->image(), nullptr);
}

TEST_F(FirstScreen, OneTouchChoosesAndStores) {
    open();
    choose_row(0, along_section);
    EXPECT_EQ(preferences(), "on Contrast.plist");
    EXPECT_TRUE(phone.exists(in_themes("Contrast.plist")));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
    EXPECT_EQ(utf8(cell(0, own_section)->textLabel()->text()), "\u2713 Contrast");
    EXPECT_TRUE(is_on_screen("What is running keeps its keyboard."));
}

TEST_F(FirstScreen, ShowsTheChosenThemeLarge) {
    open();
    const size_t before = table()->tableHeaderView()->subviews()->count();
    choose_row(0, along_section);
    EXPECT_EQ(before, 0u);
    EXPECT_EQ(table()->tableHeaderView()->subviews()->count(), 1u);
    EXPECT_EQ(utf8(table()->tableHeaderView()->accessibilityLabel()), "The keyboard in the theme Contrast");
}

class PreviewOfAScreen : public SettingsPage, public testing::WithParamInterface<CGSize> {};
INSTANTIATE_TEST_SUITE_P(, PreviewOfAScreen,
                         testing::Values(CGSize{320, 568}, CGSize{375, 667}, CGSize{414, 896},
                                         CGSize{768, 1024}));

TEST_P(PreviewOfAScreen, FillsTheWidthBetweenTheMarginsInTheKeyboardsShape) {
    open({.screen_width = GetParam().width, .screen_height = GetParam().height, .screen_scale = 2});
    choose_row(0, along_section);
    UIView* header = table()->tableHeaderView();
    ASSERT_EQ(header->subviews()->count(), 1u);
    auto* keyboard = static_cast<UIView*>(header->subviews()->lastObject());
    const CGSize all = header->bounds().size, natural = keyboard->bounds().size;
    const double scale = std::min(1.0, (GetParam().width - 32) / natural.width);
    EXPECT_EQ(natural, (objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))));
    EXPECT_EQ(all.width, GetParam().width);
    EXPECT_NEAR(all.height, natural.height * scale + 32, 0.01);
    const CGAffineTransform made = keyboard->transform();
    EXPECT_NEAR(made.a, scale, 1e-9);
    EXPECT_NEAR(made.d, scale, 1e-9);
    EXPECT_EQ(made.b, 0);
    EXPECT_EQ(made.c, 0);
    const CGRect place = keyboard->frame();
    EXPECT_NEAR(place.origin.x + place.size.width / 2, all.width / 2, 0.01);
    EXPECT_NEAR(place.origin.y, 16, 0.01);
    EXPECT_EQ(keyboard->layer()->cornerRadius(), 8);
    EXPECT_TRUE(keyboard->clipsToBounds());
    EXPECT_FALSE(keyboard->isUserInteractionEnabled()) << "it is a picture";
}

TEST_F(FirstScreen, WithoutRoomBetweenTheMarginsThereIsNoPreview) {
    open();
    choose_row(0, along_section);
    UIView* whole = static_cast<UIViewController*>(page())->view();
    for (const auto& [width, previews] : {std::pair{32.0, 0u}, {20.0, 0u}, {320.0, 1u}}) {
        whole->setFrame({{0, 0}, {width, 568}});
        whole->layoutIfNeeded();
        EXPECT_EQ(table()->tableHeaderView()->bounds().size.width, width);
        EXPECT_EQ(table()->tableHeaderView()->subviews()->count(), previews) << width;
    }
}

TEST_F(FirstScreen, ThePreviewIsPaleWhileThemingIsOff) {
    open();
    choose_row(0, along_section);
    EXPECT_EQ(table()->tableHeaderView()->alpha(), 1);
    choose_row(0, rescue_section);
    EXPECT_NEAR(table()->tableHeaderView()->alpha(), 0.4, 1e-6);
}

TEST_F(FirstScreen, TheSwitchTurnsThemingOffAndOn) {
    open();
    choose_row(0, along_section);
    auto* control = static_cast<UISwitch*>(static_cast<id>(cell(0, switch_section)->accessoryView()));
    EXPECT_TRUE(control->isOn());
    control->setOn(false, false);
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(preferences(), "off Contrast.plist");
    control->setOn(true, false);
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(preferences(), "on Contrast.plist");
}

TEST_F(FirstScreen, ItsLastRowsAreTheWaysOutAndCompatibility) {
    open();
    choose_row(0, along_section);
    table()->scrollToRow(NSIndexPath::indexPathForRow(0, about_section), UITableViewScrollPositionBottom,
                         false);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK) << sim_last_error();
    for (const char* label : {"Turn Off", "Reset", "Compatibility"})
        EXPECT_TRUE(is_on_screen(label)) << label;
    for (NSInteger row : {0, 1}) {
        EXPECT_EQ(cell(row, rescue_section)->accessibilityTraits(), UIAccessibilityTraitButton);
        EXPECT_EQ(rgba(cell(row, rescue_section)->textLabel()->textColor()), (Rgba{0.85, 0.15, 0.1, 1}));
    }
    EXPECT_EQ(cell(0, about_section)->accessoryType(), UITableViewCellAccessoryDisclosureIndicator);
    tap("Turn Off");
    EXPECT_EQ(preferences(), "off Contrast.plist");
}

TEST_F(FirstScreen, WithoutAThemeTheSwitchIsDisabled) {
    open();
    auto* control = static_cast<UISwitch*>(static_cast<id>(cell(0, switch_section)->accessoryView()));
    EXPECT_FALSE(control->isEnabled());
    EXPECT_FALSE(control->isOn());
}

TEST_F(FirstScreen, ApplyAsksAndStartsSbreload) {
    phone.write("/usr/bin/sbreload", "x");
    phone.write("/usr/bin/killall", "x");
    open();
    choose_row(0, along_section);
    tap("Apply");
    EXPECT_TRUE(is_on_screen("Restart now?"));
    EXPECT_EQ(sim_program_count(), 0u);
    tap("Restart");
    ASSERT_EQ(sim_program_count(), 1u);
    sim_program program{};
    ASSERT_EQ(sim_program_at(0, &program), SIM_OK);
    EXPECT_STREQ(program.path, "/usr/bin/sbreload");
}

TEST_F(FirstScreen, WithoutSbreloadApplyEndsSpringBoard) {
    phone.write("/usr/bin/killall", "x");
    open();
    choose_row(0, along_section);
    tap("Apply");
    tap("Restart");
    ASSERT_EQ(sim_program_count(), 1u);
    sim_program program{};
    ASSERT_EQ(sim_program_at(0, &program), SIM_OK);
    EXPECT_STREQ(program.path, "/usr/bin/killall");
    EXPECT_STREQ(program.arguments[1], "-9");
    EXPECT_STREQ(program.arguments[2], "SpringBoard");
}

TEST_F(FirstScreen, WhereNothingCanRestartItSaysHowByHand) {
    open();
    choose_row(0, along_section);
    tap("Apply");
    tap("Restart");
    EXPECT_TRUE(is_on_screen("This phone cannot be restarted from here."));
}

/// The system's own way to restart: a service that takes actions. What it was sent is written down.
struct Relaunch {
    std::string reason, sent;
    NSUInteger options = 0;
    NSObject* service = nullptr;
};
Relaunch relaunch;

void make_relaunching_service() {
    Class action = objc_allocateClassPair(objc_getClass("NSObject"), "SBSRelaunchAction", 0);
    objc_registerClassPair(action);
    class_addMethod(object_getClass(reinterpret_cast<id>(action)),
                    sel_registerName("actionWithReason:options:targetURL:"),
                    reinterpret_cast<IMP>(+[](id self, SEL, NSString* reason, NSUInteger options, NSURL*) {
                        relaunch.reason = utf8(reason);
                        relaunch.options = options;
                        return self;
                    }),
                    "@@:@Q@");
    Class service = objc_allocateClassPair(objc_getClass("NSObject"), "FBSSystemService", 0);
    class_addMethod(service, sel_registerName("sendActions:withResult:"),
                    reinterpret_cast<IMP>(+[](id, SEL, NSSet* actions, id) {
                        relaunch.sent = class_getName(reinterpret_cast<Class>(actions->anyObject()));
                    }),
                    "v@:@@?");
    objc_registerClassPair(service);
    class_addMethod(object_getClass(reinterpret_cast<id>(service)), sel_registerName("sharedService"),
                    reinterpret_cast<IMP>(+[](id, SEL) { return relaunch.service; }), "@@:");
}

TEST_F(FirstScreen, WithoutProgramsApplyAsksTheSystem) {
    open();
    make_relaunching_service();
    relaunch.service = objc::send<"new", NSObject*>(reinterpret_cast<id>(objc_getClass("FBSSystemService")));
    choose_row(0, along_section);
    tap("Apply");
    tap("Restart");
    EXPECT_EQ(sim_program_count(), 0u);
    EXPECT_EQ(relaunch.sent, "SBSRelaunchAction");
    EXPECT_EQ(relaunch.reason, "RestartRenderServer");
    EXPECT_EQ(relaunch.options, 5u) << "the render server as well, and faded to black";
    EXPECT_FALSE(is_on_screen("This phone cannot be restarted from here."));
}

TEST_F(FirstScreen, WhereTheSystemOffersNoServiceItSaysHowByHand) {
    open();
    make_relaunching_service();
    choose_row(0, along_section);
    tap("Apply");
    tap("Restart");
    EXPECT_EQ(relaunch.sent, "");
    EXPECT_TRUE(is_on_screen("This phone cannot be restarted from here."));
}

TEST_F(FirstScreen, CancelRestartsNothing) {
    phone.write("/usr/bin/sbreload", "x");
    open();
    choose_row(0, along_section);
    tap("Apply");
    tap("Cancel");
    EXPECT_EQ(sim_program_count(), 0u);
}

TEST_F(FirstScreen, TurningOffTakesNoTyping) {
    open();
    choose_row(0, along_section);
    choose_row(0, rescue_section);
    EXPECT_EQ(preferences(), "off Contrast.plist");
}

TEST_F(FirstScreen, ResetAsksAndForgetsTheChoice) {
    open();
    choose_row(0, along_section);
    choose_row(1, rescue_section);
    EXPECT_EQ(preferences(), "on Contrast.plist");
    tap("Reset");
    EXPECT_EQ(preferences(), "off ");
    EXPECT_TRUE(phone.exists(in_themes("Contrast.plist")));
}

class UnreadableTheme : public SettingsPage {
  protected:
    UnreadableTheme() {
        phone.write(in_themes("Dim.plist"),
                    property_list("<dict><key>_ConfigName</key><string>Dim</string><key>_TextColor</key>"
                                  "<string>#303030</string><key>_HighlightColor</key><string>#404040</string>"
                                  "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array>"
                                  "<string>#202020</string></array></dict>"));
    }
};

TEST_F(UnreadableTheme, IsAskedAboutBeforeItIsStored) {
    open();
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("The labels can hardly be read."));
    EXPECT_EQ(preferences(), "none");
    tap("Use It");
    EXPECT_EQ(preferences(), "on Dim.plist");
}

TEST_F(UnreadableTheme, CancelledIsNotStored) {
    open();
    choose_row(0, own_section);
    tap("Cancel");
    EXPECT_EQ(preferences(), "none");
}

TEST_F(FirstScreen, ABrokenThemeIsListedWithTheReason) {
    phone.write(in_themes("Broken.plist"), "{ broken");
    put_theme(phone, "Sound.plist", "Sound");
    open();
    ASSERT_EQ(table()->numberOfRowsInSection(own_section), 2);
    EXPECT_EQ(utf8(cell(0, own_section)->textLabel()->text()), "Broken");
    EXPECT_EQ(utf8(cell(0, own_section)->detailTextLabel()->text()), "The file is not a property list.");
    EXPECT_EQ(utf8(cell(1, own_section)->textLabel()->text()), "Sound");
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    EXPECT_EQ(preferences(), "none");
}

TEST_F(FirstScreen, ADeletedThemeComesBackByUndo) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    page()->send<"tableView:commitEditingStyle:forRowAtIndexPath:">(
        table(), UITableViewCellEditingStyleDelete, NSIndexPath::indexPathForRow(0, own_section));
    EXPECT_FALSE(phone.exists(in_themes("Mine.plist")));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 0);
    EXPECT_TRUE(is_on_screen("The theme was deleted."));
    tap("Undo");
    EXPECT_TRUE(phone.exists(in_themes("Mine.plist")));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
}

TEST_F(FirstScreen, AThemeIsMadeDuplicatedSharedAndDeleted) {
    open();
    tap("Add");
    tap("New Theme");
    ASSERT_EQ(sim_type_text("Mine"), SIM_OK) << sim_last_error();
    tap("Create");
    tap("Cancel");  // the editor, which shows it
    tap("Edit");
    for (const char* action : {"Duplicate", "Share", "Delete"}) {
        choose_row(0, own_section);
        tap(action);
        if (action == std::string("Share")) tap("Share");
    }
    EXPECT_EQ(names_in(phone, theme_folder), std::vector<std::string>{"Mine.plist"});
    EXPECT_EQ(sim_shared_item_count(), 1u);
}

TEST_F(FirstScreen, OnlyTheUsersThemesCanBeDeleted) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    for (const auto& [section, can] :
         {std::pair{own_section, true}, {along_section, false}, {rescue_section, false}})
        EXPECT_EQ((page()->send<"tableView:canEditRowAtIndexPath:", bool>(
                      table(), NSIndexPath::indexPathForRow(0, section))),
                  can)
            << section;
}

TEST_F(FirstScreen, AThemeThatVanishedBehindThePageIsGoneOnReturn) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    std::filesystem::remove(phone.host(in_themes("Mine.plist")));
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    tap("OK");
    come_back();
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 0);
}

TEST_F(FirstScreen, WhatCameWhileSettingsWasInTheBackgroundIsListed) {
    open();
    put_theme(phone, "Mine.plist", "Mine");
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 0);
    NSNotificationCenter::defaultCenter()->post(UIApplicationDidBecomeActiveNotification, nullptr);
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
}

TEST_F(FirstScreen, AFullDiskSaysSoAndKeepsTheChoice) {
    put_theme(phone, "A.plist", "A");
    put_theme(phone, "B.plist", "B");
    open();
    choose_row(0, own_section);
    ASSERT_EQ(preferences(), "on A.plist");
    {
        const FullDisk full;
        choose_row(1, own_section);
    }
    EXPECT_TRUE(is_on_screen("This could not be stored."));
    EXPECT_EQ(preferences(), "on A.plist");
}

TEST_F(FirstScreen, WithoutAccessItSaysWhy) {
    open({.denied = {"/var/mobile/Library/Preferences"}});
    const std::string said = footer(own_section);
    EXPECT_TRUE(said.starts_with("Your themes cannot be read: ")) << said;
    EXPECT_EQ(table()->numberOfRowsInSection(along_section), 10);
}

TEST_F(FirstScreen, OfThousandThemesTheOnesInSightAreMade) {
    for (int i = 0; i < 1000; ++i) put_theme(phone, "T" + std::to_string(i) + ".plist", "T");
    open();
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1000);
    EXPECT_LT(table()->visibleCells()->count(), 20u);
}

TEST_F(FirstScreen, AMemoryWarningLosesNothing) {
    open();
    choose_row(0, along_section);
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK) << sim_last_error();
    EXPECT_EQ(utf8(cell(0, own_section)->textLabel()->text()), "\u2713 Contrast");
    EXPECT_NE(cell(0, own_section)->imageView()->image(), nullptr);
}

TEST_F(FirstScreen, SaysItInTheUsersLanguage) {
    open({.language = "de"});
    EXPECT_TRUE(is_on_screen("Wähle zuerst ein Thema aus."));
}

TEST_F(FirstScreen, TellsVoiceOverWhatIsChosen) {
    open();
    choose_row(0, along_section);
    UITableViewCell* chosen = cell(0, own_section);
    EXPECT_EQ(utf8(chosen->accessibilityLabel()), "Contrast");
    EXPECT_EQ(chosen->accessibilityTraits(), UIAccessibilityTraitButton | UIAccessibilityTraitSelected);
    EXPECT_EQ(cell(0, along_section)->accessibilityTraits(), UIAccessibilityTraitButton);
}

TEST_F(FirstScreen, LooksAsExpected) {
    open();
    choose_row(4, along_section);
    expect_picture("pane-first-screen");
}

TEST_F(FirstScreen, LooksAsExpectedOnTheSmallestPhone) {
    open({.screen_width = 320, .screen_height = 568, .screen_scale = 2});
    choose_row(4, along_section);
    expect_picture("pane-first-screen-320");
}

TEST_F(FirstScreen, LooksAsExpectedFromRightToLeft) {
    open({.right_to_left = true});
    choose_row(4, along_section);
    expect_picture("pane-first-screen-right-to-left");
}

}  // namespace
}  // namespace test
