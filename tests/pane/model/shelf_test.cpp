// Choosing, renaming and removing themes, and what the preference file says meanwhile.
#include "pane/model/shelf.h"

#include "kept_files.h"

namespace test {
namespace {

namespace shelf = pane::shelf;
namespace themes = pane::themes;

class Shelf : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static void expect_preferences(bool on, const std::string& chosen) {
        const auto preferences = pane::read_preferences();
        EXPECT_EQ(preferences.is_on, on);
        EXPECT_EQ(utf8(preferences.chosen.get()), chosen);
    }
    bool choose(const std::string& file) { return shelf::choose(themes::folder(), text(file), &error); }

    Phone phone;
    NSError* error = nullptr;
};

TEST_F(Shelf, WithoutAPreferenceFileNothingIsChosen) { expect_preferences(false, "(nil)"); }

TEST_F(Shelf, GarbageInThePreferenceFileChoosesNothing) {
    for (const char* bytes : {"", "garbage", "<plist><array/></plist>"}) {
        phone.write(preference_file, bytes);
        expect_preferences(false, "(nil)");
    }
}

TEST_F(Shelf, WrongTypesInThePreferenceFileChooseNothing) {
    phone.write(preference_file, property_list("<dict><key>_Enabled</key><array/><key>_Config</key>"
                                               "<integer>3</integer></dict>"));
    expect_preferences(false, "(nil)");
}

TEST_F(Shelf, ASwitchThatIsATextIsReadAsTheLibraryReadsIt) {
    phone.write(preference_file, property_list("<dict><key>_Enabled</key><string>YES</string></dict>"));
    expect_preferences(true, "(nil)");
}

TEST_F(Shelf, ChoosingIsStoredAtOnceAndTurnsThemingOn) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, ChoosingWhatComesAlongChoosesTheUsersCopy) {
    phone.write("/Library/PreferenceBundles/HuecraftSettings.bundle/Themes/Dusk.plist", theme());
    ASSERT_TRUE(shelf::choose(themes::folder_that_comes_along(), text("Dusk.plist"), &error));
    expect_preferences(true, "Dusk.plist");
    EXPECT_TRUE(Configuration::from_file("Dusk.plist"));
}

TEST_F(Shelf, OtherKeysInThePreferenceFileStay) {
    phone.write(preference_file, property_list("<dict><key>theirs</key><string>kept</string></dict>"));
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    EXPECT_EQ(utf8(pane::read_preferences().chosen.get()), "a.plist");
    EXPECT_NE(phone.read(preference_file).find("<string>kept</string>"), std::string::npos);
}

TEST_F(Shelf, GarbageInThePreferenceFileIsReplaced) {
    phone.write(preference_file, "garbage");
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, AFullDiskLeavesThePreferencesAsTheyWere) {
    arrange_theme(phone);
    const std::string before = phone.read(preference_file);
    put_theme(phone, "a.plist", "x");
    bool chosen;
    {
        const FullDisk full;
        chosen = choose("a.plist");
    }
    EXPECT_FALSE(chosen);
    EXPECT_NE(error, nullptr);
    EXPECT_EQ(phone.read(preference_file), before);
    EXPECT_EQ(names_in(phone, "/var/mobile/Library/Preferences"),
              (std::vector<std::string>{"HuecraftConfiguration", "com.quillmoth.huecraftios12.plist"}));
}

TEST_F(Shelf, TheSwitchKeepsTheTheme) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    ASSERT_TRUE(shelf::switch_on(false, &error));
    expect_preferences(false, "a.plist");
    ASSERT_TRUE(shelf::switch_on(true, &error));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, ResetChoosesNothingAndKeepsTheThemes) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    ASSERT_TRUE(shelf::reset(&error));
    expect_preferences(false, "(nil)");
    EXPECT_TRUE(phone.exists(in_themes("a.plist")));
}

