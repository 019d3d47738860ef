// Tables: where rows, headers and lines lie, and making those that are in sight.
#include <algorithm>
#include <cmath>

#include "runtime/not_modelled.h"
#include "uikit/tables/UITableView.h"
#include "uikit/tables/UITableViewCell.h"

namespace sim {

using objc::strong;

namespace {

constexpr CGFloat line_height = 0.5, side = 16, header_text_size = 13, usual_height = 44;
/// Of a grouped table: above the first section, and between two of them half of it each.
constexpr CGFloat section_space = 35;
constexpr CGFloat plain_header_height = 28, header_text_room = 7;

UIColor* header_grey() { return UIColor::colorWithRGB(109 / 255.0, 109 / 255.0, 114 / 255.0, 1); }

/// A title above or below a section.
struct Title {
    NSString* text;
    bool is_footer, is_grouped;

    strong<UILabel> label() const {
        auto made = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
        made->setNumberOfLines(0);
        made->setLineBreakMode(NSLineBreakByWordWrapping);
        if (is_grouped) {
            made->setFont(UIFont::systemFontOfSize(header_text_size));
            made->setTextColor(header_grey());
            made->setText(is_footer ? text : text->uppercaseString());
        } else {
            made->setFont(UIFont::systemFontOfSize(17, UIFontWeightSemibold));
            made->setText(text);
        }
        if (!is_footer) made->setAccessibilityTraits(UIAccessibilityTraitHeader);
        return made;
    }
    CGFloat text_height(CGFloat width) const {
        return label()->sizeThatFits({std::max(1.0, width - 2 * side), 0}).height;
    }
};

bool overlaps(CGFloat top, CGFloat bottom, const CGRect& sight) {
    return top < sight.origin.y + sight.size.height && bottom > sight.origin.y;
}

}  // namespace

CGFloat TableSection::top_of(NSInteger row) const {
    if (row <= 0) return rows_top;
    return bottoms.empty() ? rows_top + row_height * static_cast<CGFloat>(row)
                           : bottoms[static_cast<size_t>(row - 1)];
}

NSInteger TableSection::row_at(CGFloat y) const {
    if (rows == 0) return 0;
    NSInteger row = 0;
    if (!bottoms.empty())
        row = std::upper_bound(bottoms.begin(), bottoms.end(), y) - bottoms.begin();
    else if (row_height > 0)
        row = static_cast<NSInteger>(std::floor((y - rows_top) / row_height));
    return std::clamp<NSInteger>(row, 0, rows - 1);
}

// ---- Measuring ----------------------------------------------------------------------------------

void TableView::reloadData() {
    ivars().is_loaded = false;
    ivars().selected = ivars().touched = ivars().swiped = std::nullopt;
    self()->setNeedsLayout();
}

void TableView::load() {
    if (ivars().is_loaded && ivars().measured_width == self()->bounds().size.width) return;
    if (!ivars().is_loaded) {
        ivars().is_loaded = true;
        put_all_aside();
        NSInteger count = self()->dataSource() ? 1 : 0;
        if (source_answers(objc::selector<"numberOfSectionsInTableView:">()))
            count = source()->numberOfSections(self());
        ivars().sections.assign(static_cast<size_t>(std::max<NSInteger>(count, 0)), {});
        for (size_t i = 0; i < ivars().sections.size(); ++i)
            ivars().sections[i].rows = source()->numberOfRows(self(), static_cast<NSInteger>(i));
    }
    measure();
}

NSString* TableView::title(NSInteger section, bool is_footer) {
    if (is_footer)
        return source_answers(objc::selector<"tableView:titleForFooterInSection:">())
                   ? source()->titleForFooter(self(), section)
                   : nullptr;
    return source_answers(objc::selector<"tableView:titleForHeaderInSection:">())
               ? source()->titleForHeader(self(), section)
               : nullptr;
}

// What the delegate says; else what a title needs; else the space between the sections of a grouped table.
CGFloat TableView::header_height(NSInteger section, bool is_footer) {
    auto* self = this->self();
    CGFloat height = is_footer ? ivars().sectionFooterHeight : ivars().sectionHeaderHeight;
    if (is_footer ? delegate_answers(objc::selector<"tableView:heightForFooterInSection:">())
                  : delegate_answers(objc::selector<"tableView:heightForHeaderInSection:">()))
        height = is_footer ? table_delegate()->heightForFooter(self, section)
                           : table_delegate()->heightForHeader(self, section);
    if (height > 0) return height;
    const bool is_grouped = ivars().style == UITableViewStyleGrouped;
    if (NSString* text = title(section, is_footer); text->length()) {
        if (!is_grouped) return plain_header_height;
        const CGFloat own = Title{text, is_footer, true}.text_height(self->bounds().size.width);
        const CGFloat room =
            is_footer || section > 0 ? 2 * header_text_room + 8 : section_space + header_text_room;
        return std::ceil(own + room);
    }
    if (!is_grouped) return 0;
    return section == 0 && !is_footer && !ivars().tableHeaderView ? section_space : section_space / 2;
}

void TableView::measure_rows(NSInteger section, TableSection& measured) {
    auto* self = this->self();
    auto usual = [](CGFloat height) { return height < 0 ? usual_height : height; };
    measured.bottoms.clear();
    measured.row_height = usual(self->rowHeight());
    measured.rows_bottom = measured.rows_top + measured.row_height * static_cast<CGFloat>(measured.rows);
    if (!delegate_answers(objc::selector<"tableView:heightForRowAtIndexPath:">())) return;
    CGFloat bottom = measured.rows_top;
    for (NSInteger row = 0; row < measured.rows; ++row) {
        bottom += usual(table_delegate()->heightForRow(self, path_of({section, row})));
        measured.bottoms.push_back(bottom);
    }
    measured.rows_bottom = bottom;
}

void TableView::measure() {
    auto* self = this->self();
    const CGFloat width = self->bounds().size.width;
    ivars().measured_width = width;
    CGFloat top = ivars().tableHeaderView->frame().size.height;
    for (size_t i = 0; i < ivars().sections.size(); ++i) {
        const auto section = static_cast<NSInteger>(i);
        TableSection& measured = ivars().sections[i];
        measured.top = top;
        measured.rows_top = top + header_height(section, false);
        measure_rows(section, measured);
        measured.bottom = top = measured.rows_bottom + header_height(section, true);
    }
    self->setContentSize({width, top + ivars().tableFooterView->frame().size.height});
}

CGRect TableView::rect_of(RowPlace place) {
    const TableSection& section = ivars().sections[static_cast<size_t>(place.first)];
    const CGFloat top = section.top_of(place.second);
    return {{0, top}, {self()->bounds().size.width, section.bottom_of(place.second) - top}};
}

// ---- Showing ------------------------------------------------------------------------------------

void TableView::layoutSubviews() {
    super<"layoutSubviews">();
    load();
    auto* self = this->self();
    const CGRect bounds = self->bounds();
    ivars().backgroundView->setFrame(bounds);
    if (UIView* header = ivars().tableHeaderView)
        header->setFrame({{0, 0}, {bounds.size.width, header->frame().size.height}});
    if (UIView* footer = ivars().tableFooterView) {
        const CGFloat height = footer->frame().size.height;
        footer->setFrame({{0, self->contentSize().height - height}, {bounds.size.width, height}});
    }
    show_rows_in_sight();
    show_headers_in_sight();
    show_lines();
}

void TableView::show_rows_in_sight() {
    auto* self = this->self();
    const CGRect sight = self->bounds();
    std::vector<RowPlace> wanted;
    for (size_t i = 0; i < ivars().sections.size(); ++i) {
        const TableSection& section = ivars().sections[i];
        if (section.rows == 0 || !overlaps(section.rows_top, section.rows_bottom, sight)) continue;
        const NSInteger first = section.row_at(sight.origin.y);
        for (NSInteger row = first; row < section.rows; ++row) {
            if (!overlaps(section.top_of(row), section.bottom_of(row), sight)) break;
            wanted.emplace_back(static_cast<NSInteger>(i), row);
        }
    }
    std::vector<RowPlace> gone;
    for (const auto& [place, cell] : ivars().shown)
        if (place != ivars().moving && !std::binary_search(wanted.begin(), wanted.end(), place))
            gone.push_back(place);
    for (RowPlace place : gone) put_aside(place);
    for (RowPlace place : wanted) {
        if (!ivars().shown.contains(place)) {
            const strong<UITableViewCell> cell = source()->cellForRow(self, path_of(place));
            if (!cell)
                not_modelled("UITableView", "tableView:cellForRowAtIndexPath:",
                             "a row without a cell, for which the device raises");
            ivars().shown[place] = cell;
            prepare_cell(place, cell);
            place_cell(place, cell);
            if (delegate_answers(objc::selector<"tableView:willDisplayCell:forRowAtIndexPath:">()))
                table_delegate()->willDisplay(self, cell, path_of(place));
            self->addSubview(cell);
        }
        place_cell(place, ivars().shown[place]);
    }
}

void TableView::prepare_cell(RowPlace place, UITableViewCell* cell) {
    auto* part = static_cast<TableCell*>(cell);
    part->set_row(self(), editing_style(place), can_move(place));
    cell->setEditing(ivars().editing, false);
    if (ivars().selected == place) cell->setSelected(true, false);
}

void TableView::place_cell(RowPlace place, UITableViewCell* cell) {
    CGRect frame = rect_of(place);
    frame.origin.y =
        place == ivars().moving ? ivars().finger - ivars().grip : frame.origin.y + moved_aside(place);
    cell->setFrame(frame);
}

strong<UIView> TableView::make_header(NSInteger section, bool is_footer) {
    auto* self = this->self();
    if (is_footer ? delegate_answers(objc::selector<"tableView:viewForFooterInSection:">())
                  : delegate_answers(objc::selector<"tableView:viewForHeaderInSection:">()))
        if (UIView* own = is_footer ? table_delegate()->viewForFooter(self, section)
                                    : table_delegate()->viewForHeader(self, section))
            return own;
    NSString* text = title(section, is_footer);
    if (!text->length()) return nullptr;
    const bool is_grouped = ivars().style == UITableViewStyleGrouped;
    auto view = UIView::alloc()->initWithFrame({});
    if (!is_grouped) view->setBackgroundColor(UIColor::colorWithWhite(0.97, 1));
    view->addSubview(Title{text, is_footer, is_grouped}.label());
    return view;
}

// A header's own label stands at its bottom, a footer's at its top.
void TableView::show_headers_in_sight() {
    auto* self = this->self();
    const CGFloat width = self->bounds().size.width;
    for (const bool is_footer : {false, true}) {
        auto& views = is_footer ? ivars().footers : ivars().headers;
        for (size_t i = 0; i < ivars().sections.size(); ++i) {
            const auto number = static_cast<NSInteger>(i);
            const TableSection& section = ivars().sections[i];
            const CGFloat top = is_footer ? section.rows_bottom : section.top;
            const CGFloat bottom = is_footer ? section.bottom : section.rows_top;
            const bool in_sight = bottom > top && overlaps(top, bottom, self->bounds());
            if (!in_sight) {
                if (auto found = views.find(number); found != views.end()) {
                    found->second->removeFromSuperview();
                    views.erase(found);
                }
                continue;
            }
            auto& view = views[number];
            if (!view) {
                view = make_header(number, is_footer);
                if (view) self->addSubview(view);
            }
            if (!view) continue;
            view->setFrame({{0, top}, {width, bottom - top}});
            auto* label = as<UILabel>(view->subviews()->firstObject());
            if (!label || view->isKindOfClass(UITableViewHeaderFooterView::class_object()) ||
                label->tag() != 0 || label->frame().size.width > 0)
                continue;
            const CGFloat height = label->sizeThatFits({width - 2 * side, 0}).height;
            const bool is_plain = ivars().style == UITableViewStylePlain;
            const CGFloat y = is_plain    ? (bottom - top - height) / 2
                              : is_footer ? header_text_room
                                          : bottom - top - height - header_text_room;
            label->setFrame({{side, y}, {width - 2 * side, height}});
            if (self->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft)
                label->setTextAlignment(NSTextAlignmentRight);
        }
    }
}

// Below each row, from where its text begins; of a grouped table also above and below each section.
void TableView::show_lines() {
    auto* self = this->self();
    const CGFloat width = self->bounds().size.width;
    const bool is_grouped = ivars().style == UITableViewStyleGrouped;
    const bool leftwards =
        self->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
    size_t used = 0;
    auto draw = [&](CGFloat start, CGFloat y) {
        auto& lines = ivars().lines;
        if (used == lines.size()) {
            lines.push_back(UIView::alloc()->initWithFrame({}));
            lines.back()->setUserInteractionEnabled(false);
            self->addSubview(lines.back());
        }
        UIView* line = lines[used++];
        line->setBackgroundColor(ivars().separatorColor);
        line->setHidden(false);
        self->bringSubviewToFront(line);
        line->setFrame({{leftwards ? 0 : start, y}, {width - start, line_height}});
    };
    if (ivars().separatorStyle != 0)
        for (const auto& [place, cell] : ivars().shown) {
            if (place == ivars().moving) continue;
            const TableSection& section = ivars().sections[static_cast<size_t>(place.first)];
            const CGFloat y = section.bottom_of(place.second) + moved_aside(place);
            const bool is_last = place.second == section.rows - 1;
            if (is_grouped && place.second == 0) draw(0, section.rows_top - line_height);
            draw(is_grouped && is_last ? 0 : static_cast<TableCell*>(cell.get())->line_start(),
                 is_grouped ? y - line_height : y);
        }
    for (size_t i = used; i < ivars().lines.size(); ++i) ivars().lines[i]->setHidden(true);
    if (ivars().moving)
        if (auto cell = ivars().shown.find(*ivars().moving); cell != ivars().shown.end())
            self->bringSubviewToFront(cell->second);
}

}  // namespace sim
