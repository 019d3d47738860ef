// Keeping themes on the first screen: new, duplicated, renamed, deleted, shared and imported.
#include <malloc.h>

#include <algorithm>

#include "objc/strong.h"
#include "settings_page.h"

namespace test {
namespace {

using Names = std::vector<std::string>;

class Keeping : public SettingsPage {
  protected:
    /// The sheet of one of the user's themes.
    void act_on(NSInteger row, const std::string& action, NSInteger section = own_section) {
        tap("Edit");
        choose_row(row, section);
        tap(action);
    }
    /// Into the text of the alert, in place of what is there.
    static void type(const std::string& name) {
        auto* field = static_cast<UITextField*>(first("UITextField"));
        ASSERT_EQ(sim_select_text(0, field->text()->length()), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_type_text(name.c_str()), SIM_OK) << sim_last_error();
    }
    void rename(NSInteger row, const std::string& name) {
        act_on(row, "Rename");
        type(name);
        tap("Rename");
        tap("Done");
    }
    void make(const std::string& name) {
        tap("Add");
        tap("New Theme");
        if (!name.empty()) ASSERT_EQ(sim_type_text(name.c_str()), SIM_OK) << sim_last_error();
        tap("Create");
    }
    /// The editor that is open on a new theme.
    static void leave_editor() { tap("Cancel"); }
    void paste(const std::string& copied) {
        UIPasteboard::generalPasteboard()->setString(text(copied));
        tap("Add");
        tap("From the Pasteboard");
    }
    /// The sheet of a theme whose file breaks while it is open.
    void act_on_what_breaks(const std::string& action) {
        put_theme(phone, "Mine.plist", "Mine");
        open();
        tap("Edit");
        choose_row(0, own_section);
        phone.write(in_themes("Mine.plist"), "{ broken");
        tap(action);
    }
    std::string title(NSInteger row) { return utf8(cell(row, own_section)->textLabel()->text()); }
    Names files() const { return phone.exists(theme_folder) ? names_in(phone, theme_folder) : Names{}; }
    static std::string name_in(const std::string& file) { return Configuration::from_file(file).name(); }
};

// ---- New ----------------------------------------------------------------------------------------

TEST_F(Keeping, ANewThemeIsNamedAndListed) {
    open();
    make("Mine");
    EXPECT_EQ(files(), Names{"Mine.plist"});
    leave_editor();
    EXPECT_EQ(title(0), "Mine");
    EXPECT_EQ(preferences(), "none") << "it is not chosen yet";
}

TEST_F(Keeping, ANewThemeOpensTheEditor) {
    open();
    make("Mine");
    auto* editor = static_cast<NSObject*>(page());
    EXPECT_STREQ(object_getClassName(editor), "HuecraftSettingsEditor");
    EXPECT_TRUE(is_on_screen("Mine"));
    EXPECT_TRUE(is_on_screen("Save"));
    editor->send<"colorPickerReturnedWithColor:andHexString:">(color(1, 0, 0), id());
    editor->send<"save">();
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
    EXPECT_EQ(files(), Names{"Mine.plist"}) << "the same file";
    EXPECT_EQ(title(0), "Mine");
}

TEST_F(Keeping, ANewThemeOfATakenNameGetsAFreeOne) {
    put_theme(phone, "mine.plist", "mine");
    open();
    make("Mine");
    EXPECT_EQ(files(), (Names{"Mine 2.plist", "mine.plist"}));
    EXPECT_EQ(name_in("Mine 2.plist"), "Mine 2") << "the list tells them apart, too";
}

TEST_F(Keeping, ANewThemeNeedsAName) {
    open();
    make("");
    EXPECT_TRUE(is_on_screen("A theme needs a name."));
    EXPECT_FALSE(phone.exists(theme_folder));
}

TEST_F(Keeping, ANewThemeOnAFullDiskSaysSo) {
    open();
    {
        const FullDisk full;
        make("Mine");
    }
    EXPECT_TRUE(is_on_screen("The theme could not be made."));
    EXPECT_EQ(files(), Names{});
}

TEST_F(Keeping, ANewThemeAmongThousandComesIntoSight) {
    for (int i = 0; i < 1000; ++i) put_theme(phone, "T" + std::to_string(i) + ".plist", "T");
    open();
    make("Zebra");
    leave_editor();
    EXPECT_TRUE(is_on_screen("Zebra"));
}

// ---- Names --------------------------------------------------------------------------------------

struct Name {
    const char *what, *given, *file;
};
void PrintTo(const Name& name, std::ostream* out) { *out << name.what; }

class Renaming : public Keeping, public testing::WithParamInterface<Name> {};
INSTANTIATE_TEST_SUITE_P(
    , Renaming,
    testing::Values(Name{"Dots", "...", "Theme.plist"}, Name{"Slashes", "a/b\\c", "abc.plist"},
                    Name{"WayUp", "../../x", "x.plist"}, Name{"Emoji", "夕焼け 🌅", "夕焼け 🌅.plist"},
                    Name{"RightToLeft", "שקיעה", "שקיעה.plist"}, Name{"Blanks", "  Mine  ", "Mine.plist"},
                    Name{"AnotherCase", "OLD", "Old.plist"}, Name{"Taken", "other", "other 2.plist"}),
    [](const auto& info) { return info.param.what; });

TEST_P(Renaming, KeepsTheThemeUnderAFileThatCanBe) {
    put_theme(phone, "Old.plist", "Old");
    put_theme(phone, "Other.plist", "Other");
    open();
    rename(0, GetParam().given);
    Names expected{"Other.plist", GetParam().file};
    std::ranges::sort(expected);
    EXPECT_EQ(files(), expected);
    EXPECT_EQ(rgba(Configuration::from_file(GetParam().file).text_colour()), theme_text);
}

TEST_F(Keeping, AVeryLongNameIsShownWhole) {
    put_theme(phone, "Old.plist", "Old");
    open();
    const std::string name(300, 'n');
    rename(0, name);
    EXPECT_EQ(files(), Names{std::string(200, 'n') + ".plist"});
    EXPECT_EQ(title(0), name);
}

TEST_F(Keeping, AnEmptyNameRenamesNothing) {
    put_theme(phone, "Old.plist", "Old");
    open();
    act_on(0, "Rename");
    type(" ");
    tap("Rename");
    EXPECT_TRUE(is_on_screen("A theme needs a name."));
    EXPECT_EQ(name_in("Old.plist"), "Old");
}

TEST_F(Keeping, RenamingTheChosenThemeKeepsItChosen) {
    put_theme(phone, "Old.plist", "Old");
    open();
    choose_row(0, own_section);
    rename(0, "New");
    EXPECT_EQ(preferences(), "on New.plist");
    EXPECT_EQ(cell(0, own_section)->accessibilityTraits(),
              UIAccessibilityTraitButton | UIAccessibilityTraitSelected);
}

// ---- Duplicates, and what goes ------------------------------------------------------------------

TEST_F(Keeping, ADuplicateStandsBesideItsOriginal) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    act_on(0, "Duplicate");
    EXPECT_EQ(files(), (Names{"Mine copy.plist", "Mine.plist"}));
    EXPECT_EQ(name_in("Mine copy.plist"), "Mine copy");
}

TEST_F(Keeping, AThemeThatComesAlongCanBeDuplicatedAndNotRenamed) {
    open();
    tap("Edit");
    choose_row(0, along_section);
    EXPECT_FALSE(is_on_screen("Rename"));
    EXPECT_FALSE(is_on_screen("Delete"));
    tap("Duplicate");
    EXPECT_EQ(files(), Names{"Contrast copy.plist"});
}

TEST_F(Keeping, AHeldRowOffersWhatCanBeDone) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    UITableView* list = table();
    const CGRect row = list->rectForRowAtIndexPath(NSIndexPath::indexPathForRow(0, own_section));
    const CGRect there = list->convertRectToView(row, nullptr);
    const double x = there.origin.x + 100, y = there.origin.y + 20;
    ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, x, y), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_advance_clock(1), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, x, y), SIM_OK);
    EXPECT_TRUE(is_on_screen("Duplicate"));
    EXPECT_EQ(preferences(), "none") << "holding is no choice";
}

