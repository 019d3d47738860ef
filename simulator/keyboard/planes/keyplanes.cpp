// The key planes of the English keyboard.
#include "keyboard/planes/keyplanes.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "keyboard/names/key_names.h"
#include "keyboard/planes/key_kind.h"
#include "phone/device.h"

namespace sim {
namespace {

using objc::strong;

/// The texts of a plane's character keys, row by row, separated by spaces.
struct Plan {
    std::string_view rows[3];
    /// On the keys left of the third row, where null stands for a glyph, and of the fourth.
    const char *shift_text, *mode_text;
    KeyKind shift_kind = KeyKind::control;
};

// In the order of KeyboardPlane.
constexpr Plan plans[] = {
    {{"q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"}, nullptr, "123"},
    {{"Q W E R T Y U I O P", "A S D F G H J K L", "Z X C V B N M"}, nullptr, "123", KeyKind::engaged_control},
    {{"1 2 3 4 5 6 7 8 9 0", "- / : ; ( ) $ & @ \"", ". , ? ! '"}, "#+=", "ABC"},
    {{"[ ] { } # % ^ * + =", "_ \\ | ~ < > € £ ¥ •", ". , ? ! '"}, "123", "ABC"},
};

std::vector<std::string> words_of(std::string_view row) {
    std::vector<std::string> words;
    while (!row.empty()) {
        const size_t end = std::min(row.find(' '), row.size());
        words.emplace_back(row.substr(0, end));
        row.remove_prefix(std::min(end + 1, row.size()));
    }
    return words;
}

NSString* string_of(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

strong<UIKBTree> make_tree(TreeType type) { return UIKBTree::alloc()->initWithType(static_cast<int>(type)); }

/// Places keys on a plane, left and right being where each begins and ends.
class Planner {
  public:
    Planner(const KeyboardMetrics& metrics, UIKBTree* plane) : metrics_(metrics), plane_(plane) {}

    void add(CGRect frame, const std::string& name, const char* text, KeyKind kind) {
        strong<UIKBTree> key = make_tree(TreeType::key);
        key->setFrame(frame);
        key->setName(string_of(name));
        if (text) key->setDisplayString(NSString::stringWithUTF8String(text));
        if (kind == KeyKind::character) key->setRepresentedString(key->displayString());
        if (kind == KeyKind::space) key->setRepresentedString(string_of(" "));
        key->setDisplayType(static_cast<int>(kind));
        plane_->subtrees()->addObject(key);
    }

    void add_centred_row(int row, std::string_view characters) {
        const auto texts = words_of(characters);
        add_characters(row, (metrics_.size.width - columns(static_cast<CGFloat>(texts.size()))) / 2,
                       metrics_.key.width, texts);
    }

    /// However many characters there are, they share the room of seven letters.
    void add_third_row(const Plan& plan) {
        const CGFloat side_key = metrics_.key.width * 4 / 3, end = metrics_.size.width - metrics_.side;
        add(2, metrics_.side, metrics_.side + side_key, "Shift-Key", plan.shift_text, plan.shift_kind);
        const auto texts = words_of(plan.rows[2]);
        const CGFloat room = columns(7), count = static_cast<CGFloat>(texts.size());
        add_characters(2, (metrics_.size.width - room) / 2, (room - (count - 1) * metrics_.gap) / count,
                       texts);
        add(2, end - side_key, end, "Delete-Key", nullptr, KeyKind::control);
    }

    /// With a globe and a microphone between the other plane's key and the space bar, unless the dock has
    /// them.
    void add_last_row(const Plan& plan, ReturnKey return_key) {
        const CGFloat wide_key = 2 * metrics_.key.width + 4 * metrics_.gap;
        const CGFloat end = metrics_.size.width - metrics_.side, space_end = end - wide_key - metrics_.gap;
        CGFloat left = metrics_.side;
        auto add_left = [&](CGFloat width, const char* name, const char* text) {
            add(3, left, left + width, name, text, KeyKind::control);
            left += width + metrics_.gap;
        };
        if (metrics_.dock_height > 0) {
            add_left(wide_key, "More-Key", plan.mode_text);
        } else {
            const CGFloat narrow_key = metrics_.key.width + metrics_.gap / 2;
            add_left(narrow_key, "More-Key", plan.mode_text);
            add_left(narrow_key, "International-Key", nullptr);
            add_left(narrow_key, "Dictation-Key", nullptr);
        }
        const bool confirms = return_key == ReturnKey::go;
        add(3, left, space_end, "Space-Key", "space", KeyKind::space);
        add(3, end - wide_key, end, "Return-Key", confirms ? "Go" : "return",
            confirms ? KeyKind::confirming : KeyKind::control);
        add(3, space_end - 30, space_end - 4, "EnabledLanguageIndicator", "EN", KeyKind::indicator);
    }

  private:
    /// Frames end on whole pixels.
    static CGFloat snapped(CGFloat points) {
        const double scale = device().screen_scale;
        return std::round(points * scale) / scale;
    }

    void add(int row, CGFloat left, CGFloat right, const std::string& name, const char* text, KeyKind kind) {
        const CGFloat x = snapped(left), y = snapped(metrics_.top + row * metrics_.row_pitch);
        add({{x, y}, {snapped(right) - x, metrics_.key.height}}, name, text, kind);
    }

    void add_characters(int row, CGFloat left, CGFloat width, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            add(row, left, left + width, name_of_character(text), text.c_str(), KeyKind::character);
            left += width + metrics_.gap;
        }
    }

    /// The room that `count` keys of one column each take, gaps between them included.
    CGFloat columns(CGFloat count) const { return count * metrics_.key.width + (count - 1) * metrics_.gap; }

    const KeyboardMetrics& metrics_;
    UIKBTree* plane_;
};

std::string lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string text_of(NSString* text) { return text ? text->UTF8String() : ""; }

}  // namespace

strong<UIKBTree> make_keyplane(KeyboardPlane plane, ReturnKey return_key, const KeyboardMetrics& metrics) {
    strong<UIKBTree> tree = make_tree(TreeType::keyplane);
    Planner planner(metrics, tree);
    if (plane == KeyboardPlane::emoji) {
        // Two keys, at the ends of the category bar.
        tree->setVisualStyle(static_cast<int>(VisualStyle::emoji));
        const CGSize key{emoji_bar_key_width, emoji_bar_height};
        const CGFloat top = metrics.size.height - key.height, end = metrics.size.width - key.width;
        planner.add({{key.width, top}, {end - key.width, key.height}}, "Category-Bar", nullptr,
                    KeyKind::categories);
        planner.add({{0, top}, key}, "More-Key", "ABC", KeyKind::emoji_control);
        planner.add({{end, top}, key}, "Delete-Key", nullptr, KeyKind::emoji_control);
        return tree;
    }
    const Plan& plan = plans[static_cast<size_t>(plane)];
    planner.add_centred_row(0, plan.rows[0]);
    planner.add_centred_row(1, plan.rows[1]);
    planner.add_third_row(plan);
    planner.add_last_row(plan, return_key);
    return tree;
}

bool can_be_pressed(UIKBTree* key) {
    const auto kind = static_cast<KeyKind>(key->displayType());
    return kind != KeyKind::indicator && kind != KeyKind::categories;
}

UIKBTree* find_key(UIKBTree* plane, const std::string& text_or_name) {
    NSArray* keys = plane->subtrees();
    for (NSUInteger index = 0; index < keys->count(); ++index) {
        auto* key = static_cast<UIKBTree*>(keys->objectAtIndex(index));
        if (!can_be_pressed(key)) continue;
        const std::string name = text_of(key->name());
        if (text_of(key->displayString()) == text_or_name || name == text_or_name ||
            lowered(name) == lowered(text_or_name) + "-key")
            return key;
    }
    return nullptr;
}

}  // namespace sim
