// UIKit's tables.
#pragma once
#include "platform/scrolling.h"

using UITableViewStyle = NSInteger;
constexpr UITableViewStyle UITableViewStylePlain = 0;
constexpr UITableViewStyle UITableViewStyleGrouped = 1;

using UITableViewCellStyle = NSInteger;
constexpr UITableViewCellStyle UITableViewCellStyleDefault = 0;
/// The second text at the right end, grey.
constexpr UITableViewCellStyle UITableViewCellStyleValue1 = 1;
/// The second text below the first.
constexpr UITableViewCellStyle UITableViewCellStyleSubtitle = 3;

using UITableViewCellAccessoryType = NSInteger;
constexpr UITableViewCellAccessoryType UITableViewCellAccessoryNone = 0;
constexpr UITableViewCellAccessoryType UITableViewCellAccessoryDisclosureIndicator = 1;
constexpr UITableViewCellAccessoryType UITableViewCellAccessoryCheckmark = 3;
/// A button; the delegate is notified of its touch.
constexpr UITableViewCellAccessoryType UITableViewCellAccessoryDetailButton = 4;

using UITableViewCellSelectionStyle = NSInteger;
constexpr UITableViewCellSelectionStyle UITableViewCellSelectionStyleNone = 0;
constexpr UITableViewCellSelectionStyle UITableViewCellSelectionStyleDefault = 3;

using UITableViewCellEditingStyle = NSInteger;
constexpr UITableViewCellEditingStyle UITableViewCellEditingStyleNone = 0;
constexpr UITableViewCellEditingStyle UITableViewCellEditingStyleDelete = 1;
constexpr UITableViewCellEditingStyle UITableViewCellEditingStyleInsert = 2;

using UITableViewRowAnimation = NSInteger;
constexpr UITableViewRowAnimation UITableViewRowAnimationFade = 0;
constexpr UITableViewRowAnimation UITableViewRowAnimationNone = 5;
constexpr UITableViewRowAnimation UITableViewRowAnimationAutomatic = 100;

using UITableViewScrollPosition = NSInteger;
/// As little as possible.
constexpr UITableViewScrollPosition UITableViewScrollPositionNone = 0;
constexpr UITableViewScrollPosition UITableViewScrollPositionTop = 1;
constexpr UITableViewScrollPosition UITableViewScrollPositionMiddle = 2;
constexpr UITableViewScrollPosition UITableViewScrollPositionBottom = 3;

/// A height that asks for the system's own.
constexpr CGFloat UITableViewAutomaticDimension = -1;

struct UITableViewCell : objc::Interface<UITableViewCell, "UITableViewCell", UIView> {
    objc::strong<UITableViewCell> initWithStyle(UITableViewCellStyle style, NSString* reuse_identifier) {
        return send<"initWithStyle:reuseIdentifier:", objc::strong<UITableViewCell>>(style, reuse_identifier);
    }
    NSString* reuseIdentifier() { return send<"reuseIdentifier", NSString*>(); }
    void prepareForReuse() { send<"prepareForReuse">(); }
    UIView* contentView() { return send<"contentView", UIView*>(); }
    /// These three are made when they are first asked for.
    UILabel* textLabel() { return send<"textLabel", UILabel*>(); }
    /// nil in a cell of the default style.
    UILabel* detailTextLabel() { return send<"detailTextLabel", UILabel*>(); }
    /// At the left end.
    UIImageView* imageView() { return send<"imageView", UIImageView*>(); }
    UITableViewCellAccessoryType accessoryType() {
        return send<"accessoryType", UITableViewCellAccessoryType>();
    }
    void setAccessoryType(UITableViewCellAccessoryType type) { send<"setAccessoryType:">(type); }
    /// At the right end, in place of the accessory type's; nil for none.
    UIView* accessoryView() { return send<"accessoryView", UIView*>(); }
    void setAccessoryView(UIView* view) { send<"setAccessoryView:">(view); }
    UIView* backgroundView() { return send<"backgroundView", UIView*>(); }
    void setBackgroundView(UIView* view) { send<"setBackgroundView:">(view); }
    UITableViewCellSelectionStyle selectionStyle() {
        return send<"selectionStyle", UITableViewCellSelectionStyle>();
    }
    void setSelectionStyle(UITableViewCellSelectionStyle style) { send<"setSelectionStyle:">(style); }
    bool isSelected() { return send<"isSelected", bool>(); }
    void setSelected(bool selected, bool animated) { send<"setSelected:animated:">(selected, animated); }
    bool isHighlighted() { return send<"isHighlighted", bool>(); }
    void setHighlighted(bool highlighted, bool animated) {
        send<"setHighlighted:animated:">(highlighted, animated);
    }
    bool isEditing() { return send<"isEditing", bool>(); }
    void setEditing(bool editing, bool animated) { send<"setEditing:animated:">(editing, animated); }
    UITableViewCellEditingStyle editingStyle() { return send<"editingStyle", UITableViewCellEditingStyle>(); }
    bool showsReorderControl() { return send<"showsReorderControl", bool>(); }
    /// While it is edited, and where the data source moves rows.
    void setShowsReorderControl(bool shows) { send<"setShowsReorderControl:">(shows); }
    UIEdgeInsets separatorInset() { return send<"separatorInset", UIEdgeInsets>(); }
    void setSeparatorInset(UIEdgeInsets inset) { send<"setSeparatorInset:">(inset); }
};