TEST_F(Keeping, WhatIsDeletedInTheSheetComesBackByUndo) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    choose_row(0, own_section);
    act_on(0, "Delete");
    EXPECT_EQ(files(), Names{});
    EXPECT_EQ(preferences(), "off ");
    tap("Undo");
    EXPECT_EQ(files(), Names{"Mine.plist"});
    EXPECT_EQ(preferences(), "on Mine.plist");
}

TEST_F(Keeping, ABrokenFileCanOnlyBeDeleted) {
    phone.write(in_themes("Broken.plist"), "{ broken");
    open();
    tap("Edit");
    choose_row(0, own_section);
    EXPECT_TRUE(is_on_screen("The file is not a property list."));
    for (const char* action : {"Rename", "Duplicate", "Share", "Copy as Text"})
        EXPECT_FALSE(is_on_screen(action)) << action;
    tap("Delete");
    EXPECT_EQ(files(), Names{});
}

TEST_F(Keeping, AFolderNamedLikeAThemeIsListedAndCanBeDeleted) {
    phone.write(in_themes("Folder.plist/inside"), "x");
    open();
    EXPECT_EQ(utf8(cell(0, own_section)->detailTextLabel()->text()), "This is a folder.");
    act_on(0, "Delete");
    EXPECT_EQ(files(), Names{});
}

