// Leaving the editor: what is asked, what is written under which name, and what happens when it cannot be.
#include "editor/editor_page.h"

namespace test {
namespace {

using Leaving = EditorPage;

TEST_F(Leaving, WithoutChangesAsksNothing) {
    edit();
    tap("Cancel");
    EXPECT_FALSE(is_open());
}

TEST_F(Leaving, WithChangesAsks) {
    edit();
    pick(text_row, keys_section, "#111111");
    tap("Cancel");
    EXPECT_TRUE(is_on_screen("Keep your changes?"));
    tap("Discard");
    EXPECT_FALSE(is_open());
    EXPECT_EQ(value("_TextColor"), "#00FF00");
}

TEST_F(Leaving, CanSaveOnTheWay) {
    edit();
    pick(text_row, keys_section, "#111111");
    tap("Cancel");
    tap("Save");
    EXPECT_FALSE(is_open());
    EXPECT_EQ(value("_TextColor"), "#111111");
}

TEST_F(Leaving, AfterEverythingIsUndoneAsksNothing) {
    edit();
    pick(text_row, keys_section, "#111111");
    tap("Undo");
    tap("Cancel");
    EXPECT_FALSE(is_open());
}

TEST_F(Leaving, NothingOfTheEditorStays) {
    open();
    objc::weak<NSObject> editor;
    {
        objc::AutoreleasePool pool;
        edit_row(0, own_section);
        editor = page();
        pick(text_row, keys_section, "#111111");
        rename("Other");
        tap("Cancel");
        tap("Discard");
        EXPECT_FALSE(is_open());
    }
    EXPECT_EQ(editor.get(), nullptr);
}

TEST_F(Leaving, AThemeThatComesAlongBecomesACopy) {
    edit(0, along_section);
    pick(text_row, keys_section, "#ABCDEF");
    tap("Save");
    EXPECT_EQ(value("_TextColor", "Contrast.plist"), "#ABCDEF");
    EXPECT_EQ(
        phone.read("/Library/PreferenceBundles/HuecraftSettings.bundle/Themes/Contrast.plist").find("ABCDEF"),
        std::string::npos);
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 2);
}

TEST_F(Leaving, KeysThatAreNotTheEditorsStay) {
    phone.write(in_themes("Mine.plist"), theme("<key>Author</key><string>someone</string>"));
    edit();
    pick(text_row, keys_section, "#111111");
    tap("Save");
    EXPECT_EQ(value("Author"), "someone");
}

TEST_F(Leaving, AFullDiskKeepsFileAndChanges) {
    edit();
    pick(text_row, keys_section, "#111111");
    {
        const FullDisk full;
        tap("Save");
    }
    EXPECT_TRUE(is_on_screen("The theme could not be saved. What you changed is still here."));
    EXPECT_EQ(value("_TextColor"), "#00FF00");
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{"Mine.plist"}));
    tap("OK");
    EXPECT_EQ(utf8(cell(text_row, keys_section)->detailTextLabel()->text()), "#111111");
    tap("Save");
    EXPECT_EQ(value("_TextColor"), "#111111");
}

TEST_F(Leaving, WithoutAccessItSaysWhyAndStays) {
    edit(0, along_section, {.denied = {"/var/mobile/Library/Preferences"}});
    pick(text_row, keys_section, "#111111");
    tap("Save");
    EXPECT_TRUE(is_on_screen("The theme could not be saved. What you changed is still here."));
    EXPECT_TRUE(is_open());
}

TEST_F(Leaving, AThemeThatWasDeletedMeanwhileIsWrittenAgain) {
    edit();
    pick(text_row, keys_section, "#111111");
    std::filesystem::remove(phone.host(in_themes("Mine.plist")));
    tap("Save");
    EXPECT_EQ(value("_TextColor"), "#111111");
}

class ChangedBehind : public EditorPage {
  protected:
    void change_behind() {
        edit();
        pick(text_row, keys_section, "#111111");
        put_theme(phone, "Mine.plist", "Theirs");
        tap("Save");
        EXPECT_TRUE(is_on_screen("This theme was changed elsewhere meanwhile."));
    }
};

