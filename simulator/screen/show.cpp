// Puts a keyboard, a view or a view controller on the screen, and takes pictures of it.
#include "screen/show.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "keyboard/candidates/candidates.h"
#include "keyboard/dock/dock.h"
#include "keyboard/emoji/emoji_plane.h"
#include "keyboard/keys/pop_up.h"
#include "keyboard/make.h"
#include "keyboard/planes/UIKBKeyplaneView.h"
#include "keyboard/planes/key_kind.h"
#include "keyboard/planes/keyplanes.h"
#include "keyboard/planes/split.h"
#include "keyboard/prediction/prediction_bar.h"
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "keyboard/switcher/switcher.h"
#include "keyboard/window/input_window.h"
#include "phone/device.h"
#include "screen/app_content.h"
#include "screen/picture.h"
#include "uikit/controllers/screen.h"

namespace sim {
namespace {

using objc::strong;

std::vector<ShownKey>& keys_on_screen() {
    static std::vector<ShownKey> keys;
    return keys;
}

/// The page replaces the one that was shown.
void show_page(UIView* page, std::vector<ShownKey> keys) {
    show_on_screen(page);
    keys_on_screen() = std::move(keys);
}

strong<UIView> make_notes() {
    return make_app_content(AppContent::notes, {device().screen_width, device().screen_height});
}

UIView* find_view_inside(UIView* tree, Class type) {
    NSArray* subviews = tree->subviews();
    for (NSUInteger index = 0; index < subviews->count(); ++index) {
        auto* subview = static_cast<UIView*>(subviews->objectAtIndex(index));
        if (subview->isKindOfClass(type)) return subview;
        if (UIView* found = find_view_inside(subview, type)) return found;
    }
    return nullptr;
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
constexpr Choice<AppContent> backgrounds[] = {
    {"notes", AppContent::notes}, {"light", AppContent::light}, {"busy", AppContent::busy}};
constexpr Choice<Candidates> candidates_shown[] = {
    {"none", Candidates::none}, {"row", Candidates::row}, {"expanded", Candidates::expanded}};

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

std::string utf8(NSString* text) { return text ? text->UTF8String() : ""; }

/// The plane's keys, moved to where the plane stands on the screen.
std::vector<ShownKey> keys_of(UIKBTree* keyplane, CGFloat top) {
    std::vector<ShownKey> keys;
    NSArray* trees = keyplane->subtrees();
    for (NSUInteger index = 0; index < trees->count(); ++index) {
        auto* key = static_cast<UIKBTree*>(trees->objectAtIndex(index));
        if (!can_be_pressed(key)) continue;
        CGRect frame = key->frame();
        frame.origin.y += top;
        keys.push_back({utf8(key->name()), utf8(key->displayString()), frame});
    }
    return keys;
}

bool is_character(UIKBTree* key) { return static_cast<KeyKind>(key->displayType()) == KeyKind::character; }

strong<UIView> make_key_area(KeyboardPlane plane, UIKBTree* keyplane, UIKBTree* pressed,
                             const KeyboardMetrics& metrics) {
    auto keyplane_view = UIKBKeyplaneView::alloc()->initWithFrame({{0, 0}, metrics.size}, keyplane);
    if (pressed) keyplane_view->setState(static_cast<int>(KeyState::pressed), pressed);
    if (plane == KeyboardPlane::emoji) return make_emoji_plane(keyplane_view, metrics);
    return strong<UIView>(keyplane_view.get());
}

/// The keyboard with its bars, in a view of its own size.
strong<UIView> make_keyboard(const KeyboardRequest& request, KeyboardPlane plane, Candidates candidates,
                             UIKBTree* keyplane, UIKBTree* pressed, const KeyboardMetrics& metrics) {
    constexpr CGFloat accessory_height = 44, switcher_margin = 6;
    const CGFloat width = metrics.size.width;
    UIKBRenderFactory* factory = factory_of(keyplane);
    InputParts parts;
    if (request.form_accessory)
        parts.accessory = make_view<UIWebFormAccessory>({{0, 0}, {width, accessory_height}}).get();
    if (candidates != Candidates::none)
        parts.candidate_height = metrics.prediction_height;
    else if (!request.split)
        parts.predictions = make_prediction_bar({{0, 0}, {width, metrics.prediction_height}});
    parts.keys = make_key_area(plane, keyplane, pressed, metrics);
    if (candidates == Candidates::expanded) parts.keys->setHidden(true);
    if (metrics.dock_height > 0) parts.dock = make_dock({{0, 0}, {width, metrics.dock_height}});
    const InputWindow window = make_input_window(parts, width, request.split);

    // They appear while something is typed, in a window that is there.
    if (auto shown = make_candidates(candidates, {0, window.candidate_top}, metrics))
        window.host->addSubview(shown);
    if (pressed && is_character(pressed)) {
        CGRect frame = pressed->frame();
        frame.origin.y += window.key_top;
        window.host->addSubview(make_pop_up(pressed, frame, width, factory));
    }
    if (request.switcher) {
        // Over the globe, which is a key of the last row or in the dock.
        const CGFloat globe_top = window.dock_top - (metrics.dock_height > 0 ? 0 : metrics.row_pitch);
        window.host->addSubview(make_switcher({switcher_margin, globe_top}));
    }
    return window.host;
}

/// False for what no keyboard has at once.
bool can_be_shown(const KeyboardRequest& request, KeyboardPlane plane, Candidates candidates,
                  std::string& error) {
    if (request.split && plane == KeyboardPlane::emoji)
        error =
            "the emoji plane is never split; the planes that can be are letters, shifted, numbers, symbols";
    else if (request.split && candidates != Candidates::none)
        error = "a split keyboard has no candidates; they are \"" + request.candidates + "\"";
    else if (candidates == Candidates::expanded && !request.pressed_key.empty())
        error =
            "expanded candidates are in place of the keys; \"" + request.pressed_key + "\" cannot be pressed";
    return error.empty();
}

}  // namespace

bool show_keyboard(const KeyboardRequest& request, std::string& error) {
    const auto plane = choose(planes, "key plane", request.plane, error);
    if (!plane) return false;
    const auto return_key = choose(return_keys, "return key", request.return_key, error);
    if (!return_key) return false;
    const auto background = choose(backgrounds, "background", request.background, error);
    if (!background) return false;
    const auto candidates = choose(candidates_shown, "kind of candidates", request.candidates, error);
    if (!candidates) return false;
    if (!can_be_shown(request, *plane, *candidates, error)) return false;

    const KeyboardMetrics metrics = keyboard_metrics(request.landscape);
    strong<UIKBTree> keyplane = make_keyplane(*plane, *return_key, metrics);
    if (request.split) split_keyplane(keyplane, metrics);
    UIKBTree* pressed = request.pressed_key.empty() ? nullptr : find_key(keyplane, request.pressed_key);
    if (!pressed && !request.pressed_key.empty()) {
        error = "no key of this plane is called \"" + request.pressed_key +
                "\"; keys go by their text (\"g\", \"return\") or their name (\"shift\", \"Delete-Key\")";
        return false;
    }

    const Device& screen = device();
    CGSize size{screen.screen_width, screen.screen_height};
    if (request.landscape != (size.width > size.height)) std::swap(size.width, size.height);
    strong<UIView> page = make_app_content(*background, size);
    strong<UIView> keyboard = make_keyboard(request, *plane, *candidates, keyplane, pressed, metrics);
    CGRect frame = keyboard->frame();
    frame.origin.y = size.height - frame.size.height;
    keyboard->setFrame(frame);
    page->addSubview(keyboard);
    std::vector<ShownKey> keys;
    if (*candidates != Candidates::expanded)
        keys = keys_of(keyplane, size.height - metrics.dock_height - metrics.size.height);
    show_page(page, std::move(keys));
    return true;
}

const std::vector<ShownKey>& shown_keys() { return keys_on_screen(); }

void show_view(UIView* view) {
    strong<UIView> page = make_notes();
    page->addSubview(view);
    show_page(page, {});
}

void present(UIViewController* controller) {
    show_page(make_notes(), {});
    screen_window()->rootViewController()->presentViewController(controller, true, nullptr);
}

UIView* view_on_screen(Class type) {
    return screen_window() ? find_view_inside(screen_window(), type) : nullptr;
}

bool take_picture(const std::string& path, double scale, std::string& error) {
    UIView* page = screen_window();
    if (!page) {
        error = "nothing is on the screen";
        return false;
    }
    return write_picture(page, PictureGround::black, scale, path, error);
}

}  // namespace sim