TEST_F(Keeping, AThemeOfFiveMegabytesIsKeptLikeAnyOther) {
    phone.write(in_themes("Large.plist"),
                theme("<key>_Image</key><data>" + std::string(5 << 20, 'A') + "</data>"));
    open();
    rename(0, "Big");
    EXPECT_EQ(files(), Names{"Big.plist"});
    EXPECT_GT(phone.read(in_themes("Big.plist")).size(), size_t{5} << 20);
}

// ---- Behind the open page -----------------------------------------------------------------------

TEST_F(Keeping, RenamingWhatIsGoneSaysSoAndTakesItOffTheList) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    act_on(0, "Rename");
    std::filesystem::remove(phone.host(in_themes("Mine.plist")));
    type("New");
    tap("Rename");
    EXPECT_TRUE(is_on_screen("The theme could not be renamed."));
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 0);
}

TEST_F(Keeping, SharingWhatBrokeMeanwhileSaysWhy) {
    act_on_what_breaks("Share");
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    EXPECT_EQ(utf8(cell(0, own_section)->detailTextLabel()->text()), "The file is not a property list.");
}

TEST_F(Keeping, CopyingWhatBrokeMeanwhileSaysWhy) {
    act_on_what_breaks("Copy as Text");
    EXPECT_TRUE(is_on_screen("This theme cannot be used."));
    EXPECT_FALSE(UIPasteboard::generalPasteboard()->string()) << "nothing was copied";
}

TEST_F(Keeping, DuplicatingOnAFullDiskSaysSo) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    {
        const FullDisk full;
        act_on(0, "Duplicate");
    }
    EXPECT_TRUE(is_on_screen("The theme could not be duplicated."));
    EXPECT_EQ(files(), Names{"Mine.plist"});
}

TEST_F(Keeping, AThemeThatChangedBehindThePageIsShownAnew) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    phone.write(in_themes("Mine.plist"), "{ this is another size and broken");
    come_back();
    EXPECT_EQ(utf8(cell(0, own_section)->detailTextLabel()->text()), "The file is not a property list.");
}

// ---- Sharing and importing ----------------------------------------------------------------------

TEST_F(Keeping, AThemeIsSharedAsItsFile) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    act_on(0, "Share");
    tap("Share");
    ASSERT_EQ(sim_shared_item_count(), 1u);
    sim_shared_item item{};
    ASSERT_EQ(sim_shared_item_at(0, &item), SIM_OK);
    EXPECT_STREQ(item.kind, "file");
    EXPECT_EQ(item.content, in_themes("Mine.plist"));
}

