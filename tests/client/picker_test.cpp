// The client's subclass of the picker, presented from its screen, and what its delegate hears.
#include "client.h"
#include "platform/controls.h"
#include "settings/settings.h"

namespace test {
namespace {

constexpr const char* recent_file = "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";

class ClientPicker : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        screen = made("PaneThemeController");
        ask<"setTheme:", void>(screen, Configuration::made_default().object);
        present(screen);
        objc::AutoreleasePool pool;  // nothing but the screen holds the picker
        ask<"editTextColour", void>(screen);
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
        picker = presented();
        ASSERT_STREQ(object_getClassName(picker), "PanePicker");
    }
    UITextField* field() const { return ask<"hexTextField", UITextField*>(picker); }
    void type(const char* typed) const {
        field()->setText(text(""));
        tap(field());
        ASSERT_EQ(sim_type_text(typed), SIM_OK) << sim_last_error();
    }
    UIView* button(bool select) const {
        id panel = ask<"modal">(picker);
        return select ? ask<"selectButton", UIView*>(panel) : ask<"closeButton", UIView*>(panel);
    }
    std::vector<std::string> heard_colours() const {
        std::vector<std::string> colours;
        for (id each : elements(ask<"heard", NSArray*>(picker))) colours.push_back(utf8(each));
        return colours;
    }

    id screen = nullptr, picker = nullptr;
};

TEST_F(ClientPicker, ItsCompletionBlockGivesTheColourToBeginWith) {
    EXPECT_TRUE((ask<"presented", bool>(screen)));
    EXPECT_EQ(utf8(field()->text()), "#FFFFFF");
}

TEST_F(ClientPicker, TheLibraryReachesWhatTheSubclassReplaces) {
    EXPECT_EQ(heard_colours(), (std::vector<std::string>{"#000000", "#FFFFFF"}))
        << "once while it is built, once from the client";
    const auto rows = elements(ask<"arrangedSubviews", NSArray*>(ask<"scrollViewStack">(picker)));
    EXPECT_EQ(rows.size(), 7u);
    EXPECT_STREQ(object_getClassName(rows.back()), "UILabel");
}

TEST_F(ClientPicker, ATypedColourGoesThroughTheSubclass) {
    type("3366cc\n");
    EXPECT_EQ(heard_colours().back(), "#3366CC");
    EXPECT_EQ(utf8(ask<"lastChange">(screen)), "#3366CC") << "by the block that the client copied";
}

TEST_F(ClientPicker, AKnobsColourGoesThroughTheSubclass) {
    auto* knob = ask<"slider", UISlider*>(ask<"redSlider">(picker));
    knob->setValue(0);
    knob->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(heard_colours().back(), "#00FFFF");
}

TEST_F(ClientPicker, RefusedInputShakesThroughTheSubclass) {
    type("12");
    ASSERT_EQ(sim_press_return(), SIM_OK) << sim_last_error();
    EXPECT_EQ((ask<"shakes", NSUInteger>(picker)), 1u);
    UIView* panel = ask<"modal", UIView*>(picker);
    EXPECT_NE(panel->layer()->animationForKey(text("position")), nullptr) << "the library's own";
}

TEST_F(ClientPicker, TheChosenColourComesToTheDelegateAndIntoTheTheme) {
    type("3366cc\n");
    tap(button(true));
    EXPECT_EQ(presented(), screen);
    EXPECT_EQ(utf8(ask<"chosen">(screen)), "#3366CC");
    const Configuration theme{ask<"theme">(screen)};
    EXPECT_EQ(utf8(theme.stored("_TextColor")), "#3366CC");
    EXPECT_TRUE(phone.exists(recent_file));
}

TEST_F(ClientPicker, ClosedItTellsNothing) {
    type("3366cc\n");
    tap(button(false));
    EXPECT_EQ(presented(), screen);
    EXPECT_EQ(ask<"chosen">(screen), nullptr);
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ClientPicker, IsGoneOnceItIsClosed) {
    {
        objc::AutoreleasePool pool;
        EXPECT_EQ(ask<"picker">(screen), picker);
        tap(button(false));
    }
    ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    EXPECT_EQ(ask<"picker">(screen), nullptr) << "the client's weak reference";
}

TEST_F(ClientPicker, ADelegateWithoutTheMethodHearsNothing) {
    objc::strong<NSObject> silent = static_cast<NSObject*>(made("PaneSilentDelegate"));
    ask<"setDelegate:", void>(picker, static_cast<id>(silent));
    tap(button(true));
    EXPECT_EQ(presented(), screen) << "it closes all the same";
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ClientPicker, ItsDelegateIsNotKept) {
    {
        objc::AutoreleasePool pool;
        objc::strong<NSObject> silent =
            objc::adopt(objc::send<"new", NSObject*>(class_named("PaneSilentDelegate")));
        ask<"setDelegate:", void>(picker, static_cast<id>(silent));
        EXPECT_EQ(ask<"delegate">(picker), silent);
    }
    EXPECT_EQ(ask<"delegate">(picker), nullptr);
}

TEST_F(ClientPicker, AnIconIsNotTheClients) {
    auto* icon = ask<"copyImage", NSObject*>(picker);
    ASSERT_NE(icon, nullptr);
    const auto references = ask<"retainCount", NSUInteger>(icon);
    {
        objc::AutoreleasePool pool;
        EXPECT_EQ((ask<"iconAfter:", NSObject*>(picker, NSUInteger{100})), icon);
    }
    EXPECT_EQ((ask<"retainCount", NSUInteger>(icon)), references);
}

TEST_F(ClientPicker, LooksLikeTheLibrarysWithALineMore) {
    type("3366cc\n");
    expect_picture("client-picker");
}

}  // namespace
}  // namespace test
