// The keyboard taken apart: one layer to a theme.
#include "preview_pictures.h"

#include <string>

#include "model/HuecraftConfig.h"
#include "platform/substrate.h"
#include "support/phone.h"
#include "support/text.h"
#include "support/theme_choice.h"

namespace resources {
namespace {

namespace fs = std::filesystem;
using namespace tools;

/// A theme in black and nothing: what of the keyboard is not to be seen is clear.
struct Layer {
    const char* picture;
    const char* theme;
    bool text, highlight, caps;
};

constexpr Layer layers[] = {
    {"PreviewKeyboardText", "Text", true, false, false},
    {"PreviewKeyboardHighlight", "Highlight", false, true, false},
    {"PreviewKeyboardKeyCaps", "KeyCaps", false, false, true},
};

void make_theme(const Layer& layer) {
    auto black_or_clear = [](bool seen) { return UIColor::colorWithRGB(0, 0, 0, seen ? 1 : 0); };
    constexpr NSUInteger no_background = 0, no_direction = 0;
    HuecraftConfig* theme = HuecraftConfig::configWith(
        black_or_clear(layer.text), no_background, NSArray::arrayWithObject(black_or_clear(false)),
        no_direction, nullptr, black_or_clear(layer.highlight));
    theme->setConfigName(text(layer.theme));
    theme->setVisibleKeycaps(layer.caps);
    NSError* error = nullptr;
    if (!theme->saveConfiguration(&error)) throw Failure(std::string("saving the theme ") + layer.theme);
}

void take_pictures(UIView* view, const fs::path& folder, const std::string& name) {
    for (int scale : {1, 2, 3}) {
        const std::string suffix = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
        const fs::path picture = folder / (name + suffix + ".png");
        require(sim_take_picture_of(view, picture.c_str(), scale), "drawing " + picture.string());
    }
}

/// The view of that class on the screen, which shows the keyboard with shift held down.
UIView* keyboard_part(const char* class_name) {
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    keyboard.return_key = "go";
    keyboard.pressed_key = "shift";
    keyboard.background = "light";
    require(sim_show_keyboard(&keyboard), "showing the keyboard");
    void* view = nullptr;
    require(sim_view_on_screen(class_name, &view), "taking the keyboard apart");
    return static_cast<UIView*>(view);
}

/// Only their shape counts, and the system's key caps are translucent.
void make_key_caps_opaque() {
    auto black = [](id, SEL) { return id{text("UIKBColorBlack")}; };
    for (const char* name : {"defaultKeyBackgroundColorName", "controlKeyBackgroundColorName"})
        MSHookMessageEx(objc_getClass("UIKBRenderFactory"), sel_registerName(name),
                        reinterpret_cast<IMP>(+black), nullptr);
}

void draw_layer(const Layer& layer, const fs::path& phone, const fs::path& folder) {
    const std::string doing = std::string("drawing ") + layer.picture;
    in_child_process(doing, [&] {
        boot(phone, settings);
        load(HUECRAFT_LIBRARY);
        objc::AutoreleasePool pool;
        make_theme(layer);
        choose_theme(std::string(layer.theme) + ".plist");
    });
    in_child_process(doing, [&] {
        boot(phone, notes);
        load(HUECRAFT_LIBRARY);
        objc::AutoreleasePool pool;
        if (layer.caps) make_key_caps_opaque();
        take_pictures(keyboard_part("UIKBKeyplaneView"), folder, layer.picture);
    });
}

/// The system's backdrop over a plain page, as large as the keys.
void draw_background(const fs::path& phone, const fs::path& folder) {
    in_child_process("drawing PreviewKeyboardBackground", [&] {
        boot(phone, notes);
        objc::AutoreleasePool pool;
        const CGRect frame = keyboard_part("UIKBKeyplaneView")->bounds();
        auto page = UIView::alloc()->initWithFrame(frame);
        page->setBackgroundColor(UIColor::whiteColor());
        UIView* backdrop = keyboard_part("UIKBInputBackdropView");
        backdrop->setFrame(frame);
        page->addSubview(backdrop);
        take_pictures(page, folder, "PreviewKeyboardBackground");
    });
}

}  // namespace

void draw_preview_pictures(const fs::path& phone, const fs::path& folder) {
    draw_background(phone, folder);
    for (const Layer& layer : layers) draw_layer(layer, phone, folder);
}

}  // namespace resources
