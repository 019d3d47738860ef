// Everything that the library puts its hand to, shown once.
#include "hooks/surfaces.h"

#include "platform/controls.h"
#include "support/configuration.h"
#include "support/keyboard_request.h"
#include "support/themes.h"

namespace test {
namespace {

// What is drawn is decided by the same sources on both processors: arm64, emulated, draws images and
// gradients.
#ifdef __aarch64__
constexpr NSUInteger background_types[] = {3, 2};
#else
constexpr NSUInteger background_types[] = {2, 1, 3, 0};
#endif

void expect_drawn(const Phone& phone, const std::string& what) {
    const std::string picture = phone.host("picture.png");
    EXPECT_EQ(sim_take_picture(picture.c_str(), 0.125), SIM_OK) << what << ": " << sim_last_error();
    EXPECT_TRUE(phone.exists("picture.png")) << what;
}

void show(const Phone& phone, const std::string& what, const KeyboardRequest& request) {
    EXPECT_EQ(requested(request), SIM_OK) << what << ": " << sim_last_error();
    expect_drawn(phone, what);
}

void show_view(const Phone& phone, UIView* view, const std::string& what) {
    ASSERT_NE(view, nullptr) << what;
    view->setFrame({{0, 0}, {375, 216}});
    EXPECT_EQ(sim_show_view(view), SIM_OK) << what << ": " << sim_last_error();
    expect_drawn(phone, what);
}

template <class Action>
void expect_nothing_raised(Action action, const std::string& what) {
    EXPECT_EQ(raised_by(action), "") << what;
}

}  // namespace

void show_every_keyboard(const Phone& phone) {
    for (NSUInteger type : background_types) {
        objc::send<"setBackgroundType:">(active_theme(), type);
        const std::string theme = " of background " + std::to_string(type);
        show(phone, "letters, switcher and accessory" + theme, {.switcher = true, .form_accessory = true});
        show(phone, "shifted" + theme, {.plane = "shifted", .landscape = true, .return_key = "go"});
        show(phone, "numbers, split" + theme, {.plane = "numbers", .split = true});
        for (const char* candidates : {"row", "expanded"})
            show(phone, candidates + theme, {.candidates = candidates});
        for (const char* plane : {"symbols", "emoji"}) show(phone, plane + theme, {.plane = plane});
        // Where the model has no keys, there is none to press.
        if (objc_getClass("UIKBTree")) show(phone, "a pressed key" + theme, {.pressed_key = "g"});
    }
    objc::send<"setBackgroundType:">(active_theme(), NSUInteger{2});
}

void show_every_surface(const Phone& phone) {
    show_every_keyboard(phone);

    id preview = nullptr;
    expect_nothing_raised([&] { preview = objc::send<"sharedInstance", id>(class_named("HCPreview")); },
                          "the preview");
    for (NSUInteger type : background_types) {
        UIView* view = nullptr;
        expect_nothing_raised(
            [&] {
                Configuration theme = Configuration::made_default();
                objc::send<"setBackgroundType:">(theme.object, type);
                view = objc::send<"viewForConfig:", UIView*>(preview, theme.object);
            },
            "a preview of background " + std::to_string(type));
        show_view(phone, view, "the preview");
    }

    UIView* panel = nullptr;
    expect_nothing_raised(
        [&] {
            id options = made<"initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton:">(
                "HCModalOptions", CGRect{{5, 111}, {365, 445}}, 40.0, id{}, true, text("SELECT"));
            panel = static_cast<UIView*>(
                made<"initWithFrame:modalOptions:">("HCModalView", CGRect{{0, 0}, {375, 667}}, options));
        },
        "the panel");
    show_view(phone, panel, "the panel");

    phone.make_folder("/var/mobile/Library/Preferences");
    EXPECT_EQ(sim_present(made("HCColorPickerController")), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
    expect_drawn(phone, "the colour picker");
}

}  // namespace test