TEST_F(Shelf, RenamingMovesTheFileAndTheChoice) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    EXPECT_EQ(utf8(shelf::rename(text("a.plist"), text("Mine"), &error)), "Mine.plist");
    EXPECT_FALSE(phone.exists(in_themes("a.plist")));
    expect_preferences(true, "Mine.plist");
    EXPECT_EQ(Configuration::from_file("Mine.plist").name(), "Mine");
}

TEST_F(Shelf, RenamingAnotherThemeLeavesTheChoice) {
    put_theme(phone, "a.plist", "x");
    put_theme(phone, "b.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    EXPECT_EQ(utf8(shelf::rename(text("b.plist"), text("Mine"), &error)), "Mine.plist");
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, AnotherCaseOfTheNameKeepsTheFile) {
    put_theme(phone, "mine.plist", "mine");
    EXPECT_EQ(utf8(shelf::rename(text("mine.plist"), text("Mine"), &error)), "mine.plist");
    EXPECT_EQ(Configuration::from_file("mine.plist").name(), "Mine");
}

TEST_F(Shelf, RenamingToATakenNameGetsANumber) {
    put_theme(phone, "a.plist", "A");
    put_theme(phone, "b.plist", "B");
    EXPECT_EQ(utf8(shelf::rename(text("a.plist"), text("b"), &error)), "b 2.plist");
    EXPECT_EQ(Configuration::from_file("b.plist").name(), "B");
}

TEST_F(Shelf, RenamingOnAFullDiskChangesNothing) {
    put_theme(phone, "a.plist", "Old");
    ASSERT_TRUE(choose("a.plist"));
    NSString* renamed;
    {
        const FullDisk full;
        renamed = shelf::rename(text("a.plist"), text("Mine"), &error);
    }
    EXPECT_EQ(renamed, nullptr);
    EXPECT_EQ(names_in(phone, theme_folder), std::vector<std::string>{"a.plist"});
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, RemovingTheChosenThemeTurnsThemingOff) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    ASSERT_TRUE(shelf::remove(text("a.plist"), &error));
    expect_preferences(false, "(nil)");
}

TEST_F(Shelf, PuttingTheChosenThemeBackChoosesItAgain) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    ASSERT_TRUE(shelf::remove(text("a.plist"), &error));
    ASSERT_TRUE(shelf::put_back(&error));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, PuttingAnotherThemeBackLeavesTheChoice) {
    put_theme(phone, "a.plist", "x");
    put_theme(phone, "b.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    ASSERT_TRUE(shelf::remove(text("b.plist"), &error));
    ASSERT_TRUE(shelf::put_back(&error));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, AThemeThatCannotBeRemovedStaysChosen) {
    put_theme(phone, "a.plist", "x");
    ASSERT_TRUE(choose("a.plist"));
    phone.write("/var/mobile/Library/Caches", "a file where the folder should be");
    EXPECT_FALSE(shelf::remove(text("a.plist"), &error));
    EXPECT_NE(error, nullptr);
    EXPECT_TRUE(phone.exists(in_themes("a.plist")));
    expect_preferences(true, "a.plist");
}

TEST_F(Shelf, AwaitsARestartWhileTheChoiceIsAnotherThanAtFirst) {
    put_theme(phone, "a.plist", "x");
    put_theme(phone, "b.plist", "x");
    EXPECT_FALSE(shelf::awaits_restart());
    ASSERT_TRUE(choose("a.plist"));
    EXPECT_TRUE(shelf::awaits_restart());
    ASSERT_TRUE(shelf::switch_on(false, &error));
    EXPECT_FALSE(shelf::awaits_restart()) << "off, as it was";
}

TEST(ShelfWithoutAccess, ChoosingSaysWhyNot) {
    Phone phone;
    put_theme(phone, "a.plist", "x");
    phone.start({.denied = {"/var/mobile/Library/Preferences"}});
    NSError* error = nullptr;
    EXPECT_FALSE(shelf::choose(themes::folder(), text("a.plist"), &error));
    ASSERT_NE(error, nullptr);
    EXPECT_NE(utf8(error->localizedDescription()), "");
    EXPECT_FALSE(phone.exists(preference_file));
}

}  // namespace
}  // namespace test
