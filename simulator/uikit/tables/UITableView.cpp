// Tables: making them, asking them, cells that are used again, and the list of their methods.
#include "uikit/tables/UITableView.h"

#include <algorithm>

#include "foundation/raise.h"
#include "objc/string.h"
#include "uikit/tables/UITableViewCell.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

strong<UITableView> TableView::initWithFrame(CGRect frame) {
    return self()->initWithFrame(frame, UITableViewStylePlain);
}

strong<UITableView> TableView::initWithFrameAndStyle(CGRect frame, UITableViewStyle style) {
    auto self = initialised_by_super<"initWithFrame:">(frame);
    if (!self) return nullptr;
    self->ivars().style = style;
    self->ivars().separatorColor = UIColor::colorWithRGB(200 / 255.0, 199 / 255.0, 204 / 255.0, 1);
    auto* view = static_cast<UIView*>(self.get());
    view->setBackgroundColor(style == UITableViewStyleGrouped
                                 ? UIColor::colorWithRGB(239 / 255.0, 239 / 255.0, 244 / 255.0, 1)
                                 : UIColor::whiteColor());
    view->setNeedsLayout();
    return strong<UITableView>(self.get());
}

void TableView::dealloc() {
    for (const auto& [place, cell] : ivars().shown)
        static_cast<TableCell*>(cell.get())->ivars().table = nullptr;
}

// ---- Whom it asks -------------------------------------------------------------------------------

UITableViewDataSource* TableView::source() {
    return reinterpret_cast<UITableViewDataSource*>(static_cast<id>(self()->dataSource()));
}
UITableViewDelegate* TableView::table_delegate() {
    return reinterpret_cast<UITableViewDelegate*>(static_cast<id>(self()->delegate()));
}
bool TableView::source_answers(SEL selector) {
    return static_cast<NSObject*>(self()->dataSource())->respondsToSelector(selector);
}
bool TableView::delegate_answers(SEL selector) {
    return static_cast<NSObject*>(self()->delegate())->respondsToSelector(selector);
}

// ---- Other views --------------------------------------------------------------------------------

void TableView::setTableHeaderView(UIView* view) {
    ivars().tableHeaderView->removeFromSuperview();
    ivars().tableHeaderView = view;
    if (view) self()->addSubview(view);
    ivars().measured_width = -1;
    self()->setNeedsLayout();
}

void TableView::setTableFooterView(UIView* view) {
    ivars().tableFooterView->removeFromSuperview();
    ivars().tableFooterView = view;
    if (view) self()->addSubview(view);
    ivars().measured_width = -1;
    self()->setNeedsLayout();
}

void TableView::setBackgroundView(UIView* view) {
    ivars().backgroundView->removeFromSuperview();
    ivars().backgroundView = view;
    if (view) self()->insertSubview(view, 0);
    self()->setNeedsLayout();
}

// ---- Cells --------------------------------------------------------------------------------------

void TableView::registerClass(Class cell, NSString* identifier) {
    ivars().cell_classes[identifier->UTF8String()] = cell;
}

UITableViewCell* TableView::dequeueReusableCell(NSString* identifier) {
    const std::string name = identifier ? identifier->UTF8String() : "";
    if (auto& spare = ivars().spare[name]; !spare.empty()) {
        strong<UITableViewCell> cell = std::move(spare.back());
        spare.pop_back();
        cell->prepareForReuse();
        return std::move(cell).autoreleased();
    }
    const auto type = ivars().cell_classes.find(name);
    if (type == ivars().cell_classes.end()) return nullptr;
    return objc::make<"initWithStyle:reuseIdentifier:", UITableViewCell>(
               type->second, UITableViewCellStyleDefault, identifier)
        .autoreleased();
}

UITableViewCell* TableView::dequeueReusableCellForPath(NSString* identifier, NSIndexPath*) {
    if (UITableViewCell* cell = self()->dequeueReusableCell(identifier)) return cell;
    raise("NSInternalInconsistencyException"_ns,
          std::string("no class of cells is registered under the identifier \"") +
              (identifier ? identifier->UTF8String() : "") + "\"");
}

void TableView::put_aside(RowPlace place) {
    const auto found = ivars().shown.find(place);
    if (found == ivars().shown.end()) return;
    const strong<UITableViewCell> cell = found->second;
    ivars().shown.erase(found);
    auto* part = static_cast<TableCell*>(cell.get());
    part->show_delete_button(false, nullptr);
    part->ivars().table = nullptr;
    cell->removeFromSuperview();
    if (delegate_answers(objc::selector<"tableView:didEndDisplayingCell:forRowAtIndexPath:">()))
        table_delegate()->didEndDisplaying(self(), cell, path_of(place));
    cell->setHighlighted(false, false);
    cell->setSelected(false, false);
    if (NSString* identifier = cell->reuseIdentifier(); identifier->length())
        ivars().spare[identifier->UTF8String()].push_back(cell);
}

