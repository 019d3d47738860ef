// Rows of tables: texts and an image, what stands at the ends, and how they are laid out.
#include "uikit/tables/UITableViewCell.h"

#include <algorithm>
#include <cmath>

#include "objc/string.h"
#include "runtime/not_modelled.h"
#include "uikit/tables/UITableView.h"
#include "uikit/tables/cell_pictures.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

namespace {

constexpr CGFloat text_size = 17, subtitle_size = 12, gap = 10;
/// How far the content moves aside for the control that deletes, and how wide a grip is.
constexpr CGFloat edit_width = 38, grip_width = 46;

UIColor* grey() { return UIColor::colorWithRGB(142 / 255.0, 142 / 255.0, 147 / 255.0, 1); }

bool runs_leftwards(UIView* view) {
    return view->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
}

}  // namespace

strong<UITableViewCell> TableCell::initWithFrame(CGRect) {
    return self()->initWithStyle(UITableViewCellStyleDefault, nullptr);
}

strong<UITableViewCell> TableCell::initWithStyle(UITableViewCellStyle style, NSString* reuse_identifier) {
    if (style != UITableViewCellStyleDefault && style != UITableViewCellStyleValue1 &&
        style != UITableViewCellStyleSubtitle)
        not_modelled("UITableViewCell", "initWithStyle:reuseIdentifier:",
                     "a style other than default (0), value 1 (1) and subtitle (3)");
    auto self = initialised_by_super<"initWithFrame:">(CGRect{{0, 0}, {320, 44}});
    if (!self) return nullptr;
    auto& parts = self->ivars();
    parts.style = style;
    parts.reuseIdentifier = strong<NSString>::adopt(reuse_identifier->send<"copy", NSString*>());
    parts.contentView = UIView::alloc()->initWithFrame(static_cast<UIView*>(self.get())->bounds());
    auto* view = static_cast<UIView*>(self.get());
    view->setBackgroundColor(UIColor::whiteColor());
    view->addSubview(parts.contentView);
    view->setClipsToBounds(true);
    return strong<UITableViewCell>(self.get());
}

// ---- Parts --------------------------------------------------------------------------------------

strong<UILabel> TableCell::make_label(CGFloat size, UIColor* color) {
    auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
    label->setFont(UIFont::systemFontOfSize(size));
    label->setTextColor(color);
    ivars().contentView->addSubview(label);
    self()->setNeedsLayout();
    return label;
}

UILabel* TableCell::textLabel() {
    auto& label = ivars().textLabel;
    if (!label) label = make_label(text_size, UIColor::blackColor());
    return label;
}

UILabel* TableCell::detailTextLabel() {
    auto& label = ivars().detailTextLabel;
    const bool is_subtitle = ivars().style == UITableViewCellStyleSubtitle;
    if (!label && ivars().style != UITableViewCellStyleDefault)
        label =
            make_label(is_subtitle ? subtitle_size : text_size, is_subtitle ? UIColor::blackColor() : grey());
    return label;
}

UIImageView* TableCell::imageView() {
    auto& view = ivars().imageView;
    if (!view) {
        view = UIImageView::make<"initWithFrame:">(CGRect{});
        ivars().contentView->addSubview(view);
        self()->setNeedsLayout();
    }
    return view;
}

void TableCell::setAccessoryType(UITableViewCellAccessoryType type) {
    if (type != UITableViewCellAccessoryNone && type != UITableViewCellAccessoryDisclosureIndicator &&
        type != UITableViewCellAccessoryCheckmark && type != UITableViewCellAccessoryDetailButton)
        not_modelled(
            "UITableViewCell", "setAccessoryType:",
            "a type other than none (0), disclosure indicator (1), checkmark (3) and detail button (4)");
    auto* self = this->self();
    ivars().accessoryType = type;
    ivars().accessoryMark->removeFromSuperview();
    ivars().accessoryMark = nullptr;
    if (type == UITableViewCellAccessoryNone) return self->setNeedsLayout();
    if (type == UITableViewCellAccessoryDetailButton) {
        UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
        button->setImage(detail_picture(), UIControlStateNormal);
        button->setAccessibilityLabel("More Info"_ns);
        button->setFrame({{0, 0}, {22, 44}});
        button->addTarget(self, objc::selector<"_detailPressed">(), UIControlEventTouchUpInside);
        ivars().accessoryMark = button;
        self->addSubview(button);
        return self->setNeedsLayout();
    }
    UIImage* picture = type == UITableViewCellAccessoryCheckmark ? checkmark_picture()
                                                                 : disclosure_picture(runs_leftwards(self));
    ivars().accessoryMark = strong<UIView>(UIImageView::alloc()->initWithImage(picture).get());
    self->addSubview(ivars().accessoryMark);
    self->setNeedsLayout();
}

