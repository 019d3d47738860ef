// The editor: what a person changes, sees at once, takes back, and finds in the file.
#include "editor/editor_page.h"

namespace test {
namespace {

using Editor = EditorPage;

TEST_F(Editor, OpensByTheDetailButtonOfARow) {
    open();
    tap("More Info");
    EXPECT_TRUE(is_open());
    EXPECT_TRUE(is_on_screen("Save"));
    EXPECT_EQ(table()->numberOfSections(), 4);
}

TEST_F(Editor, AThemeThatCannotBeReadHasNoDetailButton) {
    phone.write(in_themes("Broken.plist"), "{ broken");
    open();
    EXPECT_EQ(cell(0, own_section)->accessoryType(), UITableViewCellAccessoryNone);
    EXPECT_EQ(cell(1, own_section)->accessoryType(), UITableViewCellAccessoryDetailButton);
}

TEST_F(Editor, ColoursArePickedAndSaved) {
    edit();
    pick(text_row, keys_section, "#FFEEDD");
    pick(highlight_row, keys_section, "#00C0FF");
    EXPECT_EQ(utf8(cell(text_row, keys_section)->detailTextLabel()->text()), "#FFEEDD");
    EXPECT_NE(cell(text_row, keys_section)->imageView()->image(), nullptr);
    EXPECT_EQ(value("_TextColor"), "#00FF00") << "nothing is stored before it is saved";
    tap("Save");
    EXPECT_FALSE(is_open());
    EXPECT_EQ(value("_TextColor"), "#FFEEDD");
    EXPECT_EQ(value("_HighlightColor"), "#00C0FF");
}

TEST_F(Editor, ThePickerOpensOnTheRowsColour) {
    edit();
    choose_row(text_row, keys_section);
    void* picker = nullptr;
    ASSERT_EQ(sim_presented(&picker), SIM_OK);
    EXPECT_EQ(utf8(objc::send<"hexTextField", UITextField*>(static_cast<id>(picker))->text()), "#00FF00");
}

class PickerWithoutAColour : public EditorPage,
                             public testing::WithParamInterface<std::pair<const char*, const char*>> {};
INSTANTIATE_TEST_SUITE_P(, PickerWithoutAColour,
                         testing::Values(std::pair{"", "#000000"},
                                         std::pair{"<string>#123456</string><string>#ABCDEF</string>",
                                                   "#ABCDEF"}));

TEST_P(PickerWithoutAColour, OpensOnTheLastOfTheBackgroundOrOnBlack) {
    phone.write(in_themes("Mine.plist"),
                property_list("<dict><key>_ConfigName</key><string>Mine</string><key>_BackgroundType</key>"
                              "<integer>2</integer><key>_Colors</key><array>" +
                              std::string(GetParam().first) + "</array></dict>"));
    edit();
    choose_row(text_row, keys_section);
    void* picker = nullptr;
    ASSERT_EQ(sim_presented(&picker), SIM_OK);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(utf8(objc::send<"hexTextField", UITextField*>(static_cast<id>(picker))->text()),
              GetParam().second);
}

TEST_F(Editor, ThePreviewFollowsEveryChange) {
    edit();
    UIView* header = static_cast<UIView*>(table()->superview()->subviews()->objectAtIndex(0));
    const auto drawn = [&] {
        const auto file = phone.host("/preview.png");
        EXPECT_EQ(sim_take_picture_of(header, file.c_str(), 1), SIM_OK) << sim_last_error();
        return phone.read("/preview.png");
    };
    std::vector<std::string> seen{drawn()};
    const auto expect_another = [&](const char* after) {
        seen.push_back(drawn());
        EXPECT_NE(seen[seen.size() - 2], seen.back()) << after;
    };
    pick(text_row, keys_section, "#FFFFFF");
    expect_another("a colour");
    choose_kind(flat_kind);
    expect_another("a kind");
    pick(first_colour_row, background_section, "#0000FF");
    expect_another("the background's colour");
    tap("Undo");
    expect_another("undoing");
    EXPECT_EQ(seen[2], seen[4]);
}

TEST_F(Editor, TheBackgroundIsOneOfFourKinds) {
    edit();
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 5) << "two colours, adding, the arrows";
    for (const auto& [kind, rows, stored] :
         {std::tuple{no_kind, 1, "4"}, {flat_kind, 2, "1"}, {image_kind, 2, "3"}, {gradient_kind, 5, "2"}}) {
        choose_kind(kind);
        EXPECT_EQ(table()->numberOfRowsInSection(background_section), rows);
        EXPECT_EQ(utf8(page()
                           ->send<"navigationItem", NSObject*>()
                           ->send<"rightBarButtonItem", NSObject*>()
                           ->send<"title", NSString*>()),
                  "Save");
        page()->send<"save">();
        EXPECT_EQ(value("_BackgroundType"), stored);
        edit_row(0, own_section);
    }
    EXPECT_EQ(colours().size(), 2u) << "other kinds kept the colours";
}

TEST_F(Editor, AKindWithoutColoursGetsThem) {
    phone.write(in_themes("Mine.plist"),
                property_list("<dict><key>_ConfigName</key><string>Mine</string><key>_TextColor</key>"
                              "<string>#FFFFFF</string><key>_HighlightColor</key><string>#888888</string>"
                              "<key>_BackgroundType</key><integer>4</integer></dict>"));
    edit();
    choose_kind(gradient_kind);
    tap("Save");
    EXPECT_EQ(colours().size(), 2u);
}

TEST_F(Editor, AGradientsColoursAreAddedAndRemoved) {
    edit();
    pick(first_colour_row + 2, background_section, "#123456");
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 6);
    page()
        ->send<
            "tableView:commitEditing"
            "Style:forRowAtIndexPath:">(table(), UITableViewCellEditingStyleDelete,
                                        NSIndexPath::indexPathForRow(first_colour_row, background_section));
    tap("Save");
    EXPECT_EQ(colours(), (std::vector<std::string>{"#400000", "#123456"}));
}

