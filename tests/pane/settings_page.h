// What the tests of the pane's screens share: a phone with both packages' files, and Settings with the page
// open.
#pragma once
#include "kept_files.h"
#include "platform/controls.h"
#include "platform/preferences.h"
#include "platform/tables.h"

namespace test {

class SettingsPage : public testing::Test {
  protected:
    /// Lays out the packages' files.
    SettingsPage();
    /// Boots, loads the library as it is injected, opens Settings and touches the row.
    void open(Phone::Options options = {});
    void open_without_library();
    /// The same, where there are other classes of the library's names, or of the system's.
    template <class Make>
    void open_with_other_classes(Make make, Phone::Options options = {}) {
        options.executable = settings;
        phone.boot(options);
        make();
        open_page();
    }
    /// Leaves the page and comes back, as someone who changed a file meanwhile.
    static void come_back();

    static UIView* first(const char* class_name);
    static UITableView* table() { return static_cast<UITableView*>(first("UITableView")); }
    /// The page, by its table's data source.
    static NSObject* page() { return static_cast<NSObject*>(table()->dataSource()); }
    static void tap(const std::string& label);
    static bool is_on_screen(const std::string& text);
    /// Touches the row, wherever it is.
    static void choose_row(NSInteger row, NSInteger section);
    static UITableViewCell* cell(NSInteger row, NSInteger section);
    /// What stands above and below a section; "(nil)" for nothing.
    static std::string header(NSInteger section);
    static std::string footer(NSInteger section);

    /// What the preference file says: "on a.plist", "off ".
    std::string preferences() const;
    void expect_picture(const std::string& name) const;

    Phone phone;
    static constexpr NSInteger switch_section = 0, own_section = 1, along_section = 2, rescue_section = 3,
                               about_section = 4;

  private:
    static constexpr const char* settings = "/Applications/Preferences.app/Preferences";
    static void open_page();
};

}  // namespace test