void TableCell::setAccessoryView(UIView* view) {
    if (ivars().accessoryView == view) return;
    ivars().accessoryView->removeFromSuperview();
    ivars().accessoryView = view;
    if (view) self()->addSubview(view);
    self()->setNeedsLayout();
}

void TableCell::setBackgroundView(UIView* view) {
    ivars().backgroundView->removeFromSuperview();
    ivars().backgroundView = view;
    if (view) self()->insertSubview(view, 0);
    self()->setNeedsLayout();
}

void TableCell::setSelectedBackgroundView(UIView* view) {
    ivars().selectedBackgroundView->removeFromSuperview();
    ivars().selectedBackgroundView = view;
    show_background();
}

// ---- Selection ----------------------------------------------------------------------------------

// Grey behind everything, made when it is first needed.
void TableCell::show_background() {
    auto* self = this->self();
    auto& view = ivars().selectedBackgroundView;
    const bool marked = (ivars().selected || ivars().highlighted) &&
                        ivars().selectionStyle != UITableViewCellSelectionStyleNone;
    if (!marked) return view->removeFromSuperview();
    if (!view) {
        view = UIView::alloc()->initWithFrame({});
        view->setBackgroundColor(UIColor::colorWithRGB(0.85, 0.85, 0.855, 1));
    }
    self->insertSubview(view, ivars().backgroundView ? 1 : 0);
    self->setNeedsLayout();
}

void TableCell::setSelectedAnimated(bool selected, bool) {
    ivars().selected = selected;
    if (ivars().table) show_background();
}

void TableCell::setHighlightedAnimated(bool highlighted, bool) {
    ivars().highlighted = highlighted;
    if (ivars().table) show_background();
}

// ---- Editing ------------------------------------------------------------------------------------

void TableCell::setEditingAnimated(bool editing, bool) {
    ivars().editing = editing;
    show_editing();
}

void TableCell::set_row(UITableView* table, UITableViewCellEditingStyle style, bool can_move) {
    ivars().table = table;
    ivars().editingStyle = style;
    ivars().showsReorderControl = can_move;
    show_editing();
}

void TableCell::show_editing() {
    auto* self = this->self();
    auto& parts = ivars();
    const bool has_control = parts.editing && parts.editingStyle != UITableViewCellEditingStyleNone;
    NSString* text = parts.textLabel->text();
    if (has_control != (parts.editControl != nullptr)) {
        parts.editControl->removeFromSuperview();
        parts.editControl = nullptr;
        if (has_control) {
            const bool inserts = parts.editingStyle == UITableViewCellEditingStyleInsert;
            parts.editControl = UIButton::buttonWithType(UIButtonTypeCustom);
            parts.editControl->setImage(edit_picture(inserts), UIControlStateNormal);
            parts.editControl->addTarget(self, objc::selector<"_editPressed">(), UIControlEventTouchUpInside);
            self->addSubview(parts.editControl);
        }
    }
    if (parts.editControl && text)
        parts.editControl->setAccessibilityLabel(
            (parts.editingStyle == UITableViewCellEditingStyleInsert ? "Insert "_ns : "Delete "_ns)
                ->stringByAppendingString(text));
    const bool has_grip = parts.editing && parts.showsReorderControl;
    if (has_grip != (parts.reorderControl != nullptr)) {
        parts.reorderControl->removeFromSuperview();
        parts.reorderControl = has_grip ? make_reorder_control(self) : nullptr;
        if (has_grip) self->addSubview(parts.reorderControl);
    }
    if (parts.reorderControl && text)
        parts.reorderControl->setAccessibilityLabel("Reorder "_ns->stringByAppendingString(text));
    self->setNeedsLayout();
}

void TableCell::show_delete_button(bool shown, NSString* title) {
    auto& button = ivars().deleteButton;
    if (shown == (button != nullptr)) return;
    auto* self = this->self();
    self->setNeedsLayout();
    if (!shown) {
        button->removeFromSuperview();
        button = nullptr;
        return;
    }
    constexpr CGFloat least_width = 74, side = 15;
    button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setBackgroundColor(UIColor::colorWithRGB(1, 0.23, 0.19, 1));
    button->titleLabel()->setFont(UIFont::systemFontOfSize(text_size));
    button->setTitle(title, UIControlStateNormal);
    button->setFrame({{0, 0}, {std::max(least_width, button->sizeThatFits({}).width + 2 * side), 0}});
    button->addTarget(self, objc::selector<"_deletePressed">(), UIControlEventTouchUpInside);
    self->addSubview(button);
}

