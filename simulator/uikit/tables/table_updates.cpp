// Tables: rows that are inserted, deleted, moved and reloaded, while the others keep their cells. Nothing is
// animated.
#include <algorithm>
#include <string>

#include "foundation/raise.h"
#include "objc/string.h"
#include "uikit/tables/UITableView.h"
#include "uikit/tables/UITableViewCell.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

namespace {

void add_all(std::vector<RowPlace>& list, NSArray* paths) {
    for (NSUInteger i = 0; i < paths->count(); ++i)
        list.push_back(place_of(static_cast<NSIndexPath*>(paths->objectAtIndex(i))));
}

bool holds(const std::vector<RowPlace>& list, RowPlace place) {
    return std::find(list.begin(), list.end(), place) != list.end();
}

NSInteger count_in(const std::vector<RowPlace>& list, NSInteger section) {
    return std::count_if(list.begin(), list.end(), [&](RowPlace place) { return place.first == section; });
}

/// Where each of a section's old rows stands afterwards; -1 for those that are gone or moved away.
std::vector<NSInteger> new_rows(NSInteger section, NSInteger old_count, const std::vector<RowPlace>& gone,
                                const std::vector<RowPlace>& come) {
    std::vector<NSInteger> rows(static_cast<size_t>(old_count), -1);
    NSInteger next = 0;
    for (NSInteger row = 0; row < old_count; ++row) {
        if (holds(gone, {section, row})) continue;
        while (holds(come, {section, next})) ++next;
        rows[static_cast<size_t>(row)] = next++;
    }
    return rows;
}

}  // namespace

void TableView::insertRows(NSArray* paths, UITableViewRowAnimation) {
    self()->beginUpdates();
    add_all(ivars().updates.inserted, paths);
    self()->endUpdates();
}

void TableView::deleteRows(NSArray* paths, UITableViewRowAnimation) {
    self()->beginUpdates();
    add_all(ivars().updates.deleted, paths);
    self()->endUpdates();
}

void TableView::reloadRows(NSArray* paths, UITableViewRowAnimation) {
    self()->beginUpdates();
    add_all(ivars().updates.reloaded, paths);
    self()->endUpdates();
}

void TableView::moveRow(NSIndexPath* from, NSIndexPath* to) {
    self()->beginUpdates();
    ivars().updates.moved.emplace_back(place_of(from), place_of(to));
    self()->endUpdates();
}

// All sections are asked for again.
void TableView::reloadSections(NSIndexSet*, UITableViewRowAnimation) {
    self()->beginUpdates();
    ivars().updates.sections_reloaded = true;
    self()->endUpdates();
}

void TableView::endUpdates() {
    if (ivars().update_depth == 0) return;
    if (--ivars().update_depth > 0) return;
    update();
}

void TableView::update() {
    auto* self = this->self();
    const TableUpdates updates = std::exchange(ivars().updates, {});
    swipe(std::nullopt);
    if (updates.sections_reloaded) return self->reloadData();
    if (!ivars().is_loaded) return self->setNeedsLayout();

    std::vector<RowPlace> gone = updates.deleted, come = updates.inserted;
    for (const auto& [from, to] : updates.moved) {
        gone.push_back(from);
        come.push_back(to);
    }
    for (const RowPlace& place : gone)
        if (!has_row(place))
            raise("NSInternalInconsistencyException"_ns,
                  "attempt to delete row " + std::to_string(place.second) + " from section " +
                      std::to_string(place.first) + ", which has no such row");
    std::vector<std::vector<NSInteger>> rows;
    for (size_t i = 0; i < ivars().sections.size(); ++i) {
        const auto section = static_cast<NSInteger>(i);
        const NSInteger before = ivars().sections[i].rows;
        const NSInteger after = source()->numberOfRows(self, section);
        const NSInteger inserted = count_in(come, section), deleted = count_in(gone, section);
        if (before + inserted - deleted != after)
            raise("NSInternalInconsistencyException"_ns,
                  "Invalid update: invalid number of rows in section " + std::to_string(section) +
                      ": there were " + std::to_string(before) + ", " + std::to_string(inserted) +
                      " were inserted and " + std::to_string(deleted) + " deleted, and now there are " +
                      std::to_string(after));
        rows.push_back(new_rows(section, before, gone, come));
        ivars().sections[i].rows = after;
    }

    auto after = [&](RowPlace place) -> std::optional<RowPlace> {
        for (const auto& [from, to] : updates.moved)
            if (from == place) return to;
        const NSInteger row = rows[static_cast<size_t>(place.first)][static_cast<size_t>(place.second)];
        if (row < 0) return std::nullopt;
        return RowPlace{place.first, row};
    };
    const Cells before = ivars().shown;
    for (const auto& [place, cell] : before)
        if (!after(place) || holds(updates.reloaded, place)) put_aside(place);
    Cells kept;
    for (const auto& [place, cell] : ivars().shown) kept[*after(place)] = cell;
    ivars().shown = std::move(kept);
    for (auto* place : {&ivars().selected, &ivars().touched})
        if (*place) *place = after(**place);
    for (auto* views : {&ivars().headers, &ivars().footers}) {
        for (const auto& [section, view] : *views) view->removeFromSuperview();
        views->clear();
    }
    measure();
    const Cells all = ivars().shown;
    for (const auto& [place, cell] : all) prepare_cell(place, cell);
    self->setNeedsLayout();
}

}  // namespace sim
