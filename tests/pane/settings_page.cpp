#include "settings_page.h"

#include "laid_out_packages.h"
#include "objc/fast_enumeration.h"
#include "picture.h"

namespace test {
namespace {

bool shows(UIView* view, const std::string& text) {
    if (view->isHidden()) return false;
    if (auto* label = as<UILabel>(view); label && utf8(label->text()) == text) return true;
    bool found = false;
    objc::for_each<UIView>(view->subviews(), [&](UIView* each) { found = found || shows(each, text); });
    return found;
}

}  // namespace

SettingsPage::SettingsPage() { lay_out_packages(phone, std::getenv("HUECRAFT_PANE")); }

void SettingsPage::open(Phone::Options options) {
    options.executable = settings;
    phone.start(options);
    open_page();
}

void SettingsPage::open_without_library() {
    open_with_other_classes([] {});
}

void SettingsPage::open_page() {
    ASSERT_EQ(sim_open_settings(), SIM_OK) << sim_last_error();
    tap("Huecraft");
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
}

void SettingsPage::come_back() {
    page()->send<"viewWillDisappear:">(false);
    page()->send<"viewWillAppear:">(false);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK) << sim_last_error();
}

UIView* SettingsPage::first(const char* class_name) {
    void* view = nullptr;
    EXPECT_EQ(sim_view_on_screen(class_name, &view), SIM_OK) << sim_last_error();
    return static_cast<UIView*>(static_cast<id>(view));
}

void SettingsPage::tap(const std::string& label) {
    ASSERT_EQ(sim_tap_label(label.c_str()), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
}

bool SettingsPage::is_on_screen(const std::string& text) {
    UIView* root = first("UIView");
    while (UIView* above = root->superview()) root = above;
    return shows(root, text);
}

void SettingsPage::choose_row(NSInteger row, NSInteger section) {
    page()->send<"tableView:didSelectRowAtIndexPath:">(table(), NSIndexPath::indexPathForRow(row, section));
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
}

UITableViewCell* SettingsPage::cell(NSInteger row, NSInteger section) {
    return page()->send<"tableView:cellForRowAtIndexPath:", UITableViewCell*>(
        table(), NSIndexPath::indexPathForRow(row, section));
}

std::string SettingsPage::header(NSInteger section) {
    return utf8(page()->send<"tableView:titleForHeaderInSection:", NSString*>(table(), section));
}

std::string SettingsPage::footer(NSInteger section) {
    return utf8(page()->send<"tableView:titleForFooterInSection:", NSString*>(table(), section));
}

std::string SettingsPage::preferences() const {
    if (!phone.exists(preference_file)) return "none";
    auto* content = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
        test::data(phone.read(preference_file)), NSPropertyListSerialization::immutable, nullptr, nullptr));
    if (!content) return "garbage";
    const bool on = static_cast<NSNumber*>(content->objectForKey(text("_Enabled")))->boolValue();
    return (on ? "on " : "off ") + utf8(content->objectForKey(text("_Config")));
}

void SettingsPage::expect_picture(const std::string& name) const {
    const auto png = phone.host("/screen.png");
    ASSERT_EQ(sim_take_picture(png.c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(png, name));
}

}  // namespace test
