// The implementation of tables: their state, which several files share.
#pragma once
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "objc/class.h"
#include "platform/tables.h"

namespace sim {

/// Section and row.
using RowPlace = std::pair<NSInteger, NSInteger>;

inline RowPlace place_of(NSIndexPath* path) { return {path->section(), path->row()}; }
inline NSIndexPath* path_of(RowPlace place) {
    return NSIndexPath::indexPathForRow(place.second, place.first);
}

/// Where the parts of a section lie, in points from the table's beginning.
struct TableSection {
    CGFloat top = 0, rows_top = 0, rows_bottom = 0, bottom = 0;
    NSInteger rows = 0;
    CGFloat row_height = 0;
    /// The bottoms of rows whose heights differ; empty where each has row_height.
    std::vector<CGFloat> bottoms;

    CGFloat top_of(NSInteger row) const;
    CGFloat bottom_of(NSInteger row) const { return top_of(row + 1); }
    /// The row at that height, or the nearest one.
    NSInteger row_at(CGFloat y) const;
};

/// What is inserted, deleted and reloaded together.
struct TableUpdates {
    std::vector<RowPlace> deleted, inserted, reloaded;
    std::vector<std::pair<RowPlace, RowPlace>> moved;
    bool sections_reloaded = false;
};

struct TableView : objc::Implements<TableView, UITableView> {
    using Cells = std::map<RowPlace, objc::strong<UITableViewCell>>;

    struct Ivars {
        UITableViewStyle style = UITableViewStylePlain;
        objc::weak<NSObject> dataSource;
        CGFloat rowHeight = 44, sectionHeaderHeight = 0, sectionFooterHeight = 0;
        CGFloat estimatedRowHeight = 0, estimatedSectionHeaderHeight = 0, estimatedSectionFooterHeight = 0;
        objc::strong<UIView> tableHeaderView, tableFooterView, backgroundView;
        objc::strong<UIColor> separatorColor;
        NSInteger separatorStyle = 1;
        bool allowsSelection = true, allowsSelectionDuringEditing = false;
        std::map<std::string, Class> cell_classes;
        /// Out of sight, by reuse identifier.
        std::map<std::string, std::vector<objc::strong<UITableViewCell>>> spare;
        Cells shown;
        std::map<NSInteger, objc::strong<UIView>> headers, footers;
        /// A line of separators for each place in sight; more are kept than are shown.
        std::vector<objc::strong<UIView>> lines;
        std::vector<TableSection> sections;
        /// The width that the sections were measured for.
        CGFloat measured_width = -1;
        bool is_loaded = false, editing = false;
        std::optional<RowPlace> selected, touched, swiped;
        CGPoint landing{};
        bool swipes = false;
        int update_depth = 0;
        TableUpdates updates;
        /// The row that a finger moves, and where it would go.
        std::optional<RowPlace> moving, moving_to;
        CGFloat grip = 0, finger = 0;
    };

    // Making and asking
    objc::strong<UITableView> initWithFrame(CGRect frame);
    objc::strong<UITableView> initWithFrameAndStyle(CGRect frame, UITableViewStyle style);
    void dealloc();
    UITableViewStyle style() { return ivars().style; }
    void setTableHeaderView(UIView* view);
    UIView* tableHeaderView() { return ivars().tableHeaderView; }
    void setTableFooterView(UIView* view);
    UIView* tableFooterView() { return ivars().tableFooterView; }
    void setBackgroundView(UIView* view);
    UIView* backgroundView() { return ivars().backgroundView; }
    void registerClass(Class cell, NSString* identifier);
    UITableViewCell* dequeueReusableCell(NSString* identifier);
    UITableViewCell* dequeueReusableCellForPath(NSString* identifier, NSIndexPath* path);
    NSInteger numberOfSections();
    NSInteger numberOfRowsInSection(NSInteger section);
    CGRect rectForRowAtIndexPath(NSIndexPath* path);
    NSIndexPath* indexPathForRowAtPoint(CGPoint point);
    NSIndexPath* indexPathForCell(UITableViewCell* cell);
    UITableViewCell* cellForRowAtIndexPath(NSIndexPath* path);
    NSArray* visibleCells();
    NSArray* indexPathsForVisibleRows();
    void scrollToRow(NSIndexPath* path, UITableViewScrollPosition position, bool animated);

    // Layout
    void reloadData();
    void layoutSubviews();

    // Selection
    NSIndexPath* indexPathForSelectedRow();
    void selectRow(NSIndexPath* path, bool animated, UITableViewScrollPosition position);
    void deselectRow(NSIndexPath* path, bool animated);
    void touchesBegan(NSSet* touches, UIEvent*);
    void touchesMoved(NSSet* touches, UIEvent*);
    void touchesEnded(NSSet* touches, UIEvent*);
    void touchesCancelled(NSSet* touches, UIEvent*);

    // Editing
    bool isEditing() { return ivars().editing; }
    void setEditing(bool editing) { self()->setEditing(editing, false); }
    void setEditingAnimated(bool editing, bool animated);
    void edit_pressed(UITableViewCell* cell);
    void delete_pressed(UITableViewCell* cell);
    void detail_pressed(UITableViewCell* cell);
    bool begin_moving(UITableViewCell* cell, CGFloat finger);
    void go_on_moving(CGFloat finger);
    void end_moving(bool done);

    // Updates
    void beginUpdates() { ++ivars().update_depth; }
    void endUpdates();
    void insertRows(NSArray* paths, UITableViewRowAnimation);
    void deleteRows(NSArray* paths, UITableViewRowAnimation);
    void reloadRows(NSArray* paths, UITableViewRowAnimation);
    void reloadSections(NSIndexSet* sections, UITableViewRowAnimation);
    void moveRow(NSIndexPath* from, NSIndexPath* to);

  private:
    // UITableView.cpp
    bool has_row(RowPlace place);
    bool source_answers(SEL selector);
    bool delegate_answers(SEL selector);
    UITableViewDataSource* source();
    UITableViewDelegate* table_delegate();
    void put_aside(RowPlace place);
    void put_all_aside();

    // table_layout.cpp
    void load();
    void measure();
    void measure_rows(NSInteger section, TableSection& measured);
    CGFloat header_height(NSInteger section, bool is_footer);
    NSString* title(NSInteger section, bool is_footer);
    objc::strong<UIView> make_header(NSInteger section, bool is_footer);
    void show_rows_in_sight();
    void show_headers_in_sight();
    void show_lines();
    void place_cell(RowPlace place, UITableViewCell* cell);
    void prepare_cell(RowPlace place, UITableViewCell* cell);
    CGRect rect_of(RowPlace place);
    /// While a row is moved, those that it passes make room.
    CGFloat moved_aside(RowPlace place);

    // table_touches.cpp
    void highlight(std::optional<RowPlace> place);
    void mark(RowPlace place, bool selected);
    void select_by_touch(RowPlace place);

    // table_editing.cpp
    UITableViewCellEditingStyle editing_style(RowPlace place);
    bool can_move(RowPlace place);
    void swipe(std::optional<RowPlace> place);

    // table_updates.cpp
    void update();

    friend struct TableCell;
};

}  // namespace sim
