// Puts a keyboard on the screen, and takes pictures of it.
#include "keyboard/show.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <optional>

#include "device/device.h"
#include "keyboard/UIKBKeyplaneView.h"
#include "keyboard/app_content.h"
#include "keyboard/backdrop_styles.h"
#include "keyboard/bars.h"
#include "keyboard/emoji_plane.h"
#include "keyboard/key_kind.h"
#include "keyboard/key_traits.h"
#include "keyboard/keyplanes.h"
#include "keyboard/make.h"
#include "keyboard/pop_up.h"

namespace sim {
namespace {

using objc::strong;

/// What is on the screen: the application's page with the keyboard on it. Kept until the process ends.
UIView*& shown_view() {
    static UIView* view = nullptr;
    return view;
}

template <class Value>
struct Choice {
    const char* name;
    Value value;
};

constexpr Choice<KeyboardPlane> planes[] = {{"letters", KeyboardPlane::letters},
                                            {"shifted", KeyboardPlane::shifted},
                                            {"numbers", KeyboardPlane::numbers},
                                            {"symbols", KeyboardPlane::symbols},
                                            {"emoji", KeyboardPlane::emoji}};
constexpr Choice<ReturnKey> return_keys[] = {{"return", ReturnKey::plain}, {"go", ReturnKey::go}};

/// The choice of that name, the first for an empty one; nothing, and what there is in `error`, for any other.
template <class Value, size_t Count>
std::optional<Value> choose(const Choice<Value> (&choices)[Count], const char* what, const std::string& name,
                            std::string& error) {
    if (name.empty()) return choices[0].value;
    std::string known;
    for (const auto& choice : choices) {
        if (name == choice.name) return choice.value;
        known += (known.empty() ? "" : ", ") + std::string(choice.name);
    }
    error = std::string("no ") + what + " is called \"" + name + "\"; there are " + known;
    return std::nullopt;
}

bool is_character(UIKBTree* key) { return static_cast<KeyKind>(key->displayType()) == KeyKind::character; }

/// The keyboard with its bars, in a view of its own size.
strong<UIView> make_keyboard(KeyboardPlane plane, UIKBTree* keyplane, UIKBTree* pressed,
                             const KeyboardMetrics& metrics) {
    const CGRect whole = metrics.whole();
    const CGRect keys{{0, metrics.prediction_height}, metrics.size};
    auto keyboard = make_view<UIView>(whole);
    keyboard->addSubview(make_view<UIKBInputBackdropView>(whole));
    keyboard->addSubview(make_prediction_bar({{0, 0}, {whole.size.width, metrics.prediction_height}}));

    auto factory = make<UIKBRenderFactory>();
    auto keyplane_view = UIKBKeyplaneView::alloc()->initWithFrame({{0, 0}, metrics.size}, keyplane, factory);
    keyplane_view->setPressedKey(pressed);
    strong<UIView> key_area = keyplane_view.get();
    if (plane == KeyboardPlane::emoji) key_area = make_emoji_plane(keyplane_view, metrics);
    key_area->setFrame(keys);
    keyboard->addSubview(key_area);

    const CGFloat dock_top = keys.origin.y + keys.size.height;
    keyboard->addSubview(make_dock({{0, dock_top}, {whole.size.width, metrics.dock_height}}));
    if (pressed && is_character(pressed)) {
        CGRect frame = pressed->frame();
        frame.origin.y += keys.origin.y;
        keyboard->addSubview(make_pop_up(pressed, frame, whole.size.width, factory));
    }
    return keyboard;
}

}  // namespace

bool show_keyboard(const KeyboardRequest& request, std::string& error) {
    const auto plane = choose(planes, "key plane", request.plane, error);
    const auto return_key =
        plane ? choose(return_keys, "return key", request.return_key, error) : std::nullopt;
    if (!return_key) return false;

    const KeyboardMetrics metrics = keyboard_metrics(request.landscape);
    strong<UIKBTree> keyplane = make_keyplane(*plane, *return_key, metrics);
    UIKBTree* pressed = request.pressed_key.empty() ? nullptr : find_key(keyplane, request.pressed_key);
    if (!pressed && !request.pressed_key.empty()) {
        error = "no key of this plane is called \"" + request.pressed_key +
                "\"; keys go by their text (\"g\", \"return\") or their name (\"shift\", \"Delete-Key\")";
        return false;
    }

    const Device& screen = device();
    CGSize size{screen.screen_width, screen.screen_height};
    if (request.landscape != (size.width > size.height)) std::swap(size.width, size.height);
    strong<UIView> page = make_app_content(size);
    strong<UIView> keyboard = make_keyboard(*plane, keyplane, pressed, metrics);
    CGRect frame = keyboard->frame();
    frame.origin.y = size.height - frame.size.height;
    keyboard->setFrame(frame);
    page->addSubview(keyboard);
    page->layoutIfNeeded();
    strong<UIView>::adopt(std::exchange(shown_view(), page.leak()));
    return true;
}

bool take_picture(const std::string& path, double scale, std::string& error) {
    UIView* view = shown_view();
    if (!view) {
        error = "nothing is on the screen";
        return false;
    }
    view->layoutIfNeeded();
    UIGraphicsBeginImageContextWithOptions(view->bounds().size, true, scale);
    view->drawViewHierarchyInRect(view->bounds(), true);
    NSData* png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    std::unique_ptr<std::FILE, decltype(&std::fclose)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (!file || std::fwrite(png->bytes(), 1, png->length(), file.get()) != png->length() ||
        std::fflush(file.get()) != 0) {
        error = "cannot write the picture " + path;
        return false;
    }
    return true;
}

}  // namespace sim
