// The system's keyboard in its states, compared with expected pictures.
#include "picture.h"

#include "support/keyboard_request.h"
#include "support/phone.h"

namespace test {
namespace {

/// A keyboard and a screen to show it on.
struct Shown {
    const char* name;
    KeyboardRequest keyboard = {};
    double screen_width = 375, screen_height = 667;
    int screen_scale = 2;

    friend void PrintTo(const Shown& shown, std::ostream* out) { *out << shown.name; }
};

class Keyboard : public testing::TestWithParam<Shown> {};

TEST_P(Keyboard, LooksAsExpected) {
    const Shown& shown = GetParam();
    Phone phone;
    phone.boot({.screen_width = shown.screen_width,
                .screen_height = shown.screen_height,
                .screen_scale = shown.screen_scale});
    show_keyboard(shown.keyboard);
    const auto picture = phone.host("/picture.png");
    ASSERT_EQ(sim_take_picture(picture.c_str(), 0), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(picture, std::string("system-") + shown.name));
}

INSTANTIATE_TEST_SUITE_P(
    System, Keyboard,
    testing::Values(Shown{.name = "letters"}, Shown{.name = "letters-go", .keyboard = {.return_key = "go"}},
                    Shown{.name = "letters-pressed-g", .keyboard = {.pressed_key = "g"}},
                    Shown{.name = "letters-pressed-p", .keyboard = {.pressed_key = "p"}},
                    Shown{.name = "letters-pressed-delete", .keyboard = {.pressed_key = "delete"}},
                    Shown{.name = "shifted", .keyboard = {.plane = "shifted"}},
                    Shown{.name = "numbers", .keyboard = {.plane = "numbers"}},
                    Shown{.name = "symbols", .keyboard = {.plane = "symbols"}},
                    Shown{.name = "emoji", .keyboard = {.plane = "emoji"}},
                    Shown{.name = "landscape", .keyboard = {.pressed_key = "g", .landscape = true}},
                    Shown{.name = "switcher", .keyboard = {.switcher = true, .background = "busy"}},
                    Shown{.name = "form", .keyboard = {.form_accessory = true, .background = "light"}},
                    Shown{.name = "split", .keyboard = {.split = true, .background = "busy"}},
                    Shown{.name = "candidates", .keyboard = {.candidates = "row"}},
                    Shown{.name = "candidates-expanded", .keyboard = {.candidates = "expanded"}},
                    Shown{.name = "candidates-tablet",
                          .keyboard = {.candidates = "row"},
                          .screen_width = 768,
                          .screen_height = 1024,
                          .screen_scale = 1},
                    Shown{.name = "candidates-tablet-expanded",
                          .keyboard = {.candidates = "expanded"},
                          .screen_width = 768,
                          .screen_height = 1024,
                          .screen_scale = 1},
                    Shown{.name = "dock", .screen_width = 375, .screen_height = 812, .screen_scale = 3},
                    Shown{.name = "small-phone", .screen_width = 320, .screen_height = 568},
                    Shown{
                        .name = "large-phone", .screen_width = 414, .screen_height = 736, .screen_scale = 3}),
    [](const auto& info) {
        std::string name = info.param.name;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

/// Of a picture of the screen a glyph is too small a part.
TEST(KeyboardParts, TheEmojiCategoriesLookAsExpected) {
    Phone phone;
    phone.boot();
    show_keyboard({.plane = "emoji"});
    void* bar = nullptr;
    ASSERT_EQ(sim_view_on_screen("UIKeyboardEmojiCategoryBar", &bar), SIM_OK) << sim_last_error();
    const auto picture = phone.host("/picture.png");
    ASSERT_EQ(sim_take_picture_of(bar, picture.c_str(), 3), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(picture, "system-emoji-categories"));
}

}  // namespace
}  // namespace test