void TableCell::edit_pressed() {
    if (ivars().table) static_cast<TableView*>(ivars().table)->edit_pressed(self());
}
void TableCell::detail_pressed() {
    if (ivars().table) static_cast<TableView*>(ivars().table)->detail_pressed(self());
}
void TableCell::delete_pressed() {
    if (ivars().table) static_cast<TableView*>(ivars().table)->delete_pressed(self());
}

// ---- Layout -------------------------------------------------------------------------------------

void TableCell::setSeparatorInset(UIEdgeInsets inset) {
    ivars().separatorInset = inset;
    ivars().has_separator_inset = true;
    ivars().table->setNeedsLayout();
}

void TableCell::tintColorDidChange() {
    super<"tintColorDidChange">();
    ivars().accessoryMark->tintColorDidChange();
}

CGFloat TableCell::line_start() {
    if (ivars().has_separator_inset) return ivars().separatorInset.left;
    const CGFloat aside = ivars().editControl ? edit_width : 0;
    UIImage* image = ivars().imageView->image();
    return aside + line_inset + (image ? image->size().width + margin : 0);
}

CGFloat TableCell::shown_mark_width() {
    if (ivars().editing) return 0;
    UIView* mark = ivars().accessoryView ? ivars().accessoryView : ivars().accessoryMark;
    return mark ? mark->bounds().size.width + margin : 0;
}

/// Frames are calculated from left to right.
CGRect TableCell::turned(CGRect frame, CGFloat width) {
    if (runs_leftwards(self())) frame.origin.x = width - frame.origin.x - frame.size.width;
    return frame;
}

void TableCell::layoutSubviews() {
    super<"layoutSubviews">();
    auto* self = this->self();
    auto& parts = ivars();
    const CGSize size = self->bounds().size;
    const CGRect all{{0, 0}, size};
    for (UIView* background : {parts.backgroundView.get(), parts.selectedBackgroundView.get()})
        background->setFrame(all);
    const CGFloat pushed = parts.deleteButton ? parts.deleteButton->bounds().size.width : 0;
    const CGFloat start = parts.editControl ? edit_width : 0;
    const CGFloat grip = parts.reorderControl ? grip_width : 0;
    const CGFloat end = size.width - grip - shown_mark_width();
    auto place = [&](UIView* view, CGRect frame) {
        frame.origin.x -= pushed;
        view->setFrame(turned(frame, size.width));
    };
    place(parts.contentView, {{start, 0}, {std::max(0.0, end - start), size.height}});
    for (UIView* mark : {parts.accessoryView.get(), parts.accessoryMark.get()}) {
        if (!mark) continue;
        const CGSize its = mark->bounds().size;
        place(mark, {{end, (size.height - its.height) / 2}, its});
        mark->setHidden(parts.editing || (mark == parts.accessoryMark && parts.accessoryView));
    }
    if (parts.editControl) place(parts.editControl, {{8, 0}, {edit_width, size.height}});
    if (parts.reorderControl)
        place(parts.reorderControl, {{size.width - grip_width, 0}, {grip_width, size.height}});
    if (parts.deleteButton)
        parts.deleteButton->setFrame(turned({{size.width - pushed, 0}, {pushed, size.height}}, size.width));
    lay_out_texts({{0, 0}, {std::max(0.0, end - start), size.height}});
}

// The image, then the text; a second text is at the end, or below.
void TableCell::lay_out_texts(CGRect content) {
    auto& parts = ivars();
    const CGFloat width = content.size.width, height = content.size.height;
    auto place = [&](UIView* view, CGRect frame) { view->setFrame(turned(frame, width)); };
    CGFloat left = margin;
    if (UIImage* image = parts.imageView->image()) {
        const CGSize its = image->size();
        place(parts.imageView, {{left, std::round((height - its.height) / 2)}, its});
        left += its.width + margin;
    }
    const auto natural = runs_leftwards(self()) ? NSTextAlignmentRight : NSTextAlignmentNatural;
    for (UILabel* label : {parts.textLabel.get(), parts.detailTextLabel.get()})
        if (label && label->textAlignment() == NSTextAlignmentNatural) label->setTextAlignment(natural);
    const CGFloat room = std::max(0.0, width - left - margin);
    const CGSize second =
        parts.detailTextLabel->text()->length() ? parts.detailTextLabel->sizeThatFits({}) : CGSize{};
    if (parts.style == UITableViewCellStyleSubtitle && second.height > 0) {
        const CGFloat first_height = parts.textLabel->sizeThatFits({}).height;
        const CGFloat top = std::round((height - first_height - second.height) / 2);
        if (parts.textLabel) place(parts.textLabel, {{left, top}, {room, first_height}});
        place(parts.detailTextLabel, {{left, top + first_height}, {room, second.height}});
        return;
    }
    // The first text has what it needs, at most all.
    const CGFloat wanted = second.width > 0 ? parts.textLabel->sizeThatFits({}).width : room;
    const CGFloat first = std::min(wanted, room);
    if (parts.textLabel) place(parts.textLabel, {{left, 0}, {first, height}});
    if (!parts.detailTextLabel) return;
    const CGFloat rest = std::clamp(room - first - gap, 0.0, second.width);
    place(parts.detailTextLabel, {{left + room - rest, 0}, {rest, height}});
}

}  // namespace sim

