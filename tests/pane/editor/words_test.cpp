// What the editor says above, below and in its rows, to VoiceOver, and before changes are lost.
#include <regex>

#include "editor/editor_page.h"

namespace test {
namespace {

class EditorWords : public EditorPage {
  protected:
    static std::string title(NSInteger row, NSInteger section) {
        return utf8(cell(row, section)->textLabel()->text());
    }
    static std::string detail(NSInteger row, NSInteger section) {
        return utf8(cell(row, section)->detailTextLabel()->text());
    }
};

TEST_F(EditorWords, StandAboveAndBelowTheRows) {
    edit();
    EXPECT_EQ(header(name_section), "(nil)");
    EXPECT_EQ(header(keys_section), "Keys");
    EXPECT_EQ(header(contrast_section), "Contrast");
    EXPECT_EQ(header(background_section), "Background");
    EXPECT_EQ(footer(name_section), "(nil)");
    EXPECT_EQ(footer(keys_section), "(nil)");
    EXPECT_EQ(footer(contrast_section), "Labels need 4.5, highlights 3, the label of a pressed key 2.");
    EXPECT_EQ(footer(background_section), "(nil)");
}

TEST_F(EditorWords, NameTheRows) {
    edit();
    EXPECT_EQ(title(0, name_section), "Name");
    EXPECT_EQ(detail(0, name_section), "Mine");
    EXPECT_EQ(title(text_row, keys_section), "Text");
    EXPECT_EQ(title(highlight_row, keys_section), "Highlights");
    EXPECT_EQ(title(2, keys_section), "Visible Key Caps");
    EXPECT_EQ(title(0, contrast_section), "Labels");
    EXPECT_EQ(title(1, contrast_section), "Highlights");
    EXPECT_EQ(title(2, contrast_section), "Label of a pressed key");
    EXPECT_EQ(title(first_colour_row, background_section), "#000000")
        << "a gradient's colour is its own name";
    EXPECT_EQ(title(first_colour_row + 2, background_section), "Add Colour");
    choose_kind(flat_kind);
    EXPECT_EQ(title(first_colour_row, background_section), "Colour");
    EXPECT_EQ(detail(first_colour_row, background_section), "#000000");
    choose_kind(image_kind);
    EXPECT_EQ(title(1, background_section), "Choose Photo");
}

TEST_F(EditorWords, SayHowGoodAContrastIs) {
    const auto expect_verdict = [&](const char* colour, const std::string& verdict, const Rgba& in) {
        SCOPED_TRACE(colour);
        pick(text_row, keys_section, colour);
        const std::string shown = detail(0, contrast_section);
        EXPECT_TRUE(std::regex_match(shown, std::regex("\\d+\\.\\d\\d" + verdict))) << shown;
        EXPECT_EQ(rgba(static_cast<id>(cell(0, contrast_section)->detailTextLabel()->textColor())), in);
    };
    edit();
    choose_kind(flat_kind);  // black
    expect_verdict("#FFFFFF", "", {0.1, 0.5, 0.2, 1});
    expect_verdict("#707070", ", weak", {0.65, 0.4, 0, 1});
    expect_verdict("#202020", ", too little", {0.8, 0.1, 0.1, 1});
    EXPECT_EQ(title(3, contrast_section), "Use the Nearest Readable Pair");
}

TEST_F(EditorWords, SayThatAColourIsNotSet) {
    phone.write(in_themes("Mine.plist"),
                property_list("<dict><key>_ConfigName</key><string>Mine</string><key>_BackgroundType</key>"
                              "<integer>4</integer></dict>"));
    edit();
    EXPECT_EQ(detail(text_row, keys_section), "not set");
    EXPECT_EQ(detail(highlight_row, keys_section), "not set");
}

TEST_F(EditorWords, TellVoiceOverWhatControlsAreFor) {
    edit();
    const auto last_of = [](NSInteger row, NSInteger section) {
        return static_cast<UIView*>(cell(row, section)->contentView()->subviews()->lastObject());
    };
    EXPECT_EQ(utf8(last_of(2, keys_section)->accessibilityLabel()), "Visible Key Caps");
    open_cropper();
    UIView* page = first("UISlider")->superview();
    auto* window = static_cast<UIView*>(page->subviews()->objectAtIndex(0));
    EXPECT_EQ(utf8(window->accessibilityLabel()), "What the keyboard shows of the photo");
    EXPECT_EQ(utf8(window->accessibilityHint()), "Drag to move the photo, pinch to enlarge it.");
    for (const char* label : {"Enlarge", "Dim", "Blur", "Crop"}) EXPECT_TRUE(is_on_screen(label)) << label;
    tap("Use Photo");
    EXPECT_EQ(title(2, background_section), "Crop, Dim and Blur");
    EXPECT_EQ(utf8(last_of(3, background_section)->accessibilityLabel()), "Opacity of the image");
}

TEST_F(EditorWords, AskBeforeChangesAreLost) {
    edit();
    choose_kind(flat_kind);
    tap("Cancel");
    EXPECT_TRUE(is_on_screen("Keep your changes?"));
    for (const char* answer : {"Save", "Discard", "Cancel"}) EXPECT_TRUE(is_on_screen(answer)) << answer;
    tap("Discard");
    EXPECT_FALSE(is_open());
    EXPECT_EQ(value("_BackgroundType"), "2");
}

TEST_F(EditorWords, AskWhatBecomesOfAFileThatIsAnother) {
    edit();
    choose_kind(flat_kind);
    put_theme(phone, "Mine.plist", "Another");
    tap("Save");
    EXPECT_TRUE(is_on_screen("This theme was changed elsewhere meanwhile."));
    for (const char* answer : {"Keep Both", "Replace", "Cancel"}) EXPECT_TRUE(is_on_screen(answer)) << answer;
}

TEST_F(EditorWords, SayThatAThemeCouldNotBeSaved) {
    edit();
    choose_kind(flat_kind);
    {
        const FullDisk full;
        tap("Save");
    }
    EXPECT_TRUE(is_on_screen("The theme could not be saved. What you changed is still here."));
    tap("OK");
    EXPECT_TRUE(is_open());
    EXPECT_EQ(value("_BackgroundType"), "2");
}

TEST_F(EditorWords, SayWhatHelpsWhereNoLabelCanBeRead) {
    edit();
    pick(first_colour_row + 1, background_section, "#FFFFFF");
    choose_row(3, contrast_section);
    EXPECT_TRUE(is_on_screen("A background of more even brightness helps."));
}

}  // namespace
}  // namespace test
