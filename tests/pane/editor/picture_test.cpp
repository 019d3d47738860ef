// Expected pictures of the editor's screens.
#include "editor/editor_page.h"

namespace test {
namespace {

class EditorPictures : public EditorPage {
  protected:
    void edit_ocean(Phone::Options options = {}) { edit(4, along_section, options); }
    static void scroll_to(NSInteger row, NSInteger section) {
        table()->scrollToRow(NSIndexPath::indexPathForRow(row, section), UITableViewScrollPositionBottom,
                             false);
        ASSERT_EQ(sim_advance_clock(0), SIM_OK);
    }
};

TEST_F(EditorPictures, ItsBeginning) {
    edit_ocean();
    expect_picture("pane-editor");
}

TEST_F(EditorPictures, OnTheSmallestPhone) {
    edit_ocean({.screen_width = 320, .screen_height = 568, .screen_scale = 2});
    expect_picture("pane-editor-320");
}

TEST_F(EditorPictures, OnTheTallestPhone) {
    edit_ocean({.screen_width = 375, .screen_height = 812, .screen_scale = 3});
    expect_picture("pane-editor-812");
}

TEST_F(EditorPictures, OnATablet) {
    edit_ocean({.screen_width = 768, .screen_height = 1024, .screen_scale = 2});
    expect_picture("pane-editor-tablet");
}

TEST_F(EditorPictures, FromRightToLeft) {
    edit_ocean({.right_to_left = true});
    expect_picture("pane-editor-right-to-left");
}

TEST_F(EditorPictures, OfAGradient) {
    edit();
    scroll_to(4, background_section);
    expect_picture("pane-editor-gradient");
}

TEST_F(EditorPictures, OfThePicker) {
    edit();
    choose_row(text_row, keys_section);
    expect_picture("pane-editor-picker");
}

TEST_F(EditorPictures, OfThePickerOnAPhoneHeldAcross) {
    edit(0, own_section, {.screen_width = 568, .screen_height = 320, .screen_scale = 2});
    choose_row(text_row, keys_section);
    ASSERT_EQ(sim_advance_clock(1), SIM_OK);
    expect_picture("pane-editor-picker-across");
}

TEST_F(EditorPictures, OfTheCropper) {
    edit();
    open_cropper();
    turn_on("Dim");
    expect_picture("pane-editor-crop");
}

TEST_F(EditorPictures, OfAnImageShownThrough) {
    edit();
    open_cropper();
    tap("Use Photo");
    scroll_to(3, background_section);
    auto* slider = static_cast<UISlider*>(
        static_cast<id>(cell(3, background_section)->contentView()->subviews()->lastObject()));
    slider->setValue(0.6f);
    slider->sendActionsForControlEvents(UIControlEventValueChanged);
    slider->sendActionsForControlEvents(UIControlEventTouchUpInside);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK);
    scroll_to(3, background_section);
    expect_picture("pane-editor-image");
}

TEST_F(EditorPictures, WithLargeText) {
    edit_ocean({.text_size = "AccessibilityL"});
    expect_picture("pane-editor-large-text");
}

}  // namespace
}  // namespace test