using namespace objc::definition;
using sim::TableCell;

OBJC_CLASS(UITableViewCell, UIView, TableCell,
           ivar<"_reuseIdentifier", &TableCell::Ivars::reuseIdentifier>,
           ivar<"_style", &TableCell::Ivars::style>,
           ivar<"_contentView", &TableCell::Ivars::contentView>,
           ivar<"_textLabel", &TableCell::Ivars::textLabel>,
           ivar<"_detailTextLabel", &TableCell::Ivars::detailTextLabel>,
           ivar<"_imageView", &TableCell::Ivars::imageView>,
           ivar<"_accessoryType", &TableCell::Ivars::accessoryType>,
           ivar<"_accessoryView", &TableCell::Ivars::accessoryView>,
           ivar<"_accessoryMark", &TableCell::Ivars::accessoryMark>,
           ivar<"_backgroundView", &TableCell::Ivars::backgroundView>,
           ivar<"_selectedBackgroundView", &TableCell::Ivars::selectedBackgroundView>,
           property<"selectionStyle", &TableCell::Ivars::selectionStyle>,
           ivar<"_selected", &TableCell::Ivars::selected>,
           ivar<"_highlighted", &TableCell::Ivars::highlighted>,
           ivar<"_editing", &TableCell::Ivars::editing>,
           property<"showsReorderControl", &TableCell::Ivars::showsReorderControl>,
           ivar<"_separatorInset", &TableCell::Ivars::separatorInset>,
           ivar<"_hasSeparatorInset", &TableCell::Ivars::has_separator_inset>,
           ivar<"_editingStyle", &TableCell::Ivars::editingStyle>,
           ivar<"_editControl", &TableCell::Ivars::editControl>,
           ivar<"_deleteButton", &TableCell::Ivars::deleteButton>,
           ivar<"_reorderControl", &TableCell::Ivars::reorderControl>,
           ivar<"_table", &TableCell::Ivars::table>,
           property<"editingAccessoryType", &TableCell::Ivars::editingAccessoryType>,
           property<"indentationLevel", &TableCell::Ivars::indentationLevel>,
           method<"initWithFrame:", &TableCell::initWithFrame>,
           method<"initWithStyle:reuseIdentifier:", &TableCell::initWithStyle>,
           method<"reuseIdentifier", &TableCell::reuseIdentifier>,
           method<"prepareForReuse", &TableCell::prepareForReuse>,
           method<"contentView", &TableCell::contentView>,
           method<"textLabel", &TableCell::textLabel>,
           method<"detailTextLabel", &TableCell::detailTextLabel>,
           method<"imageView", &TableCell::imageView>,
           method<"accessoryType", &TableCell::accessoryType>,
           method<"setAccessoryType:", &TableCell::setAccessoryType>,
           method<"accessoryView", &TableCell::accessoryView>,
           method<"setAccessoryView:", &TableCell::setAccessoryView>,
           method<"backgroundView", &TableCell::backgroundView>,
           method<"setBackgroundView:", &TableCell::setBackgroundView>,
           method<"selectedBackgroundView", &TableCell::selectedBackgroundView>,
           method<"setSelectedBackgroundView:", &TableCell::setSelectedBackgroundView>,
           method<"isSelected", &TableCell::isSelected>,
           method<"setSelected:", &TableCell::setSelected>,
           method<"setSelected:animated:", &TableCell::setSelectedAnimated>,
           method<"isHighlighted", &TableCell::isHighlighted>,
           method<"setHighlighted:", &TableCell::setHighlighted>,
           method<"setHighlighted:animated:", &TableCell::setHighlightedAnimated>,
           method<"isEditing", &TableCell::isEditing>,
           method<"setEditing:", &TableCell::setEditing>,
           method<"setEditing:animated:", &TableCell::setEditingAnimated>,
           method<"editingStyle", &TableCell::editingStyle>,
           method<"separatorInset", &TableCell::separatorInset>,
           method<"setSeparatorInset:", &TableCell::setSeparatorInset>,
           method<"tintColorDidChange", &TableCell::tintColorDidChange>,
           method<"layoutSubviews", &TableCell::layoutSubviews>,
           method<"_editPressed", &TableCell::edit_pressed>,
           method<"_deletePressed", &TableCell::delete_pressed>,
           method<"_detailPressed", &TableCell::detail_pressed>)
