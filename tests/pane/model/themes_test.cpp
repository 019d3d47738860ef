// Themes as files: listed, read, kept, renamed and removed.
#include "pane/model/themes.h"

#include "kept_files.h"

namespace test {
namespace {

namespace themes = pane::themes;
using Names = std::vector<std::string>;

class Themes : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static std::string fault(const std::string& file) {
        return utf8(themes::read(themes::folder(), text(file)).fault.get());
    }
    static std::string remark(const std::string& file) {
        return utf8(themes::read(themes::folder(), text(file)).remark.get());
    }
    static objc::strong<HuecraftConfig> theme_named(const std::string& name) {
        objc::strong<HuecraftConfig> made = HuecraftConfig::defaultConfig();
        made->setConfigName(text(name));
        return made;
    }
    static std::string name_in(const std::string& file) { return Configuration::from_file(file).name(); }

    Phone phone;
    NSError* error = nullptr;
};

TEST_F(Themes, AMissingFolderIsAnEmptyList) {
    NSArray* files = themes::files_in(themes::folder(), &error);
    ASSERT_NE(files, nullptr);
    EXPECT_EQ(files->count(), 0u);
    EXPECT_EQ(error, nullptr);
}

TEST_F(Themes, AreListedInTheUsersOrder) {
    for (const char* file : {"b.plist", "A.plist", "c.plist"}) put_theme(phone, file, "x");
    EXPECT_EQ(texts_in(themes::files_in(themes::folder(), &error)), (Names{"A.plist", "b.plist", "c.plist"}));
}

TEST_F(Themes, OtherFilesAreNotListed) {
    put_theme(phone, "a.plist", "x");
    phone.write(in_themes("notes.txt"), "x");
    phone.write(in_themes(".a.plist"), "x");
    EXPECT_EQ(texts_in(themes::files_in(themes::folder(), &error)), Names{"a.plist"});
}

TEST_F(Themes, ThousandAreListedWithoutBeingOpened) {
    for (int i = 0; i < 1000; ++i) phone.write(in_themes("t" + std::to_string(i) + ".plist"), "broken");
    EXPECT_EQ(themes::files_in(themes::folder(), &error)->count(), 1000u);
}

TEST_F(Themes, AThemeIsReadWhole) {
    put_theme(phone, "a.plist", "Mine");
    const auto reading = themes::read(themes::folder(), text("a.plist"));
    ASSERT_TRUE(reading.theme);
    EXPECT_EQ(utf8(reading.theme->getConfigName()), "Mine");
    EXPECT_EQ(rgba(reading.theme->getTextColor()), theme_text);
    EXPECT_FALSE(reading.fault);
    EXPECT_FALSE(reading.remark);
}

TEST_F(Themes, AFileThatIsNoPropertyListSaysSo) {
    phone.write(in_themes("a.plist"), "{ this is <not");
    EXPECT_EQ(fault("a.plist"), "The file is not a property list.");
}

TEST_F(Themes, AnEmptyFileSaysSo) {
    phone.write(in_themes("a.plist"), "");
    EXPECT_EQ(fault("a.plist"), "The file is not a property list.");
}

TEST_F(Themes, APropertyListOfAnotherKindSaysSo) {
    phone.write(in_themes("a.plist"), property_list("<array/>"));
    EXPECT_EQ(fault("a.plist"), "The file holds no theme.");
}

TEST_F(Themes, AFolderNamedLikeAThemeSaysSo) {
    phone.make_folder(in_themes("a.plist"));
    EXPECT_EQ(fault("a.plist"), "This is a folder.");
}

TEST_F(Themes, AFileThatIsGoneSaysWhy) { EXPECT_NE(fault("gone.plist"), "(nil)"); }

TEST_F(Themes, AMissingKeyIsNamed) {
    phone.write(in_themes("a.plist"),
                property_list("<dict><key>_TextColor</key><string>#FFFFFF</string></dict>"));
    EXPECT_EQ(fault("a.plist"), "(nil)");
    EXPECT_EQ(remark("a.plist"), "_HighlightColor is missing.");
}

TEST_F(Themes, AMistypedKeyIsNamed) {
    phone.write(in_themes("a.plist"), theme("<key>_ImageAlpha</key><string>half</string>"));
    EXPECT_EQ(remark("a.plist"), "_ImageAlpha has a value of another kind than expected.");
}

TEST_F(Themes, AThemeOfFiveMegabytesIsRead) {
    phone.write(in_themes("a.plist"),
                theme("<key>_Image</key><data>" + std::string(5 << 20, 'A') + "</data>"));
    EXPECT_TRUE(themes::read(themes::folder(), text("a.plist")).theme);
}

TEST_F(Themes, ANewThemeMakesTheFolder) {
    EXPECT_EQ(utf8(themes::keep_as_new(theme_named("Mine"), &error)), "Mine.plist");
    EXPECT_EQ(name_in("Mine.plist"), "Mine");
}

TEST_F(Themes, ATakenNameGetsANumber) {
    for (const char* expected : {"Mine.plist", "Mine 2.plist", "Mine 3.plist"})
        EXPECT_EQ(utf8(themes::keep_as_new(theme_named("Mine"), &error)), expected);
    EXPECT_EQ(utf8(themes::keep_as_new(theme_named("MINE"), &error)), "MINE 4.plist")
        << "case alone does not tell files apart";
    EXPECT_EQ(name_in("Mine 3.plist"), "Mine 3") << "the list tells them apart, too";
}

TEST_F(Themes, ANameWithoutAnythingUsableGetsOne) {
    EXPECT_EQ(utf8(themes::keep_as_new(theme_named(""), &error)), "Theme.plist");
    EXPECT_EQ(utf8(themes::keep_as_new(theme_named("../.."), &error)), "Theme 2.plist");
    EXPECT_EQ(name_in("Theme 2.plist"), "../..");
}

TEST_F(Themes, AVeryLongNameIsKeptWholeInTheFile) {
    const std::string name(300, 'n');
    const std::string file = utf8(themes::keep_as_new(theme_named(name), &error));
    EXPECT_EQ(file, std::string(200, 'n') + ".plist");
    EXPECT_EQ(name_in(file), name);
}

TEST_F(Themes, SavingReplacesTheFile) {
    put_theme(phone, "a.plist", "Old");
    EXPECT_EQ(utf8(themes::save(theme_named("New"), text("a.plist"), &error)), "a.plist");
    EXPECT_EQ(name_in("a.plist"), "New");
    EXPECT_EQ(names_in(phone, theme_folder), Names{"a.plist"});
}

TEST_F(Themes, AFullDiskLeavesTheOldFileAndNoOther) {
    put_theme(phone, "a.plist", "Old");
    const std::string before = phone.read(in_themes("a.plist"));
    NSString* saved;
    {
        const FullDisk full;
        saved = themes::save(theme_named("New"), text("a.plist"), &error);
    }
    EXPECT_EQ(saved, nullptr);
    ASSERT_NE(error, nullptr);
    EXPECT_NE(utf8(error->localizedDescription()), "");
    EXPECT_EQ(phone.read(in_themes("a.plist")), before);
    EXPECT_EQ(names_in(phone, theme_folder), Names{"a.plist"});
}

TEST_F(Themes, AFullDiskKeepsNoNewTheme) {
    NSString* kept;
    {
        const FullDisk full;
        kept = themes::keep_as_new(theme_named("New"), &error);
    }
    EXPECT_EQ(kept, nullptr);
    EXPECT_EQ(names_in(phone, theme_folder), Names{});
}

TEST_F(Themes, AFileInTheFoldersPlaceIsAnError) {
    phone.write("/var/mobile/Library/Preferences/HuecraftConfiguration", "a file");
    EXPECT_EQ(themes::keep_as_new(theme_named("New"), &error), nullptr);
    EXPECT_NE(error, nullptr);
}

TEST_F(Themes, WhatComesAlongIsCopiedOnce) {
    const std::string along = "/Library/PreferenceBundles/HuecraftSettings.bundle/Themes/Dusk.plist";
    phone.write(along, theme());
    EXPECT_EQ(utf8(themes::copy_to_user(text("Dusk.plist"), &error)), "Dusk.plist");
    EXPECT_EQ(utf8(themes::copy_to_user(text("Dusk.plist"), &error)), "Dusk.plist");
    EXPECT_EQ(names_in(phone, theme_folder), Names{"Dusk.plist"});
}

TEST_F(Themes, AUsersThemeOfTheSameNameIsNotReplaced) {
    put_theme(phone, "Dusk.plist", "My own dusk");
    phone.write("/Library/PreferenceBundles/HuecraftSettings.bundle/Themes/Dusk.plist", theme());
    EXPECT_EQ(utf8(themes::copy_to_user(text("Dusk.plist"), &error)), "Dusk 2.plist");
    EXPECT_EQ(name_in("Dusk.plist"), "My own dusk");
    EXPECT_EQ(utf8(themes::copy_to_user(text("Dusk.plist"), &error)), "Dusk 2.plist") << "once only";
}

TEST_F(Themes, ADuplicateSaysThatItIsOne) {
    put_theme(phone, "a.plist", "Mine");
    EXPECT_EQ(utf8(themes::duplicate(themes::folder(), text("a.plist"), &error)), "Mine copy.plist");
    EXPECT_EQ(utf8(themes::duplicate(themes::folder(), text("a.plist"), &error)), "Mine copy 2.plist");
    EXPECT_EQ(name_in("Mine copy 2.plist"), "Mine copy 2");
}

TEST_F(Themes, ABrokenThemeHasNoDuplicate) {
    phone.write(in_themes("a.plist"), "{ broken");
    EXPECT_EQ(themes::duplicate(themes::folder(), text("a.plist"), &error), nullptr);
    EXPECT_EQ(utf8(error->localizedDescription()), "The file is not a property list.");
}

TEST_F(Themes, ARemovedThemeCanBePutBack) {
    put_theme(phone, "a.plist", "Mine");
    const std::string before = phone.read(in_themes("a.plist"));
    ASSERT_TRUE(themes::remove(text("a.plist"), &error));
    EXPECT_FALSE(phone.exists(in_themes("a.plist")));
    EXPECT_EQ(utf8(themes::removed_file()), "a.plist");
    EXPECT_EQ(utf8(themes::put_back(&error)), "a.plist");
    EXPECT_EQ(phone.read(in_themes("a.plist")), before);
    EXPECT_EQ(themes::removed_file(), nullptr);
}

TEST_F(Themes, BrokenThemesAndFoldersCanBeRemoved) {
    phone.write(in_themes("a.plist"), "broken");
    phone.write(in_themes("b.plist/inside"), "x");
    EXPECT_TRUE(themes::remove(text("a.plist"), &error));
    EXPECT_TRUE(themes::remove(text("b.plist"), &error));
    EXPECT_EQ(names_in(phone, theme_folder), Names{});
    EXPECT_EQ(utf8(themes::put_back(&error)), "b.plist") << "the last one";
    EXPECT_TRUE(phone.exists(in_themes("b.plist/inside")));
}

TEST_F(Themes, PutBackGivesWayToANewThemeOfItsName) {
    put_theme(phone, "a.plist", "Old");
    ASSERT_TRUE(themes::remove(text("a.plist"), &error));
    put_theme(phone, "a.plist", "New");
    EXPECT_EQ(utf8(themes::put_back(&error)), "a 2.plist");
    EXPECT_EQ(name_in("a.plist"), "New");
    EXPECT_EQ(name_in("a 2.plist"), "Old");
}

TEST_F(Themes, RemovingWhatIsGoneIsAnError) {
    EXPECT_FALSE(themes::remove(text("gone.plist"), &error));
    EXPECT_NE(error, nullptr);
}

TEST_F(Themes, WithNothingRemovedNothingIsPutBack) {
    EXPECT_EQ(themes::put_back(&error), nullptr);
    EXPECT_EQ(utf8(error->localizedDescription()), "There is nothing to put back.");
}

TEST(ThemesWithoutAccess, TheListSaysWhy) {
    Phone phone;
    put_theme(phone, "a.plist", "x");
    phone.start({.denied = {"/var/mobile/Library/Preferences"}});
    NSError* error = nullptr;
    EXPECT_EQ(themes::files_in(themes::folder(), &error), nullptr);
    ASSERT_NE(error, nullptr);
    EXPECT_NE(utf8(error->localizedDescription()), "");
}

}  // namespace
}  // namespace test