TEST_F(Keeping, OnAnIPadSheetsPointToWhatTheyAreAbout) {
    put_theme(phone, "Mine.plist", "Mine");
    open({.screen_width = 768, .screen_height = 1024, .screen_scale = 2});
    act_on(0, "Share");
    tap("Share");
    EXPECT_EQ(sim_shared_item_count(), 1u);
    tap("Add");
    EXPECT_TRUE(is_on_screen("New Theme"));
}

TEST_F(Keeping, WhatIsCopiedAsTextCanBeImported) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    act_on(0, "Copy as Text");
    const std::string copied = utf8(UIPasteboard::generalPasteboard()->string());
    EXPECT_TRUE(copied.starts_with("<?xml")) << copied.substr(0, 80);
    paste(copied);
    EXPECT_EQ(files(), (Names{"Mine 2.plist", "Mine.plist"}));
    EXPECT_EQ(rgba(Configuration::from_file("Mine 2.plist").text_colour()), theme_text);
}

TEST_F(Keeping, AnEmptyPasteboardSaysWhatToCopy) {
    open();
    tap("Add");
    tap("From the Pasteboard");
    EXPECT_TRUE(is_on_screen("The pasteboard holds no text."));
}

TEST_F(Keeping, TextThatHoldsNoThemeIsNotKept) {
    open();
    paste("{ this is <not");
    EXPECT_TRUE(is_on_screen("The theme could not be imported."));
    EXPECT_TRUE(is_on_screen("The text holds no theme."));
    EXPECT_FALSE(phone.exists(theme_folder));
}

TEST_F(Keeping, AThemeThatIsNotWholeIsImportedWhenAsked) {
    open();
    const std::string half = property_list("<dict><key>_TextColor</key><string>#FFFFFF</string></dict>");
    paste(half);
    EXPECT_TRUE(is_on_screen("_HighlightColor is missing."));
    tap("Cancel");
    EXPECT_FALSE(phone.exists(theme_folder));
    paste(half);
    tap("Import It");
    EXPECT_EQ(files(), Names{"Imported Theme.plist"});
    EXPECT_EQ(title(0), "Imported Theme");
}

TEST_F(Keeping, AValueOfTheWrongKindIsSaid) {
    open();
    paste(theme("<key>_ImageAlpha</key><string>half</string>"));
    EXPECT_TRUE(is_on_screen("_ImageAlpha has a value of another kind than expected."));
}

TEST_F(Keeping, ImportingOnAFullDiskSaysSo) {
    open();
    {
        const FullDisk full;
        paste(theme());
    }
    EXPECT_TRUE(is_on_screen("The theme could not be imported."));
    EXPECT_EQ(files(), Names{});
}

// ---- Small keyboards, kept ----------------------------------------------------------------------

class SmallKeyboards : public Keeping {
  protected:
    Names kept() const { return phone.exists(cache) ? names_in(phone, cache) : Names{}; }
    /// Leaves the page, and opens it anew: what was in memory is gone.
    void open_again() {
        tap("Settings");
        tap("Huecraft");
    }
    UIImage* picture() { return cell(0, own_section)->imageView()->image(); }
    static constexpr const char* cache =
        "/var/mobile/Library/Caches/com.quillmoth.huecraftios12.settings/Keyboards";
};

TEST_F(SmallKeyboards, AreKeptForEachFileInSight) {
    for (int i = 0; i < 50; ++i) put_theme(phone, "T" + std::to_string(i) + ".plist", "T");
    open();
    EXPECT_GT(kept().size(), 2u);
    EXPECT_LT(kept().size(), 20u);
}

TEST_F(SmallKeyboards, AreShownWithoutReadingTheFile) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    const std::string whole = phone.read(in_themes("Mine.plist"));
    const auto written = std::filesystem::last_write_time(phone.host(in_themes("Mine.plist")));
    phone.write(in_themes("Mine.plist"), std::string(whole.size(), 'x'));
    std::filesystem::last_write_time(phone.host(in_themes("Mine.plist")), written);
    open_again();
    EXPECT_EQ(title(0), "Mine") << "nobody can see that this file is another";
    EXPECT_NE(picture(), nullptr);
    EXPECT_EQ(picture()->size().width, 104);
}