TEST_F(ChangedBehind, KeepsBothOnWish) {
    change_behind();
    tap("Keep Both");
    EXPECT_FALSE(is_open());
    EXPECT_EQ(value("_ConfigName"), "Theirs");
    EXPECT_EQ(value("_TextColor", "Mine 2.plist"), "#111111");
    EXPECT_EQ(value("_ConfigName", "Mine 2.plist"), "Mine 2");
}

TEST_F(ChangedBehind, IsReplacedOnWish) {
    change_behind();
    tap("Replace");
    EXPECT_EQ(value("_ConfigName"), "Mine");
    EXPECT_EQ(value("_TextColor"), "#111111");
}

TEST_F(ChangedBehind, CancelChangesNothing) {
    change_behind();
    tap("Cancel");
    EXPECT_TRUE(is_open());
    EXPECT_EQ(value("_ConfigName"), "Theirs");
}

// ---- Names ------------------------------------------------------------------------------------------

TEST_F(Leaving, ANewNameIsANewFile) {
    edit();
    rename("Evening");
    tap("Save");
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{"Evening.plist"}));
    EXPECT_EQ(value("_ConfigName", "Evening.plist"), "Evening");
}

TEST_F(Leaving, TheChoiceFollowsANewName) {
    open();
    choose_row(0, own_section);
    ASSERT_EQ(preferences(), "on Mine.plist");
    edit_row(0, own_section);
    rename("Evening");
    tap("Save");
    EXPECT_EQ(preferences(), "on Evening.plist");
}

TEST_F(Leaving, AnEditedChosenThemeIsToBeApplied) {
    arrange_theme(phone);
    open();
    ASSERT_FALSE(is_on_screen("What is running keeps its keyboard."));
    const NSInteger chosen = utf8(cell(0, own_section)->textLabel()->text()) == "Mine" ? 1 : 0;
    edit_row(chosen, own_section);
    pick(text_row, keys_section, "#111111");
    tap("Save");
    EXPECT_TRUE(is_on_screen("What is running keeps its keyboard."));
}

TEST_F(Leaving, ATakenNameGetsANumber) {
    put_theme(phone, "Sky.plist", "Sky");
    edit();
    rename("SKY");
    tap("Save");
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{"SKY 2.plist", "Sky.plist"}));
    EXPECT_EQ(value("_ConfigName", "SKY 2.plist"), "SKY 2");
    EXPECT_EQ(value("_ConfigName", "Sky.plist"), "Sky");
}

TEST_F(Leaving, AnotherCaseOfItsOwnNameKeepsTheFile) {
    edit();
    rename("MINE");
    tap("Save");
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{"Mine.plist"}));
    EXPECT_EQ(value("_ConfigName"), "MINE");
}

TEST_F(Leaving, AnEmptyNameIsRefused) {
    edit();
    for (const char* typed : {"", "   ", "\n"}) {
        rename(typed);
        EXPECT_TRUE(is_on_screen("A theme needs a name.")) << '"' << typed << '"';
        tap("OK");
        EXPECT_TRUE(is_on_screen("Mine"));
    }
}

struct OddName {
    const char* label;
    std::string name, file;
};
class OddNames : public EditorPage, public testing::WithParamInterface<OddName> {};
INSTANTIATE_TEST_SUITE_P(
    , OddNames,
    testing::Values(OddName{"Dots", "...", "Theme.plist"}, OddName{"Slashes", "a/b\\c", "abc.plist"},
                    OddName{"Long", std::string(300, 'x'), std::string(200, 'x') + ".plist"},
                    OddName{"Emoji", "🌲🌊", "🌲🌊.plist"}, OddName{"RightToLeft", "שלום", "שלום.plist"},
                    OddName{"Hidden", ".hidden", "hidden.plist"}),
    [](const auto& info) { return std::string(info.param.label); });

TEST_P(OddNames, AreKeptInAFileThatTheListShows) {
    edit();
    rename(GetParam().name);
    tap("Save");
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{GetParam().file}));
    EXPECT_EQ(value("_ConfigName", GetParam().file), GetParam().name);
    EXPECT_EQ(table()->numberOfRowsInSection(own_section), 1);
    EXPECT_EQ(utf8(cell(0, own_section)->textLabel()->text()), GetParam().name);
}

}  // namespace
}  // namespace test
