#include "editor/editor_page.h"

namespace test {
namespace {

std::string hill() {
    UIGraphicsBeginImageContextWithOptions({600, 400}, true, 1);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetRGBFillColor(context, 0.55, 0.75, 0.95, 1);
    CGContextFillRect(context, {{0, 0}, {600, 400}});
    CGContextSetRGBFillColor(context, 1, 0.85, 0.3, 1);
    CGContextFillEllipseInRect(context, {{420, 50}, {90, 90}});
    CGContextSetRGBFillColor(context, 0.2, 0.5, 0.25, 1);
    CGContextFillEllipseInRect(context, {{-100, 220}, {560, 400}});
    NSData* data = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    return {static_cast<const char*>(data->bytes()), data->length()};
}

}  // namespace

EditorPage::EditorPage() { put_theme(phone, "Mine.plist", "Mine"); }

void EditorPage::edit(NSInteger row, NSInteger section, Phone::Options options) {
    open(options);
    edit_row(row, section);
}

void EditorPage::edit_row(NSInteger row, NSInteger section) {
    page()->send<"tableView:accessoryButtonTappedForRowWithIndexPath:">(
        table(), NSIndexPath::indexPathForRow(row, section));
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
}

bool EditorPage::is_open() {
    void* presented = nullptr;
    EXPECT_EQ(sim_presented(&presented), SIM_OK) << sim_last_error();
    return presented != nullptr;
}

void EditorPage::choose_kind(NSInteger segment) {
    auto* kinds = static_cast<UISegmentedControl*>(
        static_cast<id>(cell(0, background_section)->contentView()->subviews()->lastObject()));
    kinds->setSelectedSegmentIndex(segment);
    kinds->sendActionsForControlEvents(UIControlEventValueChanged);
    ASSERT_EQ(sim_advance_clock(0), SIM_OK) << sim_last_error();
}

void EditorPage::pick(NSInteger row, NSInteger section, const std::string& hex) {
    choose_row(row, section);
    void* presented = nullptr;
    ASSERT_EQ(sim_presented(&presented), SIM_OK) << sim_last_error();
    auto* picker = static_cast<NSObject*>(static_cast<id>(presented));
    ASSERT_STREQ(object_getClassName(picker), "HuecraftSettingsColorPicker");
    picker->send<"hexTextField", UITextField*>()->setText(text(hex));
    picker->send<"selectButtonPressed">();
    ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
}

void EditorPage::rename(const std::string& name) {
    choose_row(0, name_section);
    first("UITextField")->send<"setText:">(text(name));
    tap("OK");
}

void EditorPage::open_cropper() const {
    phone.write("/var/mobile/Media/DCIM/100APPLE/hill.png", hill());
    choose_kind(image_kind);
    choose_row(1, background_section);
    tap("hill.png");
}

UIView* EditorPage::photo_window() {
    // The one view of the page that has gesture recognisers.
    NSArray* all = first("UISlider")->superview()->subviews();
    for (NSUInteger i = 0; i < all->count(); ++i)
        if (auto* each = static_cast<UIView*>(all->objectAtIndex(i));
            each->gestureRecognizers()->count() == 2)
            return each;
    ADD_FAILURE() << "no window";
    return nullptr;
}

void EditorPage::turn_on(const std::string& label) {
    NSArray* all = first("UISwitch")->superview()->subviews();
    for (NSUInteger i = 0; i < all->count(); ++i) {
        auto* control = as<UISwitch>(all->objectAtIndex(i));
        if (!control || utf8(control->accessibilityLabel()) != label) continue;
        const CGRect place = control->convertRectToView(control->bounds(), nullptr);
        ASSERT_EQ(sim_tap(place.origin.x + place.size.width / 2, place.origin.y + place.size.height / 2),
                  SIM_OK)
            << sim_last_error();
        EXPECT_TRUE(control->isOn());
        return;
    }
    FAIL() << "no switch is called " << label;
}

NSDictionary* EditorPage::content(const std::string& file) const {
    return as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
        test::data(phone.read(in_themes(file))), NSPropertyListSerialization::immutable, nullptr, nullptr));
}

std::string EditorPage::value(const char* key, const std::string& file) const {
    return utf8(static_cast<NSObject*>(content(file)->objectForKey(text(key)))->description());
}

UIImage* EditorPage::stored() const {
    auto* data = as<NSData>(content()->objectForKey(text("_Image")));
    return data ? UIImage::imageWithData(data) : nullptr;
}

std::vector<std::string> EditorPage::colours(const std::string& file) const {
    return texts_in(static_cast<NSArray*>(content(file)->objectForKey(text("_Colors"))));
}

}  // namespace test