/// Above or below a section.
struct UITableViewHeaderFooterView
    : objc::Interface<UITableViewHeaderFooterView, "UITableViewHeaderFooterView", UIView> {
    objc::strong<UITableViewHeaderFooterView> initWithReuseIdentifier(NSString* identifier) {
        return send<"initWithReuseIdentifier:", objc::strong<UITableViewHeaderFooterView>>(identifier);
    }
    NSString* reuseIdentifier() { return send<"reuseIdentifier", NSString*>(); }
    UIView* contentView() { return send<"contentView", UIView*>(); }
    UILabel* textLabel() { return send<"textLabel", UILabel*>(); }
};

/// Rows below each other, in sections. A cell is made when its row comes into sight.
struct UITableView : objc::Interface<UITableView, "UITableView", UIScrollView> {
    objc::strong<UITableView> initWithFrame(CGRect frame, UITableViewStyle style) {
        return send<"initWithFrame:style:", objc::strong<UITableView>>(frame, style);
    }
    using UIView::initWithFrame;
    UITableViewStyle style() { return send<"style", UITableViewStyle>(); }
    /// Not retained; a UITableViewDataSource.
    id dataSource() { return send<"dataSource", id>(); }
    void setDataSource(id source) { send<"setDataSource:">(source); }
    /// Of every row for which the delegate says nothing else.
    CGFloat rowHeight() { return send<"rowHeight", CGFloat>(); }
    void setRowHeight(CGFloat height) { send<"setRowHeight:">(height); }
    /// Above the first section, with the height that it has.
    UIView* tableHeaderView() { return send<"tableHeaderView", UIView*>(); }
    void setTableHeaderView(UIView* view) { send<"setTableHeaderView:">(view); }
    UIView* tableFooterView() { return send<"tableFooterView", UIView*>(); }
    void setTableFooterView(UIView* view) { send<"setTableFooterView:">(view); }
    UIView* backgroundView() { return send<"backgroundView", UIView*>(); }
    void setBackgroundView(UIView* view) { send<"setBackgroundView:">(view); }
    UIColor* separatorColor() { return send<"separatorColor", UIColor*>(); }
    void setSeparatorColor(UIColor* color) { send<"setSeparatorColor:">(color); }

    void registerClass(Class cell, NSString* identifier) {
        send<"registerClass:forCellReuseIdentifier:">(cell, identifier);
    }
    /// nil when none is spare and no class is registered under the identifier.
    UITableViewCell* dequeueReusableCell(NSString* identifier) {
        return send<"dequeueReusableCellWithIdentifier:", UITableViewCell*>(identifier);
    }
    /// Raises NSInternalInconsistencyException for an identifier without a class.
    UITableViewCell* dequeueReusableCell(NSString* identifier, NSIndexPath* path) {
        return send<"dequeueReusableCellWithIdentifier:forIndexPath:", UITableViewCell*>(identifier, path);
    }

