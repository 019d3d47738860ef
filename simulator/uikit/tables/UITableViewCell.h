// The implementation of table cells: their parts, and what a table says of them.
#pragma once
#include "objc/class.h"
#include "platform/controls.h"
#include "platform/tables.h"

namespace sim {

struct TableCell : objc::Implements<TableCell, UITableViewCell> {
    struct Ivars {
        objc::strong<NSString> reuseIdentifier;
        UITableViewCellStyle style = UITableViewCellStyleDefault;
        objc::strong<UIView> contentView;
        objc::strong<UILabel> textLabel, detailTextLabel;
        objc::strong<UIImageView> imageView;
        UITableViewCellAccessoryType accessoryType = UITableViewCellAccessoryNone;
        objc::strong<UIView> accessoryView, accessoryMark;
        objc::strong<UIView> backgroundView, selectedBackgroundView;
        UITableViewCellSelectionStyle selectionStyle = UITableViewCellSelectionStyleDefault;
        bool selected = false, highlighted = false, editing = false, showsReorderControl = false;
        UIEdgeInsets separatorInset{};
        bool has_separator_inset = false;
        UITableViewCellEditingStyle editingStyle = UITableViewCellEditingStyleNone;
        /// What stands at the ends while the cell is edited, and the button that deletes.
        objc::strong<UIButton> editControl, deleteButton;
        objc::strong<UIControl> reorderControl;
        /// Not owned: the table that shows it clears it.
        UITableView* table = nullptr;
        UITableViewCellAccessoryType editingAccessoryType = UITableViewCellAccessoryNone;
        NSInteger indentationLevel = 0;
    };
    static constexpr CGFloat margin = 16, line_inset = 16;

    objc::strong<UITableViewCell> initWithFrame(CGRect frame);
    objc::strong<UITableViewCell> initWithStyle(UITableViewCellStyle style, NSString* reuse_identifier);
    NSString* reuseIdentifier() { return ivars().reuseIdentifier; }
    void prepareForReuse() {}
    UIView* contentView() { return ivars().contentView; }
    UILabel* textLabel();
    UILabel* detailTextLabel();
    UIImageView* imageView();
    UITableViewCellAccessoryType accessoryType() { return ivars().accessoryType; }
    void setAccessoryType(UITableViewCellAccessoryType type);
    UIView* accessoryView() { return ivars().accessoryView; }
    void setAccessoryView(UIView* view);
    UIView* backgroundView() { return ivars().backgroundView; }
    void setBackgroundView(UIView* view);
    UIView* selectedBackgroundView() { return ivars().selectedBackgroundView; }
    void setSelectedBackgroundView(UIView* view);
    bool isSelected() { return ivars().selected; }
    void setSelected(bool selected) { self()->setSelected(selected, false); }
    void setSelectedAnimated(bool selected, bool animated);
    bool isHighlighted() { return ivars().highlighted; }
    void setHighlighted(bool highlighted) { self()->setHighlighted(highlighted, false); }
    void setHighlightedAnimated(bool highlighted, bool animated);
    bool isEditing() { return ivars().editing; }
    void setEditing(bool editing) { self()->setEditing(editing, false); }
    void setEditingAnimated(bool editing, bool animated);
    UITableViewCellEditingStyle editingStyle() { return ivars().editingStyle; }
    UIEdgeInsets separatorInset() { return ivars().separatorInset; }
    void setSeparatorInset(UIEdgeInsets inset);
    void tintColorDidChange();
    void layoutSubviews();

    /// What the table says of the row before it lays the cell out: whether and how it can be edited, and
    /// whether its delete button is shown.
    void set_row(UITableView* table, UITableViewCellEditingStyle style, bool can_move);
    void show_delete_button(bool shown, NSString* title);
    bool shows_delete_button() { return ivars().deleteButton; }
    /// Where the line below the cell begins, from its leading edge.
    CGFloat line_start();

    void edit_pressed();
    void delete_pressed();
    void detail_pressed();

  private:
    CGFloat shown_mark_width();
    void show_background();
    void show_editing();
    void lay_out_texts(CGRect content);
    CGRect turned(CGRect frame, CGFloat width);
    objc::strong<UILabel> make_label(CGFloat size, UIColor* color);
};

/// A grip by which a row is moved, in a cell.
objc::strong<UIControl> make_reorder_control(UITableViewCell* cell);

}  // namespace sim
