// The system's keyboard in its states, compared with expected pictures.
#include "picture.h"

#include "support/phone.h"

namespace test {
namespace {

/// A keyboard and a screen to show it on.
struct Shown {
    const char* name;
    const char* plane = nullptr;
    const char* pressed = nullptr;
    const char* return_key = nullptr;
    bool landscape = false, split = false, switcher = false, form_accessory = false;
    const char *page = nullptr, *candidates = nullptr;
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
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    keyboard.plane = shown.plane;
    keyboard.pressed_key = shown.pressed;
    keyboard.return_key = shown.return_key;
    keyboard.landscape = shown.landscape;
    keyboard.split = shown.split;
    keyboard.switcher = shown.switcher;
    keyboard.form_accessory = shown.form_accessory;
    keyboard.background = shown.page;
    keyboard.candidates = shown.candidates;
    ASSERT_EQ(sim_show_keyboard(&keyboard), SIM_OK) << sim_last_error();
    const auto picture = phone.host("/picture.png");
    ASSERT_EQ(sim_take_picture(picture.c_str(), 0), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(picture, std::string("system-") + shown.name));
}

INSTANTIATE_TEST_SUITE_P(
    System, Keyboard,
    testing::Values(Shown{.name = "letters"}, Shown{.name = "letters-go", .return_key = "go"},
                    Shown{.name = "letters-pressed-g", .pressed = "g"},
                    Shown{.name = "letters-pressed-p", .pressed = "p"},
                    Shown{.name = "letters-pressed-delete", .pressed = "delete"},
                    Shown{.name = "shifted", .plane = "shifted"},
                    Shown{.name = "numbers", .plane = "numbers"},
                    Shown{.name = "symbols", .plane = "symbols"}, Shown{.name = "emoji", .plane = "emoji"},
                    Shown{.name = "landscape", .pressed = "g", .landscape = true},
                    Shown{.name = "switcher", .switcher = true, .page = "busy"},
                    Shown{.name = "form", .form_accessory = true, .page = "light"},
                    Shown{.name = "split", .split = true, .page = "busy"},
                    Shown{.name = "candidates", .candidates = "row"},
                    Shown{.name = "candidates-expanded", .candidates = "expanded"},
                    Shown{.name = "candidates-tablet",
                          .candidates = "row",
                          .screen_width = 768,
                          .screen_height = 1024,
                          .screen_scale = 1},
                    Shown{.name = "candidates-tablet-expanded",
                          .candidates = "expanded",
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

}  // namespace
}  // namespace test