    NSInteger numberOfSections() { return send<"numberOfSections", NSInteger>(); }
    NSInteger numberOfRowsInSection(NSInteger section) {
        return send<"numberOfRowsInSection:", NSInteger>(section);
    }
    CGRect rectForRowAtIndexPath(NSIndexPath* path) { return send<"rectForRowAtIndexPath:", CGRect>(path); }
    NSIndexPath* indexPathForRowAtPoint(CGPoint point) {
        return send<"indexPathForRowAtPoint:", NSIndexPath*>(point);
    }
    NSIndexPath* indexPathForCell(UITableViewCell* cell) {
        return send<"indexPathForCell:", NSIndexPath*>(cell);
    }
    /// nil for one that is not in sight.
    UITableViewCell* cellForRowAtIndexPath(NSIndexPath* path) {
        return send<"cellForRowAtIndexPath:", UITableViewCell*>(path);
    }
    /// From the first row to the last.
    NSArray* visibleCells() { return send<"visibleCells", NSArray*>(); }
    NSArray* indexPathsForVisibleRows() { return send<"indexPathsForVisibleRows", NSArray*>(); }

    /// At the next layout everything is asked for again.
    void reloadData() { send<"reloadData">(); }
    /// The data source has the new rows already; a number that does not follow from the change raises
    /// NSInternalInconsistencyException.
    void insertRows(NSArray* paths, UITableViewRowAnimation animation) {
        send<"insertRowsAtIndexPaths:withRowAnimation:">(paths, animation);
    }
    void deleteRows(NSArray* paths, UITableViewRowAnimation animation) {
        send<"deleteRowsAtIndexPaths:withRowAnimation:">(paths, animation);
    }
    void reloadRows(NSArray* paths, UITableViewRowAnimation animation) {
        send<"reloadRowsAtIndexPaths:withRowAnimation:">(paths, animation);
    }
    void reloadSections(NSIndexSet* sections, UITableViewRowAnimation animation) {
        send<"reloadSections:withRowAnimation:">(sections, animation);
    }
    void moveRow(NSIndexPath* from, NSIndexPath* to) { send<"moveRowAtIndexPath:toIndexPath:">(from, to); }
    /// What is inserted and deleted between the two counts together.
    void beginUpdates() { send<"beginUpdates">(); }
    void endUpdates() { send<"endUpdates">(); }

    bool allowsSelection() { return send<"allowsSelection", bool>(); }
    void setAllowsSelection(bool allows) { send<"setAllowsSelection:">(allows); }
    bool allowsSelectionDuringEditing() { return send<"allowsSelectionDuringEditing", bool>(); }
    void setAllowsSelectionDuringEditing(bool allows) { send<"setAllowsSelectionDuringEditing:">(allows); }
    NSIndexPath* indexPathForSelectedRow() { return send<"indexPathForSelectedRow", NSIndexPath*>(); }
    /// The delegate is not notified.
    void selectRow(NSIndexPath* path, bool animated, UITableViewScrollPosition position) {
        send<"selectRowAtIndexPath:animated:scrollPosition:">(path, animated, position);
    }
    void deselectRow(NSIndexPath* path, bool animated) {
        send<"deselectRowAtIndexPath:animated:">(path, animated);
    }
    void scrollToRow(NSIndexPath* path, UITableViewScrollPosition position, bool animated) {
        send<"scrollToRowAtIndexPath:atScrollPosition:animated:">(path, position, animated);
    }
    bool isEditing() { return send<"isEditing", bool>(); }
    void setEditing(bool editing, bool animated) { send<"setEditing:animated:">(editing, animated); }
};

