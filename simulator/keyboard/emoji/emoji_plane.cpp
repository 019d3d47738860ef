// The emoji plane.
#include "keyboard/emoji/emoji_plane.h"

#include <iterator>

#include "keyboard/make.h"
#include "keyboard/rendering/key_painter.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

// Column by column, as many as there is room for.
constexpr const char* emoji[] = {"😀", "😂", "😍", "😎", "😊", "😉", "😘", "😜", "🤔", "😴", "😭",
                                 "😡", "👍", "👏", "🙏", "💪", "❤️",  "🔥", "✨", "🎉", "🎈", "🎁",
                                 "🌞", "🌈", "🌸", "🍀", "🌲", "🐶", "🐱", "🦊", "🐼", "🐙", "🍎",
                                 "🍓", "🍕", "🍔", "🍰", "☕", "⚽", "🎸", "🚗", "🚀", "🏠", "🎵",
                                 "📷", "💡", "📚", "⏰", "💬", "✅", "❓", "🌍"};

constexpr CGFloat header_top = 6, header_height = 16, side = 8;
constexpr CGFloat cell_width = 44.5, cell_height = 37, emoji_size = 26;

UILabel* make_emoji_label(UIKBTextStyle* style, const char* text, CGRect frame) {
    strong<UILabel> label = make_label(style, NSString::stringWithUTF8String(text));
    label->setFrame(frame);
    return std::move(label).autoreleased();
}

void add_emoji(UIView* plane, const KeyboardMetrics& metrics) {
    UIKBTextStyle* style = UIKBTextStyle::style("AppleColorEmoji"_ns, emoji_size);
    const CGFloat top = header_top + header_height + 2;
    const int rows = static_cast<int>((metrics.size.height - emoji_bar_height - top) / cell_height);
    const int columns = static_cast<int>((metrics.size.width - 2 * side) / cell_width);
    const CGFloat left = (metrics.size.width - columns * cell_width) / 2;
    for (int index = 0; index < rows * columns && index < static_cast<int>(std::size(emoji)); ++index) {
        const int column = index / rows, row = index % rows;
        const CGRect cell{{left + column * cell_width, top + row * cell_height}, {cell_width, cell_height}};
        plane->addSubview(make_emoji_label(style, emoji[index], cell));
    }
}

}  // namespace

strong<UIView> make_emoji_plane(UIView* keyplane_view, const KeyboardMetrics& metrics) {
    auto plane = make_view<UIView>({{0, 0}, metrics.size});
    auto header = make_view<UIKeyboardEmojiSectionHeader>(
        {{side + 4, header_top}, {metrics.size.width - 2 * side, header_height}});
    header->setHeaderName("FREQUENTLY USED"_ns);
    plane->addSubview(header);
    add_emoji(plane, metrics);
    plane->addSubview(keyplane_view);
    return plane;
}

}  // namespace sim