TEST_F(Editor, TheLastColourCannotBeRemoved) {
    edit();
    const auto can_edit = [&](NSInteger row, NSInteger section) {
        return page()->send<"tableView:canEditRowAtIndexPath:", bool>(
            table(), NSIndexPath::indexPathForRow(row, section));
    };
    EXPECT_TRUE(can_edit(first_colour_row, background_section));
    EXPECT_FALSE(can_edit(0, background_section)) << "the kinds";
    EXPECT_FALSE(can_edit(text_row, keys_section));
    page()->send<"tableView:commitEditingStyle:forRowAtIndexPath:">(
        table(), UITableViewCellEditingStyleDelete,
        NSIndexPath::indexPathForRow(first_colour_row, background_section));
    EXPECT_FALSE(can_edit(first_colour_row, background_section));
}

TEST_F(Editor, AColourIsDraggedToAnotherPlace) {
    edit();
    table()->scrollToRow(NSIndexPath::indexPathForRow(3, background_section), UITableViewScrollPositionBottom,
                         false);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK);
    UITableViewCell* upper =
        table()->cellForRowAtIndexPath(NSIndexPath::indexPathForRow(first_colour_row, background_section));
    ASSERT_NE(upper, nullptr);
    const CGRect place = upper->convertRectToView(upper->bounds(), nullptr);
    const double x = place.origin.x + place.size.width - 20, y = place.origin.y + place.size.height / 2;
    ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, x, y), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x, y + 20), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x, y + place.size.height), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, x, y + place.size.height), SIM_OK);
    tap("Save");
    EXPECT_EQ(colours(), (std::vector<std::string>{"#400000", "#000000"}));
}

TEST_F(Editor, AColourStaysAmongTheColours) {
    edit();
    const auto target = [&](NSInteger row, NSInteger section) {
        return page()
            ->send<"tableView:targetIndexPathForMoveFromRowAtIndexPath:toProposedIndexPath:", NSIndexPath*>(
                table(), NSIndexPath::indexPathForRow(first_colour_row, background_section),
                NSIndexPath::indexPathForRow(row, section))
            ->row();
    };
    EXPECT_EQ(target(2, background_section), 2);
    EXPECT_EQ(target(4, background_section), 2) << "below the last";
    EXPECT_EQ(target(0, background_section), 1) << "above the first";
    EXPECT_EQ(target(0, keys_section), 1);
}