/// The first two are required.
struct UITableViewDataSource : objc::ProtocolInterface<"UITableViewDataSource"> {
    NSInteger numberOfRows(UITableView* table, NSInteger section) {
        return send<"tableView:numberOfRowsInSection:", NSInteger>(table, section);
    }
    UITableViewCell* cellForRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:cellForRowAtIndexPath:", UITableViewCell*>(table, path);
    }
    NSInteger numberOfSections(UITableView* table) {
        return send<"numberOfSectionsInTableView:", NSInteger>(table);
    }
    NSString* titleForHeader(UITableView* table, NSInteger section) {
        return send<"tableView:titleForHeaderInSection:", NSString*>(table, section);
    }
    NSString* titleForFooter(UITableView* table, NSInteger section) {
        return send<"tableView:titleForFooterInSection:", NSString*>(table, section);
    }
    /// Without it a row can be edited if the data source commits edits.
    bool canEditRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:canEditRowAtIndexPath:", bool>(table, path);
    }
    void commitEditing(UITableView* table, UITableViewCellEditingStyle style, NSIndexPath* path) {
        send<"tableView:commitEditingStyle:forRowAtIndexPath:">(table, style, path);
    }
    /// Without it a row can be moved if the data source moves rows.
    bool canMoveRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:canMoveRowAtIndexPath:", bool>(table, path);
    }
    void moveRow(UITableView* table, NSIndexPath* from, NSIndexPath* to) {
        send<"tableView:moveRowAtIndexPath:toIndexPath:">(table, from, to);
    }
};

/// A UIScrollViewDelegate, too. All optional.
struct UITableViewDelegate : objc::ProtocolInterface<"UITableViewDelegate"> {
    CGFloat heightForRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:heightForRowAtIndexPath:", CGFloat>(table, path);
    }
    CGFloat heightForHeader(UITableView* table, NSInteger section) {
        return send<"tableView:heightForHeaderInSection:", CGFloat>(table, section);
    }
    CGFloat heightForFooter(UITableView* table, NSInteger section) {
        return send<"tableView:heightForFooterInSection:", CGFloat>(table, section);
    }
    UIView* viewForHeader(UITableView* table, NSInteger section) {
        return send<"tableView:viewForHeaderInSection:", UIView*>(table, section);
    }
    UIView* viewForFooter(UITableView* table, NSInteger section) {
        return send<"tableView:viewForFooterInSection:", UIView*>(table, section);
    }
    void willDisplay(UITableView* table, UITableViewCell* cell, NSIndexPath* path) {
        send<"tableView:willDisplayCell:forRowAtIndexPath:">(table, cell, path);
    }
    void didEndDisplaying(UITableView* table, UITableViewCell* cell, NSIndexPath* path) {
        send<"tableView:didEndDisplayingCell:forRowAtIndexPath:">(table, cell, path);
    }
    bool shouldHighlightRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:shouldHighlightRowAtIndexPath:", bool>(table, path);
    }
    /// The row that is selected in its place; nil for none.
    NSIndexPath* willSelectRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:willSelectRowAtIndexPath:", NSIndexPath*>(table, path);
    }
    void didSelectRow(UITableView* table, NSIndexPath* path) {
        send<"tableView:didSelectRowAtIndexPath:">(table, path);
    }
    void accessoryButtonTapped(UITableView* table, NSIndexPath* path) {
        send<"tableView:accessoryButtonTappedForRowWithIndexPath:">(table, path);
    }
    void didDeselectRow(UITableView* table, NSIndexPath* path) {
        send<"tableView:didDeselectRowAtIndexPath:">(table, path);
    }
    /// Without it a row that can be edited is one that can be deleted.
    UITableViewCellEditingStyle editingStyleForRow(UITableView* table, NSIndexPath* path) {
        return send<"tableView:editingStyleForRowAtIndexPath:", UITableViewCellEditingStyle>(table, path);
    }
    NSString* titleForDeleteConfirmation(UITableView* table, NSIndexPath* path) {
        return send<"tableView:titleForDeleteConfirmationButtonForRowAtIndexPath:", NSString*>(table, path);
    }
    /// Where a row that is being moved goes instead.
    NSIndexPath* targetForMove(UITableView* table, NSIndexPath* from, NSIndexPath* proposed) {
        return send<"tableView:targetIndexPathForMoveFromRowAtIndexPath:toProposedIndexPath:", NSIndexPath*>(
            table, from, proposed);
    }
};
