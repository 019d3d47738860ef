// Tables: rows that are deleted, inserted and moved by a finger.
#include <algorithm>

#include "objc/string.h"
#include "uikit/tables/UITableView.h"
#include "uikit/tables/UITableViewCell.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

// A row can be edited if the data source says so, or says nothing and commits edits.
UITableViewCellEditingStyle TableView::editing_style(RowPlace place) {
    auto* self = this->self();
    constexpr auto commits = objc::selector<"tableView:commitEditingStyle:forRowAtIndexPath:">;
    constexpr auto can_edit = objc::selector<"tableView:canEditRowAtIndexPath:">;
    NSIndexPath* path = path_of(place);
    const bool editable =
        source_answers(can_edit()) ? source()->canEditRow(self, path) : source_answers(commits());
    if (!editable || (!ivars().editing && !source_answers(commits()))) return UITableViewCellEditingStyleNone;
    if (!delegate_answers(objc::selector<"tableView:editingStyleForRowAtIndexPath:">()))
        return UITableViewCellEditingStyleDelete;
    return table_delegate()->editingStyleForRow(self, path);
}

bool TableView::can_move(RowPlace place) {
    auto* self = this->self();
    if (!source_answers(objc::selector<"tableView:moveRowAtIndexPath:toIndexPath:">())) return false;
    if (!source_answers(objc::selector<"tableView:canMoveRowAtIndexPath:">())) return true;
    return source()->canMoveRow(self, path_of(place));
}

void TableView::setEditingAnimated(bool editing, bool) {
    if (ivars().editing == editing) return;
    swipe(std::nullopt);
    ivars().editing = editing;
    highlight(std::nullopt);
    const auto shown = ivars().shown;
    for (const auto& [place, cell] : shown) prepare_cell(place, cell);
    self()->setNeedsLayout();
}

/// Shows the delete button of that row alone.
void TableView::swipe(std::optional<RowPlace> place) {
    auto* self = this->self();
    if (ivars().swiped)
        if (auto found = ivars().shown.find(*ivars().swiped); found != ivars().shown.end())
            static_cast<TableCell*>(found->second.get())->show_delete_button(false, nullptr);
    ivars().swiped = place;
    if (!place) return;
    const auto found = ivars().shown.find(*place);
    if (found == ivars().shown.end()) return;
    NSString* title = "Delete"_ns;
    if (delegate_answers(objc::selector<"tableView:titleForDeleteConfirmationButtonForRowAtIndexPath:">()))
        if (NSString* own = table_delegate()->titleForDeleteConfirmation(self, path_of(*place))) title = own;
    static_cast<TableCell*>(found->second.get())->show_delete_button(true, title);
}

// A minus asks once more, a plus does not.
void TableView::edit_pressed(UITableViewCell* cell) {
    auto* self = this->self();
    NSIndexPath* path = self->indexPathForCell(cell);
    if (!path) return;
    if (cell->editingStyle() == UITableViewCellEditingStyleInsert)
        return source()->commitEditing(self, UITableViewCellEditingStyleInsert, path);
    const bool is_open = ivars().swiped == place_of(path);
    swipe(is_open ? std::nullopt : std::optional(place_of(path)));
}

void TableView::delete_pressed(UITableViewCell* cell) {
    auto* self = this->self();
    const strong<UITableView> kept = self;
    NSIndexPath* path = self->indexPathForCell(cell);
    if (!path) return;
    swipe(std::nullopt);
    source()->commitEditing(self, UITableViewCellEditingStyleDelete, path);
}

// ---- Moving -------------------------------------------------------------------------------------

// The row stays under the finger. The table does not scroll by itself at its ends.
bool TableView::begin_moving(UITableViewCell* cell, CGFloat finger) {
    NSIndexPath* path = self()->indexPathForCell(cell);
    if (!path) return false;
    swipe(std::nullopt);
    ivars().moving = ivars().moving_to = place_of(path);
    ivars().finger = finger;
    ivars().grip = finger - cell->frame().origin.y;
    return true;
}

void TableView::go_on_moving(CGFloat finger) {
    if (!ivars().moving) return;
    auto* self = this->self();
    ivars().finger = finger;
    const CGRect row = rect_of(*ivars().moving);
    const CGFloat middle = finger - ivars().grip + row.size.height / 2;
    NSIndexPath* proposed = self->indexPathForRowAtPoint({0, middle});
    if (proposed) {
        NSIndexPath* from = path_of(*ivars().moving);
        constexpr auto question =
            objc::selector<"tableView:targetIndexPathForMoveFromRowAtIndexPath:toProposedIndexPath:">;
        if (delegate_answers(question())) proposed = table_delegate()->targetForMove(self, from, proposed);
        ivars().moving_to = place_of(proposed);
    }
    self->setNeedsLayout();
}

CGFloat TableView::moved_aside(RowPlace place) {
    if (!ivars().moving || place == *ivars().moving) return 0;
    const RowPlace from = *ivars().moving, to = *ivars().moving_to;
    const CGFloat height = rect_of(from).size.height;
    if (from < place && place <= to) return -height;
    if (to <= place && place < from) return height;
    return 0;
}

// The cells have moved along with their rows by now; the data source is notified last.
void TableView::end_moving(bool done) {
    if (!ivars().moving) return;
    auto* self = this->self();
    const strong<UITableView> kept = self;
    const RowPlace from = *std::exchange(ivars().moving, std::nullopt);
    const RowPlace to = *std::exchange(ivars().moving_to, std::nullopt);
    self->setNeedsLayout();
    if (!done || from == to) return;
    source()->moveRow(self, path_of(from), path_of(to));
    self->moveRow(path_of(from), path_of(to));
}

}  // namespace sim
