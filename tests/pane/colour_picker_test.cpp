// The library's colour picker as the pane shows it.
#include "platform/scrolling.h"
#include "settings_page.h"
#include "support/runtime.h"

namespace test {
namespace {

constexpr const char* recent_file = "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";

class PickerOfThePane : public SettingsPage {
  protected:
    void SetUp() override { open(); }

    /// Presents a picker, and waits until it has sprung up.
    void show(UIColor* first = color(1, 0, 0)) {
        picker = made("HuecraftSettingsColorPicker");
        ASSERT_NE(picker, nullptr);
        objc::send<"setFirstColor:">(picker, first);
        ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    }
    /// Shows a picker that begins with the colour, and confirms; answers what was raised.
    std::string confirm(UIColor* colour) {
        show(colour);
        objc::send<"setDelegate:">(picker, listener());
        return raised_by([this] { objc::send<"selectButtonPressed">(picker); });
    }
    /// Somebody who listens: the library records what was chosen only then.
    id listener() {
        if (!listener_) listener_ = objc::strong<NSObject>(static_cast<NSObject*>(made(listener_class())));
        return listener_.get();
    }
    UITextField* field() const { return objc::send<"hexTextField", UITextField*>(picker); }
    std::vector<std::string> recent() const {
        auto* file = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
            test::data(phone.read(recent_file)), NSPropertyListSerialization::immutable, nullptr, nullptr));
        return texts_in(static_cast<NSArray*>(file->objectForKey(text("Colors"))));
    }

    id picker = nullptr;
    static inline std::vector<std::string> heard;

  private:
    static const char* listener_class() {
        const auto hear = [](id, SEL, id, NSString* hex) { heard.push_back(utf8(hex)); };
        return class_getName(
            class_with("ListenerOfThePicker", "NSObject",
                       {own_method("colorPickerReturnedWithColor:andHexString:", hear, "v@:@@")}));
    }
    objc::strong<NSObject> listener_;
};

TEST_F(PickerOfThePane, OpensOnTheColourItIsGiven) {
    show(color(0.2, 0.4, 0.6));
    EXPECT_EQ(utf8(field()->text()), "#336699");
}

TEST_F(PickerOfThePane, CanBeConfirmedAgainAndAgain) {
    EXPECT_EQ(confirm(color(1, 0, 0)), "");
    EXPECT_EQ(confirm(color(0, 1, 0)), "") << "the list came from its file";
    EXPECT_EQ(confirm(color(0, 0, 1)), "");
    EXPECT_EQ(heard, (std::vector<std::string>{"#FF0000", "#00FF00", "#0000FF"}));
    EXPECT_EQ(recent(), (std::vector<std::string>{"#00000000", "#00000000", "#00000000", "#FF0000", "#00FF00",
                                                  "#0000FF"}));
}

TEST_F(PickerOfThePane, AListOfAnyLengthAndKindIsMadeSix) {
    for (const char* colours :
         {"<array/>", "<array><string>#010101</string><integer>5</integer></array>", "<string>x</string>",
          "<array><string>#1</string><string>#2</string><string>#3</string><string>#4</string><string>#5"
          "</string><string>#6</string><string>#7</string><string>#8</string></array>"}) {
        phone.write(recent_file, property_list("<dict><key>Colors</key>" + std::string(colours) +
                                               "<key>Other</key><string>stays</string></dict>"));
        EXPECT_EQ(confirm(color(1, 0, 0)), "") << colours;
        EXPECT_EQ(recent().size(), 6u) << colours;
        EXPECT_EQ(recent().back(), "#FF0000") << colours;
        EXPECT_NE(phone.read(recent_file).find("stays"), std::string::npos) << colours;
    }
}

TEST_F(PickerOfThePane, ATypedColourCountsWithoutReturn) {
    show();
    objc::send<"setDelegate:">(picker, listener());
    field()->setText(text("#3366CC"));
    objc::send<"selectButtonPressed">(picker);
    EXPECT_EQ(heard, (std::vector<std::string>{"#3366CC"}));
}

TEST_F(PickerOfThePane, AnUnfinishedTextIsRefused) {
    for (const char* typed : {"#12", "", "12#456", "#1234567"}) {
        show();
        objc::send<"setDelegate:">(picker, listener());
        field()->setText(text(typed));
        objc::send<"selectButtonPressed">(picker);
        EXPECT_TRUE(heard.empty()) << typed;
        void* presented = nullptr;
        ASSERT_EQ(sim_presented(&presented), SIM_OK);
        EXPECT_EQ(presented, picker) << typed << ": it stays";
    }
}

class PickerHeldAcross : public SettingsPage, public testing::WithParamInterface<CGSize> {};
INSTANTIATE_TEST_SUITE_P(, PickerHeldAcross, testing::Values(CGSize{568, 320}, CGSize{812, 375}));

TEST_P(PickerHeldAcross, BothButtonsAreInSightAndTheSlidersScroll) {
    open({.screen_width = GetParam().width, .screen_height = GetParam().height, .screen_scale = 2});
    const id picker = made("HuecraftSettingsColorPicker");
    ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    const auto on_screen = [](UIView* view) { return view->convertRectToView(view->bounds(), nullptr); };
    const id modal = objc::send<"modal", id>(picker);
    for (UIView* button :
         {objc::send<"closeButton", UIView*>(modal), objc::send<"selectButton", UIView*>(modal)}) {
        const CGRect place = on_screen(button);
        EXPECT_GE(place.origin.y, 0);
        EXPECT_LE(place.origin.y + place.size.height, GetParam().height);
    }
    auto* scroller = objc::send<"scrollView", UIScrollView*>(picker);
    const CGFloat visible = scroller->bounds().size.height;
    EXPECT_GT(scroller->contentSize().height, visible);
    auto* alpha = objc::send<"alphaSlider", UIView*>(picker);
    const CGRect shown = on_screen(scroller);
    const double x = shown.origin.x + 8, y = shown.origin.y + shown.size.height - 15;
    ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, x, y), SIM_OK);
    for (int step = 1; step <= 10; ++step)
        ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x, y - 20 * step), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, x, y - 200), SIM_OK);
    ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    const CGRect slider = on_screen(alpha);
    EXPECT_LE(slider.origin.y + slider.size.height, shown.origin.y + shown.size.height + 1);
}

}  // namespace
}  // namespace test
