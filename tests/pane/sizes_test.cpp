// Expected pictures of the screens at the sizes of screens that their own tests leave out.
#include "editor/editor_page.h"

namespace test {
namespace {

Phone::Options smallest_phone() { return {.screen_width = 320, .screen_height = 568, .screen_scale = 2}; }
Phone::Options tallest_phone() { return {.screen_width = 375, .screen_height = 812, .screen_scale = 3}; }
Phone::Options tablet() { return {.screen_width = 768, .screen_height = 1024, .screen_scale = 2}; }
Phone::Options held_across() { return {.screen_width = 568, .screen_height = 320, .screen_scale = 2}; }

class Sizes : public EditorPage {
  protected:
    void wear_ocean(const Phone::Options& options) {
        open(options);
        choose_row(4, along_section);
    }
    void open_compatibility(const Phone::Options& options) {
        open(options);
        choose_row(0, about_section);
    }
    void open_picker(const Phone::Options& options) {
        edit(0, own_section, options);
        choose_row(text_row, keys_section);
        ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
    }
    void crop_photo(const Phone::Options& options) {
        edit(0, own_section, options);
        open_cropper();
    }
    void open_sheet(const Phone::Options& options) {
        open(options);
        tap("Edit");
        choose_row(0, own_section);
    }
    void name_new_theme(const Phone::Options& options) {
        open(options);
        tap("Add");
        tap("New Theme");
    }

    static constexpr NSInteger about_section = 4;
};

TEST_F(Sizes, FirstScreenOnTheTallestPhone) {
    wear_ocean(tallest_phone());
    expect_picture("sizes-first-screen-812");
}

TEST_F(Sizes, FirstScreenOnATablet) {
    wear_ocean(tablet());
    expect_picture("sizes-first-screen-tablet");
}

TEST_F(Sizes, CompatibilityOnTheSmallestPhone) {
    open_compatibility(smallest_phone());
    expect_picture("sizes-compatibility-320");
}

TEST_F(Sizes, CompatibilityOnTheTallestPhone) {
    open_compatibility(tallest_phone());
    expect_picture("sizes-compatibility-812");
}

TEST_F(Sizes, PickerOnTheSmallestPhone) {
    open_picker(smallest_phone());
    expect_picture("sizes-picker-320");
}

TEST_F(Sizes, PickerOnTheTallestPhone) {
    open_picker(tallest_phone());
    expect_picture("sizes-picker-812");
}

TEST_F(Sizes, PickerOnATablet) {
    open_picker(tablet());
    expect_picture("sizes-picker-tablet");
}

TEST_F(Sizes, EditorOnAPhoneHeldAcross) {
    edit(4, along_section, held_across());
    expect_picture("sizes-editor-across");
}

TEST_F(Sizes, SheetOnTheSmallestPhone) {
    open_sheet(smallest_phone());
    expect_picture("sizes-sheet-320");
}

TEST_F(Sizes, SheetOnTheTallestPhone) {
    open_sheet(tallest_phone());
    expect_picture("sizes-sheet-812");
}

TEST_F(Sizes, NewThemeOnTheSmallestPhone) {
    name_new_theme(smallest_phone());
    expect_picture("sizes-new-theme-320");
}

TEST_F(Sizes, NewThemeOnTheTallestPhone) {
    name_new_theme(tallest_phone());
    expect_picture("sizes-new-theme-812");
}

TEST_F(Sizes, NewThemeOnATablet) {
    name_new_theme(tablet());
    expect_picture("sizes-new-theme-tablet");
}

TEST_F(Sizes, CropperOnTheSmallestPhone) {
    crop_photo(smallest_phone());
    expect_picture("sizes-crop-320");
}

TEST_F(Sizes, CropperOnTheTallestPhone) {
    crop_photo(tallest_phone());
    expect_picture("sizes-crop-812");
}

TEST_F(Sizes, CropperOnATablet) {
    crop_photo(tablet());
    expect_picture("sizes-crop-tablet");
}

}  // namespace
}  // namespace test