TEST_F(Editor, AnArrowChoosesTheDirection) {
    edit();
    table()->scrollToRow(NSIndexPath::indexPathForRow(4, background_section), UITableViewScrollPositionBottom,
                         false);
    for (const auto& [arrow, stored] : {std::pair{"Upwards", "1"},
                                        {"Downwards", "2"},
                                        {"To the left", "3"},
                                        {"To the right", "4"},
                                        {"To the top left", "5"},
                                        {"To the top right", "6"},
                                        {"To the bottom left", "7"},
                                        {"To the bottom right", "8"}}) {
        tap(arrow);
        page()->send<"save">();
        EXPECT_EQ(value("_GradientDirection"), stored);
        edit_row(0, own_section);
        table()->scrollToRow(NSIndexPath::indexPathForRow(4, background_section),
                             UITableViewScrollPositionBottom, false);
    }
}

TEST_F(Editor, KeyCapsAreSwitched) {
    edit();
    auto* control = static_cast<UISwitch*>(
        static_cast<id>(cell(2, keys_section)->contentView()->subviews()->lastObject()));
    control->setOn(true, false);
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    tap("Save");
    EXPECT_TRUE(static_cast<NSNumber*>(content()->objectForKey(text("_VisibleKeycaps")))->boolValue());
}

TEST_F(Editor, UndoAndRedoReachOverTheWholeSitting) {
    edit();
    pick(text_row, keys_section, "#111111");
    choose_kind(flat_kind);
    rename("Other");
    for (int i = 0; i < 3; ++i) tap("Undo");
    EXPECT_EQ(utf8(cell(text_row, keys_section)->detailTextLabel()->text()), "#00FF00");
    EXPECT_TRUE(is_on_screen("Mine"));
    for (int i = 0; i < 3; ++i) tap("Redo");
    EXPECT_TRUE(is_on_screen("Other"));
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 2);
}

TEST_F(Editor, IsTitledAsTheThemeIs) {
    edit();
    const auto title = [] { return utf8(page()->send<"title", NSString*>()); };
    EXPECT_EQ(title(), "Mine");
    rename("Other");
    EXPECT_EQ(title(), "Other");
    tap("Undo");
    EXPECT_EQ(title(), "Mine");
}

TEST_F(Editor, UndoIsOfferedWhereThereIsSomethingToUndo) {
    edit();
    const auto enabled = [&](const char* title) {
        bool found = false;
        const auto visit = [&](auto& self, UIView* view) -> void {
            if (auto* button = as<UIButton>(view); button && utf8(button->currentTitle()) == title)
                found = button->isEnabled();
            NSArray* below = view->subviews();
            for (NSUInteger i = 0; i < below->count(); ++i)
                self(self, static_cast<UIView*>(below->objectAtIndex(i)));
        };
        visit(visit, table()->superview());
        return found;
    };
    EXPECT_FALSE(enabled("Undo"));
    pick(text_row, keys_section, "#111111");
    EXPECT_TRUE(enabled("Undo"));
    EXPECT_FALSE(enabled("Redo"));
    tap("Undo");
    EXPECT_FALSE(enabled("Undo"));
    EXPECT_TRUE(enabled("Redo"));
}

TEST_F(Editor, ContrastsAreLints) {
    edit();
    const std::string labels = utf8(cell(0, contrast_section)->detailTextLabel()->text());
    EXPECT_TRUE(labels.find('.') == labels.size() - 3) << labels;
    pick(text_row, keys_section, "#000000");
    EXPECT_EQ(utf8(cell(0, contrast_section)->detailTextLabel()->text()), "1.00, too little");
    EXPECT_EQ(utf8(cell(0, contrast_section)->accessibilityValue()), "1.00, too little");
}

TEST_F(Editor, TheNearestReadablePairIsOneTouch) {
    edit();
    pick(text_row, keys_section, "#000000");
    ASSERT_EQ(table()->numberOfRowsInSection(contrast_section), 4);
    choose_row(3, contrast_section);
    EXPECT_EQ(table()->numberOfRowsInSection(contrast_section), 3) << "all of it can be read";
    tap("Undo");
    EXPECT_EQ(utf8(cell(text_row, keys_section)->detailTextLabel()->text()), "#000000") << "one change";
}

