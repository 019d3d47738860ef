// UIKit's tables.
#pragma once
#include "platform/scrolling.h"

struct UITableViewCell : objc::Interface<UITableViewCell, "UITableViewCell", UIView> {
    objc::strong<UITableViewCell> initWithStyle(NSInteger style, NSString* reuse_identifier) {
        return send<"initWithStyle:reuseIdentifier:", objc::strong<UITableViewCell>>(style, reuse_identifier);
    }
    NSString* reuseIdentifier() { return send<"reuseIdentifier", NSString*>(); }
    UIView* contentView() { return send<"contentView", UIView*>(); }
    /// Made when it is first asked for.
    UILabel* textLabel() { return send<"textLabel", UILabel*>(); }
    /// At the right end; nil for none.
    UIView* accessoryView() { return send<"accessoryView", UIView*>(); }
    void setAccessoryView(UIView* view) { send<"setAccessoryView:">(view); }
    bool isSelected() { return send<"isSelected", bool>(); }
    void setSelected(bool selected, bool animated) { send<"setSelected:animated:">(selected, animated); }
};

/// Rows below each other.
struct UITableView : objc::Interface<UITableView, "UITableView", UIScrollView> {
    /// Not retained.
    id dataSource() { return send<"dataSource", id>(); }
    void setDataSource(id source) { send<"setDataSource:">(source); }
    /// Of every row for which the delegate says nothing else.
    CGFloat rowHeight() { return send<"rowHeight", CGFloat>(); }
    void setRowHeight(CGFloat height) { send<"setRowHeight:">(height); }
    /// At the next layout everything is asked for again.
    void reloadData() { send<"reloadData">(); }
    /// From the first row to the last.
    NSArray* visibleCells() { return send<"visibleCells", NSArray*>(); }
};
