// Tables: rows that are touched, selected and swiped.
#include <cmath>

#include "uikit/tables/UITableView.h"
#include "uikit/tables/UITableViewCell.h"

namespace sim {

using objc::strong;

NSIndexPath* TableView::indexPathForSelectedRow() {
    return ivars().selected ? path_of(*ivars().selected) : nullptr;
}

void TableView::mark(RowPlace place, bool selected) {
    if (auto found = ivars().shown.find(place); found != ivars().shown.end()) {
        const strong<UITableViewCell> cell = found->second;
        cell->setSelected(selected, false);
    }
}

void TableView::selectRow(NSIndexPath* path, bool animated, UITableViewScrollPosition position) {
    if (ivars().selected) mark(*std::exchange(ivars().selected, std::nullopt), false);
    if (!path || !has_row(place_of(path))) return;
    ivars().selected = place_of(path);
    mark(*ivars().selected, true);
    if (position != UITableViewScrollPositionNone) self()->scrollToRow(path, position, animated);
}

void TableView::deselectRow(NSIndexPath* path, bool) {
    if (!ivars().selected || *ivars().selected != place_of(path)) return;
    mark(*std::exchange(ivars().selected, std::nullopt), false);
}

void TableView::select_by_touch(RowPlace place) {
    auto* self = this->self();
    const strong<UITableView> kept = self;
    NSIndexPath* path = path_of(place);
    if (delegate_answers(objc::selector<"tableView:willSelectRowAtIndexPath:">()))
        path = table_delegate()->willSelectRow(self, path);
    if (!path || !has_row(place_of(path))) return;
    const auto before = ivars().selected;
    if (before && *before != place_of(path)) {
        mark(*before, false);
        ivars().selected = std::nullopt;
        if (delegate_answers(objc::selector<"tableView:didDeselectRowAtIndexPath:">()))
            table_delegate()->didDeselectRow(self, path_of(*before));
    }
    ivars().selected = place_of(path);
    mark(*ivars().selected, true);
    if (delegate_answers(objc::selector<"tableView:didSelectRowAtIndexPath:">()))
        table_delegate()->didSelectRow(self, path);
}

void TableView::detail_pressed(UITableViewCell* cell) {
    auto* self = this->self();
    NSIndexPath* path = self->indexPathForCell(cell);
    if (path && delegate_answers(objc::selector<"tableView:accessoryButtonTappedForRowWithIndexPath:">()))
        table_delegate()->accessoryButtonTapped(self, path);
}

void TableView::highlight(std::optional<RowPlace> place) {
    if (ivars().touched == place) return;
    for (auto each : {std::exchange(ivars().touched, place), place})
        if (each)
            if (auto found = ivars().shown.find(*each); found != ivars().shown.end()) {
                const strong<UITableViewCell> cell = found->second;
                cell->setHighlighted(each == place, false);
            }
}

void TableView::touchesBegan(NSSet* touches, UIEvent*) {
    auto* self = this->self();
    const CGPoint point = static_cast<UITouch*>(touches->anyObject())->locationInView(self);
    ivars().landing = point;
    ivars().swipes = false;
    // A touch elsewhere puts the delete button away, and does nothing else.
    if (ivars().swiped) {
        swipe(std::nullopt);
        return;
    }
    NSIndexPath* path = self->indexPathForRowAtPoint(point);
    if (!path || !self->allowsSelection() || (ivars().editing && !self->allowsSelectionDuringEditing()))
        return;
    if (delegate_answers(objc::selector<"tableView:shouldHighlightRowAtIndexPath:">()) &&
        !table_delegate()->shouldHighlightRow(self, path))
        return;
    highlight(place_of(path));
}

// A finger that goes across from the trailing end uncovers the button that deletes.
void TableView::touchesMoved(NSSet* touches, UIEvent*) {
    constexpr CGFloat far_enough = 30;
    auto* self = this->self();
    const CGPoint point = static_cast<UITouch*>(touches->anyObject())->locationInView(self);
    const bool leftwards =
        self->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
    const CGFloat across = leftwards ? point.x - ivars().landing.x : ivars().landing.x - point.x;
    const CGFloat down = std::abs(point.y - ivars().landing.y);
    if (ivars().swipes || ivars().editing || across <= far_enough || down > across) return;
    NSIndexPath* path = self->indexPathForRowAtPoint(ivars().landing);
    highlight(std::nullopt);
    ivars().swipes = true;
    if (path && editing_style(place_of(path)) == UITableViewCellEditingStyleDelete) swipe(place_of(path));
}

void TableView::touchesEnded(NSSet* touches, UIEvent*) {
    auto* self = this->self();
    const CGPoint point = static_cast<UITouch*>(touches->anyObject())->locationInView(self);
    const auto touched = ivars().touched;
    highlight(std::nullopt);
    NSIndexPath* path = self->indexPathForRowAtPoint(point);
    if (touched && path && place_of(path) == *touched) select_by_touch(*touched);
}

void TableView::touchesCancelled(NSSet*, UIEvent*) { highlight(std::nullopt); }

}  // namespace sim