TEST_F(Editor, WhereNoPairCanBeReadItSaysSo) {
    edit();
    pick(first_colour_row + 1, background_section, "#FFFFFF");
    choose_row(3, contrast_section);
    EXPECT_TRUE(is_on_screen("No labels can be read on all of this background."));
}

TEST_F(Editor, AMemoryWarningLosesNothing) {
    edit();
    pick(text_row, keys_section, "#111111");
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK) << sim_last_error();
    EXPECT_EQ(utf8(cell(text_row, keys_section)->detailTextLabel()->text()), "#111111");
    tap("Undo");
    tap("Redo");
    tap("Save");
    EXPECT_EQ(value("_TextColor"), "#111111");
}

/// What the page itself answers when the table asks whether a row can be edited.
int (*can_be_edited)(NSObject*, SEL, UITableView*, NSIndexPath*);
bool was_last_row_asked_for = false;

TEST_F(Editor, IsAskedOnlyForRowsThatItHas) {
    edit();
    choose_row(3, contrast_section);
    ASSERT_EQ(table()->numberOfRowsInSection(contrast_section), 3) << "what it uses can be read";
    choose_kind(no_kind);
    ASSERT_EQ(table()->numberOfRowsInSection(contrast_section), 4) << "and not on the system's light grey";
    table()->scrollToRow(NSIndexPath::indexPathForRow(3, contrast_section), UITableViewScrollPositionNone,
                         false);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK) << sim_last_error();
    can_be_edited = reinterpret_cast<decltype(can_be_edited)>(method_setImplementation(
        class_getInstanceMethod(objc_lookUpClass("HuecraftSettingsEditor"),
                                sel_registerName("tableView:canEditRowAtIndexPath:")),
        reinterpret_cast<IMP>(
            +[](NSObject* page, SEL selector, UITableView* table, NSIndexPath* path) -> int {
                was_last_row_asked_for |= path->section() == contrast_section && path->row() == 3;
                const auto rows =
                    page->send<"tableView:numberOfRowsInSection:", NSInteger>(table, path->section());
                EXPECT_LT(path->row(), rows) << "in section " << path->section();
                return path->row() < rows && can_be_edited(page, selector, table, path);
            })));
    choose_kind(gradient_kind);
    EXPECT_EQ(table()->numberOfRowsInSection(contrast_section), 3);
    EXPECT_TRUE(was_last_row_asked_for) << "it was in sight";
}

class RowsOfText : public EditorPage, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(, RowsOfText, testing::Values("XS", "S", "L", "XXXL", "AccessibilityXXXL"));

TEST_P(RowsOfText, GrowWithItAndAreNeverTooSmallForAFinger) {
    edit(0, own_section, {.text_size = GetParam()});
    const double line = UIFont::preferredFontForTextStyle(UIFontTextStyleBody)->lineHeight();
    for (const auto& [row, section] :
         {std::pair{NSInteger{0}, name_section}, {text_row, keys_section}, {0, contrast_section}})
        EXPECT_EQ((page()->send<"tableView:heightForRowAtIndexPath:", CGFloat>(
                      table(), NSIndexPath::indexPathForRow(row, section))),
                  std::max(44.0, line + 24));
    if (std::string(GetParam()) == "XS") EXPECT_LT(line + 24, 44);
}

TEST_F(Editor, TellsVoiceOverWhatARowIs) {
    edit();
    UITableViewCell* colour = cell(text_row, keys_section);
    EXPECT_EQ(utf8(colour->accessibilityLabel()), "Text");
    EXPECT_EQ(utf8(colour->accessibilityValue()), "#00FF00");
    EXPECT_EQ(colour->accessibilityTraits(), UIAccessibilityTraitButton);
    UIView* header = static_cast<UIView*>(table()->superview()->subviews()->objectAtIndex(0));
    EXPECT_EQ(utf8(header->accessibilityLabel()), "The keyboard in the theme Mine");
}

TEST_F(Editor, SpeaksTheUsersLanguage) {
    edit(0, own_section, {.language = "ja"});
    EXPECT_EQ(utf8(cell(0, name_section)->textLabel()->text()), "名前");
}

}  // namespace
}  // namespace test