void TableView::put_all_aside() {
    while (!ivars().shown.empty()) put_aside(ivars().shown.begin()->first);
    for (auto* views : {&ivars().headers, &ivars().footers}) {
        for (const auto& [section, view] : *views) view->removeFromSuperview();
        views->clear();
    }
}

// ---- Asking -------------------------------------------------------------------------------------

bool TableView::has_row(RowPlace place) {
    load();
    const auto [section, row] = place;
    return section >= 0 && section < static_cast<NSInteger>(ivars().sections.size()) && row >= 0 &&
           row < ivars().sections[static_cast<size_t>(section)].rows;
}

NSInteger TableView::numberOfSections() {
    load();
    return static_cast<NSInteger>(ivars().sections.size());
}

NSInteger TableView::numberOfRowsInSection(NSInteger section) {
    load();
    const auto& sections = ivars().sections;
    return section >= 0 && section < static_cast<NSInteger>(sections.size())
               ? sections[static_cast<size_t>(section)].rows
               : 0;
}

CGRect TableView::rectForRowAtIndexPath(NSIndexPath* path) {
    const RowPlace place = place_of(path);
    return has_row(place) ? rect_of(place) : CGRect{};
}

NSIndexPath* TableView::indexPathForRowAtPoint(CGPoint point) {
    load();
    for (size_t i = 0; i < ivars().sections.size(); ++i) {
        const TableSection& section = ivars().sections[i];
        if (point.y >= section.rows_top && point.y < section.rows_bottom)
            return path_of({static_cast<NSInteger>(i), section.row_at(point.y)});
    }
    return nullptr;
}

NSIndexPath* TableView::indexPathForCell(UITableViewCell* cell) {
    for (const auto& [place, shown] : ivars().shown)
        if (shown == cell) return path_of(place);
    return nullptr;
}

UITableViewCell* TableView::cellForRowAtIndexPath(NSIndexPath* path) {
    const auto found = ivars().shown.find(place_of(path));
    return found == ivars().shown.end() ? nullptr : found->second.get();
}

NSArray* TableView::visibleCells() {
    self()->layoutIfNeeded();
    NSMutableArray* cells = NSMutableArray::arrayWithCapacity(ivars().shown.size());
    for (const auto& [place, cell] : ivars().shown) cells->addObject(cell);
    return cells;
}

NSArray* TableView::indexPathsForVisibleRows() {
    self()->layoutIfNeeded();
    NSMutableArray* paths = NSMutableArray::arrayWithCapacity(ivars().shown.size());
    for (const auto& [place, cell] : ivars().shown) paths->addObject(path_of(place));
    return paths;
}

void TableView::scrollToRow(NSIndexPath* path, UITableViewScrollPosition position, bool animated) {
    const RowPlace place = place_of(path);
    if (!has_row(place)) raise("NSRangeException"_ns, "there is no such row to scroll to");
    auto* self = this->self();
    const CGRect row = rect_of(place), bounds = self->bounds();
    const UIEdgeInsets inset = self->adjustedContentInset();
    const CGFloat room = bounds.size.height - inset.top - inset.bottom;
    const CGFloat at_top = row.origin.y - inset.top, at_bottom = at_top + row.size.height - room;
    CGFloat y = bounds.origin.y;
    if (position == UITableViewScrollPositionNone) y = std::clamp(y, std::min(at_top, at_bottom), at_top);
    if (position == UITableViewScrollPositionTop) y = at_top;
    if (position == UITableViewScrollPositionMiddle) y = (at_top + at_bottom) / 2;
    if (position == UITableViewScrollPositionBottom) y = at_bottom;
    const CGFloat lowest = -inset.top;
    const CGFloat highest = std::max(
        lowest,
        ivars().sections.empty() ? 0 : self->contentSize().height + inset.bottom - bounds.size.height);
    self->setContentOffset({bounds.origin.x, std::clamp(y, lowest, highest)}, animated);
    self->setNeedsLayout();
}

}  // namespace sim

using namespace objc::definition;
using sim::TableView;

