// A theme in the editor's hands: what each change makes of it, and where it is kept.
#include "pane/model/editing.h"

#include <functional>

#include "kept_files.h"

namespace test {
namespace {

class EditingATheme : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }

    pane::Editing edit(const std::string& xml, const char* file = nullptr) {
        return {static_cast<HuecraftConfig*>(Configuration::from_xml(phone, xml).object),
                file ? text(file) : nullptr};
    }
    pane::Editing edit_file(const std::string& file, const std::string& name) {
        put_theme(phone, file, name);
        return {static_cast<HuecraftConfig*>(Configuration::from_file(file).object), text(file)};
    }
    static std::string of_kind(int kind) {
        return "<key>_BackgroundType</key><integer>" + std::to_string(kind) + "</integer>";
    }
    static std::string colours_of(const pane::Editing& editing) {
        std::string all;
        for (const auto& each : editing.colours()) all += utf8(HCCITool::hexStringFromColor(each)) + " ";
        return all;
    }
    static const pane::Place background(NSUInteger colour) { return {pane::Row::colour, colour}; }

    Phone phone;
    static inline const std::string three =
        "<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array><string>#110000</string>"
        "<string>#002200</string><string>#000033</string></array>";
};

TEST_F(EditingATheme, AKindGetsTheColoursThatItNeeds) {
    for (const auto& [kind, colours] :
         {std::pair{1, "#333333 "}, {2, "#333333 #7F7F7F "}, {3, ""}, {4, ""}}) {
        pane::Editing editing = edit(of_kind(4));
        editing.set_kind(static_cast<NSUInteger>(kind));
        EXPECT_EQ(editing.kind(), static_cast<NSUInteger>(kind));
        EXPECT_EQ(colours_of(editing), colours) << kind;
    }
    pane::Editing one = edit(of_kind(1) + "<key>_Colors</key><array><string>#110000</string></array>");
    one.set_kind(2);
    EXPECT_EQ(colours_of(one), "#110000 #7F7F7F ");
    one.set_kind(1);
    EXPECT_EQ(colours_of(one), "#110000 #7F7F7F ") << "what another kind had stays";
}

TEST_F(EditingATheme, AKindThatNobodyKnowsIsNone) {
    for (const int kind : {0, 4, 5, 1000}) EXPECT_EQ(edit(of_kind(kind)).kind(), 4u) << kind;
    for (const int kind : {1, 2, 3}) EXPECT_EQ(edit(of_kind(kind)).kind(), static_cast<NSUInteger>(kind));
}

TEST_F(EditingATheme, ADirectionThatNobodyKnowsIsDownwards) {
    for (const auto& [stored, direction] : {std::pair{0, 2u}, {1, 1u}, {8, 8u}, {9, 2u}})
        EXPECT_EQ(edit("<key>_GradientDirection</key><integer>" + std::to_string(stored) + "</integer>")
                      .direction(),
                  direction);
}

TEST_F(EditingATheme, ColoursAreReplacedAndAdded) {
    pane::Editing editing = edit(three);
    EXPECT_EQ(utf8(HCCITool::hexStringFromColor(editing.colour_of(background(2)))), "#000033");
    EXPECT_EQ(editing.colour_of(background(3)).get(), nullptr);
    editing.set_colour(background(1), color(1, 1, 1));
    EXPECT_EQ(colours_of(editing), "#110000 #FFFFFF #000033 ");
    editing.set_colour(background(3), color(0, 0, 0));
    EXPECT_EQ(colours_of(editing), "#110000 #FFFFFF #000033 #000000 ");
    editing.set_colour(background(0), nullptr);
    EXPECT_EQ(colours_of(editing), "#110000 #FFFFFF #000033 #000000 ") << "no colour changes nothing";
}

TEST_F(EditingATheme, ColoursAreRemovedButForTheLast) {
    pane::Editing editing = edit(three);
    editing.remove_colour(3);
    EXPECT_EQ(colours_of(editing), "#110000 #002200 #000033 ") << "there is none";
    editing.remove_colour(1);
    EXPECT_EQ(colours_of(editing), "#110000 #000033 ");
    editing.remove_colour(0);
    editing.remove_colour(0);
    EXPECT_EQ(colours_of(editing), "#000033 ");
}

