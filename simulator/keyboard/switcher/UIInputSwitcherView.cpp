// The input switcher: the phone's keyboards, and a row of pictures for where the keyboard stands.
#include <iterator>

#include "keyboard/make.h"
#include "keyboard/rendering/path.h"
#include "keyboard/switcher/UIInputSwitcherSegmentedTableCell.h"
#include "keyboard/switcher/UIKeyboardMenuView.h"
#include "objc/class.h"

namespace {

using objc::strong;
using sim::Path;
using namespace objc::literals;

constexpr const char* keyboards[] = {"English (US)", "Emoji", "Deutsch"};
constexpr NSInteger keyboard_count = std::size(keyboards);
constexpr CGFloat width = 216, row_height = 44, segment_height = 48;

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

strong<UITableViewCell> segmented_cell() {
    auto cell = objc::adopt(static_cast<UIInputSwitcherSegmentedTableCell*>(
        UIInputSwitcherSegmentedTableCell::alloc()->initWithStyle(0, "positions"_ns).leak()));
    for (Position position : positions) {
        auto segment = sim::make_view<UIInputSwitcherTableCellSegmentView>();
        if (!segment) break;
        sim::set_images(segment, picture_of(position, false), picture_of(position, true));
        segment->setSelected(position == Position::middle);
        cell->segmentControl()->addSubview(segment);
    }
    return strong<UITableViewCell>(cell.get());
}

strong<UITableViewCell> keyboard_cell(NSInteger index) {
    auto cell = UIInputSwitcherTableCell::alloc()->initWithStyle(0, "keyboard"_ns);
    cell->textLabel()->setText(NSString::stringWithUTF8String(keyboards[index]));
    cell->setSelected(index == 0, false);
    return strong<UITableViewCell>(cell.get());
}

struct SwitcherView : objc::Implements<SwitcherView, UIInputSwitcherView> {
    using Ivars = objc::NoIvars;

    CGSize preferredSize() { return {width, keyboard_count * row_height + segment_height}; }

    NSInteger numberOfItems() { return keyboard_count + 1; }

    UITableViewCell* cellForRow(UITableView*, NSIndexPath* path) {
        strong<UITableViewCell> cell = is_segmented(path) ? segmented_cell() : keyboard_cell(path->item());
        // Without their classes the rows are plain ones.
        if (!cell) cell = UITableViewCell::make<"initWithStyle:reuseIdentifier:">(NSInteger{0}, "plain"_ns);
        return std::move(cell).autoreleased();
    }

    CGFloat heightForRow(UITableView*, NSIndexPath* path) {
        return is_segmented(path) ? segment_height : row_height;
    }

  private:
    static bool is_segmented(NSIndexPath* path) { return path->item() == keyboard_count; }
};

}  // namespace

using namespace objc::definition;
using Switcher = SwitcherView;

OBJC_CLASS(UIInputSwitcherView, UIKeyboardMenuView, SwitcherView,
           method<"preferredSize", &Switcher::preferredSize>,
           method<"numberOfItems", &Switcher::numberOfItems>,
           method<"tableView:cellForRowAtIndexPath:", &Switcher::cellForRow>,
           method<"tableView:heightForRowAtIndexPath:", &Switcher::heightForRow>)
