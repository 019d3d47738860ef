// The input switcher, open.
#include "keyboard/switcher.h"

#include <algorithm>
#include <iterator>

#include "keyboard/backdrops/backdrop_styles.h"
#include "keyboard/make.h"
#include "keyboard/path.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

constexpr const char* keyboards[] = {"English (US)", "Emoji", "Deutsch"};
constexpr CGFloat width = 216, row_height = 44, segment_height = 48, corner_radius = 12;
constexpr CGFloat list_height = std::size(keyboards) * row_height;

/// Where a keyboard can stand: for the left hand, over the whole width, for the right hand.
enum class Position { left, middle, right };
constexpr Position positions[] = {Position::left, Position::middle, Position::right};

/// A keyboard with four keys and a space bar, drawn as lines, or as a surface with the keys cut out.
UIImage* picture_of(Position position, bool inverted) {
    constexpr CGSize size{36, 24};
    constexpr CGFloat line = 1.5, narrow = 25;
    const CGFloat body_width = position == Position::middle ? size.width - 2 : narrow;
    const CGRect body{{position == Position::right ? size.width - 1 - narrow : 1, 2}, {body_width, 20}};
    const CGFloat middle = body.origin.x + body_width / 2;

    UIGraphicsBeginImageContextWithOptions(size, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetGrayFillColor(context, 0.1, 1);
    CGContextSetStrokeColorWithColor(context, UIColor::colorWithWhite(0.1, 1)->CGColor());
    CGContextSetLineWidth(context, line);
    const Path outline = Path::rounded(body, 3.5);
    CGContextAddPath(context, outline);
    if (!inverted) {
        CGContextStrokePath(context);
        CGContextBeginPath(context);
    }
    for (CGFloat key : {-7.5, -2.5, 2.5, 7.5})
        CGContextAddRect(context, {{middle + key - 1.25, body.origin.y + 5}, {2.5, 2.5}});
    CGContextAddRect(context, {{middle - 6, body.origin.y + 12}, {12, 2.5}});
    CGContextEOFillPath(context);
    if (position != Position::middle) {
        const CGFloat tip = position == Position::left ? 34 : 2, wing = position == Position::left ? -4 : 4;
        CGContextBeginPath(context);
        CGContextMoveToPoint(context, tip + wing, 7);
        CGContextAddLineToPoint(context, tip, 12);
        CGContextAddLineToPoint(context, tip + wing, 17);
        CGContextStrokePath(context);
    }
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

void add_line(UIView* panel, CGFloat top) {
    auto line = make_view<UIView>({{0, top}, {width, 0.5}});
    line->setBackgroundColor(UIColor::colorWithWhite(0, 0.25));
    panel->addSubview(line);
}

void add_list(UIView* panel) {
    auto table = make_view<UIInputSwitcherTableView>({{0, 0}, {width, list_height}});
    for (const char* name : keyboards) {
        auto cell = UIInputSwitcherTableCell::alloc()->initWithStyle(0, "keyboard"_ns);
        cell->textLabel()->setText(NSString::stringWithUTF8String(name));
        cell->setChecked(name == keyboards[0]);
        table->addSubview(cell);
    }
    panel->addSubview(table);
    for (size_t row = 1; row <= std::size(keyboards); ++row) add_line(panel, row * row_height);
}

void add_segments(UIView* panel) {
    constexpr CGFloat segment_width = width / std::size(positions);
    CGFloat left = 0;
    for (Position position : positions) {
        auto segment = make_view<UIInputSwitcherTableCellSegmentView>(
            {{left, list_height}, {segment_width, segment_height}});
        segment->setOriginalImage(picture_of(position, false));
        segment->setInvertedImage(picture_of(position, true));
        segment->setSelected(position == Position::middle);
        panel->addSubview(segment);
        left += segment_width;
    }
}

}  // namespace

strong<UIView> make_switcher(CGPoint corner) {
    constexpr CGSize size{width, list_height + segment_height};
    const CGRect whole{{0, 0}, size};
    auto shadow = make_view<UIView>({{corner.x, corner.y - size.height}, size});
    shadow->layer()->setShadowColor(UIColor::blackColor()->CGColor());
    shadow->layer()->setShadowOpacity(0.3f);
    shadow->layer()->setShadowRadius(8);
    shadow->layer()->setShadowOffset({0, 2});
    shadow->layer()->setShadowPath(Path::rounded(whole, corner_radius));

    auto panel = make_view<UIView>(whole);
    panel->layer()->setCornerRadius(corner_radius);
    panel->layer()->setMasksToBounds(true);
    const NSInteger style = UIKBRenderConfig::backdropStyle(keyboard_style_light, keyboard_quality_full);
    panel->addSubview(UIKBBackdropView::alloc()->initWithFrame(whole, style));
    add_list(panel);
    add_segments(panel);
    shadow->addSubview(panel);
    return shadow;
}

}  // namespace sim
