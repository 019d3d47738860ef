// What the tests of the editor share: its page, opened by a row's detail button.
#pragma once
#include "settings_page.h"

namespace test {

class EditorPage : public SettingsPage {
  protected:
    /// A theme whose labels can be read, in Mine.plist; black and red, labels green.
    EditorPage();
    /// Opens the pane, and the editor of the theme in that row.
    void edit(NSInteger row = 0, NSInteger section = own_section, Phone::Options options = {});
    void edit_row(NSInteger row, NSInteger section);
    static bool is_open();

    /// Chooses the background's kind by its segment.
    static void choose_kind(NSInteger segment);
    /// Touches the row, and confirms the hex text in the picker.
    static void pick(NSInteger row, NSInteger section, const std::string& hex);
    static void rename(const std::string& name);
    /// Puts a photo, a hill before a sky, into the library, and takes it as the background.
    void open_cropper() const;
    /// On that page, the window that fingers move the photo behind.
    static UIView* photo_window();
    /// Touches the switch that VoiceOver calls so, on the page on which a photo is cropped.
    static void turn_on(const std::string& label);

    /// What the file holds.
    NSDictionary* content(const std::string& file = "Mine.plist") const;
    std::string value(const char* key, const std::string& file = "Mine.plist") const;
    UIImage* stored() const;
    std::vector<std::string> colours(const std::string& file = "Mine.plist") const;

    static constexpr NSInteger name_section = 0, keys_section = 1, contrast_section = 2,
                               background_section = 3;
    static constexpr NSInteger text_row = 0, highlight_row = 1, first_colour_row = 1;
    static constexpr NSInteger no_kind = 0, flat_kind = 1, gradient_kind = 2, image_kind = 3;
};

}  // namespace test