OBJC_CLASS(UITableView, UIScrollView, TableView,
           method<"initWithFrame:", &TableView::initWithFrame>,
           method<"initWithFrame:style:", &TableView::initWithFrameAndStyle>,
           ivar<"_style", &TableView::Ivars::style>,
           property<"dataSource", &TableView::Ivars::dataSource>,
           property<"rowHeight", &TableView::Ivars::rowHeight>,
           property<"sectionHeaderHeight", &TableView::Ivars::sectionHeaderHeight>,
           property<"sectionFooterHeight", &TableView::Ivars::sectionFooterHeight>,
           property<"estimatedRowHeight", &TableView::Ivars::estimatedRowHeight>,
           property<"estimatedSectionHeaderHeight", &TableView::Ivars::estimatedSectionHeaderHeight>,
           property<"estimatedSectionFooterHeight", &TableView::Ivars::estimatedSectionFooterHeight>,
           ivar<"_tableHeaderView", &TableView::Ivars::tableHeaderView>,
           ivar<"_tableFooterView", &TableView::Ivars::tableFooterView>,
           ivar<"_backgroundView", &TableView::Ivars::backgroundView>,
           property<"separatorColor", &TableView::Ivars::separatorColor>,
           property<"separatorStyle", &TableView::Ivars::separatorStyle>,
           property<"allowsSelection", &TableView::Ivars::allowsSelection>,
           property<"allowsSelectionDuringEditing", &TableView::Ivars::allowsSelectionDuringEditing>,
           ivar<"_cellClasses", &TableView::Ivars::cell_classes>,
           ivar<"_spareCells", &TableView::Ivars::spare>,
           ivar<"_visibleCells", &TableView::Ivars::shown>,
           ivar<"_headers", &TableView::Ivars::headers>,
           ivar<"_footers", &TableView::Ivars::footers>,
           ivar<"_separators", &TableView::Ivars::lines>,
           ivar<"_sections", &TableView::Ivars::sections>,
           ivar<"_measuredWidth", &TableView::Ivars::measured_width>,
           ivar<"_loaded", &TableView::Ivars::is_loaded>,
           ivar<"_editing", &TableView::Ivars::editing>,
           ivar<"_selectedRow", &TableView::Ivars::selected>,
           ivar<"_touchedRow", &TableView::Ivars::touched>,
           ivar<"_swipedRow", &TableView::Ivars::swiped>,
           ivar<"_landing", &TableView::Ivars::landing>,
           ivar<"_swipes", &TableView::Ivars::swipes>,
           ivar<"_updateDepth", &TableView::Ivars::update_depth>,
           ivar<"_updates", &TableView::Ivars::updates>,
           ivar<"_movingRow", &TableView::Ivars::moving>,
           ivar<"_movingTo", &TableView::Ivars::moving_to>,
           ivar<"_grip", &TableView::Ivars::grip>,
           ivar<"_finger", &TableView::Ivars::finger>,
           method<"style", &TableView::style>,
           method<"tableHeaderView", &TableView::tableHeaderView>,
           method<"setTableHeaderView:", &TableView::setTableHeaderView>,
           method<"tableFooterView", &TableView::tableFooterView>,
           method<"setTableFooterView:", &TableView::setTableFooterView>,
           method<"backgroundView", &TableView::backgroundView>,
           method<"setBackgroundView:", &TableView::setBackgroundView>,
           method<"registerClass:forCellReuseIdentifier:", &TableView::registerClass>,
           method<"dequeueReusableCellWithIdentifier:", &TableView::dequeueReusableCell>,
           method<"dequeueReusableCellWithIdentifier:forIndexPath:", &TableView::dequeueReusableCellForPath>,
           method<"numberOfSections", &TableView::numberOfSections>,
           method<"numberOfRowsInSection:", &TableView::numberOfRowsInSection>,
           method<"rectForRowAtIndexPath:", &TableView::rectForRowAtIndexPath>,
           method<"indexPathForRowAtPoint:", &TableView::indexPathForRowAtPoint>,
           method<"indexPathForCell:", &TableView::indexPathForCell>,
           method<"cellForRowAtIndexPath:", &TableView::cellForRowAtIndexPath>,
           method<"visibleCells", &TableView::visibleCells>,
           method<"indexPathsForVisibleRows", &TableView::indexPathsForVisibleRows>,
           method<"scrollToRowAtIndexPath:atScrollPosition:animated:", &TableView::scrollToRow>,
           method<"reloadData", &TableView::reloadData>,
           method<"layoutSubviews", &TableView::layoutSubviews>,
           method<"indexPathForSelectedRow", &TableView::indexPathForSelectedRow>,
           method<"selectRowAtIndexPath:animated:scrollPosition:", &TableView::selectRow>,
           method<"deselectRowAtIndexPath:animated:", &TableView::deselectRow>,
           method<"touchesBegan:withEvent:", &TableView::touchesBegan>,
           method<"touchesMoved:withEvent:", &TableView::touchesMoved>,
           method<"touchesEnded:withEvent:", &TableView::touchesEnded>,
           method<"touchesCancelled:withEvent:", &TableView::touchesCancelled>,
           method<"isEditing", &TableView::isEditing>,
           method<"setEditing:", &TableView::setEditing>,
           method<"setEditing:animated:", &TableView::setEditingAnimated>,
           method<"beginUpdates", &TableView::beginUpdates>,
           method<"endUpdates", &TableView::endUpdates>,
           method<"insertRowsAtIndexPaths:withRowAnimation:", &TableView::insertRows>,
           method<"deleteRowsAtIndexPaths:withRowAnimation:", &TableView::deleteRows>,
           method<"reloadRowsAtIndexPaths:withRowAnimation:", &TableView::reloadRows>,
           method<"reloadSections:withRowAnimation:", &TableView::reloadSections>,
           method<"moveRowAtIndexPath:toIndexPath:", &TableView::moveRow>)