TEST_F(SmallKeyboards, AreDrawnAnewForAnotherContent) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    const size_t before = kept().size();
    put_theme(phone, "Mine.plist", "Another");
    open_again();
    EXPECT_EQ(title(0), "Another");
    EXPECT_EQ(kept().size(), before + 1);
}

TEST_F(SmallKeyboards, DamagedOnesAreDrawnAnew) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    const Names files = kept();
    for (const char* damage :
         {"", "garbage", "<plist><dict><key>name</key><string>x</string></dict></plist>"}) {
        for (const std::string& file : files) phone.write(std::string(cache) + "/" + file, damage);
        open_again();
        EXPECT_EQ(title(0), "Mine");
        EXPECT_NE(picture(), nullptr);
        EXPECT_GT(phone.read(std::string(cache) + "/" + files[0]).size(), 100u);
    }
}

TEST_F(SmallKeyboards, AreBounded) {
    phone.make_folder(cache);
    for (int i = 0; i < 300; ++i) phone.write(std::string(cache) + "/" + std::to_string(i), "old");
    open();
    EXPECT_LT(kept().size(), 20u);
}

TEST_F(SmallKeyboards, AreDrawnWhereNoneCanBeKept) {
    put_theme(phone, "Mine.plist", "Mine");
    {
        const FullDisk full;
        open();
    }
    EXPECT_NE(picture(), nullptr);
    EXPECT_EQ(kept(), Names{});
}

TEST_F(SmallKeyboards, AreDrawnWithoutAccessToTheirFolder) {
    put_theme(phone, "Mine.plist", "Mine");
    open({.denied = {"/var/mobile/Library/Caches"}});
    EXPECT_NE(picture(), nullptr);
}

TEST_F(SmallKeyboards, OfFaultyFilesNoneIsKept) {
    phone.write(in_themes("Broken.plist"), "{ broken");
    open();
    const size_t before = kept().size();
    put_theme(phone, "Sound.plist", "Sound");
    open_again();
    EXPECT_EQ(kept().size(), before + 1);
}

// ---- Again and again ----------------------------------------------------------------------------

// A thousand times; on an emulated processor fewer.
TEST_F(Keeping, OpeningAndClosingAgainAndAgainKeepsMemoryFlat) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    const auto open_and_close = [&](int times) {
        for (int i = 0; i < times; ++i) {
            const objc::AutoreleasePool pool;
            ASSERT_EQ(sim_tap_label("Settings"), SIM_OK) << sim_last_error();
            ASSERT_EQ(sim_tap_label("Huecraft"), SIM_OK) << sim_last_error();
        }
    };
    open_and_close(OPENINGS < 50 ? 5 : 50);
    const size_t before = mallinfo2().uordblks;
    open_and_close(OPENINGS);
    const size_t after = mallinfo2().uordblks;
    constexpr size_t tables = 5000, each = 16;  // what is filled once; no allocation is so small
    EXPECT_LT(after, before + tables + each * OPENINGS) << "kept in " << OPENINGS << " openings";
}

// ---- Pictures -----------------------------------------------------------------------------------

TEST_F(Keeping, TheSheetLooksAsExpected) {
    put_theme(phone, "Mine.plist", "Mine");
    open();
    tap("Edit");
    choose_row(0, own_section);
    expect_picture("pane-actions");
}

TEST_F(Keeping, ANewThemesNameLooksAsExpected) {
    open();
    tap("Add");
    tap("New Theme");
    expect_picture("pane-new-theme");
}

TEST_F(Keeping, EditingLooksAsExpectedOnAnIPad) {
    put_theme(phone, "Mine.plist", "Mine");
    phone.write(in_themes("Broken.plist"), "{ broken");
    open({.screen_width = 768, .screen_height = 1024, .screen_scale = 2});
    tap("Edit");
    choose_row(1, own_section);
    expect_picture("pane-actions-ipad");
}

}  // namespace
}  // namespace test
