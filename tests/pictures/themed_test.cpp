// Themed keyboards, compared with expected pictures.
#include <cairo.h>

#include <cstdlib>
#include <memory>

#include "picture.h"
#include "support/base64.h"
#include "support/keyboard_request.h"
#include "support/themes.h"

namespace test {
namespace {

enum class Background { none, flat, gradient, image };

struct Themed {
    /// The expected picture's name, after "themed-".
    const char* name;
    Background background;
    /// Of a gradient.
    int direction = 2;
    /// Of an image or a flat colour.
    double alpha = 1;
    bool caps = false;
    const char *plane = nullptr, *pressed = nullptr;
    bool landscape = false, split = false, switcher = false, form_accessory = false;
    const char *page = "busy", *candidates = nullptr;
    /// Points; an upright screen.
    double screen_width = 375, screen_height = 667;
    /// What the test is called, where it is not called like the picture.
    const char* test_name = nullptr;

    friend void PrintTo(const Themed& themed, std::ostream* out) { *out << themed.name; }
};

/// A picture whose corners differ, so that it cannot be upside down unnoticed, as PNG.
std::string picture() {
    constexpr int width = 376, height = 300;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height), &cairo_surface_destroy);
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo(cairo_create(surface.get()), &cairo_destroy);
    constexpr double corners[][3] = {{0.8, 0.9, 1}, {1, 0.85, 0.6}, {0.7, 0.9, 0.7}, {1, 0.75, 0.8}};
    for (int corner = 0; corner < 4; ++corner) {
        cairo_set_source_rgb(cairo.get(), corners[corner][0], corners[corner][1], corners[corner][2]);
        const int column = corner % 2, row = corner / 2;
        cairo_rectangle(cairo.get(), column * width / 2.0, row * height / 2.0, width / 2.0, height / 2.0);
        cairo_fill(cairo.get());
    }
    std::string png;
    cairo_surface_write_to_png_stream(
        surface.get(),
        [](void* bytes, const unsigned char* data, unsigned length) {
            static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
            return CAIRO_STATUS_SUCCESS;
        },
        &png);
    return png;
}

std::string theme_file(const Themed& themed) {
    const std::string type = std::to_string(static_cast<int>(themed.background));
    char flat_colour[16];
    std::snprintf(flat_colour, sizeof flat_colour, "#1B2440%02X", static_cast<int>(themed.alpha * 255));
    const bool dark = themed.background == Background::flat;
    std::string text = std::string("<dict><key>_TextColor</key><string>") + (dark ? "#FFB84D" : "#4A1D3F") +
                       "</string><key>_HighlightColor</key><string>" + (dark ? "#35539B" : "#D9A5F5") +
                       "</string><key>_BackgroundType</key><integer>" + type +
                       "</integer><key>_GradientDirection</key><integer>" + std::to_string(themed.direction) +
                       "</integer><key>_VisibleKeycaps</key>" + (themed.caps ? "<true/>" : "<false/>") +
                       "<key>_Colors</key><array>";
    text += dark ? std::string("<string>") + flat_colour + "</string>"
                 : "<string>#FFE29A</string><string>#FF9A8B</string><string>#FF6A88</string>";
    text += "</array>";
    if (themed.background == Background::image)
        text += "<key>_Image</key><data>" + in_base64(picture()) + "</data><key>_ImageAlpha</key><real>" +
                std::to_string(themed.alpha) + "</real>";
    return property_list(text + "</dict>");
}

std::string build_under_test() {
    const char* library = std::getenv("HUECRAFT_LIBRARY");
    return library && std::string_view(library).ends_with(".dylib") ? "macho-" : "elf-";
}

class Keyboard : public testing::TestWithParam<Themed> {};

TEST_P(Keyboard, LooksAsExpected) {
    const Themed& themed = GetParam();
    Phone phone;
    phone.write(preference_file, property_list("<dict><key>_Enabled</key><true/><key>_Config</key>"
                                               "<string>Made.plist</string></dict>"));
    phone.write(std::string(theme_folder) + "Made.plist", theme_file(themed));
    phone.start({.screen_width = themed.screen_width, .screen_height = themed.screen_height});
    show_keyboard({.plane = themed.plane,
                   .pressed_key = themed.pressed,
                   .landscape = themed.landscape,

                   .split = themed.split,
                   .switcher = themed.switcher,
                   .form_accessory = themed.form_accessory,
                   .background = themed.page,
                   .candidates = themed.candidates});
    const auto png = phone.host("/picture.png");
    ASSERT_EQ(sim_take_picture(png.c_str(), 1), SIM_OK) << sim_last_error();
    const std::string variant =
        build_under_test() + (themed.test_name ? themed.test_name + std::string("-") : "");
    EXPECT_TRUE(looks_as_expected(png, std::string("themed-") + themed.name, variant));
}

using enum Background;

INSTANTIATE_TEST_SUITE_P(
    Themed, Keyboard,
    testing::Values(
        Themed{.name = "flat", .background = flat},
        Themed{.name = "flat-caps", .background = flat, .caps = true},
        Themed{.name = "flat-translucent", .background = flat, .alpha = 0.6},
        Themed{.name = "flat-symbols", .background = flat, .caps = true, .plane = "symbols"},
        Themed{.name = "flat-emoji", .background = flat, .plane = "emoji"},
        Themed{.name = "flat-dock", .background = flat, .page = "notes", .screen_height = 812},
        Themed{.name = "flat-landscape-split",
               .background = flat,
               .caps = true,
               .landscape = true,
               .split = true},
        Themed{.name = "flat-candidates", .background = flat, .caps = true, .candidates = "expanded"},
        Themed{.name = "gradient-down", .background = gradient, .direction = 2},
        Themed{.name = "gradient-leftward", .background = gradient, .direction = 3, .plane = "shifted"},
        Themed{.name = "gradient-diagonal", .background = gradient, .direction = 6, .plane = "numbers"},
        Themed{.name = "gradient-pressed",
               .background = gradient,
               .direction = 8,
               .pressed = "g",
               .page = "notes"},
        Themed{.name = "gradient-switcher", .background = gradient, .direction = 8, .switcher = true},
        Themed{.name = "gradient-candidates", .background = gradient, .candidates = "row"},
        Themed{.name = "gradient-candidates-expanded", .background = gradient, .candidates = "expanded"},
        Themed{.name = "gradient-landscape", .background = gradient, .direction = 4, .landscape = true},
        Themed{.name = "image", .background = image},
        Themed{.name = "image", .background = image, .alpha = 0.99, .test_name = "image_at_99_is_untouched"},
        Themed{.name = "image-translucent", .background = image, .alpha = 0.3},
        Themed{.name = "image-split", .background = image, .split = true},
        Themed{.name = "image-form", .background = image, .form_accessory = true, .page = "light"},
        Themed{.name = "image-switcher", .background = image, .switcher = true, .page = "light"},
        Themed{.name = "image-candidates", .background = image, .candidates = "row"},
        Themed{.name = "image-candidates-tablet",
               .background = image,
               .form_accessory = true,
               .page = "light",
               .candidates = "row",
               .screen_width = 768,
               .screen_height = 1024},
        Themed{.name = "none", .background = none},
        Themed{.name = "none-caps", .background = none, .caps = true, .page = "light"}),
    [](const auto& info) {
        std::string name = info.param.test_name ? info.param.test_name : info.param.name;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

}  // namespace
}  // namespace test