TEST_F(EditingATheme, ColoursAreMovedBothWays) {
    pane::Editing editing = edit(three);
    editing.move_colour(0, 2);
    EXPECT_EQ(colours_of(editing), "#002200 #000033 #110000 ");
    editing.move_colour(2, 1);
    EXPECT_EQ(colours_of(editing), "#002200 #110000 #000033 ");
    editing.move_colour(3, 0);
    editing.move_colour(0, 3);
    EXPECT_EQ(colours_of(editing), "#002200 #110000 #000033 ") << "there is none";
}

TEST_F(EditingATheme, EveryChangeCanBeTakenBackByItself) {
    const std::pair<const char*, std::function<void(pane::Editing&)>> changes[] = {
        {"kind", [](pane::Editing& editing) { editing.set_kind(1); }},
        {"a colour", [](pane::Editing& editing) { editing.set_colour(background(1), color(1, 1, 1)); }},
        {"one more", [](pane::Editing& editing) { editing.set_colour(background(3), color(1, 1, 1)); }},
        {"text",
         [](pane::Editing& editing) { editing.set_colour({pane::Row::text_colour}, color(1, 0, 0)); }},
        {"one less", [](pane::Editing& editing) { editing.remove_colour(1); }},
        {"order", [](pane::Editing& editing) { editing.move_colour(0, 2); }},
        {"direction", [](pane::Editing& editing) { editing.set_direction(5); }},
        {"alpha", [](pane::Editing& editing) { editing.set_alpha(0.25); }},
        {"photo", [](pane::Editing& editing) { editing.set_image(filled_image(color(1, 0, 0), 2, 2)); }},
        {"caps", [](pane::Editing& editing) { editing.set_caps(true); }},
        {"name", [](pane::Editing& editing) { editing.set_name(text("Other")); }},
        {"pair", [](pane::Editing& editing) { editing.set_pair(color(1, 0, 0), color(0, 1, 0)); }},
    };
    pane::Editing editing = edit(three);
    for (const auto& [what, change] : changes) {
        change(editing);
        EXPECT_TRUE(editing.sitting.is_changed()) << what;
        editing.sitting.undo();
        EXPECT_FALSE(editing.sitting.is_changed()) << what;
    }
}

// A name without anything that a file can have gets a file that is called otherwise.
TEST_F(EditingATheme, SavedUnderAnotherNameItIsKeptThereFromThenOn) {
    pane::Editing editing = edit_file("Mine.plist", "Mine");
    for (const char* name : {"Other", "..."}) {
        editing.set_name(text(name));
        for (const double red : {1.0, 0.5}) {
            editing.set_colour({pane::Row::text_colour}, color(red, 0, 0));
            ASSERT_TRUE(editing.save(nullptr));
        }
        const std::string file = name == std::string("...") ? "Theme.plist" : "Other.plist";
        EXPECT_EQ(names_in(phone, theme_folder), std::vector<std::string>{file});
        EXPECT_EQ(rgba(Configuration::from_file(file).text_colour()).red, 127 / 255.0);
        EXPECT_FALSE(editing.sitting.is_changed());
    }
}

TEST_F(EditingATheme, SavedAsANewOneTheFileThatChangedStays) {
    pane::Editing editing = edit_file("Mine.plist", "Mine");
    EXPECT_FALSE(editing.is_changed_behind());
    put_theme(phone, "Mine.plist", "Another");
    EXPECT_TRUE(editing.is_changed_behind());
    ASSERT_TRUE(editing.save_as_new(nullptr));
    EXPECT_EQ(names_in(phone, theme_folder), (std::vector<std::string>{"Mine 2.plist", "Mine.plist"}));
    EXPECT_EQ(Configuration::from_file("Mine.plist").name(), "Another");
    EXPECT_FALSE(editing.is_changed_behind()) << "it is another file now";
    std::filesystem::remove(phone.host(in_themes("Mine 2.plist")));
    EXPECT_FALSE(editing.is_changed_behind()) << "one that is gone holds nothing else";
}

TEST_F(EditingATheme, WhatCannotBeSavedStaysChanged) {
    pane::Editing editing = edit_file("Mine.plist", "Mine");
    editing.set_caps(true);
    {
        const FullDisk full;
        NSError* error = nullptr;
        EXPECT_FALSE(editing.save(&error));
        EXPECT_NE(error, nullptr);
    }
    EXPECT_TRUE(editing.sitting.is_changed());
    EXPECT_TRUE(editing.theme()->getVisibleKeycaps());
    EXPECT_TRUE(editing.save(nullptr));
    EXPECT_TRUE(Configuration::from_file("Mine.plist").caps_visible());
}

}  // namespace
}  // namespace test
